// libFuzzer target: any bytes as a usage report file (zlib or plain JSON).
// A report that reads is written back both ways, must read again, and is
// merged into another report as the end of a run does.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "online/usage/CHvUsageReport.h"
#include "online/usage/UsageReportStore.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Hv::CHvUsageReport report;
  if (!kvt1::usage::readReportFileBytes(std::string_view(reinterpret_cast<const char*>(data), size), report)) {
    return 0;
  }
  for (const bool compressed : {true, false}) {
    Hv::CHvUsageReport again;
    if (!kvt1::usage::readReportFileBytes(kvt1::usage::reportFileBytes(report, compressed), again)) __builtin_trap();
  }
  Hv::CHvUsageReport run;
  run.AddToolUse(L"Surfaces", 1);
  run.Merge(report);
  return 0;
}
