#include "online/usage/CHvUsageReport.h"

#include <algorithm>
#include <limits>

namespace Hv {
namespace {

// The record of that name; null when there is none.
template <typename Record>
Record* findNamed(std::vector<Record>& records, std::wstring Record::*key, const std::wstring& name) {
  for (Record& record : records) {
    if (record.*key == name) return &record;
  }
  return nullptr;
}

template <typename Record>
Record& recordNamed(std::vector<Record>& records, std::wstring Record::*key, const std::wstring& name) {
  if (Record* found = findNamed(records, key, name)) return *found;
  records.emplace_back();
  records.back().*key = name;
  return records.back();
}

template <typename Record>
void mergeTimes(std::vector<Record>& into, const std::vector<Record>& from, std::wstring Record::*key) {
  for (const Record& record : from) {
    std::vector<std::uint32_t>& times = recordNamed(into, key, record.*key).times;
    times.insert(times.end(), record.times.begin(), record.times.end());
  }
}

void addValue(SHvUsageCustom& record, const std::wstring& value) {
  if (!record.dupes && std::find(record.vals.begin(), record.vals.end(), value) != record.vals.end()) return;
  record.vals.push_back(value);
}

// Takes one occurrence of each of a sent record's items out of the record of
// the same name; records left empty go.
template <typename Record, typename Item>
void removeItems(std::vector<Record>& from, const std::vector<Record>& sent, std::wstring Record::*key,
                 std::vector<Item> Record::*items) {
  for (const Record& record : sent) {
    Record* found = findNamed(from, key, record.*key);
    if (!found) continue;
    std::vector<Item>& left = found->*items;
    for (const Item& item : record.*items) {
      const auto at = std::find(left.begin(), left.end(), item);
      if (at != left.end()) left.erase(at);
    }
  }
  from.erase(std::remove_if(from.begin(), from.end(), [&](const Record& mine) { return (mine.*items).empty(); }),
             from.end());
}

std::int32_t saturatingSum(std::int32_t count, std::int32_t amount) {
  const std::int64_t sum = static_cast<std::int64_t>(count) + amount;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, 0, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

void CHvUsageReport::Clear() {
  m_logins.clear();
  m_toolUses.clear();
  m_custom.clear();
  m_counters.clear();
}

void CHvUsageReport::AddLogin(const std::wstring& platform, std::uint32_t time) {
  recordNamed(m_logins, &SHvUsageLogin::platform, platform).times.push_back(time);
}

void CHvUsageReport::AddToolUse(const std::wstring& tool, std::uint32_t time) {
  recordNamed(m_toolUses, &SHvUsageToolUse::tool, tool).times.push_back(time);
}

void CHvUsageReport::AddCustomValue(const std::wstring& name, const std::wstring& value, bool dupes) {
  if (SHvUsageCustom* found = findNamed(m_custom, &SHvUsageCustom::name, name)) {
    addValue(*found, value);
    return;
  }
  m_custom.push_back({name, dupes, {value}});
}

void CHvUsageReport::AddCount(const std::wstring& name, std::int32_t amount) {
  SHvUsageCounter& counter = recordNamed(m_counters, &SHvUsageCounter::name, name);
  counter.count = saturatingSum(counter.count, amount);
}

void CHvUsageReport::Merge(const CHvUsageReport& other) {
  mergeTimes(m_logins, other.m_logins, &SHvUsageLogin::platform);
  mergeTimes(m_toolUses, other.m_toolUses, &SHvUsageToolUse::tool);
  for (const SHvUsageCustom& record : other.m_custom) {
    SHvUsageCustom* found = findNamed(m_custom, &SHvUsageCustom::name, record.name);
    if (!found) {
      m_custom.push_back(record);
      continue;
    }
    for (const std::wstring& value : record.vals) addValue(*found, value);
  }
  for (const SHvUsageCounter& counter : other.m_counters) AddCount(counter.name, counter.count);
}

void CHvUsageReport::Remove(const CHvUsageReport& sent) {
  removeItems(m_logins, sent.m_logins, &SHvUsageLogin::platform, &SHvUsageLogin::times);
  removeItems(m_toolUses, sent.m_toolUses, &SHvUsageToolUse::tool, &SHvUsageToolUse::times);
  removeItems(m_custom, sent.m_custom, &SHvUsageCustom::name, &SHvUsageCustom::vals);
  for (const SHvUsageCounter& counter : sent.m_counters) {
    if (SHvUsageCounter* found = findNamed(m_counters, &SHvUsageCounter::name, counter.name)) {
      found->count = saturatingSum(found->count, -counter.count);
    }
  }
  m_counters.erase(std::remove_if(m_counters.begin(), m_counters.end(),
                                  [](const SHvUsageCounter& counter) { return counter.count == 0; }),
                   m_counters.end());
}

}  // namespace Hv
