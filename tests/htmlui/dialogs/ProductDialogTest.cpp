#include "tests/htmlui/dialogs/ProductDialogTest.h"

#include "htmlui/HTMPage.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "platform/Resources.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"

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
  layout->setImageLoader([](const std::string& url) {
    const PageResourceName resource = resourceForUrl(platform::fromUtf8(url));
    std::vector<unsigned char> bytes;
    if (auto data = platform::findResource(platform::thisModuleHandle(), resource.type, resource.name)) {
      bytes.assign(data->bytes, data->bytes + data->size);
    }
    return bytes;
  });
  engine_.setLayoutProvider(std::move(layout));
}

}  // namespace kvt1::testing
