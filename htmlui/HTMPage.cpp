#include "htmlui/HTMPage.h"

#include <cwctype>
#include <string_view>

#include "platform/CodePage.h"
#include "platform/TextDecoding.h"
#include "platform/WideFormat.h"

namespace kvt1 {
namespace {

constexpr std::uint32_t kWsChild = 0x40000000;
constexpr std::uint32_t kWsPopup = 0x80000000;
constexpr std::uint32_t kWsCaption = 0x00C00000;
constexpr std::uint32_t kWsSysMenu = 0x00080000;
constexpr std::uint32_t kWsThickFrame = 0x00040000;
constexpr std::uint32_t kWsExDlgModalFrame = 0x00000001;
constexpr std::uint32_t kWsExTopmost = 0x00000008;
constexpr std::uint32_t kWsExWindowEdge = 0x00000100;

// The longest URL the engine's requests are read up to.
constexpr std::size_t kMaxUrl = 260;

bool equalsWithoutCase(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::towupper(a[i]) != std::towupper(b[i])) return false;
  }
  return true;
}

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
  styles.exStyle = markers.splash ? kWsExTopmost : markers.child ? 0 : kWsExDlgModalFrame | kWsExWindowEdge;
  if (markers.child) {
    styles.style = kWsChild;
  } else if (markers.resizeable) {
    styles.style = kWsPopup | kWsCaption | kWsSysMenu | kWsThickFrame;
  } else if (markers.splash) {
    styles.style = kWsPopup;
  } else if (markers.noCloseButton) {
    styles.style = kWsPopup | kWsCaption;
  } else {
    styles.style = kWsPopup | kWsCaption | kWsSysMenu;
  }
  if (!markers.child) styles.style |= baseStyle;
  return styles;
}

std::optional<int> standardButtonResult(const std::wstring& name) {
  static const wchar_t* const kNames[] = {L"OK", L"CANCEL", L"ABORT ", L"RETRY ", L"IGNORE",
                                          L"YES", L"NO", L"CLOSE", L"HELP"};
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
  if (extension.empty() || equalsWithoutCase(extension, L"HTML")) return {platform::kResourceTypeHtml, name};
  return {extension, name};
}

}  // namespace kvt1
