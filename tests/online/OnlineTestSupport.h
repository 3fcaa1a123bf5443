#pragma once
// What the online tests share: registry values under both roots, process
// environment variables the HTTP client library reads, a view that records
// what the presenter asked of it, and answers of the update service.
#include <cstdint>
#include <string>
#include <vector>

#include "online/ICheckForUpdateView.h"
#include "platform/Registry.h"
#include "tests/common/ProcessEnvironment.h"
#include "tests/common/TestInstallation.h"

namespace kvt1::testing {

// Writes a value under a root. The machine root is read-only to the module
// everywhere, so there the test writes it as an installer would.
void setRegistryValue(const TestInstallation& installation, platform::RegistryRoot root, const std::wstring& keyPath,
                      const std::wstring& name, std::uint32_t type, const std::vector<std::uint8_t>& data);
void setRegistryDword(const TestInstallation& installation, platform::RegistryRoot root, const std::wstring& keyPath,
                      const std::wstring& name, std::uint32_t value);
void setRegistryString(const TestInstallation& installation, platform::RegistryRoot root, const std::wstring& keyPath,
                       const std::wstring& name, const std::wstring& value);
// A DWORD of the product's machine key, and the user's recorded answer to the usage question.
void setMachineDword(const TestInstallation& installation, const std::wstring& name, std::uint32_t value);
void setConsent(const TestInstallation& installation, std::uint32_t value);
// The maker-wide DEV key, removed again (Windows keeps it across tests).
void removeMakerDevKey();

// A user value as the module stored it: false when absent.
bool readUserDword(const std::wstring& keyPath, const std::wstring& name, std::uint32_t& value);
bool readUserString(const std::wstring& keyPath, const std::wstring& name, std::wstring& value);

// The folder of this test program, where the HTTP client library lies.
std::wstring programFolder();

struct ShownResult {
  bool updateShown = false;
  std::wstring updateName;
  bool upgradeShown = false;
  std::wstring upgradeName;
  bool mapFlag = false;
  std::uint32_t product = 0;
  bool manual = false;
};

class RecordingView : public Hv::Http::ICheckForUpdateView {
 public:
  bool Create() override {
    ++created;
    return canCreate;
  }
  void ShowResult(bool updateShown, const std::wstring& updateName, bool upgradeShown, const std::wstring& upgradeName,
                  bool mapFlag, std::uint32_t product, bool manual) override {
    shown.push_back({updateShown, updateName, upgradeShown, upgradeName, mapFlag, product, manual});
  }
  bool DoModal() override {
    ++modalRuns;
    return settingsChanged;
  }
  bool IsAutoCheckChecked() const override { return autoCheck; }

  bool canCreate = true;
  bool settingsChanged = false;
  bool autoCheck = true;
  int created = 0;
  int modalRuns = 0;
  std::vector<ShownResult> shown;
};

struct UpdatePart {
  bool available = true;
  bool active = true;
  std::string name = "KVT 1.1 SP1";
  std::string url = "https://www.halvorn.aero/kvt/sp1";
  std::uint32_t date = 1500000000;
  bool mapOnly = false;
};

struct UpgradePart {
  bool available = true;
  bool active = true;
  std::string name = "KVT 2";
  std::string mapUrl = "https://www.halvorn.aero/kvt2/map";
  std::string noMapUrl = "https://www.halvorn.aero/kvt2";
  std::uint32_t date = 1500000000;
};

// The service's answer with both parts.
std::string answerJson(const UpdatePart& update, const UpgradePart& upgrade);
// The service's answer with an update only, and with nothing.
std::string updateOnlyJson(const UpdatePart& update);
std::string nothingJson();

}  // namespace kvt1::testing
