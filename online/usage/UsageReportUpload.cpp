#include "online/usage/UsageReportUpload.h"

#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvHttpClientManager.h"
#include "platform/Base64.h"
#include "platform/WideFormat.h"

namespace kvt1::usage {

std::wstring usageUploadUrl() {
  const std::wstring& configured = Hv::Http::CHvAutomaticUpdateManager::Instance()->UsageReportUrl();
  if (!configured.empty()) return configured;
  return L"https://" + Hv::Http::CHvHttpClientManager::Instance()->GetHost() + L"/UsageReportService/Upload";
}

bool uploadReport(const std::wstring& url, std::uint32_t product, const std::vector<std::uint8_t>& buffer) {
  const std::string frame =
      platform::encodeBase64(std::string_view(reinterpret_cast<const char*>(buffer.data()), buffer.size()));
  const std::wstring body = platform::formatWide(L"{\"Product\":%u,\"Frame\":\"", product) +
                            std::wstring(frame.begin(), frame.end()) + L"\"}";
  std::wstring answer;
  return Hv::Http::CHvHttpClientManager::Instance()->PostJson(url, body, answer);
}

}  // namespace kvt1::usage
