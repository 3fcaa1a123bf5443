#pragma once
// Byte-at-a-time reading of a C stream without taking the stream's lock for
// every byte: the lock is held while a LockedStream lives. The byte read is
// inline, as the point is to avoid a call per byte.
#include <cstdio>

namespace kvt1::platform {

class LockedStream {
 public:
  explicit LockedStream(std::FILE* file);
  ~LockedStream();
  LockedStream(const LockedStream&) = delete;
  LockedStream& operator=(const LockedStream&) = delete;

  // The next byte, or EOF.
  int get() {
#ifdef _WIN32
    return _getc_nolock(m_file);
#else
    return getc_unlocked(m_file);
#endif
  }
  std::FILE* file() const { return m_file; }

 private:
  std::FILE* m_file;
};

}  // namespace kvt1::platform
