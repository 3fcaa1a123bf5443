#include "platform/Guid.h"

#include <objbase.h>

#include <cstring>

namespace kvt1::platform {

bool createGuid(Guid& out) {
  GUID guid;
  if (FAILED(CoCreateGuid(&guid))) return false;
  out.data1 = guid.Data1;
  out.data2 = guid.Data2;
  out.data3 = guid.Data3;
  std::memcpy(out.data4, guid.Data4, sizeof out.data4);
  return true;
}

}  // namespace kvt1::platform
