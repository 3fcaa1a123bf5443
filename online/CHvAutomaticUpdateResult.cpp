#include "online/CHvAutomaticUpdateResult.h"

#include "online/JsonText.h"
#include "platform/Unicode.h"

namespace Hv::Http {

CHvAutomaticUpdateResult ParseAutomaticUpdateResult(const std::wstring& body) {
  CHvAutomaticUpdateResult result;
  Json::Value root;
  if (!kvt1::json::parse(kvt1::platform::toUtf8(body), root)) return result;
  const Json::Value* answer = kvt1::json::member(root, "CheckForUpdatesResult");
  if (!answer) return result;

  if (const Json::Value* upgrade = kvt1::json::member(*answer, "UpgradeResult")) {
    kvt1::json::read(*upgrade, "UpgradeAvailable", result.upgrade.available);
    kvt1::json::read(*upgrade, "UpgradeActive", result.upgrade.active);
    kvt1::json::read(*upgrade, "UpgradeName", result.upgrade.name);
    kvt1::json::read(*upgrade, "UpgradeMapUrl", result.upgrade.mapUrl);
    kvt1::json::read(*upgrade, "UpgradeNoMapUrl", result.upgrade.noMapUrl);
    kvt1::json::read(*upgrade, "UpgradeDate", result.upgrade.date);
  }
  if (const Json::Value* update = kvt1::json::member(*answer, "UpdateResult")) {
    kvt1::json::read(*update, "UpdateAvailable", result.update.available);
    kvt1::json::read(*update, "UpdateActive", result.update.active);
    kvt1::json::read(*update, "UpdateName", result.update.name);
    kvt1::json::read(*update, "UpdateUrl", result.update.url);
    kvt1::json::read(*update, "UpdateDate", result.update.date);
    kvt1::json::read(*update, "UpdateMapOnly", result.update.mapOnly);
  }
  return result;
}

}  // namespace Hv::Http
