// One update check from request to filtered answer, as a check the user asked
// for waits for it: against the local update service answering an update,
// against a port nobody listens on, and against a service that never
// answers (bounded by the client library's total time-out), beside a check
// switched off.
#include <benchmark/benchmark.h>

#include "host/identity/ProductIdentity.h"
#include "online/AutomaticUpdateCheck.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvHttpClientManager.h"
#include "platform/Registry.h"
#include "settings/ProductKey.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/CSilentCheckForUpdateView.h"
#include "tests/online/OnlineTestSupport.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace {

using kvt1::service::ServiceMode;

enum class Server { Answering, Refusing, Hanging, SwitchedOff };

void startUpCheck(benchmark::State& state, Server server) {
  kvt1::testing::TestInstallation installation;
  kvt1::service::UpdateService service;
  if (!service.start()) {
    state.SkipWithError("no local port");
    return;
  }
  service.setAnswer(kvt1::kProductNumber, kvt1::testing::updateOnlyJson({}));
  if (server == Server::Hanging) service.setMode(ServiceMode::Hang);
  const std::string host = service.hostAndPort();
  if (server == Server::Refusing) service.stop();
  kvt1::testing::setRegistryString(installation, kvt1::platform::RegistryRoot::LocalMachine, kvt1::productKeyPath(),
                                   L"CheckUpdateUrl", std::wstring(host.begin(), host.end()));
  if (server == Server::SwitchedOff) {
    kvt1::testing::setRegistryDword(installation, kvt1::platform::RegistryRoot::LocalMachine, kvt1::productKeyPath(),
                                    L"DisableUpdateCheck", 1);
  }

  Hv::Http::CHvHttpClientManager::Release();
  Hv::Http::CHvHttpClientManager::Instance()->Load(kvt1::testing::programFolder());
  Hv::Http::CHvAutomaticUpdateManager* manager = Hv::Http::CHvAutomaticUpdateManager::Instance();
  *manager = Hv::Http::CHvAutomaticUpdateManager();
  manager->LoadSettings(kvt1::productKeyPath());

  Hv::Http::UpdateCheckRequest request;
  request.version = L"1.1.0.1";
  request.language = L"ENG";
  Hv::Http::CSilentCheckForUpdateView view;
  for (auto _ : state) benchmark::DoNotOptimize(Hv::Http::RunAutomaticUpdateCheck(view, request));
  Hv::Http::CHvHttpClientManager::Release();
}

void BM_StartUpCheckAnswered(benchmark::State& state) { startUpCheck(state, Server::Answering); }
void BM_StartUpCheckRefused(benchmark::State& state) { startUpCheck(state, Server::Refusing); }
void BM_StartUpCheckNeverAnswered(benchmark::State& state) { startUpCheck(state, Server::Hanging); }
void BM_StartUpCheckSwitchedOff(benchmark::State& state) { startUpCheck(state, Server::SwitchedOff); }

BENCHMARK(BM_StartUpCheckAnswered)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_StartUpCheckRefused)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_StartUpCheckNeverAnswered)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);
BENCHMARK(BM_StartUpCheckSwitchedOff)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
