#include "host/ResourceScope.h"

#include <gtest/gtest.h>

#include "tools/kvt1-host/core/EmulatedHost.h"

namespace kvt1 {
namespace {

TEST(ResourceScope, MakesTheModuleCurrentAndRestoresThePrevious) {
  emu::EmulatedHost::instance().reset();
  auto* outer = reinterpret_cast<HINSTANCE>(0x1000);
  auto* inner = reinterpret_cast<HINSTANCE>(0x2000);
  EXPECT_EQ(currentResourceModule(), nullptr);
  {
    ResourceScope first(outer);
    EXPECT_EQ(currentResourceModule(), outer);
    {
      ResourceScope second(inner);
      EXPECT_EQ(currentResourceModule(), inner);
    }
    EXPECT_EQ(currentResourceModule(), outer);
  }
  EXPECT_EQ(currentResourceModule(), nullptr);
  // Hosts that keep a resource stack get every push popped again.
  EXPECT_TRUE(emu::EmulatedHost::instance().documentManager().resourceStack().empty());
}

}  // namespace
}  // namespace kvt1
