#include "support/HvElement/HvAssert.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

#include "platform/Unicode.h"
#include "platform/WideFormat.h"

namespace kvt1 {
namespace {

void stopProgram(const wchar_t* condition, const wchar_t* source, int line) {
  const std::string report = platform::toUtf8(FormatHvAssertion(condition, source, line));
  std::fprintf(stderr, "%s\n", report.c_str());
  std::fflush(stderr);
  std::abort();
}

std::atomic<HvAssertionHandler> g_handler{stopProgram};

}  // namespace

HvAssertionHandler SetHvAssertionHandler(HvAssertionHandler handler) {
  return g_handler.exchange(handler != nullptr ? handler : stopProgram);
}

void ReportHvAssertion(const wchar_t* condition, const wchar_t* source, int line) {
  g_handler.load()(condition, source, line);
}

std::wstring FormatHvAssertion(const wchar_t* condition, const wchar_t* source, int line) {
  return platform::formatWide(L"Assertion failed: %s, file %s, line %d", condition, source, line);
}

}  // namespace kvt1
