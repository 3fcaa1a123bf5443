#include "htmlui/HTMCtrlText.h"

#include "platform/WideFormat.h"
#include "text/Placeholders.h"

namespace kvt1 {

using NTxtRes::ReplaceAll;

std::wstring ColorToCss(int color, int transparency) {
  if (color == -1) return L"transparent";
  const int red = color & 0xFF;
  const int green = (color >> 8) & 0xFF;
  const int blue = (color >> 16) & 0xFF;
  if (transparency == kNoTransparency) return platform::formatWide(L"rgb(%d,%d,%d)", red, green, blue);
  const double alpha = 1.0 - transparency / 100.0;
  return platform::formatWide(L"rgba(%d,%d,%d,%0.1f)", red, green, blue, alpha);
}

std::wstring TextToHtml(std::wstring text) {
  ReplaceAll(text, L" ", L"&nbsp;");
  ReplaceAll(text, L"\r\n", L"<br>");
  ReplaceAll(text, L"\n", L"<br>");
  ReplaceAll(text, L"\r", L"");
  return text;
}

std::wstring HtmlToText(std::wstring html) {
  ReplaceAll(html, L"&nbsp;", L" ");
  ReplaceAll(html, L"&gt;", L">");
  ReplaceAll(html, L"&lt;", L"<");
  return html;
}

}  // namespace kvt1
