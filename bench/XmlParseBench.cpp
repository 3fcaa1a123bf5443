// Parse throughput of CXmlDocument beside pugixml, tinyxml2 and libxml2 on the
// same generated documents (1 MB and 20 MB of UTF-8), and the path lookup by
// key in a text document of 5,000 keys. Throughput is counted in the UTF-8
// bytes of the document for every reader.
#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <tinyxml2.h>

#include <map>
#include <pugixml.hpp>
#include <string>

#include "platform/Unicode.h"
#include "text/XmlDocument.h"

namespace {

// A text resource document: keys with plain texts, messages with sub-keys,
// indexed texts, error texts with codes, comments, CDATA and references.
std::string makeDocument(std::size_t targetBytes) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Texts lang=\"en\">\n";
  for (int i = 0; text.size() < targetBytes; ++i) {
    const std::string n = std::to_string(i);
    text += "  <!-- group " + n + " -->\n";
    text += "  <Key" + n + ">Plain text number " + n + " with an &amp; and a &lt;tag&gt; in it</Key" + n + ">\n";
    text += "  <Msg" + n +
            ">\n    <InfoText>Do you want to save the changes to %1 before closing?</InfoText>\n"
            "    <CaptionText>Aerodrome surfaces</CaptionText>\n    <ok>__OK</ok>\n    <cancel>__Cancel</cancel>\n"
            "  </Msg" +
            n + ">\n";
    text += "  <List" + n +
            "><Index_0>first</Index_0><Index_1>second</Index_1><Index_2><![CDATA[<raw> & text]]>"
            "</Index_2></List" +
            n + ">\n";
    text += "  <Error><E code=\"" + n + "\" kind='fatal'>The surface " + n + " could not be computed.</E></Error>\n";
  }
  text += "</Texts>\n";
  return text;
}

const std::string& document(std::size_t megabytes) {
  static std::map<std::size_t, std::string> documents;
  auto& text = documents[megabytes];
  if (text.empty()) text = makeDocument(megabytes * 1000 * 1000);
  return text;
}

const std::wstring& wideDocument(std::size_t megabytes) {
  static std::map<std::size_t, std::wstring> documents;
  auto& text = documents[megabytes];
  if (text.empty()) text = kvt1::platform::fromUtf8(document(megabytes));
  return text;
}

void setThroughput(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
}

// The document's own form: wide text in, parsed.
void BM_CXmlDocument_SetDoc(benchmark::State& state) {
  const std::size_t megabytes = static_cast<std::size_t>(state.range(0));
  const std::wstring& text = wideDocument(megabytes);
  kvt1::CXmlDocument doc;
  for (auto _ : state) {
    bool wellFormed = doc.SetDoc(text);
    benchmark::DoNotOptimize(wellFormed);
  }
  if (!doc.IsWellFormed()) state.SkipWithError("not well formed");
  setThroughput(state, document(megabytes).size());
}

// The same from UTF-8 bytes, conversion to wide text included.
void BM_CXmlDocument_FromUtf8(benchmark::State& state) {
  const std::string& bytes = document(static_cast<std::size_t>(state.range(0)));
  kvt1::CXmlDocument doc;
  for (auto _ : state) {
    bool wellFormed = doc.SetDoc(kvt1::platform::fromUtf8(bytes));
    benchmark::DoNotOptimize(wellFormed);
  }
  setThroughput(state, bytes.size());
}

void BM_pugixml(benchmark::State& state) {
  const std::string& bytes = document(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    pugi::xml_document doc;
    const pugi::xml_parse_result result = doc.load_buffer(bytes.data(), bytes.size());
    if (!result) state.SkipWithError("pugixml failed");
    benchmark::DoNotOptimize(doc.first_child());
  }
  setThroughput(state, bytes.size());
}

void BM_tinyxml2(benchmark::State& state) {
  const std::string& bytes = document(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    tinyxml2::XMLDocument doc;
    if (doc.Parse(bytes.data(), bytes.size()) != tinyxml2::XML_SUCCESS) state.SkipWithError("tinyxml2 failed");
    benchmark::DoNotOptimize(doc.RootElement());
  }
  setThroughput(state, bytes.size());
}

void BM_libxml2(benchmark::State& state) {
  const std::string& bytes = document(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    xmlDoc* doc = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, XML_PARSE_NONET);
    if (!doc) state.SkipWithError("libxml2 failed");
    benchmark::DoNotOptimize(doc);
    xmlFreeDoc(doc);
  }
  setThroughput(state, bytes.size());
}

BENCHMARK(BM_CXmlDocument_SetDoc)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CXmlDocument_FromUtf8)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_pugixml)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_tinyxml2)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_libxml2)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond);

// Lookups in a document of 5,000 keys as the text store makes them, after a
// first lookup has been made.
constexpr int kKeys = 5000;

kvt1::CXmlDocument& keyDocument() {
  static kvt1::CXmlDocument doc = [] {
    std::wstring text = L"<Texts><Error>";
    for (int i = 0; i < kKeys; ++i) text += L"<E code='" + std::to_wstring(i) + L"'>error</E>";
    text += L"</Error>";
    for (int i = 0; i < kKeys; ++i) text += L"<Key" + std::to_wstring(i) + L">text</Key" + std::to_wstring(i) + L">";
    text += L"</Texts>";
    kvt1::CXmlDocument parsed;
    parsed.SetDoc(text);
    return parsed;
  }();
  return doc;
}

void lookups(benchmark::State& state, const wchar_t* prefix, const wchar_t* suffix) {
  kvt1::CXmlDocument& doc = keyDocument();
  std::vector<std::wstring> paths;
  for (int i = 0; i < kKeys; ++i) paths.push_back(prefix + std::to_wstring((i * 7919) % kKeys) + suffix);
  doc.GetData(paths.front());
  std::size_t next = 0;
  for (auto _ : state) {
    doc.ResetPos();
    std::wstring text = doc.GetData(paths[next]);
    if (text.empty()) state.SkipWithError("key not found");
    benchmark::DoNotOptimize(text);
    next = next + 1 == paths.size() ? 0 : next + 1;
  }
}

void BM_LookupByKey(benchmark::State& state) { lookups(state, L"/*/Key", L""); }
void BM_LookupErrorCode(benchmark::State& state) { lookups(state, L"/*/Error/*[@code='", L"']"); }

BENCHMARK(BM_LookupByKey);
BENCHMARK(BM_LookupErrorCode);

}  // namespace
