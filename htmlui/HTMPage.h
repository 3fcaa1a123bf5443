#pragma once
// A dialog's page before the engine sees it: taken from the module's RT_HTML
// resources, cut after "</html>", its "<[tag]>" page tags replaced, and read
// for the markers that shape the dialog's window.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/Resources.h"

namespace kvt1 {

// The page resource (type 23) named name in image, as text: UTF-8, or UTF-16LE
// with a byte order mark. Nothing when the resource is missing.
std::optional<std::wstring> loadPageResource(void* image, const platform::ResourceId& name);

// The page up to and including the first "</html>"; the whole page without one.
std::wstring cutAfterHtmlEnd(std::wstring page);

// Replaces every "<[tag]>" by resolve(tag), or by "UNKNOWN TAG USED (tag)"
// when that is empty, searching again from the start after each tag, until
// no "<[" with a following "]>" is left. A replacement that brings its own tag
// back would never end: after kMaxPageTagRounds rounds the page is left as it is.
constexpr int kMaxPageTagRounds = 10000;
void substitutePageTags(std::wstring& page, const std::function<std::wstring(const std::wstring&)>& resolve);

// The markers found anywhere in the page text.
struct PageMarkers {
  bool resizeable = false;     // "fpresizeable"
  bool dontMonitor = false;    // "hvdontmonitor"
  bool splash = false;         // "fpsplash"
  bool child = false;          // "fpchild"
  bool noCloseButton = false;  // "noclosebutton"
};
PageMarkers findPageMarkers(const std::wstring& page);

struct WindowStyles {
  std::uint32_t style = 0;
  std::uint32_t exStyle = 0;
};
// The window styles of a dialog with these markers, on the subclass's base style.
WindowStyles dialogWindowStyles(const PageMarkers& markers, std::uint32_t baseStyle);

// The result of a standard button name ("OK" 1 ... "HELP" 9, with "ABORT " and
// "RETRY " carrying their blank); nothing for any other name.
std::optional<int> standardButtonResult(const std::wstring& name);
extern const wchar_t kMainClickElement[];

// The resource that a URL asked for by the engine names: the part after the
// last "." is the type (RT_HTML when it is "HTML" or missing), the rest the name.
struct PageResourceName {
  platform::ResourceId type;
  std::wstring name;
};
PageResourceName resourceForUrl(const std::wstring& url);

}  // namespace kvt1
