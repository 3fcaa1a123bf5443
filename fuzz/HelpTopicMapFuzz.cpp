// libFuzzer target: any bytes as a help topic map file (through the
// encoding detection of the file reader), then lookups by dialog and command.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/Unicode.h"
#include "settings/CHelpTopicMap.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = "/tmp/kvt1-helpmap-fuzz-" + std::to_string(::getpid()) + ".csv";
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return 0;
  std::fwrite(data, 1, size, file);
  std::fclose(file);

  kvt1::CHelpTopicMap map;
  map.load(kvt1::platform::fromUtf8(path));
  kvt1::SHelpTopic topic;
  map.findByDialog(L"AirportDialog", topic);
  map.findByCommand(L"kv_", topic);
  for (const kvt1::SHelpTopic& record : map.records()) {
    // Every record is found again by its own dialog name, unless the debug line reloads the file.
    if (!map.logging() && !record.dialog.empty() && !map.findByDialog(record.dialog, topic)) __builtin_trap();
  }
  return 0;
}
