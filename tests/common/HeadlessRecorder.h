#pragma once
// What the module asked of the desktop during a test: message boxes and help
// windows, recorded by the headless exports that a test program links in
// (kvt1_headless_recorder), and the answers the "user" gives.
#include <deque>
#include <set>
#include <string>
#include <vector>

namespace kvt1::testing {

struct HeadlessRecord {
  std::vector<std::wstring> messages;        // "caption: text"
  std::vector<unsigned> messageTypes;        // the box type of each message
  std::deque<int> answers;                   // given in turn; then the default button
  std::vector<std::wstring> helpRequests;    // "context N file" or "contents file"
  std::vector<std::wstring> shellOpened;     // targets opened with the shell
  std::set<unsigned long long> knownTopics;  // contexts the viewer has; others open no window
};

HeadlessRecord& headless();

}  // namespace kvt1::testing
