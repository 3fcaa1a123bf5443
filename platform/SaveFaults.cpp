#include "platform/SaveFaults.h"

#include <atomic>
#include <cerrno>

namespace kvt1::platform {
namespace {

struct ArmedStep {
  std::atomic<unsigned> callsToPass{0};  // calls that still succeed before the faults
  std::atomic<unsigned> faultsLeft{0};
};

ArmedStep g_steps[3];

ArmedStep& armed(SaveStep step) { return g_steps[static_cast<int>(step)]; }

}  // namespace

void armSaveFault(SaveStep step, unsigned firstCall, unsigned calls) {
  armed(step).callsToPass = firstCall > 0 ? firstCall - 1 : 0;
  armed(step).faultsLeft = calls;
}

void disarmSaveFaults() {
  for (ArmedStep& step : g_steps) step.faultsLeft = 0;
}

bool saveFaultFires(SaveStep step) {
  ArmedStep& state = armed(step);
  if (state.faultsLeft == 0) return false;
  if (state.callsToPass > 0) {
    --state.callsToPass;
    return false;
  }
  --state.faultsLeft;
  return true;
}

bool writeAll(std::FILE* file, std::string_view bytes) {
  if (saveFaultFires(SaveStep::Write)) {
    std::fwrite(bytes.data(), 1, bytes.size() / 2, file);
    errno = ENOSPC;
    return false;
  }
  return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

}  // namespace kvt1::platform
