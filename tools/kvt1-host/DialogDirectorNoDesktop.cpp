// Without a headless desktop the module's dialogs are real windows, or fail
// to open for want of an engine: the director plays nothing on them.
#include "tools/kvt1-host/DialogDirector.h"

namespace kvt1::emu {

void DialogDirector::attach() {}
void DialogDirector::detach() {}

}  // namespace kvt1::emu
