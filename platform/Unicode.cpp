#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

bool isSurrogate(char32_t cp) { return cp >= 0xD800 && cp <= 0xDFFF; }

void appendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Decodes the UTF-8 sequence at text[i] into cp and advances i past it.
// False (i past the malformed bytes, at least one) when it is not well formed.
bool decodeUtf8Sequence(std::string_view text, std::size_t& i, char32_t& cp) {
  const auto lead = static_cast<unsigned char>(text[i]);
  std::size_t extra = 0;
  char32_t minimum = 0;
  if (lead < 0x80) {
    cp = lead;
  } else if ((lead & 0xE0) == 0xC0) {
    extra = 1, cp = lead & 0x1F, minimum = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    extra = 2, cp = lead & 0x0F, minimum = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    extra = 3, cp = lead & 0x07, minimum = 0x10000;
  } else {
    ++i;
    return false;
  }
  std::size_t j = i + 1;
  for (; j <= i + extra; ++j) {
    if (j >= text.size() || (static_cast<unsigned char>(text[j]) & 0xC0) != 0x80) break;
    cp = (cp << 6) | (static_cast<unsigned char>(text[j]) & 0x3F);
  }
  const bool complete = j == i + extra + 1;
  i = j;
  return complete && cp >= minimum && cp <= 0x10FFFF && !isSurrogate(cp);
}

char32_t unitAt(std::string_view bytes, std::size_t i, ByteOrder order) {
  const auto first = static_cast<unsigned char>(bytes[i]);
  const auto second = static_cast<unsigned char>(bytes[i + 1]);
  return order == ByteOrder::kLittleEndian ? first | second << 8 : first << 8 | second;
}

void appendUnit(std::string& out, char32_t unit, ByteOrder order) {
  const auto low = static_cast<char>(unit & 0xFF);
  const auto high = static_cast<char>((unit >> 8) & 0xFF);
  out += order == ByteOrder::kLittleEndian ? low : high;
  out += order == ByteOrder::kLittleEndian ? high : low;
}

}  // namespace

void appendCodePoint(std::wstring& out, char32_t codePoint) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (codePoint >= 0x10000) {
      codePoint -= 0x10000;
      out += static_cast<wchar_t>(0xD800 + (codePoint >> 10));
      out += static_cast<wchar_t>(0xDC00 + (codePoint & 0x3FF));
      return;
    }
  }
  out += static_cast<wchar_t>(codePoint);
}

char32_t nextCodePoint(std::wstring_view text, std::size_t& i) {
  char32_t cp = static_cast<char32_t>(text[i++]);
  if constexpr (sizeof(wchar_t) == 2) {
    cp &= 0xFFFF;
    if (isHighSurrogate(cp) && i < text.size()) {
      const char32_t low = static_cast<char32_t>(text[i]) & 0xFFFF;
      if (isLowSurrogate(low)) {
        ++i;
        return joinSurrogates(cp, low);
      }
    }
  }
  return isSurrogate(cp) || cp > 0x10FFFF ? kReplacementCharacter : cp;
}

std::string toUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) appendUtf8(out, nextCodePoint(text, i));
  return out;
}

std::wstring fromUtf8(std::string_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    char32_t cp = 0;
    appendCodePoint(out, decodeUtf8Sequence(text, i, cp) ? cp : kReplacementCharacter);
  }
  return out;
}

bool isValidUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    char32_t cp = 0;
    if (!decodeUtf8Sequence(bytes, i, cp)) return false;
  }
  return true;
}

bool fromUtf16(std::string_view bytes, ByteOrder order, std::wstring& text) {
  text.clear();
  text.reserve(bytes.size() / 2);
  bool lossless = true;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = unitAt(bytes, i, order);
    if (isHighSurrogate(unit) && i + 3 < bytes.size()) {
      const char32_t low = unitAt(bytes, i + 2, order);
      if (isLowSurrogate(low)) {
        appendCodePoint(text, joinSurrogates(unit, low));
        i += 2;
        continue;
      }
    }
    if (isSurrogate(unit)) lossless = false;
    appendCodePoint(text, isSurrogate(unit) ? kReplacementCharacter : unit);
  }
  return lossless;
}

std::wstring fromUtf16(std::string_view bytes, ByteOrder order) {
  std::wstring text;
  fromUtf16(bytes, order, text);
  return text;
}

std::string toUtf16(std::wstring_view text, ByteOrder order) {
  std::string out;
  out.reserve(text.size() * 2);
  for (std::size_t i = 0; i < text.size();) {
    char32_t cp = nextCodePoint(text, i);
    if (cp >= 0x10000) {
      cp -= 0x10000;
      appendUnit(out, 0xD800 + (cp >> 10), order);
      appendUnit(out, 0xDC00 + (cp & 0x3FF), order);
    } else {
      appendUnit(out, cp, order);
    }
  }
  return out;
}

}  // namespace kvt1::platform
