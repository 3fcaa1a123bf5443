// libFuzzer target: any bytes as a regedit-format registry file. What reads
// is written back, and the written file must read again to the same keys
// and values: the store saves what it loaded this way.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/RegFile.h"

namespace {

using kvt1::platform::RegSection;

bool sameValues(const RegSection& a, const RegSection& b) {
  if (a.path != b.path || a.remove != b.remove || a.values.size() != b.values.size()) return false;
  for (std::size_t i = 0; i < a.values.size(); ++i) {
    const auto& x = a.values[i];
    const auto& y = b.values[i];
    if (x.name != y.name || x.type != y.type || x.data != y.data || x.remove != y.remove) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<RegSection> sections;
  kvt1::platform::RegFileError error;
  if (!kvt1::platform::parseRegFile(std::string_view(reinterpret_cast<const char*>(data), size), sections, error)) {
    return 0;
  }
  std::vector<RegSection> again;
  if (!kvt1::platform::parseRegFile(kvt1::platform::writeRegFile(sections), again, error)) __builtin_trap();
  if (again.size() != sections.size()) __builtin_trap();
  for (std::size_t i = 0; i < sections.size(); ++i) {
    if (!sameValues(sections[i], again[i])) __builtin_trap();
  }
  return 0;
}
