#pragma once
// What the modules still owe the main thread: work started on their worker
// threads whose results have not yet been delivered (counted through the
// program's KVT1_HEADLESS_PENDING_WORK export).
namespace kvt1::emu {

int pendingModuleWork();

}  // namespace kvt1::emu
