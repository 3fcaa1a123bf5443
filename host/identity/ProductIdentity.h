#pragma once
// Which product this is, the host release a module file is meant for, the
// version attributes handed to usage reports, and the date texts of dialogs.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kvt1 {

constexpr int kProductNumber = 30;
extern const wchar_t kProductName[];
extern const wchar_t kProductCode[];

std::wstring productName(int number);
std::wstring productCode(int number);
// kProductNumber when name is the product's name, else 0.
int productNumber(const std::wstring& name);
// The settings-wide current product: 0 until first asked, then kProductNumber.
int currentProductNumber();

// "2010" for release 18 ... "2018" for release 22, "ERROR" for any other.
const wchar_t* releaseYear(int release);
// "kvt<year>.arx" for a host release. The text is kept until a call names
// another release.
const std::wstring& moduleNameForRelease(int release);

// ("KVTVer", program version) and ("KVTDataVer", data version).
std::vector<std::pair<std::wstring, std::wstring>> versionAttributes();

enum class DateForm { Long, Short };
// "Not set" for seconds <= 0; else "January 01, 2018" (long, English month
// names) or "2018-01-01" (short), in UTC.
std::wstring dateText(std::int64_t secondsSince1970, DateForm form);

}  // namespace kvt1
