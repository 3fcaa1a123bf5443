#pragma once
// The map from the LISP application's dialog and command names to help
// topics, read from the product's comma-separated map file
// (dialog,command,topic,id per line), in UTF-16 or UTF-8 with a byte order
// mark, UTF-8 without one, or else the ANSI code page. A first line whose dialog field holds
// "_debug" switches logging on: lookups are then logged by their callers and
// the file is read again before each lookup, so that it can be edited while
// the host runs.
#include <string>
#include <vector>

namespace kvt1 {

struct SHelpTopic {
  std::wstring dialog;   // trimmed, lower case
  std::wstring command;  // trimmed, lower case
  std::wstring topic;    // trimmed, lower case
  int id = 0;
};

class CHelpTopicMap {
 public:
  // Reads the map file; a file that cannot be read (or is beyond any map's
  // size) leaves the map empty. Names compare in lower case over all of Unicode.
  // Blank lines hold no record.
  void load(const std::wstring& mapFile);
  // Reads the file last loaded again.
  void reload() { load(file_); }

  // The first record whose dialog field equals the lower-cased name.
  bool findByDialog(const std::wstring& name, SHelpTopic& out);
  // The first record whose command field contains the lower-cased name.
  bool findByCommand(const std::wstring& name, SHelpTopic& out);

  bool logging() const { return logging_; }
  const std::vector<SHelpTopic>& records() const { return records_; }

 private:
  std::wstring file_;
  std::vector<SHelpTopic> records_;
  bool logging_ = false;
};

// The map record of one line: up to four comma-separated fields, trimmed and
// lower-cased, the fourth read as a decimal number (0 without digits).
SHelpTopic parseHelpTopicLine(const std::wstring& line);

}  // namespace kvt1
