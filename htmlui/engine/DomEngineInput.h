#pragma once
// The part of our DOM engine's window procedure that answers what a user's
// pointer does (hover, press and release of the left button), the keys and the
// automation messages of AutomationMessages.h.
#include "htmlui/engine/DomEngine.h"

namespace kvt1::html {

// Answers msg for the view of hwnd; handled tells whether it was one of those.
LRESULT answerInput(DomEngine& engine, HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, bool& handled);

}  // namespace kvt1::html
