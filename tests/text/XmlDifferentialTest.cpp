// Our reading of XML files that the system ships, compared with libxml2's:
// element data of leaf elements and attribute values, each addressed by the
// path of element names from the root (and by an attribute predicate), whose
// expected result is the first element in document order with that path.
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "platform/Unicode.h"
#include "text/XmlDocument.h"

namespace kvt1 {
namespace {

namespace fs = std::filesystem;

// Folders of packages that a build machine set up by scripts/setup.sh holds
// (cmake's templates, fontconfig through wine), and a few common others.
std::vector<fs::path> systemXmlFiles() {
  std::vector<fs::path> folders = {"/etc/fonts",
                                   "/usr/share/fontconfig/conf.avail",
                                   "/usr/share/mime/packages",
                                   "/usr/share/X11/xkb/rules",
                                   "/usr/share/xml/iso-codes",
                                   "/usr/share/dbus-1/interfaces"};
  std::error_code error;
  for (const auto& entry : fs::directory_iterator("/usr/share", error)) {
    const std::string name = entry.path().filename().string();
    if (name.rfind("cmake-", 0) == 0) folders.push_back(entry.path() / "Templates" / "MSBuild");
  }
  std::vector<fs::path> files;
  for (const fs::path& folder : folders) {
    for (const auto& entry : fs::directory_iterator(folder, error)) {
      const std::string extension = entry.path().extension().string();
      if (entry.is_regular_file() && (extension == ".xml" || extension == ".conf")) files.push_back(entry.path());
    }
  }
  return files;
}

std::string qualifiedName(const xmlChar* name, xmlNs* ns) {
  std::string result;
  if (ns && ns->prefix) result = std::string(reinterpret_cast<const char*>(ns->prefix)) + ":";
  return result + reinterpret_cast<const char*>(name);
}

std::string text(xmlChar* value) {
  std::string result = value ? reinterpret_cast<const char*>(value) : "";
  xmlFree(value);
  return result;
}

// Values that XML's end-of-line and attribute normalisation would change
// are compared by neither side; the reader returns text as written.
bool normalisationFree(const std::string& value, bool attribute) {
  return value.find('\r') == std::string::npos && (!attribute || value.find_first_of("\n\t") == std::string::npos);
}

bool isLeaf(xmlNode* node) {
  for (xmlNode* child = node->children; child; child = child->next) {
    if (child->type == XML_ELEMENT_NODE || child->type == XML_ENTITY_REF_NODE) return false;
  }
  return true;
}

struct Expectation {
  std::string path;
  std::string value;
};

// Walks the tree in document order and keeps, for each query, the answer of
// its first match.
class ExpectationCollector {
 public:
  void walk(xmlNode* node, const std::string& parentPath) {
    for (; node; node = node->next) {
      if (node->type != XML_ELEMENT_NODE) continue;
      const std::string path = parentPath + "/" + qualifiedName(node->name, node->ns);
      const bool leaf = isLeaf(node);
      const bool first = firstMatch(path);
      if (first && leaf) add(path, text(xmlNodeGetContent(node)), false);
      for (xmlAttr* attribute = node->properties; attribute; attribute = attribute->next) {
        const std::string name = qualifiedName(attribute->name, attribute->ns);
        const std::string value = text(xmlNodeListGetString(node->doc, attribute->children, 1));
        if (first) add(path + "/@" + name, value, true);
        if (value.find('\'') != std::string::npos || !normalisationFree(value, true)) continue;
        const std::string selected = path + "[@" + name + "='" + value + "']";
        if (firstMatch(selected) && leaf) add(selected, text(xmlNodeGetContent(node)), false);
      }
      walk(node->children, path);
    }
  }

  std::vector<Expectation> expectations;

 private:
  bool firstMatch(const std::string& query) { return m_seen.insert(query).second; }
  void add(const std::string& query, const std::string& value, bool attribute) {
    if (normalisationFree(value, attribute)) expectations.push_back({query, value});
  }

  std::set<std::string> m_seen;
};

TEST(XmlDifferential, SystemFilesReadAsLibxml2ReadsThem) {
  const std::vector<fs::path> files = systemXmlFiles();
  if (files.empty()) GTEST_SKIP() << "no XML files found in the system folders searched (fontconfig, cmake, ...)";

  std::size_t documents = 0, compared = 0;
  for (const fs::path& file : files) {
    xmlDoc* reference = xmlReadFile(file.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
    if (!reference) continue;  // not well formed for libxml2 either
    ExpectationCollector collector;
    collector.walk(xmlDocGetRootElement(reference), "");
    xmlFreeDoc(reference);

    CXmlDocument doc;
    EXPECT_TRUE(doc.ReadFile(platform::fromUtf8(file.string()))) << file << "\n" << platform::toUtf8(doc.GetResult());
    ++documents;
    for (const Expectation& expected : collector.expectations) {
      EXPECT_EQ(platform::toUtf8(doc.GetData(platform::fromUtf8(expected.path))), expected.value)
          << file << " " << expected.path;
      ++compared;
    }
  }
  if (documents == 0) GTEST_SKIP() << files.size() << " files found, none of them well formed for libxml2";
  std::printf("compared %zu values in %zu documents\n", compared, documents);
  EXPECT_GT(compared, 0u);
}

}  // namespace
}  // namespace kvt1
