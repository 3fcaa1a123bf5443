#pragma once
// Result buffer lists as the emulated host allocates, builds, converts and
// releases them. Strings in a list are owned by the list.
#include <cstdarg>
#include <vector>

#include "host/arx/ArxTypes.h"
#include "tools/kvt1-host/core/LispValue.h"

namespace kvt1::emu {

void releaseList(resbuf* list);

// The list that acutBuildList's (type, value) pairs describe, up to a lone 0
// or RTNONE; null for an unknown type or unbalanced RTLB/RTLE.
resbuf* buildList(int firstType, std::va_list rest);

// A LISP call's arguments as the host hands them to a module.
resbuf* toArgumentList(const std::vector<LispValue>& args);

// A result list as LISP sees it.
LispValue fromResultList(const resbuf* list);

}  // namespace kvt1::emu
