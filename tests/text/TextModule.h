#pragma once
// A language module beside the test program, made the current resource
// module for one test; the text store starts empty and ends empty.
#include <gtest/gtest.h>

#include <string>

#include "platform/Resources.h"
#include "tests/common/BesideProgram.h"
#include "text/TextResources.h"

namespace kvt1::testing {

class TextModuleTest : public ::testing::Test {
 protected:
  void use(const char* fileName) {
    module_ = loadBesideProgram(fileName);
    ASSERT_TRUE(module_.isLoaded()) << platform::toUtf8(module_.error());
    ASSERT_NE(module_.image(), nullptr);
    platform::setResourceModule(module_.image());
  }
  void SetUp() override { NTxtRes::ReleaseTextDocument(); }
  void TearDown() override {
    NTxtRes::ReleaseTextDocument();
    platform::setResourceModule(nullptr);
  }

  platform::DynamicLibrary module_;
};

}  // namespace kvt1::testing
