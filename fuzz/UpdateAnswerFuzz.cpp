// libFuzzer target: any bytes as the update service's answer, read as the
// check reads it; and as a dismissed-updates record, which written back
// reads again to the same dismissals.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "online/CHvAutomaticUpdateResult.h"
#include "online/DismissedUpdates.h"
#include "platform/Unicode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = kvt1::platform::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
  Hv::Http::ParseAutomaticUpdateResult(text);

  Hv::Http::DismissedMap dismissed;
  if (!Hv::Http::ReadDismissedUpdates(text, dismissed)) return 0;
  Hv::Http::DismissedMap again;
  if (!Hv::Http::ReadDismissedUpdates(Hv::Http::WriteDismissedUpdates(dismissed), again) || again != dismissed) {
    __builtin_trap();
  }
  return 0;
}
