#pragma once
// The host's run-time objects as the emulator provides them: class
// descriptors, the system registry dictionary, the command stack and the
// document manager's resource stack.
#include <string>
#include <vector>

#include "host/arx/ArxClasses.h"

namespace kvt1::emu {

class EmuClass : public AcRxClass {
 public:
  EmuClass(const wchar_t* name, const EmuClass* parent) : name_(name), parent_(parent) {}
  AcRxClass* isA() const override { return nullptr; }
  const wchar_t* name() const { return name_; }
  const EmuClass* parent() const { return parent_; }

 private:
  const wchar_t* name_;
  const EmuClass* parent_;
};

const EmuClass& objectClass();
const EmuClass& dictionaryClass();
const EmuClass& commandStackClass();
const EmuClass& documentManagerClass();

struct Command {
  std::wstring group;
  std::wstring globalName;
  std::wstring localName;
  Adesk::Int32 flags = 0;
  AcRxFunctionPtr function = nullptr;
  HINSTANCE resource = nullptr;
};

class CommandStack : public AcEdCommandStack {
 public:
  AcRxClass* isA() const override;
  Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName, const ACHAR* cmdLocalName,
                               Adesk::Int32 commandFlags, AcRxFunctionPtr functionAddr, AcEdUIContext* uiContext,
                               int fcode, ArxCommandResource resource, AcEdCommand** cmdPtrRet) override;
  Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;

  // The command with this global or local name, compared without case.
  const Command* find(const std::wstring& name) const;
  const std::vector<Command>& commands() const { return commands_; }
  void clear() { commands_.clear(); }

 private:
  std::vector<Command> commands_;
};

class SystemRegistry : public AcRxDictionary {
 public:
  explicit SystemRegistry(CommandStack& commands) : commands_(commands) {}
  AcRxClass* isA() const override;
  AcRxObject* at(const ACHAR* key) const override;

 private:
  CommandStack& commands_;
};

class DocumentManager : public AcApDocManager {
 public:
  AcRxClass* isA() const override;
#if KVT1_ARX_RELEASE < 22
  void pushResourceHandle(HINSTANCE hNewResourceHandle) override;
#endif
  void pushAcadResourceHandle() override;
  void popResourceHandle() override;

  // Resource handles pushed and not yet popped; null stands for the host's own.
  const std::vector<HINSTANCE>& resourceStack() const { return stack_; }
  void clear() { stack_.clear(); }

 private:
  std::vector<HINSTANCE> stack_;
};

}  // namespace kvt1::emu
