#include "tools/kvt1-host/core/HostObjects.h"

#include <algorithm>

#include "platform/CaseFolding.h"

namespace kvt1::emu {
namespace {

// Any status but eOk tells the module that the host refused.
constexpr auto kRefused = static_cast<Acad::ErrorStatus>(-1);

HINSTANCE resourceHandle(ArxCommandResource resource) {
#if KVT1_ARX_RELEASE >= 22
  return resource.instance();
#else
  return resource;
#endif
}

}  // namespace

const EmuClass& objectClass() {
  static const EmuClass cls(L"AcRxObject", nullptr);
  return cls;
}
const EmuClass& dictionaryClass() {
  static const EmuClass cls(L"AcRxDictionary", &objectClass());
  return cls;
}
const EmuClass& commandStackClass() {
  static const EmuClass cls(L"AcEdCommandStack", &objectClass());
  return cls;
}
const EmuClass& documentManagerClass() {
  static const EmuClass cls(L"AcApDocManager", &objectClass());
  return cls;
}

AcRxClass* CommandStack::isA() const { return const_cast<EmuClass*>(&commandStackClass()); }

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                           const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                           AcRxFunctionPtr functionAddr, AcEdUIContext*, int,
                                           ArxCommandResource resource, AcEdCommand**) {
  if (!cmdGroupName || !cmdGlobalName || !cmdLocalName || !functionAddr) return kRefused;
  // A group holds each global name once, as in the host.
  for (const Command& command : commands_) {
    if (platform::equalsIgnoringCase(command.group, cmdGroupName) &&
        platform::equalsIgnoringCase(command.globalName, cmdGlobalName))
      return kRefused;
  }
  commands_.push_back(
      {cmdGroupName, cmdGlobalName, cmdLocalName, commandFlags, functionAddr, resourceHandle(resource)});
  return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName) {
  if (!groupName) return kRefused;
  const auto end = std::remove_if(commands_.begin(), commands_.end(), [&](const Command& command) {
    return platform::equalsIgnoringCase(command.group, groupName);
  });
  if (end == commands_.end()) return kRefused;
  commands_.erase(end, commands_.end());
  return Acad::eOk;
}

const Command* CommandStack::find(const std::wstring& name) const {
  // The newest registration of a name hides older ones.
  for (auto it = commands_.rbegin(); it != commands_.rend(); ++it) {
    if (platform::equalsIgnoringCase(it->globalName, name) || platform::equalsIgnoringCase(it->localName, name))
      return &*it;
  }
  return nullptr;
}

AcRxClass* SystemRegistry::isA() const { return const_cast<EmuClass*>(&dictionaryClass()); }

AcRxObject* SystemRegistry::at(const ACHAR* key) const {
  if (key && platform::equalsIgnoringCase(key, ACRX_COMMAND_DOCK)) return &commands_;
  return nullptr;
}

AcRxClass* DocumentManager::isA() const { return const_cast<EmuClass*>(&documentManagerClass()); }

#if KVT1_ARX_RELEASE < 22
void DocumentManager::pushResourceHandle(HINSTANCE hNewResourceHandle) { stack_.push_back(hNewResourceHandle); }
#endif

void DocumentManager::pushAcadResourceHandle() { stack_.push_back(nullptr); }

void DocumentManager::popResourceHandle() {
  if (!stack_.empty()) stack_.pop_back();
}

}  // namespace kvt1::emu
