#include "settings/CHelpTopicMap.h"

#include <cwchar>
#include <cwctype>
#include <memory>

#include "support/CSIFileImpl.h"
#include "support/SIFileMode.h"

namespace kvt1 {
namespace {

constexpr int kLineChunk = 1024;

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; }

std::wstring lowerTrimmed(const std::wstring& text, std::size_t begin, std::size_t end) {
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  std::wstring field = text.substr(begin, end - begin);
  for (wchar_t& c : field) c = static_cast<wchar_t>(std::towlower(c));
  return field;
}

std::wstring lowered(std::wstring text) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(std::towlower(c));
  return text;
}

// One whole line, however long: the reader hands it over in chunks.
bool readWholeLine(CSIFileImpl& file, std::wstring& line) {
  line.clear();
  wchar_t chunk[kLineChunk];
  for (;;) {
    const int length = file.ReadLine(chunk, kLineChunk);
    if (length <= 0) return !line.empty();
    line.append(chunk, static_cast<std::size_t>(length));
    if (line.back() == L'\n') return true;
  }
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
  std::unique_ptr<CSIFileImpl> file = CSIFileImpl::OpenFile(mapFile, kSIReadText);
  if (!file) return;
  std::wstring line;
  while (readWholeLine(*file, line)) {
    if (line.find_first_not_of(L" \t\r\n") == std::wstring::npos) continue;
    records_.push_back(parseHelpTopicLine(line));
  }
  if (!records_.empty() && records_.front().dialog.find(L"_debug") != std::wstring::npos) {
    records_.erase(records_.begin());
    logging_ = true;
  }
}

bool CHelpTopicMap::findByDialog(const std::wstring& name, SHelpTopic& out) {
  if (logging_) reload();
  const std::wstring key = lowered(name);
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
  const std::wstring key = lowered(name);
  for (const SHelpTopic& record : records_) {
    if (record.command.find(key) != std::wstring::npos) {
      out = record;
      return true;
    }
  }
  return false;
}

}  // namespace kvt1
