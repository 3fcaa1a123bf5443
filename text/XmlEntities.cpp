#include "text/XmlEntities.h"

#include <algorithm>
#include <cstddef>

#include "platform/Unicode.h"

namespace kvt1 {
namespace {

// More digits than this cannot name a valid character.
constexpr std::size_t kMaxDecimalDigits = 7;
constexpr std::size_t kMaxHexDigits = 6;
constexpr std::size_t kMaxNameLength = 16;

bool isValidCharacter(char32_t cp) { return cp != 0 && cp <= 0x10FFFF && !(cp >= 0xD800 && cp <= 0xDFFF); }

int digitValue(wchar_t c, bool hex) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (hex && c >= L'a' && c <= L'f') return c - L'a' + 10;
  if (hex && c >= L'A' && c <= L'F') return c - L'A' + 10;
  return -1;
}

// The character named by the reference body between "&" and ";"; 0 if none.
char32_t referencedCharacter(std::wstring_view body) {
  if (body.empty()) return 0;
  if (body[0] != L'#') {
    if (body == L"lt") return U'<';
    if (body == L"gt") return U'>';
    if (body == L"amp") return U'&';
    if (body == L"quot") return U'"';
    if (body == L"apos") return U'\'';
    return htmlEntityCodePoint(body);
  }
  const bool hex = body.size() > 1 && (body[1] == L'x' || body[1] == L'X');
  const std::wstring_view digits = body.substr(hex ? 2 : 1);
  if (digits.empty() || digits.size() > (hex ? kMaxHexDigits : kMaxDecimalDigits)) return 0;
  char32_t cp = 0;
  for (const wchar_t c : digits) {
    const int value = digitValue(c, hex);
    if (value < 0) return 0;
    cp = cp * (hex ? 16 : 10) + static_cast<char32_t>(value);
  }
  return isValidCharacter(cp) ? cp : 0;
}

}  // namespace

void appendXmlDecoded(std::wstring& out, std::wstring_view raw) {
  std::size_t pos = 0;
  for (;;) {
    const std::size_t amp = raw.find(L'&', pos);
    if (amp == std::wstring_view::npos) break;
    out.append(raw.data() + pos, amp - pos);
    const std::size_t limit = std::min(raw.size(), amp + 2 + kMaxNameLength);
    std::size_t semicolon = amp + 1;
    while (semicolon < limit && raw[semicolon] != L';') ++semicolon;
    const char32_t cp = semicolon < limit ? referencedCharacter(raw.substr(amp + 1, semicolon - amp - 1)) : 0;
    if (cp != 0) {
      platform::appendCodePoint(out, cp);
      pos = semicolon + 1;
    } else {
      out += L'&';
      pos = amp + 1;
    }
  }
  out.append(raw.data() + pos, raw.size() - pos);
}

std::wstring escapeXmlText(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (const wchar_t c : text) {
    switch (c) {
      case L'&':
        out += L"&amp;";
        break;
      case L'<':
        out += L"&lt;";
        break;
      case L'>':
        out += L"&gt;";
        break;
      case L'"':
        out += L"&quot;";
        break;
      case L'\'':
        out += L"&apos;";
        break;
      default:
        out += c;
        break;
    }
  }
  return out;
}

std::wstring makeXmlCData(std::wstring_view text) {
  std::wstring out = L"<![CDATA[";
  std::size_t pos = 0;
  for (;;) {
    const std::size_t end = text.find(L"]]>", pos);
    if (end == std::wstring_view::npos) break;
    out.append(text.data() + pos, end - pos);
    out += L"]]]]><![CDATA[>";
    pos = end + 3;
  }
  out.append(text.data() + pos, text.size() - pos);
  out += L"]]>";
  return out;
}

}  // namespace kvt1
