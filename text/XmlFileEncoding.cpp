#include "text/XmlFileEncoding.h"

#include <cstdint>

#include "platform/CaseFolding.h"
#include "platform/Unicode.h"
#include "text/XmlSyntax.h"

namespace kvt1 {
namespace {

constexpr std::size_t npos = std::wstring_view::npos;

bool startsWith(std::string_view bytes, std::string_view prefix) { return bytes.substr(0, prefix.size()) == prefix; }

std::size_t unitSize(XmlUnicodeForm form) {
  return form == XmlUnicodeForm::kUtf32LE || form == XmlUnicodeForm::kUtf32BE ? 4 : 2;
}

bool bigEndian(XmlUnicodeForm form) { return form == XmlUnicodeForm::kUtf16BE || form == XmlUnicodeForm::kUtf32BE; }

platform::ByteOrder byteOrder(bool big) {
  return big ? platform::ByteOrder::kBigEndian : platform::ByteOrder::kLittleEndian;
}

std::uint32_t readUnit(std::string_view bytes, std::size_t pos, std::size_t size, bool big) {
  std::uint32_t unit = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const auto byte = static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[pos + (big ? i : size - 1 - i)]));
    unit = unit << 8 | byte;
  }
  return unit;
}

void writeUnit(std::string& bytes, std::uint32_t unit, std::size_t size, bool big) {
  for (std::size_t i = 0; i < size; ++i) {
    const std::size_t shift = 8 * (big ? size - 1 - i : i);
    bytes += static_cast<char>((unit >> shift) & 0xFF);
  }
}

bool sameName(std::wstring_view name, std::wstring_view known) {
  return platform::asciiEqualsIgnoringCase(name, known);
}

}  // namespace

XmlUnicodeForm byteOrderMark(std::string_view bytes, std::size_t& markLength) {
  struct Mark {
    std::string_view bytes;
    XmlUnicodeForm form;
  };
  static const Mark marks[] = {
      {std::string_view("\xFF\xFE\0\0", 4), XmlUnicodeForm::kUtf32LE},
      {std::string_view("\0\0\xFE\xFF", 4), XmlUnicodeForm::kUtf32BE},
      {"\xEF\xBB\xBF", XmlUnicodeForm::kUtf8},
      {"\xFF\xFE", XmlUnicodeForm::kUtf16LE},
      {"\xFE\xFF", XmlUnicodeForm::kUtf16BE},
  };
  for (const Mark& mark : marks) {
    if (startsWith(bytes, mark.bytes)) {
      markLength = mark.bytes.size();
      return mark.form;
    }
  }
  markLength = 0;
  return XmlUnicodeForm::kNone;
}

XmlUnicodeForm sniffUnicodeForm(std::string_view bytes) {
  if (startsWith(bytes, std::string_view("<\0\0\0?\0\0\0", 8))) return XmlUnicodeForm::kUtf32LE;
  if (startsWith(bytes, std::string_view("\0\0\0<\0\0\0?", 8))) return XmlUnicodeForm::kUtf32BE;
  if (startsWith(bytes, std::string_view("<\0?\0", 4))) return XmlUnicodeForm::kUtf16LE;
  if (startsWith(bytes, std::string_view("\0<\0?", 4))) return XmlUnicodeForm::kUtf16BE;
  return XmlUnicodeForm::kNone;
}

XmlUnicodeForm unicodeFormFromName(std::wstring_view name) {
  if (sameName(name, L"UTF-8")) return XmlUnicodeForm::kUtf8;
  if (sameName(name, L"UTF-16") || sameName(name, L"UTF-16LE")) return XmlUnicodeForm::kUtf16LE;
  if (sameName(name, L"UTF-16BE")) return XmlUnicodeForm::kUtf16BE;
  if (sameName(name, L"UTF-32") || sameName(name, L"UTF-32LE")) return XmlUnicodeForm::kUtf32LE;
  if (sameName(name, L"UTF-32BE")) return XmlUnicodeForm::kUtf32BE;
  return XmlUnicodeForm::kNone;
}

const wchar_t* unicodeFormName(XmlUnicodeForm form) {
  switch (form) {
    case XmlUnicodeForm::kUtf8:
      return L"UTF-8";
    case XmlUnicodeForm::kUtf16LE:
      return L"UTF-16LE";
    case XmlUnicodeForm::kUtf16BE:
      return L"UTF-16BE";
    case XmlUnicodeForm::kUtf32LE:
      return L"UTF-32LE";
    case XmlUnicodeForm::kUtf32BE:
      return L"UTF-32BE";
    case XmlUnicodeForm::kNone:
      break;
  }
  return L"";
}

std::wstring xmlDeclaredEncoding(std::wstring_view text) {
  if (text.compare(0, 5, L"<?xml") != 0 || (text.size() > 5 && !isXmlSpace(text[5]))) return {};
  const std::wstring_view declaration = text.substr(0, text.find(L"?>"));
  std::size_t pos = declaration.find(L"encoding");
  if (pos == npos) return {};
  pos = skipXmlSpace(declaration, pos + 8);
  if (pos >= declaration.size() || declaration[pos] != L'=') return {};
  pos = skipXmlSpace(declaration, pos + 1);
  if (pos >= declaration.size() || (declaration[pos] != L'"' && declaration[pos] != L'\'')) return {};
  const std::size_t close = declaration.find(declaration[pos], pos + 1);
  if (close == npos) return {};
  return std::wstring(declaration.substr(pos + 1, close - pos - 1));
}

std::wstring widenBytes(std::string_view bytes) {
  std::wstring text(bytes.size(), L'\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) text[i] = static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]));
  return text;
}

std::size_t cutUtf8Tail(std::string_view bytes) {
  // Look back over at most three continuation bytes for the sequence's lead.
  for (std::size_t back = 1; back <= 4 && back <= bytes.size(); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if ((byte & 0xC0) == 0x80) continue;
    std::size_t length = 1;
    if ((byte & 0xE0) == 0xC0)
      length = 2;
    else if ((byte & 0xF0) == 0xE0)
      length = 3;
    else if ((byte & 0xF8) == 0xF0)
      length = 4;
    return length > back ? back : 0;
  }
  return 0;
}

bool decodeUnicodeForm(XmlUnicodeForm form, std::string_view bytes, std::wstring& text) {
  const bool big = bigEndian(form);
  if (unitSize(form) == 2) return platform::fromUtf16(bytes, byteOrder(big), text);
  text.clear();
  const std::size_t count = bytes.size() / 4;
  text.reserve(count);
  bool valid = true;
  for (std::size_t i = 0; i < count; ++i) {
    std::uint32_t cp = readUnit(bytes, i * 4, 4, big);
    if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
      cp = platform::kReplacementCharacter;
      valid = false;
    }
    platform::appendCodePoint(text, cp);
  }
  return valid;
}

void encodeUnicodeForm(XmlUnicodeForm form, std::wstring_view text, std::string& bytes) {
  const bool big = bigEndian(form);
  if (unitSize(form) == 2) {
    bytes = platform::toUtf16(text, byteOrder(big));
    return;
  }
  bytes.clear();
  bytes.reserve(text.size() * 4);
  for (std::size_t i = 0; i < text.size();) writeUnit(bytes, platform::nextCodePoint(text, i), 4, big);
}

}  // namespace kvt1
