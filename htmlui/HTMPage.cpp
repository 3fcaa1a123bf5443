#include "htmlui/HTMPage.h"

#include <string_view>

#include "platform/CaseFolding.h"
#include "platform/CodePage.h"
#include "platform/TextDecoding.h"
#include "platform/WideFormat.h"
#include "platform/Win32.h"

namespace kvt1 {
namespace {

// The longest URL the engine's requests are read up to.
constexpr std::size_t kMaxUrl = 260;

}  // namespace

const wchar_t kMainClickElement[] = L"MAINCLICKELEMENT";

std::optional<std::wstring> loadPageResource(void* image, const platform::ResourceId& name) {
  auto data = platform::findResource(image, platform::kResourceTypeHtml, name);
  if (!data) return std::nullopt;
  return platform::decodeText(std::string_view(reinterpret_cast<const char*>(data->bytes), data->size),
                              platform::kCodePageUtf8);
}

std::wstring cutAfterHtmlEnd(std::wstring page) {
  const std::size_t end = page.find(L"</html>");
  if (end != std::wstring::npos) page.erase(end + 7);
  return page;
}

void substitutePageTags(std::wstring& page, const std::function<std::wstring(const std::wstring&)>& resolve) {
  for (int round = 0; round < kMaxPageTagRounds; ++round) {
    const std::size_t open = page.find(L"<[");
    if (open == std::wstring::npos) return;
    const std::size_t close = page.find(L"]>", open + 2);
    if (close == std::wstring::npos) return;
    const std::wstring tag = page.substr(open + 2, close - open - 2);
    std::wstring replacement = resolve(tag);
    if (replacement.empty()) replacement = platform::formatWide(L"UNKNOWN TAG USED (%s)", tag.c_str());
    const std::wstring whole = L"<[" + tag + L"]>";
    for (std::size_t at = page.find(whole); at != std::wstring::npos; at = page.find(whole, at + replacement.size())) {
      page.replace(at, whole.size(), replacement);
    }
  }
}

PageMarkers findPageMarkers(const std::wstring& page) {
  auto has = [&page](const wchar_t* marker) { return page.find(marker) != std::wstring::npos; };
  PageMarkers markers;
  markers.resizeable = has(L"fpresizeable");
  markers.dontMonitor = has(L"hvdontmonitor");
  markers.splash = has(L"fpsplash");
  markers.child = has(L"fpchild");
  markers.noCloseButton = has(L"noclosebutton");
  return markers;
}

WindowStyles dialogWindowStyles(const PageMarkers& markers, std::uint32_t baseStyle) {
  WindowStyles styles;
  styles.exStyle = markers.splash ? WS_EX_TOPMOST : markers.child ? 0 : WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE;
  if (markers.child) {
    styles.style = WS_CHILD;
  } else if (markers.resizeable) {
    styles.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
  } else if (markers.splash) {
    styles.style = WS_POPUP;
  } else if (markers.noCloseButton) {
    styles.style = WS_POPUP | WS_CAPTION;
  } else {
    styles.style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
  }
  if (!markers.child) styles.style |= baseStyle;
  return styles;
}

std::optional<int> standardButtonResult(const std::wstring& name) {
  static const wchar_t* const kNames[] = {L"OK",  L"CANCEL", L"ABORT ", L"RETRY ", L"IGNORE",
                                          L"YES", L"NO",     L"CLOSE",  L"HELP"};
  for (int i = 0; i < 9; ++i) {
    if (name == kNames[i]) return i + 1;
  }
  return std::nullopt;
}

PageResourceName resourceForUrl(const std::wstring& url) {
  std::wstring name = url.substr(0, kMaxUrl);
  const std::size_t dot = name.rfind(L'.');
  if (dot == std::wstring::npos) return {platform::kResourceTypeHtml, name};
  const std::wstring extension = name.substr(dot + 1);
  name.erase(dot);
  if (extension.empty() || platform::equalsIgnoringCase(extension, L"HTML")) return {platform::kResourceTypeHtml, name};
  return {extension, name};
}

}  // namespace kvt1
