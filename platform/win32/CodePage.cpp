#include "platform/CodePage.h"

#include <windows.h>

namespace kvt1::platform {

unsigned ansiCodePage() { return GetACP(); }

bool isCodePageSupported(unsigned codePage) { return IsValidCodePage(codePage) != 0; }

bool bytesToWide(unsigned codePage, std::string_view bytes, std::wstring& out) {
  out.clear();
  if (bytes.empty()) return true;
  const int size = static_cast<int>(bytes.size());
  // First strictly, to learn whether the bytes are valid; then leniently for the text.
  const int strict = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
  const int length = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
  if (length <= 0) return false;
  out.resize(static_cast<std::size_t>(length));
  MultiByteToWideChar(codePage, 0, bytes.data(), size, out.data(), length);
  return strict > 0;
}

bool wideToBytes(unsigned codePage, std::wstring_view text, std::string& out) {
  out.clear();
  if (text.empty()) return true;
  const int size = static_cast<int>(text.size());
  // UTF-8 and UTF-7 take no default character; they lose nothing but lone surrogates.
  const bool unicodePage = codePage == CP_UTF8 || codePage == CP_UTF7;
  BOOL usedDefault = FALSE;
  const int length =
      WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, unicodePage ? nullptr : &usedDefault);
  if (length <= 0) return false;
  out.resize(static_cast<std::size_t>(length));
  WideCharToMultiByte(codePage, 0, text.data(), size, out.data(), length, unicodePage ? nullptr : "?",
                      unicodePage ? nullptr : &usedDefault);
  return !usedDefault;
}

}  // namespace kvt1::platform
