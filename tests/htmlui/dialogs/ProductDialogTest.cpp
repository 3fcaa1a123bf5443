#include "tests/htmlui/dialogs/ProductDialogTest.h"

#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "platform/Resources.h"
#include "platform/ThisModule.h"

namespace kvt1::testing {

void ProductDialogTest::SetUp() {
  DialogTest::SetUp();
  installation();
  platform::setResourceModule(platform::thisModuleHandle());
}

void ProductDialogTest::TearDown() {
  platform::setResourceModule(nullptr);
  DialogTest::TearDown();
}

TestInstallation& ProductDialogTest::installation() {
  static TestInstallation product;
  return product;
}

void ProductDialogTest::useLitehtml() {
  auto layout = std::make_unique<html::LitehtmlLayout>();
  // Pictures come through the dialogs' load-data requests, as in the module.
  layout->setImageLoader([this](const std::string& url) { return engine_.pictureData(url); });
  engine_.setLayoutProvider(std::move(layout));
}

}  // namespace kvt1::testing
