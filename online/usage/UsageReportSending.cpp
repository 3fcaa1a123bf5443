#include "online/usage/UsageReportSending.h"

#include "online/JsonText.h"
#include "online/usage/ZlibText.h"

namespace kvt1::usage {

std::vector<std::uint8_t> frameReport(const Hv::CHvUsageReport& report) {
  Json::Value object(Json::objectValue);
  report.WriteJson(object);
  const std::string stream = deflateText(json::write(object));
  const auto length = static_cast<std::uint32_t>(stream.size());
  std::vector<std::uint8_t> buffer;
  buffer.reserve(4 + stream.size());
  for (int shift = 0; shift < 32; shift += 8) buffer.push_back(static_cast<std::uint8_t>(length >> shift));
  buffer.insert(buffer.end(), stream.begin(), stream.end());
  return buffer;
}

bool sendReport(Hv::CHvUsageReport& report, std::uint32_t now, const ReportChannel& channel,
                const UsageReportStore& store, bool compressed) {
  report.SetLastSend(now);
  if (!channel(frameReport(report))) return false;
  report.Clear();
  return store.Save(report.FilePath(), report, compressed);
}

}  // namespace kvt1::usage
