// A library with state of its own: the tests see whether a load finds the
// same image again or a fresh one.
#include "platform/Export.h"

namespace {

int g_value = 0;

}  // namespace

KVT1_EXPORT void setKeptValue(int value) { g_value = value; }

KVT1_EXPORT int keptValue() { return g_value; }
