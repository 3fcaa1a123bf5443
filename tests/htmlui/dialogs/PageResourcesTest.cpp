// The pictures of a page come from its dialog, as its style sheets do: the
// module's engine asks the dialog's load-data request for a picture that a
// style sheet names, and draws what the dialog answers.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "host/HtmlEngineSetup.h"
#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMEngine.h"
#include "htmlui/engine/AutomationMessages.h"
#include "platform/DialogWindow.h"
#include "tests/htmlui/dialogs/ProductDialogTest.h"
#ifndef _WIN32
#include "tests/htmlui/engine/litehtml/PngPixels.h"
#endif

namespace kvt1::testing {
namespace {

const wchar_t kPictureUrl[] = L"IMG_TESTPICTURE.IMAGES";

// Answers the page's picture, which no resource holds, with a red square and
// records every request.
class PictureDialog : public CHTMDialog {
 public:
  PictureDialog() : CHTMDialog(L"HTM_DLG_PICTURE", nullptr) {}

  std::vector<std::pair<std::wstring, UINT>> requests;

  LRESULT on_load_data(LPNMHL_LOAD_DATA request) override {
    requests.emplace_back(request->uri, request->dataType);
    if (std::wstring(request->uri) != kPictureUrl) return CHTMDialog::on_load_data(request);
    GetHtmlEngine()->DataReady(request->hdr.hwndFrom, request->uri, red_.data(), static_cast<DWORD>(red_.size()));
    return LOAD_OK;
  }

 private:
#ifdef _WIN32
  std::vector<unsigned char> red_ = {};
#else
  std::vector<unsigned char> red_ = html::test::pngSquare(16, 0xFF0000);
#endif
};

class PageResourcesTest : public ProductDialogTest {};

TEST_F(PageResourcesTest, APictureThatAStyleSheetNamesIsAskedOfTheDialogAndDrawn) {
  // The module's own engine, made as at start-up.
  HtmlEngineSetup setup;
  setup.start(platform::DynamicLibrary());
  PictureDialog dialog;
  ASSERT_TRUE(dialog.Create());
  const std::string path = ::testing::TempDir() + "kvt1_picture_request.png";
  std::remove(path.c_str());
  const std::wstring widePath(path.begin(), path.end());
  ASSERT_EQ(platform::sendMessage(dialog.GetHwnd(), html::kWmAutomationRender, 0,
                                  reinterpret_cast<std::intptr_t>(widePath.c_str())),
            1);
  dialog.Close();
  const std::vector<std::pair<std::wstring, UINT>> expected = {{kPictureUrl, HLRT_DATA_IMAGE}};
  EXPECT_EQ(dialog.requests, expected);
#ifndef _WIN32
  const html::test::PngPixels pixels(path);
  ASSERT_TRUE(pixels.valid());
  // The client area lies inside the dialog frame (3 pixels) and under the caption bar (23).
  const int left = 3;
  const int top = 3 + 23;
  EXPECT_EQ(pixels.at(left + 24, top + 16) & 0xFFFFFF, 0xFF0000u);  // inside the picture's box
  EXPECT_NE(pixels.at(left + 80, top + 60) & 0xFFFFFF, 0xFF0000u);  // beside it
#endif
}

}  // namespace
}  // namespace kvt1::testing
