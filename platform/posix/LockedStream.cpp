#include "platform/LockedStream.h"

namespace kvt1::platform {

LockedStream::LockedStream(std::FILE* file) : m_file(file) { flockfile(m_file); }

LockedStream::~LockedStream() { funlockfile(m_file); }

}  // namespace kvt1::platform
