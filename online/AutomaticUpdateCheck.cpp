#include "online/AutomaticUpdateCheck.h"

#include "host/identity/ProductIdentity.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "online/CHvUpdateCheckGuard.h"
#include "online/NoUpdatesMessage.h"

namespace Hv::Http {

bool RunAutomaticUpdateCheck(CHvCheckForUpdatePresenter& presenter, const UpdateCheckRequest& request) {
  CHvUpdateCheckGuard& guard = CHvUpdateCheckGuard::Instance();
  if (guard.MustSkip()) return false;
  const CHvUpdateCheckGuard::Running running(guard);

  bool shown = presenter.Run(kvt1::kProductNumber, request.version, request.language, request.mapFlag, request.manual);
  if (!shown && request.secondProduct != 0) {
    shown = presenter.Run(request.secondProduct, request.version, request.language, request.mapFlag, request.manual);
  }
  if (request.manual && !shown) kvt1::showNoUpdatesMessage();
  return shown;
}

bool RunAutomaticUpdateCheck(ICheckForUpdateView& view, const UpdateCheckRequest& request, kvt1::Clock clock) {
  CHvCheckForUpdatePresenter presenter(view, CHvAutomaticUpdateManager::Instance(), std::move(clock));
  return RunAutomaticUpdateCheck(presenter, request);
}

}  // namespace Hv::Http
