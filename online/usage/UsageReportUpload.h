#pragma once
// The module's report channel: an HTTP POST of the framed report to the
// maker's usage service, on the host of the update service, through the HTTP
// bridge. The body is {"Product": <number>, "Frame": "<base64 of the buffer>"}.
#include <cstdint>
#include <string>
#include <vector>

namespace kvt1::usage {

// "http://<host>/UsageReportService/Upload", the host being the update
// service's (the installation's "CheckUpdateUrl" or the bridge's default).
std::wstring usageUploadUrl();

// True only when the service answered 200.
bool uploadReport(const std::wstring& url, std::uint32_t product, const std::vector<std::uint8_t>& buffer);

}  // namespace kvt1::usage
