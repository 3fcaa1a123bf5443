#pragma once
// One hand-over of a stored report: the framed buffer, the host's report
// channel that takes it, and what happens to the report afterwards.
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "online/usage/CHvUsageReport.h"
#include "online/usage/UsageReportHome.h"

namespace kvt1::usage {

// Takes the framed buffer; true when the report was accepted.
using ReportChannel = std::function<bool(const std::vector<std::uint8_t>& buffer)>;

// The zlib stream of the report object's JSON text, preceded by its length
// as 4 bytes, least significant first.
std::vector<std::uint8_t> frameReport(const Hv::CHvUsageReport& report);

// A stored report claimed for sending: its lastSend is the claim's time, on
// disk as here, so that a host starting meanwhile finds nothing due.
struct DueReport {
  Hv::CHvUsageReport report;
  std::uint32_t previousSend = 0;  // the lastSend it had before the claim
};

// Under the report's lock: claims the stored report when now is at least
// interval seconds after its lastSend. Nothing when no report can be read or
// none is due.
std::optional<DueReport> claimDueReport(const UsageReportHome& home, std::uint32_t now, std::int64_t interval);

enum class SendOutcome {
  Refused,        // the channel did not take it: the stored report is as before the claim
  Sent,           // taken, and what was sent is out of the stored report
  SentNotStored,  // taken, but the stored report could not be saved without it
};

// Hands the claimed report's frame to the channel, then under the report's
// lock reads the stored report again, as other hosts may have merged their
// runs into it meanwhile. On success what was sent is taken out of it (a
// missing report is stored emptied); on failure its lastSend goes back to
// the one before the claim, unless another send moved it since, so the same
// data goes with the next attempt.
SendOutcome sendReport(const DueReport& due, const ReportChannel& channel, const UsageReportHome& home);

}  // namespace kvt1::usage
