#pragma once
// The top-level update check: the application's own product first, then an
// optional second product, and the "No updates were found." message after a
// check the user asked for that showed nothing.
#include <cstdint>
#include <string>

#include "online/Clock.h"
#include "online/ICheckForUpdateView.h"

namespace Hv::Http {

struct UpdateCheckRequest {
  bool manual = false;
  std::uint32_t secondProduct = 0;  // 0: none
  std::wstring version;
  std::wstring language;
  bool mapFlag = false;
};

class CHvCheckForUpdatePresenter;

// Runs the check with the presenter, unless the guard says to skip it. True
// when the presenter's view showed something.
bool RunAutomaticUpdateCheck(CHvCheckForUpdatePresenter& presenter, const UpdateCheckRequest& request);

// The same with a presenter for view against the process-wide manager.
bool RunAutomaticUpdateCheck(ICheckForUpdateView& view, const UpdateCheckRequest& request,
                             kvt1::Clock clock = kvt1::systemSeconds);

}  // namespace Hv::Http
