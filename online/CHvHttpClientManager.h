#pragma once
// The HTTP bridge: every network access of the module goes through the
// companion library that it loads from the module folder. Without that
// library every operation answers false and the module runs on offline.
//
// Get and PostJson may be called from any thread: the library's exports keep
// no state between calls, and the bridge's own state changes only in Load,
// AbortTransfers and Release, which the main thread calls while no worker
// thread uses the bridge (AbortTransfers excepted, which is made for that).
#include <condition_variable>
#include <mutex>
#include <string>

#include "platform/DynamicLibrary.h"

namespace Hv::Http {

// The companion library's file name, as Load appends it to a folder.
extern const std::wstring kHttpClientLibraryName;

class CHvHttpClientManager {
 public:
  // The process-wide bridge, created on first call (main thread only).
  static CHvHttpClientManager* Instance();
  // Deletes it; the next Instance() makes a fresh, unloaded one.
  static void Release();

  virtual ~CHvHttpClientManager();

  // Loads the library of that name from directory and looks up its exports.
  // True only when both PerformGetA and PerformGetW were found.
  bool Load(const std::wstring& directory);

  // Blocking GET / POST of a JSON text. True only for status 200, with out
  // holding the body up to its first NUL; out is untouched otherwise.
  bool Get(const std::wstring& url, std::wstring& out);
  bool PostJson(const std::wstring& url, const std::wstring& json, std::wstring& out);

  // The maker's update service host, used unless the settings name another.
  const std::wstring& GetHost() const { return m_host; }

  // For unloading: from now on every request fails at once, and the requests
  // still running are ended through the library's optional AbortTransfers
  // (without it they run to their time-out, and whoever waits for them waits).
  void AbortTransfers();

 private:
  CHvHttpClientManager();

  // Counts a request in, unless the bridge is closed; Leave counts it out.
  bool Enter();
  void Leave();

  kvt1::platform::DynamicLibrary m_library;
  std::wstring m_host;
  std::mutex m_mutex;
  std::condition_variable m_left;
  int m_running = 0;
  bool m_closed = false;
};

}  // namespace Hv::Http
