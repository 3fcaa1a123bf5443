#pragma once
// A throwaway installation of the product for one test: a temporary folder
// holding the program, data and user folders, and the machine-wide product
// key with its values. Elsewhere than Windows the file-backed registry and the
// user's application-data folder are pointed into the temporary folder; on
// Windows (under Wine) the real registry is used and the product keys are
// deleted again afterwards.
#include <string>

namespace kvt1::testing {

class TestInstallation {
 public:
  // With machineKey false, the product is not installed: no machine key.
  // dataFolderName names the installation's data folder.
  explicit TestInstallation(bool machineKey = true, const std::wstring& dataFolderName = L"Data");
  ~TestInstallation();
  TestInstallation(const TestInstallation&) = delete;
  TestInstallation& operator=(const TestInstallation&) = delete;

  // The temporary folder, ending without a separator.
  const std::wstring& folder() const { return folder_; }
  std::wstring programFolder() const { return folder_ + L"\\Program"; }
  std::wstring dataFolder() const { return folder_ + L"\\" + dataFolderName_; }

  // Sets a string value of the machine-wide product key.
  void setMachineString(const std::wstring& name, const std::wstring& value) const;

  // Writes a text file (UTF-8) below the folder, creating its folders.
  std::wstring writeFile(const std::wstring& relativePath, const std::string& contents) const;

 private:
  std::wstring folder_;
  std::wstring dataFolderName_;
};

}  // namespace kvt1::testing
