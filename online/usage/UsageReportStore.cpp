#include "online/usage/UsageReportStore.h"

#include <random>

#include "online/JsonText.h"
#include "online/usage/ZlibText.h"
#include "platform/File.h"
#include "platform/FileSystem.h"
#include "platform/SaveFaults.h"
#include "platform/WideFormat.h"

namespace kvt1::usage {
namespace {

// True unless the file at path exists and cannot be opened for writing.
bool writable(const std::wstring& path) {
  if (!platform::fileExists(path)) return true;
  std::FILE* file = platform::openFile(path, "rb+");
  if (!file) return false;
  std::fclose(file);
  return true;
}

// A name beside path that no other save uses at the same time.
std::wstring temporaryPath(const std::wstring& path) {
  std::random_device random;
  return path + platform::formatWide(L".%08x.tmp", static_cast<unsigned>(random()));
}

}  // namespace

std::string reportFileText(const Hv::CHvUsageReport& report) {
  json::OrderedObject object;
  report.WriteJson(object);
  json::OrderedObject root;
  root.add("UsageReport", object);
  return root.text();
}

bool readReportFileText(std::string_view text, Hv::CHvUsageReport& report) {
  Json::Value root;
  if (!json::parse(std::string(text), root)) return false;
  const Json::Value* object = json::member(root, "UsageReport");
  return object && object->isObject() && report.ReadJson(*object);
}

std::string reportFileBytes(const Hv::CHvUsageReport& report, bool compressed) {
  const std::string text = reportFileText(report);
  return compressed ? deflateText(text) : text;
}

bool readReportFileBytes(std::string_view bytes, Hv::CHvUsageReport& report) {
  std::string text;
  return inflateText(bytes, text, kMaxReportBytes) ? readReportFileText(text, report)
                                                   : readReportFileText(bytes, report);
}

ReportLoad UsageReportStore::Load(const std::wstring& path, Hv::CHvUsageReport& report) const {
  if (!platform::fileExists(path)) return ReportLoad::Missing;
  std::string bytes;
  if (!platform::readWholeFile(path, kMaxReportBytes, bytes)) return ReportLoad::Unreadable;
  if (!readReportFileBytes(bytes, report)) return ReportLoad::Unreadable;
  report.SetFilePath(path);
  return ReportLoad::Loaded;
}

bool UsageReportStore::Save(const std::wstring& path, const Hv::CHvUsageReport& report, bool compressed) const {
  const std::string bytes = reportFileBytes(report, compressed);
  if (bytes.empty() || !writable(path)) return false;

  const std::wstring temporary = temporaryPath(path);
  std::FILE* file = platform::openFile(temporary, "wb");
  if (!file) return false;
  const bool written = platform::writeAll(file, bytes) && platform::flushToDisk(file);
  const bool closed = std::fclose(file) == 0;
  if (written && closed && platform::replaceFile(temporary, path)) return true;
  platform::removeFile(temporary);
  return false;
}

std::wstring UsageReportStore::KeepAside(const std::wstring& path) const {
  for (int attempt = 1; attempt < 100; ++attempt) {
    const std::wstring aside =
        path + (attempt == 1 ? std::wstring(L".unreadable") : platform::formatWide(L".unreadable-%d", attempt));
    if (platform::renameWithoutReplace(path, aside)) return aside;
  }
  return std::wstring();
}

}  // namespace kvt1::usage
