#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

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

bool isSurrogate(char32_t cp) { return cp >= 0xD800 && cp <= 0xDFFF; }

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

std::string toUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t cp = static_cast<char32_t>(text[i]);
    if constexpr (sizeof(wchar_t) == 2) {
      cp &= 0xFFFF;
      if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size()) {
        const char32_t low = static_cast<char32_t>(text[i + 1]) & 0xFFFF;
        if (low >= 0xDC00 && low <= 0xDFFF) {
          cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
          ++i;
        }
      }
    }
    if (isSurrogate(cp) || cp > 0x10FFFF) cp = kReplacement;
    appendUtf8(out, cp);
  }
  return out;
}

std::wstring fromUtf8(std::string_view text) {
  std::wstring out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    int extra = 0;
    char32_t cp = 0;
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
      appendCodePoint(out, kReplacement);
      ++i;
      continue;
    }
    std::size_t j = i + 1;
    for (; j <= i + extra; ++j) {
      if (j >= text.size() || (static_cast<unsigned char>(text[j]) & 0xC0) != 0x80) break;
      cp = (cp << 6) | (static_cast<unsigned char>(text[j]) & 0x3F);
    }
    if (j != i + extra + 1 || cp < minimum || cp > 0x10FFFF || isSurrogate(cp)) {
      appendCodePoint(out, kReplacement);
      i = j > i + 1 ? j : i + 1;
      continue;
    }
    appendCodePoint(out, cp);
    i = j;
  }
  return out;
}

}  // namespace kvt1::platform
