// Dialogs driven as a user drives them: pointer and key messages posted to
// the dialog window at the places where the layout put the elements (real
// windows under Wine, the headless desktop elsewhere).
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "htmlui/engine/AutomationMessages.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "platform/DialogWindow.h"
#include "tests/htmlui/TestDialogs.h"

namespace kvt1::testing {
namespace {

using Step = ScriptedDialog::Step;

// A dialog whose note has a context menu of three entries.
class MenuDialog : public ScriptedDialog {
 public:
  using ScriptedDialog::ScriptedDialog;
  std::vector<unsigned> commands;

 protected:
  bool HasContextMenu(const CHTMElement&, const std::wstring& id) override { return id == L"note"; }
  void FillContextMenu(const std::wstring&, POINT, std::vector<SHTMMenuEntry>& entries) override {
    entries = {{L"Copy", false, false, 11}, {L"-", false, false, 0}, {L"Paste", false, false, 12}};
  }
  void OnContextMenuCommand(const std::wstring&, unsigned command) override { commands.push_back(command); }
};

class PointerInputTest : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    engine_.setLayoutProvider(std::make_unique<html::LitehtmlLayout>());
  }

  // The middle of the first element that selector finds, in client coordinates.
  static bool middleOf(HWND dialog, const std::wstring& selector, int& x, int& y) {
    html::AutomationQuery query;
    query.selector = selector.c_str();
    if (platform::sendMessage(dialog, html::kWmAutomationLocate, 0, reinterpret_cast<std::intptr_t>(&query)) != 1 ||
        !query.visible)
      return false;
    x = (query.rect.left + query.rect.right) / 2;
    y = (query.rect.top + query.rect.bottom) / 2;
    return true;
  }

  // Posts what a press and release of a mouse button at the element does.
  static Step pressOn(const std::wstring& selector, bool right = false) {
    return [selector, right](ScriptedDialog& d) {
      int x = 0, y = 0;
      ASSERT_TRUE(middleOf(d.GetHwnd(), selector, x, y))
          << "no visible " << std::string(selector.begin(), selector.end());
      const std::intptr_t at = (static_cast<std::intptr_t>(y) << 16) | (x & 0xFFFF);
      platform::postMessage(d.GetHwnd(), WM_MOUSEMOVE, 0, at);
      platform::postMessage(d.GetHwnd(), right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? 2 : 1, at);
      platform::postMessage(d.GetHwnd(), right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, at);
    };
  }
};

TEST_F(PointerInputTest, APressOnAButtonEndsTheDialogWithItsResult) {
  const struct {
    const wchar_t* button;
    int result;
  } cases[] = {{L"btnOk", 1}, {L"btnCancel", 2}, {L"btnYes", 6}, {L"btnNo", 7}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.button, c.button + std::wcslen(c.button)));
    ScriptedDialog dialog(L"HTM_DLG_POINTER", {pressOn(std::wstring(L"#") + c.button)});
    EXPECT_EQ(dialog.DoModal(), c.result);
  }
}

TEST_F(PointerInputTest, APressBesideTheButtonsLeavesTheDialogOpen) {
  bool open = false;
  ScriptedDialog dialog(
      L"HTM_DLG_POINTER",
      {pressOn(L"#note"), [&](ScriptedDialog& d) { open = platform::isWindow(d.GetHwnd()); }, pressOn(L"#btnCancel")});
  EXPECT_EQ(dialog.DoModal(), 2);
  EXPECT_TRUE(open);
}

TEST_F(PointerInputTest, TypedCharactersReachTheTextBoxThePointerFocused) {
  std::wstring typed;
  ScriptedDialog dialog(
      L"HTM_DLG_POINTER",
      {pressOn(L"#txtName"),
       [](ScriptedDialog& d) {
         for (wchar_t c : std::wstring(L"KVT 1")) platform::postMessage(d.GetHwnd(), WM_CHAR, c, 0);
       },
       [&](ScriptedDialog& d) { typed = d.ElementById(L"txtName").GetAttribute("value"); }, pressOn(L"#btnOk")});
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_EQ(typed, L"KVT 1");
}

TEST_F(PointerInputTest, AContextMenuItemChosenWithThePointerReachesTheOwner) {
  MenuDialog dialog(L"HTM_DLG_POINTER",
                    {pressOn(L"#note", true), pressOn(L"menu li:last-child"), pressOn(L"#btnCancel")});
  EXPECT_EQ(dialog.DoModal(), 2);
  EXPECT_EQ(dialog.commands, std::vector<unsigned>{12});
}

}  // namespace
}  // namespace kvt1::testing
