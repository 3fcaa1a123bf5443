#include "platform/File.h"

#include <memory>

namespace kvt1::platform {

bool readWholeFile(const std::wstring& path, std::size_t limit, std::string& bytes) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(openFile(path, "rb"), &std::fclose);
  return file && readWholeStream(file.get(), limit, bytes);
}

bool readWholeStream(std::FILE* file, std::size_t limit, std::string& bytes) {
  std::string content;
  char chunk[64 * 1024];
  for (std::size_t got; (got = std::fread(chunk, 1, sizeof chunk, file)) > 0;) {
    if (got > limit - content.size()) return false;
    content.append(chunk, got);
  }
  if (std::ferror(file) != 0) return false;
  bytes.swap(content);
  return true;
}

}  // namespace kvt1::platform
