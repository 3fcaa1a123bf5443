#pragma once
// The system's compiled-HTML help viewer, loaded on first use. On Windows it
// is the HTML Help control registered under the classes root; elsewhere a CHM
// viewer on the PATH (xchm), started detached.
#include <cstdint>
#include <string>

namespace kvt1::platform {

constexpr unsigned kHhDisplayToc = 1;    // HH_DISPLAY_TOC: the table of contents
constexpr unsigned kHhHelpContext = 15;  // HH_HELP_CONTEXT: the topic with a context number

// Shows file with command and data (a context number for kHhHelpContext),
// owned by owner (null: the desktop).
// The viewer's window, or null when the viewer is unavailable or has no such topic.
void* htmlHelp(void* owner, const std::wstring& file, unsigned command, std::uintptr_t data);

// Whether a viewer could be loaded (loading it if not yet tried).
bool htmlHelpAvailable();

}  // namespace kvt1::platform
