#pragma once
// The host's run-time objects that the module reaches: the system registry
// dictionary, the command stack found in it, and the document manager's
// resource handle stack. Only the members the module calls are declared; a
// build for the real host takes the host SDK's headers instead.
#include "host/arx/ArxExport.h"
#include "host/arx/ArxTypes.h"

#define ACRX_COMMAND_DOCK L"ACAD_REGISTERED_COMMANDS"
#define ACRX_CMD_MODAL 0x00000000

typedef void (*AcRxFunctionPtr)();

class AcRxClass;
class AcEdUIContext;
class AcEdCommand;

class AcRxObject {
 public:
  virtual ~AcRxObject() = default;
  virtual AcRxClass* isA() const = 0;
  bool isKindOf(const AcRxClass* aClass) const;
};

class AcRxClass : public AcRxObject {
 public:
  KVT1_ARX_API bool isDerivedFrom(const AcRxClass* other) const;
};

inline bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
  const AcRxClass* own = isA();
  return own != nullptr && own->isDerivedFrom(aClass);
}

class AcRxDictionary : public AcRxObject {
 public:
  virtual AcRxObject* at(const ACHAR* key) const = 0;
};

#if KVT1_ARX_RELEASE >= 22
// From release 22 commands name their resources through this wrapper, which
// converts implicitly from an instance handle.
class AcRxResourceInstance {
 public:
  AcRxResourceInstance(HINSTANCE instance = nullptr) : instance_(instance) {}
  HINSTANCE instance() const { return instance_; }

 private:
  HINSTANCE instance_;
};
typedef const AcRxResourceInstance& ArxCommandResource;
#else
typedef HINSTANCE ArxCommandResource;
#endif

class AcEdCommandStack : public AcRxObject {
 public:
  static KVT1_ARX_API AcRxClass* desc();
  static AcEdCommandStack* cast(const AcRxObject* object) {
    return object != nullptr && object->isKindOf(desc())
               ? static_cast<AcEdCommandStack*>(const_cast<AcRxObject*>(object))
               : nullptr;
  }

  virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName, const ACHAR* cmdLocalName,
                                       Adesk::Int32 commandFlags, AcRxFunctionPtr functionAddr,
                                       AcEdUIContext* uiContext, int fcode, ArxCommandResource resource,
                                       AcEdCommand** cmdPtrRet) = 0;
  virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
};

class AcApDocManager : public AcRxObject {
 public:
#if KVT1_ARX_RELEASE < 22
  virtual void pushResourceHandle(HINSTANCE hNewResourceHandle) = 0;
#endif
  virtual void pushAcadResourceHandle() = 0;
  virtual void popResourceHandle() = 0;
};

extern "C" KVT1_ARX_API AcRxDictionary* acrxSysRegistry();
KVT1_ARX_API AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()
