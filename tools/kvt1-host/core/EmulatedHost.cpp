#include "tools/kvt1-host/core/EmulatedHost.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "platform/Unicode.h"
#include "tools/kvt1-host/core/ResultBuffers.h"

namespace kvt1::emu {

EmulatedHost& EmulatedHost::instance() {
  static EmulatedHost host;
  return host;
}

void EmulatedHost::reset() {
  if (inCall_) endCall();
  output_ = nullptr;
  documents_.clear();
  nextDocumentId_ = 1;
  environment_.clear();
  queue_.clear();
  functionHelp_.clear();
  commands_.clear();
  documentManager_.clear();
}

void EmulatedHost::setOutput(std::function<void(const std::wstring&)> sink) { output_ = std::move(sink); }

void EmulatedHost::print(const std::wstring& text) {
  if (output_) {
    output_(text);
  } else {
    writeStandardOutput(text);
  }
}

void EmulatedHost::writeStandardOutput(const std::wstring& text) {
  const std::string bytes = platform::toUtf8(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
  std::fflush(stdout);
}

int EmulatedHost::openDocument() {
  documents_.push_back({nextDocumentId_++, {}});
  return documents_.back().id;
}

void EmulatedHost::closeCurrentDocument() {
  if (!documents_.empty()) documents_.pop_back();
}

bool EmulatedHost::defineFunction(const std::wstring& name, int code) {
  if (documents_.empty() || name.empty()) return false;
  documents_.back().functions[name] = code;
  return true;
}

bool EmulatedHost::undefineFunction(const std::wstring& name, int code) {
  if (documents_.empty()) return false;
  auto& functions = documents_.back().functions;
  const auto it = functions.find(name);
  if (it == functions.end() || it->second != code) return false;
  functions.erase(it);
  return true;
}

std::optional<int> EmulatedHost::functionCode(const std::wstring& name) const {
  if (documents_.empty()) return std::nullopt;
  const auto& functions = documents_.back().functions;
  const auto it = functions.find(name);
  if (it == functions.end()) return std::nullopt;
  return it->second;
}

void EmulatedHost::beginCall(int code, resbuf* args) {
  if (inCall_) endCall();
  inCall_ = true;
  callCode_ = code;
  callArgs_ = args;
  result_ = LispValue::nil();
}

void EmulatedHost::setResult(LispValue result) { result_ = std::move(result); }

LispValue EmulatedHost::endCall() {
  releaseList(callArgs_);
  callArgs_ = nullptr;
  callCode_ = -1;
  inCall_ = false;
  return std::exchange(result_, LispValue::nil());
}

void EmulatedHost::setEnvironment(const std::wstring& name, const std::wstring& value) { environment_[name] = value; }

std::optional<std::wstring> EmulatedHost::environment(const std::wstring& name) const {
  const auto it = environment_.find(name);
  if (it == environment_.end()) return std::nullopt;
  return it->second;
}

std::vector<std::wstring> EmulatedHost::takeQueuedExpressions() { return std::exchange(queue_, {}); }

}  // namespace kvt1::emu
