#include "host/ResourceScope.h"

#include <gtest/gtest.h>

#include "platform/Resources.h"
#include "tools/kvt1-host/core/EmulatedHost.h"

namespace kvt1 {
namespace {

TEST(ResourceScope, MakesTheLanguageResourcesCurrentAndRestoresThePrevious) {
  emu::EmulatedHost::instance().reset();
  auto* instance = reinterpret_cast<HINSTANCE>(0x1000);
  void* outer = reinterpret_cast<void*>(0x2000);
  void* inner = reinterpret_cast<void*>(0x3000);
  EXPECT_EQ(platform::resourceModule(), nullptr);
  {
    ResourceScope first(instance, outer);
    EXPECT_EQ(platform::resourceModule(), outer);
    {
      ResourceScope second(instance, inner);
      EXPECT_EQ(platform::resourceModule(), inner);
    }
    EXPECT_EQ(platform::resourceModule(), outer);
  }
  EXPECT_EQ(platform::resourceModule(), nullptr);
  // Hosts that keep a resource stack get every push popped again.
  EXPECT_TRUE(emu::EmulatedHost::instance().documentManager().resourceStack().empty());
}

}  // namespace
}  // namespace kvt1
