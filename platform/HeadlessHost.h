#pragma once
// A host program without a desktop (the host emulator, test programs) answers
// the module's message boxes, shell requests and help windows itself, and
// plays the user of its dialogs: it exports these functions from its main
// program, and the ports below use them when present.
// Elsewhere the system's own message box and shell do the work.
extern "C" {
typedef int (*Kvt1HeadlessMessageBoxFn)(const wchar_t* text, const wchar_t* caption, unsigned type);
typedef bool (*Kvt1HeadlessShellOpenFn)(const wchar_t* target, int showCommand);
typedef void* (*Kvt1HeadlessHtmlHelpFn)(const wchar_t* file, unsigned command, unsigned long long data);
// With real windows (Windows): a modal loop found its queue empty and is
// about to wait, and a dialog window was made (after WM_INITDIALOG).
typedef void (*Kvt1HeadlessIdleFn)();
typedef void (*Kvt1HeadlessWindowCreatedFn)(struct HWND__* window);
// Work for the main thread began (+1) or ended (-1); any thread.
typedef void (*Kvt1HeadlessPendingWorkFn)(int change);
}

#define KVT1_HEADLESS_MESSAGE_BOX "kvt1HeadlessMessageBox"
#define KVT1_HEADLESS_SHELL_OPEN "kvt1HeadlessShellOpen"
#define KVT1_HEADLESS_HTML_HELP "kvt1HeadlessHtmlHelp"
#define KVT1_HEADLESS_IDLE "kvt1HeadlessIdle"
#define KVT1_HEADLESS_WINDOW_CREATED "kvt1HeadlessWindowCreated"
#define KVT1_HEADLESS_PENDING_WORK "kvt1HeadlessPendingWork"

namespace kvt1::platform {

// The main program's export of that name, or null.
void* mainProgramSymbol(const char* name);

}  // namespace kvt1::platform
