#pragma once
// The harness of the product's dialogs: our DOM engine, this program's
// resources (the module's pages and pictures, the English texts) as the
// module's, one installation of the product for the whole program (the
// settings keep what they read once), a dialog that plays its steps from a
// timer, and litehtml to lay pages out and draw them.
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/DialogWindow.h"
#include "tests/common/TestInstallation.h"
#include "tests/htmlui/TestDialogs.h"

namespace kvt1::testing {

class ProductDialogTest : public DialogTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  static TestInstallation& installation();
  // Lays pages out with litehtml, its pictures asked of the dialogs (from this program's resources).
  void useLitehtml();
};

// A product dialog that runs its steps, one per tick of timer 7, once its page is up.
template <class TDialog>
class Scripted : public TDialog {
 public:
  using Step = std::function<void(Scripted&)>;

  template <class... Args>
  explicit Scripted(std::vector<Step> steps, Args&&... args)
      : TDialog(std::forward<Args>(args)...), steps_(std::move(steps)) {}

  using TDialog::ElementById;

 protected:
  void OnInitDialog() override {
    TDialog::OnInitDialog();
    platform::setTimer(this->GetHwnd(), kStepTimer, 20);
  }
  void OnTimer(std::uintptr_t id) override {
    if (id != kStepTimer) {
      TDialog::OnTimer(id);
    } else if (next_ < steps_.size()) {
      steps_[next_++](*this);
    } else {
      platform::killTimer(this->GetHwnd(), kStepTimer);
    }
  }

 private:
  static constexpr std::uintptr_t kStepTimer = 7;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
};

}  // namespace kvt1::testing
