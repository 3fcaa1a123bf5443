// What the network costs the host: the module's start (initialisation, the
// first drawing, the first LISP call) with the update service silent,
// stalled in its connection, refused, unresolvable or answering, beside a
// start with the check switched off; and the unload while a usage upload to
// a silent service runs.
#include <benchmark/benchmark.h>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <chrono>
#include <thread>
#include <vector>

#include "host/ModulePath.h"
#include "host/identity/ProductIdentity.h"
#include "online/CHvHttpClientManager.h"
#include "platform/DynamicLibrary.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"
#include "tools/kvt1-host/core/EmulatedHost.h"
#include "tools/kvt1-host/core/ResultBuffers.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace {

using kvt1::emu::EmulatedHost;
using kvt1::platform::RegistryRoot;
using kvt1::service::ServiceMode;
typedef AcRx::AppRetCode (*EntryPoint)(AcRx::AppMsgCode, void*);

#ifdef _WIN32
using NativeSocket = SOCKET;
void closeSocket(NativeSocket socket) { closesocket(socket); }
void setNonBlocking(NativeSocket socket) {
  u_long on = 1;
  ioctlsocket(socket, FIONBIO, &on);
}
#else
using NativeSocket = int;
void closeSocket(NativeSocket socket) { close(socket); }
void setNonBlocking(NativeSocket socket) { fcntl(socket, F_SETFL, fcntl(socket, F_GETFL) | O_NONBLOCK); }
#endif

// A port on 127.0.0.1 that listens but never accepts, its queue filled by
// connections of its own: a further connection stalls in its handshake.
class StalledPort {
 public:
  StalledPort() {
#ifdef _WIN32
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
#endif
    listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(listener_, 0) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
      return;
    }
    port_ = ntohs(address.sin_port);
    // Connections complete while the queue has room; the first that does not is the stall.
    for (int i = 0; i < 64; ++i) {
      const NativeSocket filler = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
      setNonBlocking(filler);
      connect(filler, reinterpret_cast<sockaddr*>(&address), sizeof address);
      fillers_.push_back(filler);
      fd_set writable;
      FD_ZERO(&writable);
      FD_SET(filler, &writable);
      timeval wait = {0, 200000};
      if (select(static_cast<int>(filler) + 1, nullptr, &writable, nullptr, &wait) == 0) {
        stalls_ = true;
        break;
      }
    }
  }
  ~StalledPort() {
    for (NativeSocket filler : fillers_) closeSocket(filler);
    closeSocket(listener_);
  }
  // "127.0.0.1:<port>" once a connection stalls there; empty otherwise.
  std::string hostAndPort() const { return stalls_ ? "127.0.0.1:" + std::to_string(port_) : std::string(); }

 private:
  NativeSocket listener_;
  unsigned short port_ = 0;
  std::vector<NativeSocket> fillers_;
  bool stalls_ = false;
};

enum class Service { SwitchedOff, Answering, Silent, Stalled, Refused, Unresolvable };

// The module file built beside this program, with the host's calls into it.
class Module {
 public:
  Module() {
    EmulatedHost::instance().reset();
    EmulatedHost::instance().setOutput([](const std::wstring&) {});
    const std::wstring folder = kvt1::splitModulePath(kvt1::platform::thisModulePath()).folder;
    // A host loads the module once per process: the HTTP library, and the
    // TLS libraries below it, are loaded once for all the starts measured.
    httpClient_ = kvt1::platform::DynamicLibrary::load(folder + Hv::Http::kHttpClientLibraryName);
    library_ = kvt1::platform::DynamicLibrary::load(folder + KVT1_BENCH_MODULE_NAME);
    entry_ = reinterpret_cast<EntryPoint>(library_.symbol("acrxEntryPoint"));
  }
  bool loaded() const { return entry_ != nullptr; }

  // Initialisation, the first drawing and a first LISP call, as the host starts.
  void start() {
    EmulatedHost& host = EmulatedHost::instance();
    entry_(AcRx::kInitAppMsg, library_.handle());
    host.openDocument();
    entry_(AcRx::kLoadDwgMsg, nullptr);
    host.beginCall(host.functionCode(L"kvt1_GetSettings").value_or(-1),
                   kvt1::emu::toArgumentList({kvt1::emu::LispValue::fromString(L"##120")}));
    entry_(AcRx::kInvkSubrMsg, nullptr);
    benchmark::DoNotOptimize(host.endCall());
  }
  void unload() {
    entry_(AcRx::kUnloadDwgMsg, nullptr);
    EmulatedHost::instance().closeCurrentDocument();
    entry_(AcRx::kUnloadAppMsg, library_.handle());
  }

 private:
  kvt1::platform::DynamicLibrary httpClient_;
  kvt1::platform::DynamicLibrary library_;
  EntryPoint entry_ = nullptr;
};

void setMachineString(const kvt1::testing::TestInstallation& installation, const wchar_t* name,
                      const std::string& value) {
  kvt1::testing::setRegistryString(installation, RegistryRoot::LocalMachine, kvt1::productKeyPath(), name,
                                   kvt1::platform::fromUtf8(value));
}

void moduleStart(benchmark::State& state, Service kind) {
  kvt1::testing::TestInstallation installation;
  kvt1::testing::setConsent(installation, 0);
  kvt1::service::UpdateService service;
  StalledPort stalled;
  if (!service.start()) return state.SkipWithError("no local port");
  service.setAnswer(kvt1::kProductNumber, kvt1::testing::nothingJson());
  std::string host = service.hostAndPort();
  switch (kind) {
    case Service::SwitchedOff:
      kvt1::testing::setMachineDword(installation, L"DisableUpdateCheck", 1);
      break;
    case Service::Answering:
      break;
    case Service::Silent:
      service.setMode(ServiceMode::Hang);
      break;
    case Service::Stalled:
      host = stalled.hostAndPort();
      if (host.empty()) return state.SkipWithError("no connection stalled");
      break;
    case Service::Refused:
      service.stop();
      break;
    case Service::Unresolvable:
      host = "updates.kvt1.invalid";
      break;
  }
  setMachineString(installation, L"CheckUpdateUrl", host);

  Module module;
  if (!module.loaded()) return state.SkipWithError("module not loaded");
  for (auto _ : state) {
    module.start();
    state.PauseTiming();
    module.unload();
    state.ResumeTiming();
  }
}

void BM_ModuleStartCheckSwitchedOff(benchmark::State& state) { moduleStart(state, Service::SwitchedOff); }
void BM_ModuleStartServiceAnswering(benchmark::State& state) { moduleStart(state, Service::Answering); }
void BM_ModuleStartServiceSilent(benchmark::State& state) { moduleStart(state, Service::Silent); }
void BM_ModuleStartServiceStalled(benchmark::State& state) { moduleStart(state, Service::Stalled); }
void BM_ModuleStartServiceRefused(benchmark::State& state) { moduleStart(state, Service::Refused); }
void BM_ModuleStartServiceUnresolvable(benchmark::State& state) { moduleStart(state, Service::Unresolvable); }
BENCHMARK(BM_ModuleStartCheckSwitchedOff)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModuleStartServiceAnswering)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModuleStartServiceSilent)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModuleStartServiceStalled)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModuleStartServiceRefused)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModuleStartServiceUnresolvable)->Unit(benchmark::kMillisecond);

// The unload while the start's usage upload waits for a service that never answers.
void BM_ModuleUnloadDuringUpload(benchmark::State& state) {
  kvt1::testing::TestInstallation installation;
  kvt1::testing::setConsent(installation, 1);
  kvt1::service::UpdateService service;
  if (!service.start()) return state.SkipWithError("no local port");
  service.setMode(ServiceMode::Hang);
  setMachineString(installation, L"CheckUpdateUrl", service.hostAndPort());
  setMachineString(installation, L"UsageReportUrl", "http://" + service.hostAndPort() + "/UsageReportService/Upload");
  kvt1::testing::setRegistryString(installation, RegistryRoot::CurrentUser, kvt1::productKeyPath(), L"DataPath",
                                   installation.folder() + L"\\UserData");

  Module module;
  if (!module.loaded()) return state.SkipWithError("module not loaded");
  // A first run writes the report; from then on each start finds it due.
  module.start();
  module.unload();
  kvt1::testing::setMachineDword(installation, L"DataCollectionInterval", 1);
  for (auto _ : state) {
    state.PauseTiming();
    const std::size_t before = service.uploads().size();
    module.start();
    for (int i = 0; i < 1000 && service.uploads().size() == before; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    if (service.uploads().size() == before) {
      module.unload();
      return state.SkipWithError("the upload never reached the service");
    }
    state.ResumeTiming();
    module.unload();
  }
}
BENCHMARK(BM_ModuleUnloadDuringUpload)->Unit(benchmark::kMillisecond);

}  // namespace
