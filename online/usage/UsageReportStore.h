#pragma once
// The usage report's file: {"UsageReport": {...}} as a zlib stream of the
// JSON text, or as the plain text. Reading accepts both. A save goes to a
// temporary file beside the report that is flushed to disk and then moved
// over it, so a crash or a full disk at any point leaves the previous report
// whole.
#include <string>
#include <string_view>

#include "online/usage/CHvUsageReport.h"

namespace kvt1::usage {

// The largest report file, and report text, that is read.
constexpr std::size_t kMaxReportBytes = 64u << 20;

enum class ReportLoad { Loaded, Missing, Unreadable };

// The file's JSON text.
std::string reportFileText(const Hv::CHvUsageReport& report);
// False, report untouched, when the text is not a JSON object with a
// "UsageReport" object or that report is of a newer format.
bool readReportFileText(std::string_view text, Hv::CHvUsageReport& report);
// The file's bytes: the zlib stream of its text, or the plain text; empty
// only when zlib failed.
std::string reportFileBytes(const Hv::CHvUsageReport& report, bool compressed);
// Reads either form of the file's bytes; false, report untouched, when they
// are neither.
bool readReportFileBytes(std::string_view bytes, Hv::CHvUsageReport& report);

class UsageReportStore {
 public:
  // Unreadable: the file exists but is neither a valid zlib stream of a
  // report nor a plain report (or could not be read at all).
  ReportLoad Load(const std::wstring& path, Hv::CHvUsageReport& report) const;
  // False, with the file at path as it was, when any step failed. A report
  // file made read-only is never replaced, as Windows refuses to.
  bool Save(const std::wstring& path, const Hv::CHvUsageReport& report, bool compressed) const;
  // Moves the file at path to "<path>.unreadable" (then "-2", "-3", ... up to
  // "-99"), never over another file. The new path; empty when none was free.
  std::wstring KeepAside(const std::wstring& path) const;
};

}  // namespace kvt1::usage
