#include "online/usage/UsageReportSending.h"

#include "online/OrderedJsonObject.h"
#include "online/usage/ZlibText.h"

namespace kvt1::usage {

std::vector<std::uint8_t> frameReport(const Hv::CHvUsageReport& report) {
  json::OrderedObject object;
  report.WriteJson(object);
  const std::string stream = deflateText(object.text());
  const auto length = static_cast<std::uint32_t>(stream.size());
  std::vector<std::uint8_t> buffer;
  buffer.reserve(4 + stream.size());
  for (int shift = 0; shift < 32; shift += 8) buffer.push_back(static_cast<std::uint8_t>(length >> shift));
  buffer.insert(buffer.end(), stream.begin(), stream.end());
  return buffer;
}

std::optional<DueReport> claimDueReport(const UsageReportHome& home, std::uint32_t now, std::int64_t interval) {
  const std::optional<platform::FileLock> lock = home.Lock();
  DueReport due;
  if (home.Load(due.report) != ReportLoad::Loaded) return std::nullopt;
  due.previousSend = due.report.LastSend();
  if (static_cast<std::int64_t>(now) - due.previousSend < interval) return std::nullopt;
  due.report.SetLastSend(now);
  // A claim that cannot be saved still sends: only a second host could send twice.
  home.Save(due.report);
  return due;
}

SendOutcome sendReport(const DueReport& due, const ReportChannel& channel, const UsageReportHome& home) {
  const bool taken = channel(frameReport(due.report));
  const std::optional<platform::FileLock> lock = home.Lock();
  Hv::CHvUsageReport stored;
  const bool loaded = home.Load(stored) == ReportLoad::Loaded;
  if (!taken) {
    if (loaded && stored.LastSend() == due.report.LastSend()) {
      stored.SetLastSend(due.previousSend);
      home.Save(stored);
    }
    return SendOutcome::Refused;
  }
  if (loaded) {
    stored.Remove(due.report);
  } else {
    stored = due.report;
    stored.Clear();
  }
  stored.SetLastSend(due.report.LastSend());
  return home.Save(stored) == ReportSaved::Nowhere ? SendOutcome::SentNotStored : SendOutcome::Sent;
}

}  // namespace kvt1::usage
