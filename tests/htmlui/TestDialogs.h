#pragma once
// The dialogs' test harness: our DOM engine as the process's engine, test
// pages in this program's resources, and a script that plays the user from
// a dialog timer (real Win32 timers under Wine, the headless clock elsewhere).
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMEngine.h"
#include "htmlui/engine/DomEngine.h"

namespace kvt1::testing {

// Runs its steps one per tick of timer 7, after the page came up.
class ScriptedDialog : public CHTMDialog {
 public:
  using Step = std::function<void(ScriptedDialog&)>;
  ScriptedDialog(const wchar_t* page, std::vector<Step> steps) : CHTMDialog(page, nullptr), steps_(std::move(steps)) {}

  std::vector<std::wstring> clicks;     // ids given to the button hook
  std::vector<std::wstring> monitored;  // names offered to the monitoring hook
  bool consumeClicks = false;
  int mainClicks = 0;
  bool dialogProperty = false;
  std::wstring windowTitle;

 protected:
  std::wstring ResolveTag(const std::wstring& tag) override;
  void OnInitDialog() override;
  bool OnButtonClick(const CHTMElement& element, const std::wstring& id, BEHAVIOR_EVENT_PARAMS& params) override;
  bool MonitorClick(const CHTMElement& element) override;
  void OnMainClick() override { ++mainClicks; }
  void OnTimer(std::uintptr_t id) override;

 private:
  std::vector<Step> steps_;
  std::size_t next_ = 0;
};

// Installs our DOM engine for one test and lets the headless clock run
// whenever a dialog waits.
class DialogTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  // Clicks the element with that id in the dialog's page.
  void click(ScriptedDialog& dialog, const std::wstring& id);

  html::DomEngine engine_;
};

}  // namespace kvt1::testing
