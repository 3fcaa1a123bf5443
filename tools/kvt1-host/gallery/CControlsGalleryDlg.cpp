#include "tools/kvt1-host/gallery/CControlsGalleryDlg.h"

#include "platform/WideFormat.h"

namespace kvt1::emu {
namespace {

// The surfaces a runway's obstacle limitation model is made of.
const wchar_t* const kSurfaces[] = {L"Approach",       L"Inner approach",   L"Transitional", L"Inner transitional",
                                    L"Balked landing", L"Inner horizontal", L"Conical",      L"Outer horizontal",
                                    L"Take-off climb"};

// The commands of the menu bar and of the note's context menu.
enum Command : unsigned {
  kNewModel = 1,
  kOpenModel,
  kExportModel,
  kClose,
  kShowGrid,
  kColorApproach,
  kColorTakeOff,
  kColorConical,
  kAbout,
  kShowSurfaces,
  kCopyCoordinates,
  kExportSurfaces,
};

}  // namespace

CControlsGalleryDlg::CControlsGalleryDlg(std::function<void(const std::wstring&)> print)
    : CHTMDialog(L"HTM_DLG_CONTROLS_GALLERY", nullptr), m_print(std::move(print)) {
  RegisterControl(m_menuBar);
  RegisterControl(m_surfaces);
  RegisterControl(m_length);
  RegisterControl(m_slope);
  RegisterControl(m_elevation);
}

void CControlsGalleryDlg::OnInitDialog() {
  FillMenuBar();
  FillTabs();
  SetUpFields();
}

void CControlsGalleryDlg::FillMenuBar() {
  SHTMMenuItem* file = m_menuBar.AddItem(L"File");
  m_menuBar.AddItem(L"New model", file, kNewModel);
  m_menuBar.AddItem(L"Open model...", file, kOpenModel);
  m_menuBar.AddSeparator(file);
  m_menuBar.AddItem(L"Export to <b>DXF</b>", file, kExportModel)->disabled = true;
  m_menuBar.AddItem(L"Close", file, kClose);
  SHTMMenuItem* view = m_menuBar.AddItem(L"View");
  m_menuBar.AddItem(L"Grid", view, kShowGrid)->checked = true;
  SHTMMenuItem* colours = m_menuBar.AddItem(L"Surface colours", view);
  m_menuBar.AddColorItem(L"Approach", L"#d9534f", colours, kColorApproach);
  m_menuBar.AddColorItem(L"Take-off climb", L"#2e8b57", colours, kColorTakeOff);
  m_menuBar.AddColorItem(L"Conical", L"#1f6fb2", colours, kColorConical);
  SHTMMenuItem* help = m_menuBar.AddItem(L"Help");
  m_menuBar.AddItem(L"About KVT", help, kAbout);
  m_menuBar.Render();
}

void CControlsGalleryDlg::FillTabs() {
  m_surfaces.SetCreatePanelsHidden(true);
  for (const wchar_t* surface : kSurfaces) {
    const int index = m_surfaces.AddTab(surface);
    m_surfaces.GetPanel(index).SetHtml(L"Parameters of the <b>" + std::wstring(surface) + L"</b> surface.");
  }
  m_surfaces.SetTabColor(0, 0xD9EBF7);
  m_surfaces.SelectTab(0);
  m_surfaces.UpdateScrollButtons();
}

void CControlsGalleryDlg::SetUpFields() {
  m_length.SetNumber(2400, 0);
  m_length.SetLimits(800.0, 4000.0);
  m_length.SetStep(100);
  m_length.SetTooltip(L"Length of the runway strip in metres, 800 to 4000");
  m_slope.SetNumber(2.0, 2);
  m_slope.SetLimits(1.0, 5.0);
  m_slope.SetTooltip(L"Slope of the approach surface", L"The slope follows the runway code");
  m_elevation.SetNumber(0, 1);
  m_elevation.SetLimits(std::nullopt, std::nullopt);
  m_elevation.SetTooltip(L"Threshold elevation above mean sea level");
}

void CControlsGalleryDlg::OnControlEvent(SHTMCtrlEventArgs& args) {
  if (args.control == &m_menuBar) {
    const auto& choice = static_cast<SHTMMenuCtrlEventArgs&>(args);
    if (choice.item == nullptr) return;
    m_print(platform::formatWide(L"gallery: menu command %u\n", choice.item->command));
    if (choice.item->command == kShowGrid) {
      choice.item->checked = !choice.item->checked;
      m_menuBar.CheckItem(*choice.item, choice.item->checked);
    } else if (choice.item->command == kClose) {
      Close();
    }
  } else if (args.control == &m_surfaces) {
    const auto& change = static_cast<SHTMTabCtrlEventArgs&>(args);
    m_print(L"gallery: surface tab " + m_surfaces.GetTabCaption(change.index) + L"\n");
  } else if (const auto* field = dynamic_cast<CHTMTextBoxCtrl*>(args.control)) {
    const auto& change = static_cast<SHTMTextBoxCtrlEventArgs&>(args);
    m_print(L"gallery: " + field->Id() + L" = " + change.text +
            (change.clamped ? L" (brought within its limits)" : L"") +
            (change.rejected ? L" (not a number: kept)" : L"") + L"\n");
  }
}

bool CControlsGalleryDlg::HasContextMenu(const CHTMElement&, const std::wstring& id) { return id == L"divNote"; }

void CControlsGalleryDlg::FillContextMenu(const std::wstring&, POINT, std::vector<SHTMMenuEntry>& entries) {
  entries.push_back(SHTMMenuEntry{L"Show surfaces", m_surfacesShown, false, kShowSurfaces});
  entries.push_back(SHTMMenuEntry{L"-"});
  entries.push_back(SHTMMenuEntry{L"Copy coordinates", false, false, kCopyCoordinates});
  entries.push_back(SHTMMenuEntry{L"Export surfaces...", false, true, kExportSurfaces});
}

void CControlsGalleryDlg::OnContextMenuCommand(const std::wstring& id, unsigned command) {
  if (command == kShowSurfaces) m_surfacesShown = !m_surfacesShown;
  m_print(platform::formatWide(L"gallery: context command %u on ", command) + id + L"\n");
}

}  // namespace kvt1::emu
