#pragma once
// A host name whose resolution stalls, as with a name server that never
// answers: the test program's own getaddrinfo holds it for kStallSeconds and
// passes every other name to the system's resolver.
#include <atomic>

namespace kvt1::testing {

inline constexpr char kStalledHost[] = "stalled.invalid";
inline constexpr int kStallSeconds = 10;

// How many resolutions of kStalledHost have begun.
extern std::atomic<int> stalledLookups;

}  // namespace kvt1::testing
