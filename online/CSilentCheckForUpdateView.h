#pragma once
// The update check's view while the module has no notification dialog:
// it accepts the result and shows nothing, and its settings never change.
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
