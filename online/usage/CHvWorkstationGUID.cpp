#include "online/usage/CHvWorkstationGUID.h"

#include <cstdint>

#include "platform/Registry.h"
#include "platform/RegistryValues.h"

namespace Hv {
namespace {

using kvt1::platform::RegistryAccess;
using kvt1::platform::RegistryKey;
using kvt1::platform::RegistryRoot;

const wchar_t kValueName[] = L"HVID";

bool readStoredGuid(const std::wstring& keyPath, kvt1::platform::Guid& guid) {
  RegistryKey key;
  if (RegistryKey::open(RegistryRoot::CurrentUser, keyPath, RegistryAccess::Read, key) != kvt1::platform::kRegSuccess) {
    return false;
  }
  const std::optional<std::wstring> text = kvt1::platform::readStringValue(key, kValueName);
  return text && kvt1::platform::parseGuid(*text, guid);
}

void storeGuid(const std::wstring& keyPath, const std::wstring& text) {
  RegistryKey key;
  if (RegistryKey::create(RegistryRoot::CurrentUser, keyPath, RegistryAccess::Full, key) !=
      kvt1::platform::kRegSuccess) {
    return;
  }
  key.setValue(kValueName, kvt1::platform::kRegSz, text.c_str(),
               static_cast<std::uint32_t>(text.size() * sizeof(wchar_t)));
}

}  // namespace

CHvWorkstationGUID::CHvWorkstationGUID(const std::wstring& productKeyPath) {
  if (readStoredGuid(productKeyPath, m_guid)) return;
  kvt1::platform::createGuid(m_guid);
  storeGuid(productKeyPath, Text());
}

}  // namespace Hv
