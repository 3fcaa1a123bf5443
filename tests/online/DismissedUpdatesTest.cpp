#include <gtest/gtest.h>

#include "online/DismissedUpdates.h"

namespace Hv::Http {
namespace {

TEST(DismissedUpdates, TimesAreWrittenAsLowHalfThenHighHalfInProductOrder) {
  const DismissedMap dismissed = {{75001, 0x123456789LL}, {30, 1700000000}, {31, 3000000000LL}};
  EXPECT_EQ(WriteDismissedUpdates(dismissed),
            L"{\"Products\":[30,31,75001],\"Times\":[1700000000,0,3000000000,0,591751049,1]}");
}

TEST(DismissedUpdates, ReadsBackWhatItWrote) {
  const DismissedMap dismissed = {{0, 0}, {30, 1700000000}, {4294967295u, 0x7FFFFFFFFFFFFFFFLL}, {7, -1}};
  DismissedMap read;
  ASSERT_TRUE(ReadDismissedUpdates(WriteDismissedUpdates(dismissed), read));
  EXPECT_EQ(read, dismissed);
}

TEST(DismissedUpdates, ReplacesTheWholeMapOnSuccess) {
  DismissedMap dismissed = {{99, 5}};
  ASSERT_TRUE(ReadDismissedUpdates(L"{\"Products\":[30],\"Times\":[10,0]}", dismissed));
  EXPECT_EQ(dismissed, (DismissedMap{{30, 10}}));
  // Both arrays missing: zero products and zero times agree.
  ASSERT_TRUE(ReadDismissedUpdates(L"{}", dismissed));
  EXPECT_TRUE(dismissed.empty());
  // A trailing odd element is no pair.
  ASSERT_TRUE(ReadDismissedUpdates(L"{\"Products\":[30],\"Times\":[10,0,99]}", dismissed));
  EXPECT_EQ(dismissed, (DismissedMap{{30, 10}}));
}

TEST(DismissedUpdates, RecordsThatDoNotFitLoadNothing) {
  const DismissedMap before = {{30, 1234}};
  for (const wchar_t* text : {
           L"{\"Products\":[1,2,3],\"Times\":[1,0,2,0]}",  // three products, two times
           L"{\"Products\":[1],\"Times\":[]}",
           L"not JSON",
           L"",
           L"[1,2]",
           L"{\"Products\":\"30\",\"Times\":[1,0]}",
           L"{\"Products\":[30],\"Times\":{\"a\":1}}",
           L"{\"Products\":[-1],\"Times\":[1,0]}",
           L"{\"Products\":[1099511627776],\"Times\":[1,0]}",
           L"{\"Products\":[30],\"Times\":[1,4294967296]}",
           L"{\"Products\":[30],\"Times\":[\"1\",0]}",
           L"{\"Products\":[30.5],\"Times\":[1,0]}",
       }) {
    DismissedMap dismissed = before;
    EXPECT_FALSE(ReadDismissedUpdates(text, dismissed)) << std::string(text, text + std::wcslen(text));
    EXPECT_EQ(dismissed, before);
  }
}

TEST(DismissedUpdates, NegativeHalvesAreTakenAsTheirBitPattern) {
  DismissedMap dismissed;
  ASSERT_TRUE(ReadDismissedUpdates(L"{\"Products\":[30],\"Times\":[-1,-1]}", dismissed));
  EXPECT_EQ(dismissed.at(30), -1);
}

}  // namespace
}  // namespace Hv::Http
