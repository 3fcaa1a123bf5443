#include "platform/LockedStream.h"

namespace kvt1::platform {

LockedStream::LockedStream(std::FILE* file) : m_file(file) { _lock_file(m_file); }

LockedStream::~LockedStream() { _unlock_file(m_file); }

}  // namespace kvt1::platform
