#pragma once
// The conversions every control uses between its texts and colours and the
// page's HTML and CSS.
#include <string>

namespace kvt1 {

// No transparency given.
constexpr int kNoTransparency = 0x7FFFFFFF;

// A colour (red in the low byte) as CSS: "transparent" for -1, "rgb(r,g,b)"
// without transparency, else "rgba(r,g,b,a)" with a = 1 - transparency/100.
std::wstring ColorToCss(int color, int transparency = kNoTransparency);

// Blanks become "&nbsp;", line breaks "<br>", other carriage returns go.
// Nothing is escaped: callers may put markup into a control's text.
std::wstring TextToHtml(std::wstring text);

// "&nbsp;", "&gt;" and "&lt;" back to characters; "<br>" stays as it is, so
// the two conversions are deliberately not each other's inverse.
std::wstring HtmlToText(std::wstring html);

}  // namespace kvt1
