#pragma once
// The workstation's identifier in usage reports: the GUID stored as "HVID"
// under the user's product key, made and stored there the first time.
#include <string>

#include "platform/Guid.h"

namespace Hv {

class CHvWorkstationGUID {
 public:
  // Reads "HVID" (REG_SZ, braced form) from the key under the current user;
  // when it cannot be read, makes a new GUID and stores it there. A failed
  // store is ignored: the new GUID still serves this run.
  explicit CHvWorkstationGUID(const std::wstring& productKeyPath);

  const kvt1::platform::Guid& Get() const { return m_guid; }
  std::wstring Text() const { return kvt1::platform::guidText(m_guid); }

 private:
  kvt1::platform::Guid m_guid;
};

}  // namespace Hv
