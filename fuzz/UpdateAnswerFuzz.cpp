// libFuzzer target: any bytes as the update service's answer, read as the
// check reads it; what it offers must be what a well-formed answer can name.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "online/CHvAutomaticUpdateResult.h"
#include "platform/Unicode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring body = kvt1::platform::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
  const Hv::Http::CHvAutomaticUpdateResult result = Hv::Http::ParseAutomaticUpdateResult(body);
  // Nothing read can be longer than the answer that held it.
  if (result.update.name.size() > body.size() || result.update.url.size() > body.size() ||
      result.upgrade.name.size() > body.size() || result.upgrade.mapUrl.size() > body.size()) {
    __builtin_trap();
  }
  return 0;
}
