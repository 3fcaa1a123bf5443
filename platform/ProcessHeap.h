#pragma once
// The heap of a process that plays the CAD host.
namespace kvt1::platform {

// Gives the process heap the low-fragmentation front end that Windows turns
// on for every process since Vista and that Wine leaves off: a host process
// under Wine then allocates as the real host does. Nothing to do elsewhere.
void useHostProcessHeap();

}  // namespace kvt1::platform
