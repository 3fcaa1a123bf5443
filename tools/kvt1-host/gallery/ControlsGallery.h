#pragma once
// The emulator's own dialog that shows every kind of control of the dialog
// framework at work: a menu bar, a context menu, a tab set wider than its
// box, numeric text boxes with limits, and tooltips. It runs on an HTML
// engine of the emulator's own, with pages from the emulator's resources, so
// that it needs no module; the script plays it like any dialog.
#include <functional>
#include <string>

namespace kvt1::emu {

// Shows the gallery modally and prints what its controls report; prints why
// when it cannot be shown (no HTML engine on this system).
void showControlsGallery(const std::function<void(const std::wstring&)>& print);

}  // namespace kvt1::emu
