#include "host/LispServices.h"

namespace kvt1 {

void CLispServices::showHelp(const std::wstring&) {}
void CLispServices::driveSplash(int) {}
void CLispServices::showInfo() {}
void CLispServices::setFunctionHelp(const std::wstring&, const std::wstring&) {}
void CLispServices::countFeatureUse(const std::wstring&) {}
void CLispServices::openSupportPage() {}
bool CLispServices::readSetting(const std::wstring&) { return false; }
void CLispServices::writeSetting(const std::wstring&, const std::wstring&) {}

}  // namespace kvt1
