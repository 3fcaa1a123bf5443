#pragma once
// The update service's answer: an upgrade (a newer product generation) and an
// update (a newer build), each with its link and publication date.
#include <cstdint>
#include <string>

namespace Hv::Http {

class CHvSoftwareUpgrade {
 public:
  bool available = false;
  bool active = false;
  std::wstring name;
  std::wstring mapUrl;
  std::wstring noMapUrl;
  std::uint32_t date = 0;  // seconds since 1970, UTC
};

class CHvSoftwareUpdate {
 public:
  bool available = false;
  bool active = false;
  std::wstring name;
  std::wstring url;
  std::uint32_t date = 0;  // seconds since 1970, UTC
  bool mapOnly = false;
};

class CHvAutomaticUpdateResult {
 public:
  virtual ~CHvAutomaticUpdateResult() = default;

  CHvSoftwareUpgrade upgrade;
  CHvSoftwareUpdate update;
};

// Reads the service's JSON answer member by member: a missing or mistyped
// member keeps its default, and a body that is not JSON gives nothing available.
CHvAutomaticUpdateResult ParseAutomaticUpdateResult(const std::wstring& body);

}  // namespace Hv::Http
