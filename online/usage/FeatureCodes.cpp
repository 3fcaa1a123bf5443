#include "online/usage/FeatureCodes.h"

namespace Hv {
namespace {

struct FeatureCode {
  int code;
  const wchar_t* name;
};

constexpr FeatureCode kFeatureCodes[] = {
    {101, L"Settings::Imperial"},  {102, L"Settings::Metric"},   {201, L"Building::Create"},
    {202, L"Building::Select"},    {203, L"Building::Import"},   {301, L"Heightfield::Open"},
    {302, L"Heightfield::Filter"}, {401, L"Regulation::ICAO"},   {402, L"Regulation::FAA"},
    {403, L"Regulation::Germany"}, {404, L"Regulation::Canada"},
};

// The key as a code: all decimal digits, at most three of them.
int keyCode(const std::wstring& key) {
  if (key.empty() || key.size() > 3 || key.find_first_not_of(L"0123456789") != std::wstring::npos) return -1;
  return std::stoi(key);
}

}  // namespace

const wchar_t* FeatureName(int code) {
  for (const FeatureCode& feature : kFeatureCodes) {
    if (feature.code == code) return feature.name;
  }
  return nullptr;
}

std::wstring FeatureCounterName(const std::wstring& key) {
  const wchar_t* feature = FeatureName(keyCode(key));
  return L"Count::" + (feature ? std::wstring(feature) : key);
}

}  // namespace Hv
