#pragma once
// One usage report: when and on which platform the application started,
// which tools were used when, named custom values and feature counters, with
// the identity of the workstation and licence it comes from.
#include <json/value.h>

#include "online/OrderedJsonObject.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Hv {

struct SHvUsageLogin {
  std::wstring platform;
  std::vector<std::uint32_t> times;
};

struct SHvUsageToolUse {
  std::wstring tool;
  std::vector<std::uint32_t> times;
};

struct SHvUsageCustom {
  std::wstring name;
  bool dupes = false;  // whether a value already present is kept again
  std::vector<std::wstring> vals;
};

struct SHvUsageCounter {
  std::wstring name;
  std::int32_t count = 0;
};

class CHvUsageReport {
 public:
  // The format this code writes, and the newest it reads.
  static constexpr int kVersion = 1;

  CHvUsageReport() = default;
  CHvUsageReport(const CHvUsageReport&) = default;
  CHvUsageReport(CHvUsageReport&&) = default;
  CHvUsageReport& operator=(const CHvUsageReport&) = default;
  CHvUsageReport& operator=(CHvUsageReport&&) = default;
  virtual ~CHvUsageReport() = default;

  // Adds the report's members to object in the file's order ("VER",
  // "LastSend", ... "Counters"; in each list "Num", then record by record).
  virtual void WriteJson(kvt1::json::OrderedObject& object) const;
  // Reads the members back; false, and the report untouched, when the
  // object's "VER" is newer than kVersion. Missing or mistyped members leave
  // their fields empty or zero; lists are read for 0 to "Num" less 1.
  virtual bool ReadJson(const Json::Value& object);

  // Empties the lists; the identity fields and lastSend stay.
  void Clear();

  // Appends the time to the platform's login record (a new record for a new platform).
  void AddLogin(const std::wstring& platform, std::uint32_t time);
  // Appends the time to the tool's record (a new record for a new tool).
  void AddToolUse(const std::wstring& tool, std::uint32_t time);
  // Appends the value to the named record, created with the dupes flag given;
  // a record without dupes keeps each value once.
  void AddCustomValue(const std::wstring& name, const std::wstring& value, bool dupes);
  // Adds amount to the named counter (appended with amount when new); the
  // count stops at the largest 32-bit value.
  void AddCount(const std::wstring& name, std::int32_t amount);
  // Adds every record of other to this report's records of the same names.
  void Merge(const CHvUsageReport& other);
  // Takes out what sent holds: from each record of the same name one
  // occurrence of each of its times or values, and its count; records left
  // empty go. So a stored report that other runs were merged into after sent
  // was read from it keeps only what they added.
  void Remove(const CHvUsageReport& sent);

  const std::wstring& FilePath() const { return m_filePath; }
  void SetFilePath(const std::wstring& path) { m_filePath = path; }
  std::uint32_t LastSend() const { return m_lastSend; }
  void SetLastSend(std::uint32_t time) { m_lastSend = time; }
  std::uint32_t Product() const { return m_product; }
  void SetProduct(std::uint32_t product) { m_product = product; }
  std::uint32_t LicenseNum() const { return m_licenseNum; }
  void SetLicenseNum(std::uint32_t number) { m_licenseNum = number; }
  const std::wstring& Guid() const { return m_guid; }
  void SetGuid(const std::wstring& guid) { m_guid = guid; }
  bool Eval() const { return m_eval; }
  void SetEval(bool eval) { m_eval = eval; }

  const std::vector<SHvUsageLogin>& Logins() const { return m_logins; }
  const std::vector<SHvUsageToolUse>& ToolUses() const { return m_toolUses; }
  const std::vector<SHvUsageCustom>& Custom() const { return m_custom; }
  const std::vector<SHvUsageCounter>& Counters() const { return m_counters; }

 private:
  std::wstring m_filePath;
  std::uint32_t m_lastSend = 0;
  std::uint32_t m_product = 0;
  std::uint32_t m_licenseNum = 0;
  std::wstring m_guid;
  bool m_eval = false;
  std::vector<SHvUsageLogin> m_logins;
  std::vector<SHvUsageToolUse> m_toolUses;
  std::vector<SHvUsageCustom> m_custom;
  std::vector<SHvUsageCounter> m_counters;
};

}  // namespace Hv
