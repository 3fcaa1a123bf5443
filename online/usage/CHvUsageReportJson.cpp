// The report's JSON members, written in this order: "VER", "LastSend",
// "LicenseNum", "Product", "Guid", "Eval", then the four lists as objects with
// "Num" first and each record's numbered members, its name before its values
// ("0_Platform", "0_Times", "1_Platform", ...).
#include <algorithm>
#include <string>

#include "online/JsonText.h"
#include "online/OrderedJsonObject.h"
#include "online/usage/CHvUsageReport.h"
#include "platform/Unicode.h"

namespace Hv {
namespace {

using kvt1::json::member;
using kvt1::json::OrderedObject;
using kvt1::platform::fromUtf8;
using kvt1::platform::toUtf8;

std::string numbered(std::size_t index, const char* suffix) { return std::to_string(index) + suffix; }

Json::Value timesArray(const std::vector<std::uint32_t>& times) {
  Json::Value array(Json::arrayValue);
  array.resize(static_cast<Json::ArrayIndex>(times.size()));
  for (std::size_t i = 0; i < times.size(); ++i) array[static_cast<Json::ArrayIndex>(i)] = Json::UInt(times[i]);
  return array;
}

OrderedObject listObject(std::size_t count) {
  OrderedObject list;
  list.add("Num", static_cast<Json::Int>(count));
  return list;
}

// The records a list can hold: "Num", but never more than its members, as
// every record has at least one member; so a huge "Num" costs nothing.
std::size_t recordCount(const Json::Value& list) {
  const Json::Value* num = member(list, "Num");
  if (!num || !num->isInt() || num->asInt() <= 0) return 0;
  return std::min<std::size_t>(static_cast<std::size_t>(num->asInt()), list.size());
}

// Times that are 32-bit unsigned integers; anything else is skipped.
bool readTimes(const Json::Value& list, const std::string& name, std::vector<std::uint32_t>& times) {
  const Json::Value* array = member(list, name.c_str());
  if (!array) return false;
  if (!array->isArray()) return true;
  times.reserve(array->size());
  for (const Json::Value& time : *array) {
    if (time.isUInt()) times.push_back(time.asUInt());
  }
  return true;
}

bool readText(const Json::Value& list, const std::string& name, std::wstring& text) {
  const Json::Value* value = member(list, name.c_str());
  if (!value) return false;
  if (value->isString()) text = fromUtf8(value->asString());
  return true;
}

// Login and tool records: a name and its times.
template <typename Record>
void writeTimed(OrderedObject& object, const char* listName, const char* nameSuffix, const std::vector<Record>& records,
                std::wstring Record::*key) {
  OrderedObject list = listObject(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    list.add(numbered(i, nameSuffix), toUtf8(records[i].*key));
    list.add(numbered(i, "_Times"), timesArray(records[i].times));
  }
  object.add(listName, list);
}

template <typename Record>
void readTimed(const Json::Value& object, const char* listName, const char* nameSuffix, std::vector<Record>& records,
               std::wstring Record::*key) {
  const Json::Value* list = member(object, listName);
  if (!list) return;
  for (std::size_t i = 0, count = recordCount(*list); i < count; ++i) {
    Record record;
    const bool named = readText(*list, numbered(i, nameSuffix), record.*key);
    const bool timed = readTimes(*list, numbered(i, "_Times"), record.times);
    if (named || timed) records.push_back(std::move(record));
  }
}

}  // namespace

void CHvUsageReport::WriteJson(OrderedObject& object) const {
  object.add("VER", kVersion);
  object.add("LastSend", Json::UInt(m_lastSend));
  object.add("LicenseNum", Json::UInt(m_licenseNum));
  object.add("Product", Json::UInt(m_product));
  object.add("Guid", toUtf8(m_guid));
  object.add("Eval", m_eval);
  writeTimed(object, "Logins", "_Platform", m_logins, &SHvUsageLogin::platform);
  writeTimed(object, "ToolUses", "_Tool", m_toolUses, &SHvUsageToolUse::tool);

  OrderedObject custom = listObject(m_custom.size());
  for (std::size_t i = 0; i < m_custom.size(); ++i) {
    custom.add(numbered(i, "_Name"), toUtf8(m_custom[i].name));
    custom.add(numbered(i, "_Dupes"), m_custom[i].dupes);
    Json::Value vals(Json::arrayValue);
    for (const std::wstring& value : m_custom[i].vals) vals.append(toUtf8(value));
    custom.add(numbered(i, "_Vals"), vals);
  }
  object.add("Custom", custom);

  OrderedObject counters = listObject(m_counters.size());
  for (std::size_t i = 0; i < m_counters.size(); ++i) {
    counters.add(numbered(i, "_Name"), toUtf8(m_counters[i].name));
    counters.add(numbered(i, "_Ct"), m_counters[i].count);
  }
  object.add("Counters", counters);
}

bool CHvUsageReport::ReadJson(const Json::Value& object) {
  const Json::Value* version = member(object, "VER");
  if (version && version->isDouble() && version->asDouble() > kVersion) return false;

  CHvUsageReport read;
  read.m_filePath = m_filePath;
  kvt1::json::read(object, "LastSend", read.m_lastSend);
  kvt1::json::read(object, "LicenseNum", read.m_licenseNum);
  kvt1::json::read(object, "Product", read.m_product);
  kvt1::json::read(object, "Guid", read.m_guid);
  kvt1::json::read(object, "Eval", read.m_eval);
  readTimed(object, "Logins", "_Platform", read.m_logins, &SHvUsageLogin::platform);
  readTimed(object, "ToolUses", "_Tool", read.m_toolUses, &SHvUsageToolUse::tool);

  if (const Json::Value* custom = member(object, "Custom")) {
    for (std::size_t i = 0, count = recordCount(*custom); i < count; ++i) {
      SHvUsageCustom record;
      const bool named = readText(*custom, numbered(i, "_Name"), record.name);
      const Json::Value* dupes = member(*custom, numbered(i, "_Dupes").c_str());
      if (dupes && dupes->isBool()) record.dupes = dupes->asBool();
      const Json::Value* vals = member(*custom, numbered(i, "_Vals").c_str());
      if (vals && vals->isArray()) {
        for (const Json::Value& value : *vals) {
          if (value.isString()) record.vals.push_back(fromUtf8(value.asString()));
        }
      }
      if (named || dupes || vals) read.m_custom.push_back(std::move(record));
    }
  }

  if (const Json::Value* counters = member(object, "Counters")) {
    for (std::size_t i = 0, count = recordCount(*counters); i < count; ++i) {
      SHvUsageCounter record;
      const bool named = readText(*counters, numbered(i, "_Name"), record.name);
      const Json::Value* ct = member(*counters, numbered(i, "_Ct").c_str());
      // Counts are never negative; a negative or oversized one reads as zero.
      if (ct && ct->isInt() && ct->asInt() > 0) record.count = ct->asInt();
      if (named || ct) read.m_counters.push_back(std::move(record));
    }
  }

  *this = std::move(read);
  return true;
}

}  // namespace Hv
