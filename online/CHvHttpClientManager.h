#pragma once
// The HTTP bridge: every network access of the module goes through the
// companion library that it loads from the module folder. Without that
// library every operation answers false and the module runs on offline.
#include <string>

#include "platform/DynamicLibrary.h"

namespace Hv::Http {

// The companion library's file name, as Load appends it to a folder.
extern const wchar_t kHttpClientLibraryName[];

class CHvHttpClientManager {
 public:
  // The process-wide bridge, created on first call (main thread only).
  static CHvHttpClientManager* Instance();
  // Deletes it; the next Instance() makes a fresh, unloaded one.
  static void Release();

  virtual ~CHvHttpClientManager();

  // Loads directory + "\" + the library name and looks up its six exports.
  // True only when both PerformGetA and PerformGetW were found.
  bool Load(const std::wstring& directory);

  // Blocking GET / POST of a JSON text. True only for status 200, with out
  // holding the body up to its first NUL; out is untouched otherwise.
  bool Get(const std::wstring& url, std::wstring& out);
  bool PostJson(const std::wstring& url, const std::wstring& json, std::wstring& out);

  // The maker's update service host, used unless the settings name another.
  const std::wstring& GetHost() const { return m_host; }

 private:
  CHvHttpClientManager();

  kvt1::platform::DynamicLibrary m_library;
  std::wstring m_host;
};

}  // namespace Hv::Http
