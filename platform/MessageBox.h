#pragma once
// The standard message box: text, caption and a type that combines a button
// set with an icon, answered with the code of the button pressed.
#include <string>

namespace kvt1::platform {

// Button sets (the low four bits of the type) and answers, as Windows numbers them.
enum : unsigned {
  kMbOk = 0x0,
  kMbOkCancel = 0x1,
  kMbAbortRetryIgnore = 0x2,
  kMbYesNoCancel = 0x3,
  kMbYesNo = 0x4,
  kMbRetryCancel = 0x5,
  kMbIconError = 0x10,
  kMbIconQuestion = 0x20,
  kMbIconWarning = 0x30,
  kMbIconInformation = 0x40,
};
enum : int { kIdOk = 1, kIdCancel = 2, kIdAbort = 3, kIdRetry = 4, kIdIgnore = 5, kIdYes = 6, kIdNo = 7 };

// The answer of the box's default button: the first of its set.
int defaultMessageBoxAnswer(unsigned type);

// Shows the box over owner (null: the desktop) and waits for the answer.
int showMessageBox(void* owner, const std::wstring& text, const std::wstring& caption, unsigned type);

}  // namespace kvt1::platform
