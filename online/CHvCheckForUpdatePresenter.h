#pragma once
// The logic of one update check: asks the service, filters the answer by the
// user's settings and dismissals, and hands what is left to the view. The
// view's buttons come back here to open links and dismiss.
#include <cstdint>
#include <functional>
#include <string>

#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvAutomaticUpdateResult.h"
#include "online/Clock.h"
#include "online/ICheckForUpdateView.h"

namespace Hv::Http {

// Product numbers from here on are libraries; their update is labelled a library update.
constexpr std::uint32_t kLibraryProductThreshold = 75000;

class CHvCheckForUpdatePresenter {
 public:
  // How a check gets the service's answer for a product.
  using Fetch = std::function<CHvAutomaticUpdateResult(std::uint32_t product, const std::wstring& version,
                                                       const std::wstring& language)>;

  // manager may be null: then no check runs.
  CHvCheckForUpdatePresenter(ICheckForUpdateView& view, CHvAutomaticUpdateManager* manager,
                             kvt1::Clock clock = kvt1::systemSeconds);

  // Replaces the manager's own request, e.g. with one that waits elsewhere
  // or with an answer fetched before.
  void SetFetch(Fetch fetch) { m_fetch = std::move(fetch); }

  // One check: the answer filtered by the settings and dismissals, and what
  // is left shown. True when the view showed an update or an upgrade.
  bool Run(std::uint32_t product, const std::wstring& version, const std::wstring& language, bool mapFlag, bool manual);

  // The view's "View" buttons: open the update's or the upgrade's link (only
  // web addresses are opened).
  void ViewUpdate() const;
  void ViewUpgrade() const;
  // The view's "Dismiss Updates" after the user confirmed.
  void DismissUpdates();

  bool CheckOnStartUp() const { return m_manager && m_manager->CheckOnStartUp(); }
  bool IsLibraryProduct() const { return m_product >= kLibraryProductThreshold; }
  const CHvAutomaticUpdateResult& Result() const { return m_result; }

 private:
  ICheckForUpdateView& m_view;
  CHvAutomaticUpdateManager* m_manager;
  kvt1::Clock m_clock;
  Fetch m_fetch;
  bool m_mapFlag = false;
  CHvAutomaticUpdateResult m_result;
  std::uint32_t m_product = 0;
};

}  // namespace Hv::Http
