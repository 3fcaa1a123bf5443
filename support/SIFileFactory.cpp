#include <memory>

#include "platform/File.h"
#include "support/CSIFileImpl.h"
#include "support/CSIFileMBCSBin.h"
#include "support/CSIFileMBCSText.h"
#include "support/CSIFileUnicodeBin.h"
#include "support/CSIFileUnicodeText.h"
#include "support/SIFileMode.h"
#include "support/Utf16Stream.h"

namespace kvt1 {
namespace {

// Whether the file begins with the byte order mark (bytes FF FE).
bool beginsWithMark(const std::wstring& path) {
  std::FILE* file = platform::openFile(path, "rb");
  if (file == nullptr) return false;
  const bool mark = utf16ReadUnit(file) == kByteOrderMark;
  std::fclose(file);
  return mark;
}

std::unique_ptr<CSIFileImpl> makeFile(bool unicode, bool text) {
  if (unicode) {
    if (text) return std::make_unique<CSIFileUnicodeText>();
    return std::make_unique<CSIFileUnicodeBin>();
  }
  if (text) return std::make_unique<CSIFileMBCSText>();
  return std::make_unique<CSIFileMBCSBin>();
}

}  // namespace

std::unique_ptr<CSIFileImpl> CSIFileImpl::OpenFile(const std::wstring& path, int mode) {
  std::unique_ptr<CSIFileImpl> file = makeFile(beginsWithMark(path), SIFileModeIsText(mode));
  if (!file->Open(path, mode)) return nullptr;
  return file;
}

}  // namespace kvt1
