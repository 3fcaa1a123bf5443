#pragma once
// A loaded shared library (LoadLibraryW / dlopen). Moves, never copies; the
// library is released when the owner goes.
#include <string>

namespace kvt1::platform {

// How a shared library's file name ends on this system: ".dll" or ".so".
extern const wchar_t kLibrarySuffix[];

class DynamicLibrary {
 public:
  DynamicLibrary() = default;
  DynamicLibrary(DynamicLibrary&& other) noexcept;
  DynamicLibrary& operator=(DynamicLibrary&& other) noexcept;
  DynamicLibrary(const DynamicLibrary&) = delete;
  DynamicLibrary& operator=(const DynamicLibrary&) = delete;
  ~DynamicLibrary();

  // Loads the library at path; "\" and "/" both separate folders. On failure
  // the result is not loaded and error() tells why.
  static DynamicLibrary load(const std::wstring& path);
  // Keeps the library of that file name, if the process has it loaded, loaded
  // until the process ends, however often it is released.
  static void keepLoaded(const std::wstring& fileName);

  bool isLoaded() const { return handle_ != nullptr; }
  void* handle() const { return handle_; }
  // The library's instance handle, as resource lookups take it (its load address).
  void* image() const;
  void* symbol(const char* name) const;
  const std::wstring& error() const { return error_; }
  void release();

 private:
  void* handle_ = nullptr;
  std::wstring error_;
};

}  // namespace kvt1::platform
