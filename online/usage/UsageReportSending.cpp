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

SendOutcome sendReport(Hv::CHvUsageReport& report, std::uint32_t now, const ReportChannel& channel,
                       const UsageReportHome& home) {
  report.SetLastSend(now);
  if (!channel(frameReport(report))) return SendOutcome::Refused;
  report.Clear();
  return home.Save(report) == ReportSaved::Nowhere ? SendOutcome::SentNotStored : SendOutcome::Sent;
}

}  // namespace kvt1::usage
