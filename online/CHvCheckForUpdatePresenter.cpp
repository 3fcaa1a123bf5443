#include "online/CHvCheckForUpdatePresenter.h"

#include <utility>

#include "online/WebLink.h"
#include "platform/Shell.h"

namespace Hv::Http {
namespace {

void openLink(const std::wstring& link) {
  if (kvt1::isWebLink(link)) kvt1::platform::shellOpen(link, kvt1::platform::kShowNormal);
}

}  // namespace

CHvCheckForUpdatePresenter::CHvCheckForUpdatePresenter(ICheckForUpdateView& view, CHvAutomaticUpdateManager* manager,
                                                       kvt1::Clock clock)
    : m_view(view), m_manager(manager), m_clock(std::move(clock)) {}

bool CHvCheckForUpdatePresenter::Run(std::uint32_t product, const std::wstring& version, const std::wstring& language,
                                     bool mapFlag, bool manual) {
  if (!m_manager) return false;
  if (!manual && !m_manager->StartUpChecksAllowed()) return false;

  m_result = m_fetch ? m_fetch(product, version, language) : m_manager->CheckForUpdates(product, version, language);
  m_product = product;
  m_mapFlag = mapFlag;
  const CHvSoftwareUpdate& update = m_result.update;
  const CHvSoftwareUpgrade& upgrade = m_result.upgrade;

  const bool showInactive = m_manager->ShowInactiveUpdates();
  bool updateShown = update.available && (update.active || showInactive);
  bool upgradeShown = upgrade.available && (upgrade.active || showInactive);

  // Start-up checks hide what was published before the user last dismissed.
  if (!manual && (updateShown || upgradeShown)) {
    const std::int64_t dismissed = m_manager->DismissedTime(product);
    if (updateShown && update.date < dismissed) updateShown = false;
    if (upgradeShown && upgrade.date < dismissed) upgradeShown = false;
  }

  if (update.mapOnly && !mapFlag) updateShown = false;
  if (!mapFlag && upgrade.noMapUrl.empty()) upgradeShown = false;

  if (!updateShown && !upgradeShown) return false;
  if (!m_view.Create()) return false;
  m_view.ShowResult(updateShown, update.name, upgradeShown, upgrade.name, mapFlag, product, manual);
  if (m_view.DoModal()) {
    m_manager->SetCheckOnStartUp(m_view.IsAutoCheckChecked());
    m_manager->SaveCheckOnStartUp();
  }
  return true;
}

void CHvCheckForUpdatePresenter::ViewUpdate() const { openLink(m_result.update.url); }

void CHvCheckForUpdatePresenter::ViewUpgrade() const {
  openLink(m_mapFlag ? m_result.upgrade.mapUrl : m_result.upgrade.noMapUrl);
}

void CHvCheckForUpdatePresenter::DismissUpdates() {
  if (m_manager) m_manager->DismissUpdates(m_product, m_clock());
}

}  // namespace Hv::Http
