// libFuzzer target: any text as an emulator script, read to its end.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/Unicode.h"
#include "tools/kvt1-host/LispReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kvt1::emu::LispReader reader(kvt1::platform::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size)));
  // Each item consumes input, so a script of n characters holds at most n + 1 items.
  for (std::size_t items = 0; reader.next(); ++items) {
    if (items > size + 1) __builtin_trap();
  }
  return 0;
}
