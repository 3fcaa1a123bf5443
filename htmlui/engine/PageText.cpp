#include "htmlui/engine/PageText.h"

#include <string_view>

#include "platform/CodePage.h"
#include "platform/TextDecoding.h"

namespace kvt1::html {

std::wstring decodePageBytes(const unsigned char* data, std::size_t size) {
  if (data == nullptr) return std::wstring();
  return platform::decodeText(std::string_view(reinterpret_cast<const char*>(data), size), platform::kCodePageUtf8);
}

}  // namespace kvt1::html
