#pragma once
// One hand-over of a stored report: the framed buffer, the host's report
// channel that takes it, and what happens to the report afterwards.
#include <cstdint>
#include <functional>
#include <vector>

#include "online/usage/CHvUsageReport.h"
#include "online/usage/UsageReportHome.h"

namespace kvt1::usage {

// Takes the framed buffer; true when the report was accepted.
using ReportChannel = std::function<bool(const std::vector<std::uint8_t>& buffer)>;

// The zlib stream of the report object's JSON text, preceded by its length
// as 4 bytes, least significant first.
std::vector<std::uint8_t> frameReport(const Hv::CHvUsageReport& report);

enum class SendOutcome {
  Refused,        // the channel did not take it: the stored report is as it was
  Sent,           // taken, and the emptied report is stored
  SentNotStored,  // taken, but the emptied report could be stored nowhere
};

// Sets lastSend to now and hands the frame to the channel. On success the
// report's lists are emptied and it is saved to its home; on failure the home
// stays as it was, so the same data goes with the next attempt.
SendOutcome sendReport(Hv::CHvUsageReport& report, std::uint32_t now, const ReportChannel& channel,
                       const UsageReportHome& home);

}  // namespace kvt1::usage
