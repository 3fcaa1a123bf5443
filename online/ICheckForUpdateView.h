#pragma once
// What the update check's presenter needs of its dialog.
#include <cstdint>
#include <string>

namespace Hv::Http {

class ICheckForUpdateView {
 public:
  virtual ~ICheckForUpdateView() = default;
  // Builds the dialog; false when it cannot be shown.
  virtual bool Create() = 0;
  virtual void ShowResult(bool updateShown, const std::wstring& updateName, bool upgradeShown,
                          const std::wstring& upgradeName, bool mapFlag, std::uint32_t product, bool manual) = 0;
  // Runs the dialog until it closes; true when its settings changed.
  virtual bool DoModal() = 0;
  // The state of the "Automatically Check For Updates" box.
  virtual bool IsAutoCheckChecked() const = 0;
};

}  // namespace Hv::Http
