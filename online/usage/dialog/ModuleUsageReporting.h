#pragma once
// The module's use of the usage report: consent and the run's report at
// start-up, feature counts from the LISP application, the merge into the
// report file at unload. Nothing here lets an exception reach the host.
#include <string>

#include "platform/DialogWindow.h"

namespace kvt1 {

// Settles consent (asking with the consent dialog while the main window is
// hidden, when nothing is recorded) and, with consent, starts the run's
// report and a due send. True when usage is collected in this run.
bool startUsageReporting(HWND mainWindow);

// One use of the feature named by the LISP application's key.
void countUsageFeature(const std::wstring& key);

// Waits for a running send, merges the run into the report file and
// releases the manager.
void finishUsageReporting();

}  // namespace kvt1
