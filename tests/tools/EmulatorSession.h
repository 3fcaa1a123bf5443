#pragma once
// A session of the emulator with the real module file built beside the test
// program, in a throwaway installation.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/ModulePath.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"
#include "tests/common/TestInstallation.h"
#include "tools/kvt1-host/Session.h"

namespace kvt1::emu {

// The module file built beside this test program, as the host would load it.
inline std::wstring modulePath() { return splitModulePath(platform::thisModulePath()).folder + KVT1_TEST_MODULE_NAME; }

// The system's folder separator, with which the emulator names its pictures.
#ifdef _WIN32
inline const std::wstring kSeparator = L"\\";
#else
inline const std::wstring kSeparator = L"/";
#endif

class EmulatorSession : public ::testing::Test {
 protected:
  void start(const std::wstring& supportPath = L"") {
    session = std::make_unique<Session>([this](const std::wstring& text) { output += text; });
    if (!supportPath.empty()) session->setEnvironment(L"ACAD", supportPath);
    ASSERT_TRUE(session->load(modulePath())) << platform::toUtf8(output);
  }

  std::wstring run(const std::wstring& script) {
    output.clear();
    session->runScript(script);
    return output;
  }

  testing::TestInstallation installation;
  std::wstring output;
  std::unique_ptr<Session> session;
};

}  // namespace kvt1::emu
