#pragma once
// The state of the emulated CAD host that the host functions act on: console
// output, open documents with their LISP function tables, the LISP call in
// progress, the host environment, queued expressions, recorded function help,
// the command stack and the document manager.
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/arx/ArxTypes.h"
#include "platform/CaseFolding.h"
#include "tools/kvt1-host/core/HostObjects.h"
#include "tools/kvt1-host/core/LispValue.h"

namespace kvt1::emu {

struct FunctionHelp {
  std::wstring function;
  std::wstring helpFile;
  std::wstring topic;
  int command = 0;
};

class EmulatedHost {
 public:
  static EmulatedHost& instance();

  // Back to a host with no documents, functions, commands, values or output sink.
  void reset();

  // Console output; without a sink it goes to standard output.
  void setOutput(std::function<void(const std::wstring&)> sink);
  void print(const std::wstring& text);
  static void writeStandardOutput(const std::wstring& text);

  // Documents are numbered from 1; the newest open one is current.
  int openDocument();
  void closeCurrentDocument();
  int currentDocument() const { return documents_.empty() ? 0 : documents_.back().id; }
  bool defineFunction(const std::wstring& name, int code);
  bool undefineFunction(const std::wstring& name, int code);
  std::optional<int> functionCode(const std::wstring& name) const;

  // The LISP call in progress. The host owns the argument list.
  void beginCall(int code, resbuf* args);
  bool inCall() const { return inCall_; }
  int callCode() const { return callCode_; }
  resbuf* callArgs() const { return callArgs_; }
  void setResult(LispValue result);
  // The call's result (nil when the module set none); releases the arguments.
  LispValue endCall();

  void setEnvironment(const std::wstring& name, const std::wstring& value);
  std::optional<std::wstring> environment(const std::wstring& name) const;

  void queueExpression(const std::wstring& expression) { queue_.push_back(expression); }
  std::vector<std::wstring> takeQueuedExpressions();

  void recordFunctionHelp(FunctionHelp help) { functionHelp_.push_back(std::move(help)); }
  const std::vector<FunctionHelp>& functionHelp() const { return functionHelp_; }

  CommandStack& commandStack() { return commands_; }
  SystemRegistry& systemRegistry() { return registry_; }
  DocumentManager& documentManager() { return documentManager_; }

 private:
  EmulatedHost() : registry_(commands_) {}

  struct Document {
    int id = 0;
    std::map<std::wstring, int, platform::LessIgnoringCase> functions;
  };

  std::function<void(const std::wstring&)> output_;
  std::vector<Document> documents_;
  int nextDocumentId_ = 1;
  bool inCall_ = false;
  int callCode_ = -1;
  resbuf* callArgs_ = nullptr;
  LispValue result_;
  std::map<std::wstring, std::wstring, platform::LessIgnoringCase> environment_;
  std::vector<std::wstring> queue_;
  std::vector<FunctionHelp> functionHelp_;
  CommandStack commands_;
  SystemRegistry registry_;
  DocumentManager documentManager_;
};

}  // namespace kvt1::emu
