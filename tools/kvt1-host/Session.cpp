#include "tools/kvt1-host/Session.h"

#include "host/arx/ArxExport.h"
#include "platform/CaseFolding.h"
#include "platform/WideFormat.h"
#include "tools/kvt1-host/LispReader.h"
#include "tools/kvt1-host/core/EmulatedHost.h"
#include "tools/kvt1-host/core/ResultBuffers.h"
#include "tools/kvt1-host/gallery/ControlsGallery.h"

namespace kvt1::emu {
namespace {

EmulatedHost& host() { return EmulatedHost::instance(); }

}  // namespace

Session::Session(std::function<void(const std::wstring&)> sink)
    : sink_(std::move(sink)),
      director_([this](const std::wstring& text) { print(text); },
                [this](int line, const std::wstring& message) { fault(line, message); }) {
  host().reset();
  host().setOutput([this](const std::wstring& text) { print(text); });
}

Session::~Session() {
  unload();
  host().reset();
}

void Session::print(const std::wstring& text) {
  if (text.empty()) return;
  atLineStart_ = text.back() == L'\n';
  if (sink_) {
    sink_(text);
    return;
  }
  EmulatedHost::writeStandardOutput(text);
}

void Session::fault(int line, const std::wstring& message) {
  ++faults_;
  if (!atLineStart_) print(L"\n");
  print(platform::formatWide(L"; error: line %d: %s\n", line, message.c_str()));
}

void Session::printQueued() {
  for (const std::wstring& expression : host().takeQueuedExpressions()) print(L"queued: " + expression + L"\n");
}

void Session::setEnvironment(const std::wstring& name, const std::wstring& value) {
  host().setEnvironment(name, value);
}

bool Session::load(const std::wstring& modulePath) {
  modulePath_ = modulePath;
  module_ = platform::DynamicLibrary::load(modulePath);
  if (!module_.isLoaded()) {
    fault(0, L"cannot load the module: " + module_.error());
    return false;
  }
  entry_ = reinterpret_cast<EntryPoint>(module_.symbol("acrxEntryPoint"));
  const auto apiVersion = reinterpret_cast<int (*)()>(module_.symbol("acrxGetApiVersion"));
  if (entry_ == nullptr || apiVersion == nullptr) {
    fault(0, L"the module does not export acrxEntryPoint and acrxGetApiVersion");
    module_.release();
    entry_ = nullptr;
    return false;
  }
  if (apiVersion() != KVT1_ARX_RELEASE) {
    fault(0, platform::formatWide(L"the module is built for host release %d; this host is release %d", apiVersion(),
                                  KVT1_ARX_RELEASE));
    module_.release();
    entry_ = nullptr;
    return false;
  }
  if (entry_(AcRx::kInitAppMsg, module_.handle()) != AcRx::kRetOK) {
    fault(0, L"the module refused to initialise (kRetError); the host unloads it");
    entry_(AcRx::kUnloadAppMsg, module_.handle());
    module_.release();
    entry_ = nullptr;
    return false;
  }
  printQueued();
  openDocument();
  return true;
}

void Session::idle(bool waitForPendingWork) {
  DialogDirector::idle(waitForPendingWork ? idleBoundMs_ : 0);
  printQueued();
}

void Session::unload() {
  if (entry_ == nullptr) return;
  idle(true);
  while (host().currentDocument() != 0) closeDocument();
  entry_(AcRx::kUnloadAppMsg, module_.handle());
  printQueued();
  entry_ = nullptr;
  module_.release();
}

void Session::openDocument() {
  host().openDocument();
  if (entry_ && entry_(AcRx::kLoadDwgMsg, nullptr) != AcRx::kRetOK) {
    fault(0, L"the module could not set up the new drawing (kRetError)");
  }
  printQueued();
}

void Session::closeDocument() {
  if (host().currentDocument() == 0) return;
  if (entry_) entry_(AcRx::kUnloadDwgMsg, nullptr);
  host().closeCurrentDocument();
}

bool Session::runCommand(const std::wstring& name, int line) {
  const std::wstring key = platform::upperCase(name);
  if (key == L"NEW") {
    openDocument();
  } else if (key == L"CLOSE") {
    closeDocument();
  } else if (key == L"IDLE") {
    idle(true);
  } else if (key == L"GALLERY") {
    showControlsGallery([this](const std::wstring& text) { print(text); });
  } else if (key == L"RELOAD") {
    // The host ends and starts again with the same module.
    const std::wstring path = modulePath_;
    unload();
    if (!load(path)) return false;
  } else if (const Command* command = host().commandStack().find(name)) {
    command->function();
    printQueued();
  } else {
    fault(line, L"unknown command: " + name);
    return false;
  }
  return true;
}

void Session::runScript(const std::wstring& script) {
  LispReader reader(script);
  while (std::optional<ScriptItem> item = reader.next()) {
    if (!item->error.empty()) {
      fault(item->line, item->error);
      continue;
    }
    if (!item->directive.empty()) {
      if (echo_) print(L"Command: @" + item->directive + L"\n");
      std::wstring error;
      if (std::optional<DialogDirective> directive = parseDialogDirective(item->directive, item->line, error)) {
        director_.add(std::move(*directive));
      } else {
        fault(item->line, error);
      }
      continue;
    }
    if (echo_) print(L"Command: " + toLispText(item->form) + L"\n");
    if (item->form.kind == LispValue::Kind::Symbol) {
      runCommand(item->form.text, item->line);
    } else {
      LispValue result;
      if (evaluate(item->form, item->line, result)) {
        if (!atLineStart_) print(L"\n");
        print(toLispText(result) + L"\n");
        printQueued();
      }
    }
    idle(false);
    director_.reportUnplayed();
  }
  idle(true);
  director_.reportUnplayed();
}

bool Session::evaluate(const LispValue& form, int line, LispValue& result) {
  switch (form.kind) {
    case LispValue::Kind::Symbol:
      // Variables are not kept; an unbound symbol is nil, as in AutoLISP.
      result = LispValue::nil();
      return true;
    case LispValue::Kind::List:
      return callFunction(form, line, result);
    default:
      result = form;
      return true;
  }
}

bool Session::callFunction(const LispValue& form, int line, LispValue& result) {
  const LispValue& head = form.items.front();
  if (head.kind != LispValue::Kind::Symbol) {
    fault(line, L"bad function: " + toLispText(head));
    return false;
  }
  const std::wstring name = head.text;
  if (platform::upperCase(name) == L"QUOTE") {
    result = form.items.size() > 1 ? form.items[1] : LispValue::nil();
    return true;
  }

  std::vector<LispValue> args;
  for (std::size_t i = 1; i < form.items.size(); ++i) {
    LispValue value;
    if (!evaluate(form.items[i], line, value)) return false;
    args.push_back(std::move(value));
  }

  // The host's own environment functions.
  if (platform::upperCase(name) == L"GETENV" || platform::upperCase(name) == L"SETENV") {
    const bool set = platform::upperCase(name) == L"SETENV";
    if (args.size() != (set ? 2u : 1u) || args[0].kind != LispValue::Kind::String ||
        (set && args[1].kind != LispValue::Kind::String)) {
      fault(line, L"bad argument type or count: " + name);
      return false;
    }
    if (set) host().setEnvironment(args[0].text, args[1].text);
    const std::optional<std::wstring> value = host().environment(args[0].text);
    result = value ? LispValue::fromString(*value) : LispValue::nil();
    return true;
  }

  const std::optional<int> code = host().functionCode(name);
  if (!code || entry_ == nullptr) {
    fault(line, L"no function definition: " + name);
    return false;
  }
  host().beginCall(*code, toArgumentList(args));
  entry_(AcRx::kInvkSubrMsg, nullptr);
  result = host().endCall();
  return true;
}

}  // namespace kvt1::emu
