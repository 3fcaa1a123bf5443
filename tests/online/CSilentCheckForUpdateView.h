#pragma once
// A view that shows nothing, for measuring the check itself: it accepts the
// result, and its settings never change.
#include "online/ICheckForUpdateView.h"

namespace Hv::Http {

class CSilentCheckForUpdateView : public ICheckForUpdateView {
 public:
  bool Create() override { return true; }
  void ShowResult(bool, const std::wstring&, bool, const std::wstring&, bool, std::uint32_t, bool) override {}
  bool DoModal() override { return false; }
  bool IsAutoCheckChecked() const override { return false; }
};

}  // namespace Hv::Http
