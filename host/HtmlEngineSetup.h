#pragma once
// The HTML engine of the module's dialogs, made at initialisation and undone
// at unload: the binding of htmlayout.dll when that library lies beside the
// module with every export the dialogs need (Windows only); otherwise our DOM
// engine, laid out and drawn by litehtml. While there is an engine it is the
// current one, and messages are shown as HTML dialogs.
#include <memory>

#include "htmlui/CHTMMessageDialog.h"
#include "htmlui/engine/HtmlEngine.h"
#include "platform/DynamicLibrary.h"

namespace kvt1 {

class HtmlEngineSetup {
 public:
  HtmlEngineSetup() = default;
  ~HtmlEngineSetup() { stop(); }
  HtmlEngineSetup(const HtmlEngineSetup&) = delete;
  HtmlEngineSetup& operator=(const HtmlEngineSetup&) = delete;

  // library: the loaded htmlayout.dll, kept loaded until after stop().
  // Pages get their style sheets and pictures from their dialogs.
  void start(const platform::DynamicLibrary& library);
  // Restores the built-in message handler, leaves no engine current and
  // destroys this one. Nothing when none was made.
  void stop();

  html::HtmlEngine* engine() const { return m_engine.get(); }

 private:
  std::unique_ptr<html::HtmlEngine> m_engine;
  CHTMMsgHandler m_messages;
};

}  // namespace kvt1
