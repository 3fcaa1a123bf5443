#include "platform/Base64.h"

#include <gtest/gtest.h>

namespace kvt1::platform {
namespace {

TEST(Base64, RoundTripsEveryTailLength) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  for (std::size_t length : {0u, 1u, 2u, 3u, 4u, 5u, 255u, 256u}) {
    const std::string text = encodeBase64(bytes.substr(0, length));
    EXPECT_EQ(text.size(), (length + 2) / 3 * 4) << length;
    std::string decoded;
    ASSERT_TRUE(decodeBase64(text, decoded)) << length;
    EXPECT_EQ(decoded, bytes.substr(0, length));
  }
}

TEST(Base64, EncodesWithTheStandardAlphabetAndPadding) {
  const struct {
    std::string bytes;
    std::string text;
  } cases[] = {
      {"", ""},
      {"M", "TQ=="},
      {"Ma", "TWE="},
      {"Man", "TWFu"},
      {std::string("\xFB\xFF", 2), "+/8="},
      {std::string("\0\0\0", 3), "AAAA"},
  };
  for (const auto& c : cases) EXPECT_EQ(encodeBase64(c.bytes), c.text) << c.text;
}

// The copies this replaces disagreed on spaces, on padding and on data after it.
TEST(Base64, DecodesWhatTheAlphabetAllowsAndRefusesTheRest) {
  const struct {
    const char* text;
    bool valid;
    std::string bytes;
  } cases[] = {
      {"TWFuTWE=", true, "ManMa"}, {" TW\r\nFu\tTWE= ", true, "ManMa"},
      {"TWE", true, "Ma"},         {"TQ", true, "M"},
      {"TQ==", true, "M"},         {"", true, ""},
      {"TW*u", false, ""},         {"TWE=TWFu", false, ""},
      {"AB=C", false, ""},         {"TWFuT", false, ""},
      {"TQ===", false, ""},        {"TWE==", false, ""},
      {"TQ=", false, ""},          {"=", false, ""},
  };
  for (const auto& c : cases) {
    std::string decoded;
    EXPECT_EQ(decodeBase64(c.text, decoded), c.valid) << c.text;
    if (c.valid) {
      EXPECT_EQ(decoded, c.bytes) << c.text;
    }
  }
}

}  // namespace
}  // namespace kvt1::platform
