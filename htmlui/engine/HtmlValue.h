#pragma once
// The engine's VALUE functions for undefined, null, boolean, integer, float
// and string values. A string VALUE owns a heap copy of its text.
#include <string>

#include "htmlui/engine/HtmlayoutApi.h"

namespace kvt1::html {

UINT valueInit(VALUE* pval);
UINT valueClear(VALUE* pval);
UINT valueCopy(VALUE* pdst, const VALUE* psrc);
UINT valueCompare(const VALUE* pval1, const VALUE* pval2);
UINT valueIntData(const VALUE* pval, INT* pData);
UINT valueIntDataSet(VALUE* pval, INT data, UINT type, UINT units);
UINT valueFloatDataSet(VALUE* pval, double data, UINT type, UINT units);
UINT valueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars);
UINT valueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units);
UINT valueToString(VALUE* pval, UINT how);

// The value as text (CVT_SIMPLE); "" for an undefined value.
std::wstring valueText(const VALUE& value);

}  // namespace kvt1::html
