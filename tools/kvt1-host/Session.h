#pragma once
// One run of the emulated host: loads a module, sends it the host's messages
// in the host's order, and evaluates script forms against it, printing what
// the host's command line would show.
#include <functional>
#include <string>

#include "host/arx/ArxTypes.h"
#include "platform/DynamicLibrary.h"
#include "tools/kvt1-host/DialogDirector.h"
#include "tools/kvt1-host/core/LispValue.h"

namespace kvt1::emu {

class Session {
 public:
  // Output goes to sink, or to standard output without one.
  explicit Session(std::function<void(const std::wstring&)> sink = nullptr);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  void setEnvironment(const std::wstring& name, const std::wstring& value);
  // Prints each form or command as "Command: ..." before running it.
  void setEcho(bool echo) { echo_ = echo; }

  // Loads the module file, initialises it and opens the first drawing.
  bool load(const std::wstring& modulePath);
  // Waits for the module's pending work (see idle), closes the open drawings
  // and unloads the module.
  void unload();

  // The host's idle: handles what the module posted to the main thread, and
  // waits (up to the idle bound) while it still has work pending. Runs
  // between script lines without waiting, and after the last one.
  void idle(bool waitForPendingWork);
  // The bound of that wait, 6,000 ms of real time until set.
  void setIdleBound(unsigned milliseconds) { idleBoundMs_ = milliseconds; }

  // Every dialog that opens from now on is drawn into a PNG file in folder.
  void setRenderFolder(const std::wstring& folder) { director_.setRenderFolder(folder, 0); }

  // Evaluates each form of the script; faults are reported and skipped.
  // Dialog directives wait for the dialogs of the next call or command;
  // those that none took are reported after it.
  void runScript(const std::wstring& script);

  // Host commands: a module's command, NEW and CLOSE for drawings, IDLE for
  // the host's idle with its wait, or RELOAD: unload the module and load it
  // again, as a new start of the host.
  bool runCommand(const std::wstring& name, int line);
  void openDocument();
  void closeDocument();

  int faults() const { return faults_; }

 private:
  typedef AcRx::AppRetCode (*EntryPoint)(AcRx::AppMsgCode, void*);

  void print(const std::wstring& text);
  void fault(int line, const std::wstring& message);
  void printQueued();
  bool evaluate(const LispValue& form, int line, LispValue& result);
  bool callFunction(const LispValue& form, int line, LispValue& result);

  std::function<void(const std::wstring&)> sink_;
  bool atLineStart_ = true;
  std::wstring modulePath_;
  platform::DynamicLibrary module_;
  EntryPoint entry_ = nullptr;
  int faults_ = 0;
  bool echo_ = false;
  unsigned idleBoundMs_ = 6000;
  DialogDirector director_;
};

}  // namespace kvt1::emu
