// libFuzzer target: parses any input as a document (as UTF-8, as raw wide
// characters, or as a file's bytes) and runs navigation and path queries on
// whatever was indexed. An input may carry its own query after a line "//".
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/Base64.h"
#include "platform/Unicode.h"
#include "text/XmlDocument.h"

namespace {

const wchar_t* const kQueries[] = {
    L"/*/Key",
    L"/*/Error/*[@code='5']",
    L"/*/Tooltip/*[@did='1']/*[@cid='2']/Index_0/Text",
    L"/*/*/*",
    L"/*/a/@b",
    L"/r/*[@x]/@y",
    L"*",
    L"@a",
    L"/html/head/meta",
};

void walk(kvt1::CXmlDocument& doc) {
  doc.ResetPos();
  int steps = 0;
  while (doc.FindElem() && ++steps < 200) {
    doc.GetTagName();
    doc.GetElemData();
    doc.GetAttrib(L"a");
    if (doc.FindChildElem()) {
      doc.GetChildData();
      doc.IntoElem();
    }
  }
  while (doc.OutOfElem()) doc.GetTagName();
}

void query(kvt1::CXmlDocument& doc, std::wstring_view ownQuery) {
  walk(doc);
  doc.ResetPos();
  for (const wchar_t* path : kQueries) doc.GetData(path);
  if (!ownQuery.empty()) {
    doc.GetData(ownQuery);
    doc.GetData(ownQuery);
  }
  doc.IsWellFormed();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data + 1), size - 1);
  const std::size_t split = input.find("\n//");
  const std::string_view body = input.substr(0, split);
  const std::wstring ownQuery =
      split == std::string_view::npos ? std::wstring() : kvt1::platform::fromUtf8(input.substr(split + 3));

  kvt1::CXmlDocument doc;
  switch (data[0] % 3) {
    case 0:
      doc.SetDoc(kvt1::platform::fromUtf8(body));
      break;
    case 1: {
      std::wstring text(body.size() / 2, L'\0');
      for (std::size_t i = 0; i < text.size(); ++i) {
        text[i] = static_cast<wchar_t>(static_cast<unsigned char>(body[2 * i]) |
                                       static_cast<unsigned char>(body[2 * i + 1]) << 8);
      }
      doc.SetDoc(std::move(text));
      break;
    }
    default: {
      static const std::string path = "/tmp/kvt1-xml-fuzz-" + std::to_string(::getpid()) + ".xml";
      if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(body.data(), 1, body.size(), file);
        std::fclose(file);
      }
      doc.ReadFile(kvt1::platform::fromUtf8(path));
      break;
    }
  }
  query(doc, ownQuery);

  std::string bytes;
  kvt1::platform::decodeBase64(body.substr(0, 256), bytes);
  return 0;
}
