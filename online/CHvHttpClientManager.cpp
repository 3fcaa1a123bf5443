#include "online/CHvHttpClientManager.h"

#include <chrono>
#include <cstdint>

#include "companions/HalvornHttpClient.h"
#include "platform/FilePath.h"

namespace Hv::Http {

const std::wstring kHttpClientLibraryName = std::wstring(L"HalvornHttpClient") + kvt1::platform::kLibrarySuffix;

namespace {

const wchar_t kDefaultServiceHost[] = L"updates.halvorn.aero";

CHvHttpClientManager* g_instance = nullptr;

// The library's entry points, null until a load finds them.
PerformGetAFn g_performGetA = nullptr;
PerformGetWFn g_performGetW = nullptr;
PerformPostJsonAFn g_performPostJsonA = nullptr;
PerformPostJsonWFn g_performPostJsonW = nullptr;
FreeStringAFn g_freeStringA = nullptr;
FreeStringWFn g_freeStringW = nullptr;
AbortTransfersFn g_abortTransfers = nullptr;

void clearEntryPoints() {
  g_performGetA = nullptr;
  g_performGetW = nullptr;
  g_performPostJsonA = nullptr;
  g_performPostJsonW = nullptr;
  g_freeStringA = nullptr;
  g_freeStringW = nullptr;
  g_abortTransfers = nullptr;
}

template <typename Fn>
Fn entryPoint(const kvt1::platform::DynamicLibrary& library, const char* name) {
  return reinterpret_cast<Fn>(library.symbol(name));
}

// The 200-only rule: the body is copied and released on 200; with any other
// status whatever the library handed out stays with it.
bool takeResponse(std::int32_t status, wchar_t* response, std::wstring& out) {
  if (status != 200 || !response) return false;
  out.assign(response);
  if (g_freeStringW) g_freeStringW(&response);
  return true;
}

}  // namespace

CHvHttpClientManager* CHvHttpClientManager::Instance() {
  if (!g_instance) g_instance = new CHvHttpClientManager();
  return g_instance;
}

void CHvHttpClientManager::Release() {
  delete g_instance;
  g_instance = nullptr;
}

CHvHttpClientManager::CHvHttpClientManager() : m_host(kDefaultServiceHost) {}

CHvHttpClientManager::~CHvHttpClientManager() {
  clearEntryPoints();
  m_library.release();
  m_host.clear();
}

bool CHvHttpClientManager::Load(const std::wstring& directory) {
  clearEntryPoints();
  m_library = kvt1::platform::DynamicLibrary::load(kvt1::platform::joinPath(directory, kHttpClientLibraryName));
  if (!m_library.isLoaded()) return false;
  g_performGetA = entryPoint<PerformGetAFn>(m_library, "PerformGetA");
  g_performGetW = entryPoint<PerformGetWFn>(m_library, "PerformGetW");
  g_performPostJsonA = entryPoint<PerformPostJsonAFn>(m_library, "PerformPostJsonA");
  g_performPostJsonW = entryPoint<PerformPostJsonWFn>(m_library, "PerformPostJsonW");
  g_freeStringA = entryPoint<FreeStringAFn>(m_library, "FreeStringA");
  g_freeStringW = entryPoint<FreeStringWFn>(m_library, "FreeStringW");
  g_abortTransfers = entryPoint<AbortTransfersFn>(m_library, "AbortTransfers");
  m_closed = false;
  return g_performGetA && g_performGetW;
}

bool CHvHttpClientManager::Get(const std::wstring& url, std::wstring& out) {
  if (!m_library.isLoaded() || !g_performGetW || !Enter()) return false;
  std::int32_t status = 0;
  wchar_t* response = nullptr;
  std::int32_t length = 0;
  g_performGetW(url.c_str(), &status, &response, &length);
  Leave();
  return takeResponse(status, response, out);
}

bool CHvHttpClientManager::PostJson(const std::wstring& url, const std::wstring& json, std::wstring& out) {
  if (!m_library.isLoaded() || !g_performPostJsonW || !Enter()) return false;
  std::int32_t status = 0;
  wchar_t* response = nullptr;
  std::int32_t length = 0;
  g_performPostJsonW(url.c_str(), L"application/json", json.c_str(), &status, &response, &length);
  Leave();
  return takeResponse(status, response, out);
}

void CHvHttpClientManager::AbortTransfers() {
  std::unique_lock<std::mutex> lock(m_mutex);
  m_closed = true;
  if (!g_abortTransfers) return;
  // A request counted in just before the bridge closed may reach the library
  // just after an abort: abort again until none is left.
  while (m_running > 0) {
    lock.unlock();
    g_abortTransfers();
    lock.lock();
    m_left.wait_for(lock, std::chrono::milliseconds(10), [this] { return m_running == 0; });
  }
}

bool CHvHttpClientManager::Enter() {
  const std::lock_guard<std::mutex> lock(m_mutex);
  if (m_closed) return false;
  ++m_running;
  return true;
}

void CHvHttpClientManager::Leave() {
  const std::lock_guard<std::mutex> lock(m_mutex);
  --m_running;
  m_left.notify_all();
}

}  // namespace Hv::Http
