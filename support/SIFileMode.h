#pragma once
// The open modes of the CSIFile classes: numbers 0 to 7, each standing for a
// C mode string.
namespace kvt1 {

enum SIFileMode : int {
  kSIReadBinary = 0,          // "rb"
  kSIWriteBinary = 1,         // "wb"
  kSIAppendBinary = 2,        // "ab+"
  kSIUpdateBinary = 3,        // "rb+"
  kSICreateUpdateBinary = 4,  // "wb+"
  kSIReadText = 5,            // "rt"
  kSIWriteText = 6,           // "wt"
  kSIAppendText = 7,          // "at+"
};

// The mode string of a mode number; "" for a number outside 0..7.
const char* SIFileModeString(int mode);

// The mode the stream is really opened with: the same, but always binary.
// The text classes write and read CR LF themselves, so the bytes on disk are
// the same on every system and UTF-16 data is never touched by a C runtime's
// text translation. "" for a number outside 0..7.
const char* SIFileStreamMode(int mode);

// Modes that create (or truncate) the file: 1, 4 and 6.
bool SIFileModeCreates(int mode);
// Modes that append, creating a missing file: 2 and 7.
bool SIFileModeAppends(int mode);
// Modes whose string asks for text: 5, 6 and 7.
bool SIFileModeIsText(int mode);

}  // namespace kvt1
