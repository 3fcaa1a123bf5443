#include "htmlui/engine/HtmlValue.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>

namespace kvt1::html {
namespace {

std::wstring* stringOf(const VALUE& v) { return reinterpret_cast<std::wstring*>(static_cast<std::uintptr_t>(v.d)); }

double floatOf(const VALUE& v) {
  double d;
  std::memcpy(&d, &v.d, sizeof d);
  return d;
}

void setString(VALUE& v, std::wstring text, UINT units) {
  v.t = T_STRING;
  v.u = units;
  v.d = static_cast<UINT64>(reinterpret_cast<std::uintptr_t>(new std::wstring(std::move(text))));
}

// The shortest decimal text that reads back as the same double.
std::wstring floatText(double d) {
  if (std::isnan(d)) return L"NaN";
  if (std::isinf(d)) return d > 0 ? L"Infinity" : L"-Infinity";
  char buffer[40];
  for (int precision = 15; precision <= 17; ++precision) {
    std::snprintf(buffer, sizeof buffer, "%.*g", precision, d);
    if (std::strtod(buffer, nullptr) == d) break;
  }
  return std::wstring(buffer, buffer + std::strlen(buffer));
}

std::wstring jsonQuoted(const std::wstring& text) {
  std::wstring out = L"\"";
  for (const wchar_t c : text) {
    switch (c) {
      case L'"':
        out += L"\\\"";
        break;
      case L'\\':
        out += L"\\\\";
        break;
      case L'\n':
        out += L"\\n";
        break;
      case L'\r':
        out += L"\\r";
        break;
      case L'\t':
        out += L"\\t";
        break;
      default:
        if (c < 0x20) {
          wchar_t escape[8];
          std::swprintf(escape, 8, L"\\u%04x", static_cast<unsigned>(c));
          out += escape;
        } else {
          out += c;
        }
    }
  }
  return out + L"\"";
}

bool isSupported(UINT type) {
  return type == T_UNDEFINED || type == T_NULL || type == T_BOOL || type == T_INT || type == T_FLOAT ||
         type == T_STRING;
}

}  // namespace

UINT valueInit(VALUE* pval) {
  if (pval == nullptr) return HV_BAD_PARAMETER;
  pval->t = T_UNDEFINED;
  pval->u = 0;
  pval->d = 0;
  return HV_OK;
}

UINT valueClear(VALUE* pval) {
  if (pval == nullptr) return HV_BAD_PARAMETER;
  if (pval->t == T_STRING) delete stringOf(*pval);
  return valueInit(pval);
}

UINT valueCopy(VALUE* pdst, const VALUE* psrc) {
  if (pdst == nullptr || psrc == nullptr || !isSupported(psrc->t)) return HV_BAD_PARAMETER;
  if (pdst == psrc) return HV_OK;
  valueClear(pdst);
  if (psrc->t == T_STRING)
    setString(*pdst, *stringOf(*psrc), psrc->u);
  else
    *pdst = *psrc;
  return HV_OK;
}

UINT valueCompare(const VALUE* pval1, const VALUE* pval2) {
  if (pval1 == nullptr || pval2 == nullptr) return HV_BAD_PARAMETER;
  if (pval1->t != pval2->t) return HV_OK;
  bool equal = false;
  switch (pval1->t) {
    case T_UNDEFINED:
    case T_NULL:
      equal = true;
      break;
    case T_BOOL:
    case T_INT:
      equal = static_cast<INT>(pval1->d) == static_cast<INT>(pval2->d);
      break;
    case T_FLOAT:
      equal = floatOf(*pval1) == floatOf(*pval2);
      break;
    case T_STRING:
      equal = *stringOf(*pval1) == *stringOf(*pval2);
      break;
    default:
      return HV_INCOMPATIBLE_TYPE;
  }
  return equal ? static_cast<UINT>(HV_OK_TRUE) : static_cast<UINT>(HV_OK);
}

UINT valueIntData(const VALUE* pval, INT* pData) {
  if (pval == nullptr || pData == nullptr) return HV_BAD_PARAMETER;
  if (pval->t != T_INT && pval->t != T_BOOL && pval->t != T_LENGTH) return HV_INCOMPATIBLE_TYPE;
  *pData = static_cast<INT>(static_cast<std::int64_t>(pval->d));
  return HV_OK;
}

UINT valueIntDataSet(VALUE* pval, INT data, UINT type, UINT units) {
  if (pval == nullptr || (type != T_INT && type != T_BOOL && type != T_LENGTH)) return HV_BAD_PARAMETER;
  valueClear(pval);
  pval->t = type;
  pval->u = units;
  pval->d = static_cast<UINT64>(static_cast<std::int64_t>(type == T_BOOL ? (data != 0 ? 1 : 0) : data));
  return HV_OK;
}

UINT valueFloatDataSet(VALUE* pval, double data, UINT type, UINT units) {
  if (pval == nullptr || type != T_FLOAT) return HV_BAD_PARAMETER;
  valueClear(pval);
  pval->t = type;
  pval->u = units;
  std::memcpy(&pval->d, &data, sizeof data);
  return HV_OK;
}

UINT valueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars) {
  if (pval == nullptr || pChars == nullptr) return HV_BAD_PARAMETER;
  if (pval->t != T_STRING) return HV_INCOMPATIBLE_TYPE;
  const std::wstring* text = stringOf(*pval);
  *pChars = text->c_str();
  if (pNumChars != nullptr) *pNumChars = static_cast<UINT>(text->size());
  return HV_OK;
}

UINT valueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units) {
  if (pval == nullptr || (chars == nullptr && numChars != 0)) return HV_BAD_PARAMETER;
  valueClear(pval);
  setString(*pval, chars != nullptr ? std::wstring(chars, numChars) : std::wstring(), units);
  return HV_OK;
}

std::wstring valueText(const VALUE& value) {
  switch (value.t) {
    case T_NULL:
      return L"null";
    case T_BOOL:
      return value.d != 0 ? L"true" : L"false";
    case T_INT:
      return std::to_wstring(static_cast<INT>(static_cast<std::int64_t>(value.d)));
    case T_FLOAT:
      return floatText(floatOf(value));
    case T_STRING:
      return *stringOf(value);
    default:
      return std::wstring();
  }
}

UINT valueToString(VALUE* pval, UINT how) {
  if (pval == nullptr || !isSupported(pval->t)) return HV_BAD_PARAMETER;
  if (how != CVT_SIMPLE && how != CVT_JSON_LITERAL) return HV_BAD_PARAMETER;
  if (pval->t == T_STRING && how == CVT_SIMPLE) return HV_OK;
  std::wstring text = valueText(*pval);
  if (how == CVT_JSON_LITERAL) {
    if (pval->t == T_STRING) text = jsonQuoted(text);
    if (pval->t == T_UNDEFINED) text = L"null";
  }
  valueClear(pval);
  setString(*pval, std::move(text), 0);
  return HV_OK;
}

}  // namespace kvt1::html
