#include "host/identity/ProductIdentity.h"

#include <ctime>
#include <cwchar>

#include "platform/EnglishTimeLocale.h"
#include "platform/UtcTime.h"
#include "platform/WideFormat.h"

namespace kvt1 {

const wchar_t kProductName[] = L"KVT";
const wchar_t kProductCode[] = L"KVT1";

namespace {

struct ProductEntry {
  int number;
  const wchar_t* name;
  const wchar_t* code;
};

// The maker's products known to this module.
constexpr ProductEntry kProducts[] = {
    {kProductNumber, kProductName, kProductCode},
};

const ProductEntry* findProduct(int number) {
  for (const ProductEntry& entry : kProducts) {
    if (entry.number == number) return &entry;
  }
  return nullptr;
}

}  // namespace

std::wstring productName(int number) {
  const ProductEntry* entry = findProduct(number);
  return entry ? entry->name : L"Unknown product";
}

std::wstring productCode(int number) {
  const ProductEntry* entry = findProduct(number);
  return entry ? entry->code : L"HV???";
}

int productNumber(const std::wstring& name) { return name == kProductName ? kProductNumber : 0; }

int currentProductNumber() {
  static int current = 0;
  if (current == 0) current = kProductNumber;
  return current;
}

const wchar_t* releaseYear(int release) {
  switch (release) {
    case 18:
      return L"2010";
    case 19:
      return L"2013";
    case 20:
      return L"2015";
    case 21:
      return L"2017";
    case 22:
      return L"2018";
    default:
      return L"ERROR";
  }
}

const std::wstring& moduleNameForRelease(int release) {
  static int lastRelease = -1;
  static std::wstring name;
  if (release != lastRelease || name.empty()) {
    name = platform::formatWide(L"kvt%s.arx", releaseYear(release));
    lastRelease = release;
  }
  return name;
}

std::vector<std::pair<std::wstring, std::wstring>> versionAttributes() {
  return {{L"KVTVer", platform::formatWide(L"%d.%d.%d", 1, 1, 0)}, {L"KVTDataVer", L"1"}};
}

std::wstring dateText(std::int64_t secondsSince1970, DateForm form) {
  if (secondsSince1970 <= 0) return L"Not set";
  std::tm parts{};
  if (!platform::utcTime(secondsSince1970, parts)) return L"Not set";
  wchar_t buffer[128];
  std::size_t length = 0;
  if (form == DateForm::Long) {
    platform::EnglishTimeLocale english;
    length = std::wcsftime(buffer, 128, L"%B %d, %Y", &parts);
  } else {
    length = std::wcsftime(buffer, 128, L"%Y-%m-%d", &parts);
  }
  return std::wstring(buffer, length);
}

}  // namespace kvt1
