// The test program exports this getaddrinfo, so the HTTP library's libcurl
// resolves through it; the system's comes next in the lookup order.
#include "tests/online/StalledResolver.h"

#include <dlfcn.h>
#include <netdb.h>

#include <chrono>
#include <cstring>
#include <thread>

namespace kvt1::testing {
std::atomic<int> stalledLookups{0};
}  // namespace kvt1::testing

extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) {
  using Resolve = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
  static const auto systemResolve = reinterpret_cast<Resolve>(dlsym(RTLD_NEXT, "getaddrinfo"));
  if (node != nullptr && std::strcmp(node, kvt1::testing::kStalledHost) == 0) {
    ++kvt1::testing::stalledLookups;
    std::this_thread::sleep_for(std::chrono::seconds(kvt1::testing::kStallSeconds));
    return EAI_AGAIN;
  }
  return systemResolve(node, service, hints, result);
}
