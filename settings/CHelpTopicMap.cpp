#include "settings/CHelpTopicMap.h"

#include <algorithm>
#include <cwchar>

#include "platform/CaseFolding.h"
#include "platform/CodePage.h"
#include "platform/File.h"
#include "platform/TextDecoding.h"

namespace kvt1 {
namespace {

// A map holds a few hundred short lines; a file far beyond that is no map.
constexpr std::size_t kMaxMapBytes = 16 * 1024 * 1024;

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; }

std::wstring lowerTrimmed(const std::wstring& text, std::size_t begin, std::size_t end) {
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  return platform::lowerCase(std::wstring_view(text).substr(begin, end - begin));
}

}  // namespace

SHelpTopic parseHelpTopicLine(const std::wstring& line) {
  std::wstring fields[4];
  std::size_t start = 0;
  for (int n = 0; n < 4 && start <= line.size(); ++n) {
    std::size_t comma = line.find(L',', start);
    if (comma == std::wstring::npos) comma = line.size();
    fields[n] = lowerTrimmed(line, start, comma);
    start = comma + 1;
  }
  SHelpTopic record{fields[0], fields[1], fields[2], 0};
  record.id = static_cast<int>(std::wcstol(fields[3].c_str(), nullptr, 10));
  return record;
}

void CHelpTopicMap::load(const std::wstring& mapFile) {
  file_ = mapFile;
  records_.clear();
  logging_ = false;
  std::string bytes;
  if (!platform::readWholeFile(mapFile, kMaxMapBytes, bytes)) return;
  // Lines by their length: a NUL inside one is a character like any other.
  const std::wstring text = platform::decodeText(bytes, platform::ansiCodePage());
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(L'\n', start), text.size());
    const std::wstring line = text.substr(start, end - start);
    if (line.find_first_not_of(L" \t\r") != std::wstring::npos) records_.push_back(parseHelpTopicLine(line));
    start = end + 1;
  }
  if (!records_.empty() && records_.front().dialog.find(L"_debug") != std::wstring::npos) {
    records_.erase(records_.begin());
    logging_ = true;
  }
}

bool CHelpTopicMap::findByDialog(const std::wstring& name, SHelpTopic& out) {
  if (logging_) reload();
  const std::wstring key = platform::lowerCase(name);
  for (const SHelpTopic& record : records_) {
    if (record.dialog == key) {
      out = record;
      return true;
    }
  }
  return false;
}

bool CHelpTopicMap::findByCommand(const std::wstring& name, SHelpTopic& out) {
  if (logging_) reload();
  const std::wstring key = platform::lowerCase(name);
  for (const SHelpTopic& record : records_) {
    if (record.command.find(key) != std::wstring::npos) {
      out = record;
      return true;
    }
  }
  return false;
}

}  // namespace kvt1
