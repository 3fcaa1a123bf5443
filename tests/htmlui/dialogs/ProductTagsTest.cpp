#include "htmlui/dialogs/CHTMDialogKVT.h"

#include <gtest/gtest.h>

#include "htmlui/CHTMDialog.h"
#include "platform/DialogWindow.h"
#include "tests/htmlui/dialogs/ProductDialogTest.h"

namespace kvt1::testing {
namespace {

class ProductTagsDialog : public CHTMDialogKVT<CHTMDialog> {
 public:
  ProductTagsDialog() : CHTMDialogKVT(L"HTM_DLG_PRODUCT_TAGS", nullptr) {}
};

class ProductTagsTest : public ProductDialogTest {};

TEST_F(ProductTagsTest, ProductTagsAreFilledAndOtherTagsAreTextKeys) {
  ProductTagsDialog dialog;
  ASSERT_TRUE(dialog.Create());
  EXPECT_EQ(dialog.ElementById(L"year").GetText(), L"2018");
  EXPECT_EQ(dialog.ElementById(L"product").GetText(), L"KVT");
  EXPECT_EQ(dialog.ElementById(L"engine").GetText(), L"Dialogs rendered with HTMLayout for Halvorn Aero");
  EXPECT_EQ(dialog.ElementById(L"text").GetText(), L"Loading...");
  EXPECT_EQ(platform::windowText(dialog.GetHwnd()), L"About");
  // A text may hold product tags of its own; they are filled too.
  EXPECT_EQ(dialog.ElementById(L"nested").GetText(), L"Copyright \u00A9 2018 Halvorn Aero. All rights reserved.");
  dialog.Close();
}

TEST_F(ProductTagsTest, AnUnknownStarTagShowsItsName) {
  ProductTagsDialog dialog;
  ASSERT_TRUE(dialog.Create());
  EXPECT_EQ(dialog.ElementById(L"unknown").GetText(), L"UNKNOWN TAG USED (*builddate)");
  dialog.Close();
  EXPECT_EQ(ResolveProductTag(L"*BUILDYEAR"), L"");  // names compare exactly
  EXPECT_EQ(ResolveProductTag(L"*"), L"");
}

TEST_F(ProductTagsTest, ATagWithoutAStarIsLookedUpInTheTextStore) {
  EXPECT_EQ(ResolveProductTag(L"DlgAbout/VersionHead"), L"Version:");
  EXPECT_EQ(ResolveProductTag(L"NoSuchText"), L"Can not find text for key 'NoSuchText'");
}

}  // namespace
}  // namespace kvt1::testing
