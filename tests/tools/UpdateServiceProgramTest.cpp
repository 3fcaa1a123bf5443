// The stand-alone update service program, as the demo starts it.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "online/CHvHttpClientManager.h"
#include "platform/Unicode.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"

namespace kvt1::testing {
namespace {

class UpdateServiceProgram : public ::testing::Test {
 protected:
  void TearDown() override {
    if (child > 0) {
      kill(child, SIGKILL);
      waitpid(child, nullptr, 0);
    }
    Hv::Http::CHvHttpClientManager::Release();
  }

  // Starts the program and waits for its port file.
  std::string start(const std::vector<std::string>& options) {
    const std::string program = platform::toUtf8(programFolder()) + "/kvt1-update-service";
    const std::string portFile = platform::toUtf8(installation.folder()) + "/port";
    std::vector<std::string> arguments = {program, "--answers", platform::toUtf8(installation.folder()) + "/answers",
                                          "--port-file", portFile};
    arguments.insert(arguments.end(), options.begin(), options.end());
    child = fork();
    if (child == 0) {
      std::vector<char*> argv;
      for (std::string& argument : arguments) argv.push_back(argument.data());
      argv.push_back(nullptr);
      if (!freopen("/dev/null", "w", stdout)) _exit(126);
      execv(program.c_str(), argv.data());
      _exit(127);
    }
    for (int attempt = 0; attempt < 200; ++attempt) {
      std::ifstream file(portFile);
      unsigned port = 0;
      if (file >> port) return "127.0.0.1:" + std::to_string(port);
      std::this_thread::sleep_for(std::chrono::milliseconds(25));
    }
    return "";
  }

  std::wstring url(const std::string& host, int product) {
    return platform::fromUtf8("http://" + host + "/AutomaticUpdateServiceLibrary/CheckForUpdates?product=" +
                              std::to_string(product) + "&version=1.1.0.1&language=ENG");
  }

  TestInstallation installation;
  pid_t child = -1;
};

TEST_F(UpdateServiceProgram, AnswersFromItsFilesAndStopsOnRequest) {
  installation.writeFile(L"answers\\30.json", nothingJson());
  const std::string host = start({});
  ASSERT_FALSE(host.empty());
  ASSERT_TRUE(Hv::Http::CHvHttpClientManager::Instance()->Load(programFolder()));
  std::wstring body;
  ASSERT_TRUE(Hv::Http::CHvHttpClientManager::Instance()->Get(url(host, 30), body));
  EXPECT_EQ(platform::toUtf8(body), nothingJson());
  EXPECT_FALSE(Hv::Http::CHvHttpClientManager::Instance()->Get(url(host, 31), body));  // no file: 404

  ASSERT_EQ(kill(child, SIGTERM), 0);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  child = -1;
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST_F(UpdateServiceProgram, ServesTheModeItWasStartedWith) {
  installation.writeFile(L"answers\\30.json", nothingJson());
  const std::string host = start({"--mode", "500"});
  ASSERT_FALSE(host.empty());
  ASSERT_TRUE(Hv::Http::CHvHttpClientManager::Instance()->Load(programFolder()));
  std::wstring body = L"untouched";
  EXPECT_FALSE(Hv::Http::CHvHttpClientManager::Instance()->Get(url(host, 30), body));
  EXPECT_EQ(body, L"untouched");
}

TEST(UpdateServiceProgramOptions, RefusesUnknownModesAndMissingAnswers) {
  const std::string program = platform::toUtf8(programFolder()) + "/kvt1-update-service";
  for (const std::string& command :
       {program + " --answers . --mode sometimes", program + " --mode hang", program + " --answers"}) {
    const int status = std::system((command + " 2>/dev/null").c_str());
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << command;
  }
}

TEST(UpdateServiceProgramOptions, HelpDescribesBothEndpointsAndTheUploadBody) {
  const std::string command = platform::toUtf8(programFolder()) + "/kvt1-update-service --help";
  std::FILE* pipe = popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string help;
  char chunk[1024];
  for (std::size_t got; (got = std::fread(chunk, 1, sizeof chunk, pipe)) > 0;) help.append(chunk, got);
  const int status = pclose(pipe);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  for (const char* part : {"GET /AutomaticUpdateServiceLibrary/CheckForUpdates", "POST /UsageReportService/Upload",
                           "{\"Product\":N,\"Frame\":\"BASE64\"}", "4-byte little-endian length", "zlib",
                           "\"UsageReportUrl\"", "https", "--mode"}) {
    EXPECT_NE(help.find(part), std::string::npos) << part << "\n" << help;
  }
}

}  // namespace
}  // namespace kvt1::testing
