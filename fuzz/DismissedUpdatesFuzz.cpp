// libFuzzer target: any bytes as the dismissed-updates record; a record that
// reads is written back and must read again to the same dismissals.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "online/DismissedUpdates.h"
#include "platform/Unicode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = kvt1::platform::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
  Hv::Http::DismissedMap dismissed;
  if (!Hv::Http::ReadDismissedUpdates(text, dismissed)) return 0;
  Hv::Http::DismissedMap again;
  if (!Hv::Http::ReadDismissedUpdates(Hv::Http::WriteDismissedUpdates(dismissed), again) || again != dismissed) {
    __builtin_trap();
  }
  return 0;
}
