#pragma once
// The product's help: where its files are, and showing a topic by number.
#include <string>

namespace kvt1 {

class SettingsStore;

// ProgramPath\<product>HelpID.csv
std::wstring helpMapFile(SettingsStore& settings);
// <help folder>\<product>.chm and <help folder>\installation.chm
std::wstring productHelpFile(SettingsStore& settings);
std::wstring installationHelpFile(SettingsStore& settings);

// Shows topic id of the product help file (of the installation help file for
// ids 10 to 13 when allowed). A missing file is reported in a message box;
// an unknown topic opens the table of contents, after context 10100 for ids
// 10100 to 10106. A missing viewer does nothing.
void showHelp(SettingsStore& settings, int id, bool allowInstallationHelp);

}  // namespace kvt1
