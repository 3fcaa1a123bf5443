#include "support/SIFileMode.h"

namespace kvt1 {
namespace {

constexpr int kModeCount = 8;
constexpr const char* kModeStrings[kModeCount] = {"rb", "wb", "ab+", "rb+", "wb+", "rt", "wt", "at+"};
constexpr const char* kStreamModes[kModeCount] = {"rb", "wb", "ab+", "rb+", "wb+", "rb", "wb", "ab+"};

bool isValid(int mode) { return mode >= 0 && mode < kModeCount; }

}  // namespace

const char* SIFileModeString(int mode) { return isValid(mode) ? kModeStrings[mode] : ""; }

const char* SIFileStreamMode(int mode) { return isValid(mode) ? kStreamModes[mode] : ""; }

bool SIFileModeCreates(int mode) {
  return mode == kSIWriteBinary || mode == kSICreateUpdateBinary || mode == kSIWriteText;
}

bool SIFileModeAppends(int mode) { return mode == kSIAppendBinary || mode == kSIAppendText; }

bool SIFileModeIsText(int mode) { return mode >= kSIReadText && mode <= kSIAppendText; }

}  // namespace kvt1
