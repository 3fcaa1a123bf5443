#include "htmlui/HTMCtrlInPlace.h"

#include <string>

#include "htmlui/CHTMCtrl.h"
#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMEngine.h"
#include "platform/Unicode.h"

namespace kvt1 {
namespace {

bool setPixels(html::HtmlEngine& engine, HELEMENT element, const char* style, int pixels) {
  const std::wstring value = std::to_wstring(pixels) + L"px";
  return engine.SetStyleAttribute(element, style, value.c_str()) == HLDOM_OK;
}

}  // namespace

bool CreateControlInPlace(CHTMCtrl& control, CHTMDialog& page, const std::wstring& markup, int left, int top, int width,
                          int height) {
  html::HtmlEngine* engine = GetHtmlEngine();
  const CHTMElement& body = page.Body();
  if (engine == nullptr || !body.IsValid()) return false;
  const std::string bytes = platform::toUtf8(markup);
  if (engine->SetElementHtml(body.Handle(), reinterpret_cast<LPCBYTE>(bytes.data()), static_cast<DWORD>(bytes.size()),
                             SIH_APPEND_AFTER_LAST) != HLDOM_OK ||
      !control.Bind(page, page.Root())) {
    return false;
  }
  page.RegisterControl(control);
  const HELEMENT element = control.Element().Handle();
  const bool done = engine->SetStyleAttribute(element, "position", L"absolute") == HLDOM_OK &&
                    setPixels(*engine, element, "left", left) && setPixels(*engine, element, "top", top) &&
                    width >= 0 && setPixels(*engine, element, "width", width) && height >= 0 &&
                    setPixels(*engine, element, "height", height);
  control.Element().Update(true);
  return done;
}

}  // namespace kvt1
