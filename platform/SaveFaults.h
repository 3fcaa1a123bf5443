#pragma once
// The seam through which tests make a step of a save fail, as a full disk, a
// failing device or a target that another program holds would: every save
// of the module writes, flushes and replaces through the calls that ask
// here. A test arms a step; nothing is armed in a host process.
#include <cstdio>
#include <string_view>

namespace kvt1::platform {

enum class SaveStep { Write, Flush, Replace };

// From the firstCall-th call of step on (1: the next one), calls of it fail
// without acting, as many as given; disarmSaveFaults ends them all.
void armSaveFault(SaveStep step, unsigned firstCall = 1, unsigned calls = 1);
void disarmSaveFaults();

// For the code that saves: true when this call of step is to fail.
bool saveFaultFires(SaveStep step);

// Writes all of bytes to file. False on a short write; an armed fault writes
// half the bytes first and reports a full disk (ENOSPC), as a filling disk does.
bool writeAll(std::FILE* file, std::string_view bytes);

}  // namespace kvt1::platform
