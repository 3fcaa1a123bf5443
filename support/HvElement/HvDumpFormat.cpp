#include "support/HvElement/HvDumpFormat.h"

#include <charconv>
#include <cmath>

namespace kvt1 {
namespace {

void appendValue(std::wstring& text, double value) {
  if (std::isnan(value)) {
    text += L"nan";
  } else if (std::isinf(value)) {
    text += value < 0 ? L"-inf" : L"inf";
  } else {
    char digits[32];
    const std::to_chars_result result = std::to_chars(digits, digits + sizeof digits, value);
    text.append(digits, result.ptr);
  }
}

}  // namespace

void AppendHvNumber(std::wstring& text, double value) {
  text += L' ';
  appendValue(text, value);
}

void AppendHvPoint(std::wstring& text, const CHvPoint2d& point) {
  text += L" (";
  appendValue(text, point.x);
  text += L", ";
  appendValue(text, point.y);
  text += L')';
}

}  // namespace kvt1
