#pragma once
// The HTML engine that the dialogs of this process use: the htmlayout.dll
// binding on Windows, our own DOM engine elsewhere (and in tests). Null
// while none is available; dialogs then fail to open.
#include "htmlui/engine/HtmlEngine.h"

namespace kvt1 {

html::HtmlEngine* GetHtmlEngine();
void SetHtmlEngine(html::HtmlEngine* engine);

}  // namespace kvt1
