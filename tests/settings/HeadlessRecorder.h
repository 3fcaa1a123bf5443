#pragma once
// What the module asked of the desktop during a test: message boxes and help
// windows, recorded by this test program's headless exports.
#include <set>
#include <string>
#include <vector>

namespace kvt1::testing {

struct HeadlessRecord {
  std::vector<std::wstring> messages;       // "caption: text"
  std::vector<std::wstring> helpRequests;   // "context N file" or "contents file"
  std::set<unsigned long long> knownTopics; // contexts the viewer has; others open no window
};

HeadlessRecord& headless();

}  // namespace kvt1::testing
