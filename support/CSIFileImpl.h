#pragma once
// The base of the encoding-aware files: a file read and written either as
// single-byte text in the ANSI code page or as UTF-16LE, with one set of
// operations for both. Even-numbered operations of a pair take wide
// strings, the others narrow ones; each class converts to its own width.
//
// Reads into a buffer: ReadChars and ReadString fill up to count characters
// and a NUL (the buffer holds count + 1); ReadLine fills up to count - 1 and
// a NUL. Writes return a negative value when the stream refused them; a
// two-part write (text and line end, text and NUL) then stops after the
// first part. Nothing throws.
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace kvt1 {

class CSIFileImpl {
 public:
  CSIFileImpl() = default;
  CSIFileImpl(const CSIFileImpl&) = delete;
  CSIFileImpl& operator=(const CSIFileImpl&) = delete;

  // Opens the file with a mode number 0..7 (see SIFileMode.h), closing any
  // stream the object held; the create modes make the file's folder first.
  // Returns whether the stream is open.
  virtual bool Open(const std::wstring& path, int mode);
  // Reads size bytes as one item: 1 when all were read, else 0.
  virtual int ReadBytes(void* buffer, std::size_t size);
  // Reads up to count characters, stopping only at the end of the file.
  virtual int ReadChars(wchar_t* buffer, int count) = 0;
  virtual int ReadChars(char* buffer, int count) = 0;
  // Reads up to count characters, stopping at a NUL (not stored) or the end.
  virtual int ReadString(wchar_t* buffer, int count) = 0;
  virtual int ReadString(char* buffer, int count) = 0;
  // Writes the text without terminator.
  virtual int WriteString(const wchar_t* text) = 0;
  virtual int WriteString(const char* text) = 0;
  // Writes the text and one NUL character, so that ReadString finds its end.
  virtual int WriteStringZ(const wchar_t* text) = 0;
  virtual int WriteStringZ(const char* text) = 0;
  // Reads one line with its line end; returns its length, 0 at the end of
  // the file. Here: lines end in a bare LF, kept as it is.
  virtual int ReadLine(wchar_t* buffer, int count);
  virtual int ReadLine(char* buffer, int count);
  // Writes the text and a line end; here a bare LF.
  virtual int WriteLine(const wchar_t* text);
  virtual int WriteLine(const char* text);
  // Whether the file holds UTF-16LE rather than ANSI bytes.
  virtual bool IsUnicode() const = 0;
  virtual ~CSIFileImpl();

  // Writes the text followed by one character.
  int WriteStringAndChar(const wchar_t* text, wchar_t character);
  int WriteStringAndChar(const char* text, char character);

  void Close();
  bool IsOpen() const { return m_file != nullptr; }
  const std::wstring& GetPath() const { return m_path; }

  // Opens path with the class that fits: the Unicode classes when the file
  // begins with the bytes FF FE, else the ANSI classes; the text variant for
  // the text modes 5 to 7, the binary variant for the others. nullptr when
  // the file cannot be opened in that mode.
  static std::unique_ptr<CSIFileImpl> OpenFile(const std::wstring& path, int mode);

 protected:
  std::wstring m_path;
  std::FILE* m_file = nullptr;
};

}  // namespace kvt1
