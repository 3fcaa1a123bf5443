// CXmlDocument's file reading and writing with encoding conversion.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CaseFolding.h"
#include "platform/CodePage.h"
#include "platform/File.h"
#include "platform/Unicode.h"
#include "text/XmlCodePageTable.h"
#include "text/XmlDocument.h"
#include "text/XmlFileEncoding.h"

namespace kvt1 {
namespace {

// How far into a file without declaration an HTML page's meta element is
// looked for.
constexpr std::size_t kHtmlProbeBytes = 64 * 1024;

// Offsets into a document are 32-bit.
constexpr std::size_t kMaxDocumentBytes = UINT32_MAX - 1;

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FilePointer = std::unique_ptr<std::FILE, FileCloser>;

bool writeWholeFile(const std::wstring& path, const std::string& bytes) {
  FilePointer file(platform::openFile(path, "wb"));
  if (!file) return false;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  return std::fclose(file.release()) == 0 && written;
}

// The value after "charset=" in a content type such as "text/html; charset=utf-8".
std::wstring charsetOf(std::wstring_view contentType) {
  for (std::size_t pos = 0; pos + 8 <= contentType.size(); ++pos) {
    if (contentType.substr(pos, 8) != L"charset=") continue;
    const std::size_t start = pos + 8;
    std::size_t end = start;
    while (end < contentType.size() && contentType[end] != L';' && contentType[end] != L' ') ++end;
    return std::wstring(contentType.substr(start, end - start));
  }
  return {};
}

}  // namespace

std::wstring CXmlDocument::htmlCharset() const {
  // Any meta element below head of html: an HTML page leaves meta elements
  // unended, so later ones are nested in earlier ones. The text is in lower
  // case.
  XmlIndex html = m_table[kXmlDocumentNode].firstChild;
  while (html != kXmlNone && nameOf(html) != L"html") html = m_table[html].nextSibling;
  if (html == kXmlNone) return {};
  XmlIndex head = m_table[html].firstChild;
  while (head != kXmlNone && nameOf(head) != L"head") head = m_table[head].nextSibling;
  if (head == kXmlNone) return {};
  std::vector<XmlIndex> pending{m_table[head].firstChild};
  while (!pending.empty()) {
    const XmlIndex element = pending.back();
    pending.pop_back();
    if (element == kXmlNone) continue;
    pending.push_back(m_table[element].nextSibling);
    pending.push_back(m_table[element].firstChild);
    std::wstring value;
    if (nameOf(element) != L"meta" || !attributeOf(element, L"http-equiv", value) || value != L"content-type" ||
        !attributeOf(element, L"content", value)) {
      continue;
    }
    const std::wstring charset = charsetOf(value);
    if (!charset.empty()) return charset;
  }
  return {};
}

bool CXmlDocument::ReadFile(const std::wstring& path) {
  m_report.clear();
  std::string bytes;
  if (!platform::readWholeFile(path, kMaxDocumentBytes, bytes)) {
    m_report.add(L"file_error", {}, L"could not read file");
    m_doc.clear();
    parse();
    return false;
  }

  std::size_t markLength = 0;
  XmlUnicodeForm form = byteOrderMark(bytes, markLength);
  if (form == XmlUnicodeForm::kNone) form = sniffUnicodeForm(bytes);
  const std::string_view body = std::string_view(bytes).substr(markLength);

  unsigned codePage = 0;
  std::wstring encoding;
  bool utf8Detected = false;
  if (form != XmlUnicodeForm::kNone) {
    encoding = unicodeFormName(form);
  } else {
    const std::wstring probe = widenBytes(body.substr(0, kHtmlProbeBytes));
    encoding = xmlDeclaredEncoding(probe);
    if (encoding.empty()) {
      CXmlDocument html;
      html.SetDoc(platform::asciiLowerCase(probe));  // HTML names are not case sensitive
      encoding = html.htmlCharset();
    }
    // A Unicode name readable as single bytes can only mean UTF-8.
    if (unicodeFormFromName(encoding) != XmlUnicodeForm::kNone) form = XmlUnicodeForm::kUtf8;
    if (form == XmlUnicodeForm::kNone) {
      codePage = codePageFromEncodingName(encoding);
      if (codePage == platform::kCodePageUtf8) form = XmlUnicodeForm::kUtf8;
    }
    if (form == XmlUnicodeForm::kNone && (codePage == 0 || !platform::isCodePageSupported(codePage))) {
      codePage = platform::ansiCodePage();
      encoding = L"CP" + std::to_wstring(codePage);
    }
    const bool multiByte = std::any_of(body.begin(), body.end(), [](char c) { return (c & 0x80) != 0; });
    if (form == XmlUnicodeForm::kNone && codePage == platform::ansiCodePage() && multiByte &&
        platform::isValidUtf8(body)) {
      form = XmlUnicodeForm::kUtf8;
      utf8Detected = true;
    }
    if (form == XmlUnicodeForm::kUtf8) encoding = L"UTF-8";
  }

  const std::wstring length = std::to_wstring(bytes.size());
  m_report.add(L"read", {{L"encoding", encoding}, {L"length", length}},
               L"read " + length + L" bytes, " + (markLength > 0 ? L"BOM + " : L"") + encoding);
  if (utf8Detected) m_report.add(L"utf8_detection", {}, L"(used UTF-8 detection)");

  std::string_view convertible = body;
  std::size_t cut = 0;
  if (form == XmlUnicodeForm::kUtf8) {
    cut = cutUtf8Tail(body);
  } else if (form != XmlUnicodeForm::kNone) {
    const std::size_t unit = form == XmlUnicodeForm::kUtf32LE || form == XmlUnicodeForm::kUtf32BE ? 4 : 2;
    cut = body.size() % unit;
  }
  if (cut > 0) {
    convertible.remove_suffix(cut);
    m_report.add(L"truncation_error", {{L"encoding", encoding}, {L"length", std::to_wstring(cut)}},
                 encoding + L" adjustment error");
  }
  if (form == XmlUnicodeForm::kUtf16BE || form == XmlUnicodeForm::kUtf32BE) {
    m_report.add(L"endian_swap", {}, L"endian swap");
  }
  if (form != XmlUnicodeForm::kUtf16LE) m_report.add(L"converted_from", {{L"encoding", encoding}}, encoding);

  std::wstring text;
  bool lossless = true;
  if (form == XmlUnicodeForm::kUtf8) {
    lossless = platform::bytesToWide(platform::kCodePageUtf8, convertible, text);
  } else if (form != XmlUnicodeForm::kNone) {
    lossless = decodeUnicodeForm(form, convertible, text);
  } else {
    lossless = platform::bytesToWide(codePage, convertible, text);
  }
  if (!lossless) m_report.add(L"conversion_loss", {{L"encoding", encoding}}, L"(chars lost in conversion!)");

  const std::size_t before = text.size();
  text.erase(std::remove(text.begin(), text.end(), L'\0'), text.end());
  if (text.size() != before) {
    const std::wstring count = std::to_wstring(before - text.size());
    m_report.add(L"nulls_removed", {{L"length", count}}, count + L" nulls removed");
  }

  m_doc = std::move(text);
  parse();
  return IsWellFormed();
}

bool CXmlDocument::WriteFile(const std::wstring& path, std::wstring_view encoding) {
  m_report.clear();
  std::wstring name(encoding);
  if (name.empty()) name = xmlDeclaredEncoding(m_doc);
  if (name.empty()) name = L"UTF-8";

  XmlUnicodeForm form = unicodeFormFromName(name);
  unsigned codePage = form == XmlUnicodeForm::kUtf8 ? platform::kCodePageUtf8 : 0;
  if (form == XmlUnicodeForm::kNone) {
    codePage = codePageFromEncodingName(name);
    if (codePage == 0 || !platform::isCodePageSupported(codePage)) {
      m_report.add(L"file_error", {{L"encoding", name}}, L"no conversion to " + name);
      return false;
    }
  }

  std::string bytes;
  bool lossless = true;
  if (codePage != 0) {
    lossless = platform::wideToBytes(codePage, m_doc, bytes);
  } else {
    // Byte order marks by XmlUnicodeForm.
    static const std::string_view marks[] = {
        {}, {}, "\xFF\xFE", "\xFE\xFF", std::string_view("\xFF\xFE\0\0", 4), std::string_view("\0\0\xFE\xFF", 4)};
    std::string encoded;
    encodeUnicodeForm(form, m_doc, encoded);
    bytes = marks[static_cast<int>(form)];
    bytes += encoded;
    if (form == XmlUnicodeForm::kUtf16BE || form == XmlUnicodeForm::kUtf32BE) {
      m_report.add(L"endian_swap", {}, L"endian swap");
    }
  }
  if (form != XmlUnicodeForm::kUtf16LE) m_report.add(L"converted_to", {{L"encoding", name}}, name);
  if (!lossless) m_report.add(L"conversion_loss", {{L"encoding", name}}, L"(chars lost in conversion!)");

  if (!writeWholeFile(path, bytes)) {
    m_report.add(L"file_error", {}, L"could not write file");
    return false;
  }
  const std::wstring length = std::to_wstring(bytes.size());
  const bool mark = codePage == 0;
  m_report.add(L"write", {{L"encoding", name}, {L"length", length}},
               L"wrote " + length + L" bytes, " + (mark ? L"BOM + " : L"") + name);
  return true;
}

}  // namespace kvt1
