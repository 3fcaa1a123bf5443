#include "platform/ProcessHeap.h"

#include <windows.h>

namespace kvt1::platform {

void useHostProcessHeap() {
  // 2 selects the low-fragmentation heap; a heap that cannot take it keeps its allocator.
  ULONG lowFragmentation = 2;
  HeapSetInformation(GetProcessHeap(), HeapCompatibilityInformation, &lowFragmentation, sizeof lowFragmentation);
}

}  // namespace kvt1::platform
