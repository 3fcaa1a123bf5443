#pragma once
// The calling thread's active window: the owner of a message box that
// belongs to no dialog of the module.
namespace kvt1::platform {

// GetActiveWindow; null where there is no desktop or no active window.
void* activeWindow();

}  // namespace kvt1::platform
