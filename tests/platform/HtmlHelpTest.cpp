#include "platform/HtmlHelp.h"

#include <gtest/gtest.h>

namespace kvt1::platform {
namespace {

#ifdef _WIN32
// The HTML Help control registered under the classes root, with its wide entry.
TEST(HtmlHelp, LoadsTheSystemsHelpControl) { EXPECT_TRUE(htmlHelpAvailable()); }
#endif

}  // namespace
}  // namespace kvt1::platform
