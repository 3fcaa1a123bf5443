#pragma once
// Options shared by the character readers of the CSIFile classes.
namespace kvt1 {

// Where ReadChars and ReadString stop besides the end of the file.
enum class ReadStop { AtEnd, AtNul };

// What ends a line: a bare LF (binary classes), or CR LF, which is returned
// as a single LF (text classes).
enum class LineEnd { Lf, CrLf };

}  // namespace kvt1
