#pragma once
// Filling the placeholders of a text in place. Numbered placeholders ("%1",
// "%2", ...) are replaced everywhere; positional ones ("%s", "%d", "%u",
// "%f") only at their first occurrence.
#include <string>

namespace NTxtRes {

// Replaces every "%n" by value. A plain replace: "%1" also hits the start
// of "%10", so callers fill the highest numbers first. True when one was found.
bool ReplaceNumbered(std::wstring& text, int n, const std::wstring& value);

// The first "%s", "%d" or "%u" becomes the value. False when there is none;
// otherwise true when the text is not empty afterwards.
bool ReplaceString(std::wstring& text, const std::wstring& value);
bool ReplaceInt(std::wstring& text, int value);
bool ReplaceUnsigned(std::wstring& text, unsigned value);

// With a precision of 0 or more the first "%f" becomes the value with that
// many decimals. With a negative precision the text names the format: the
// first well-formed float conversion ("%f", "%.3f", "%.2lf", "%-8.1Lf",
// "%+e"; flags, width and precision of up to three digits, "l" or "L").
// False when there is no such placeholder.
bool ReplaceFloat(std::wstring& text, double value, int precision);

// Replaces every occurrence of what by with.
void ReplaceAll(std::wstring& text, const std::wstring& what, const std::wstring& with);

}  // namespace NTxtRes
