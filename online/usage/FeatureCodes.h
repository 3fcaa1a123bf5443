#pragma once
// The features the LISP application counts, by the numeric codes it uses,
// and the counter names they are stored under.
#include <string>

namespace Hv {

// "Building::Import" for 203 and so on; null for a code not in the table.
const wchar_t* FeatureName(int code);

// "Count::" followed by the feature: a key that is the decimal number of a
// known code names that code's feature, any other key names itself
// ("Building::Import" gives "Count::Building::Import").
std::wstring FeatureCounterName(const std::wstring& key);

}  // namespace Hv
