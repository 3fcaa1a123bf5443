#pragma once
// The module's report channel: a POST of the framed report to the maker's
// usage service through the HTTP bridge. The body is
// {"Product": <number>, "Frame": "<base64 of the buffer>"}. The report carries
// the workstation identifier, so it goes over https.
#include <cstdint>
#include <string>
#include <vector>

namespace kvt1::usage {

// "https://<host>/UsageReportService/Upload" on the maker's service host (the
// bridge's), or the installation's "UsageReportUrl" as it stands.
std::wstring usageUploadUrl();

// True only when the service answered 200.
bool uploadReport(const std::wstring& url, std::uint32_t product, const std::vector<std::uint8_t>& buffer);

}  // namespace kvt1::usage
