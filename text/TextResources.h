#pragma once
// The text resource store: every text the module shows, looked up by key in
// one XML document per language. The document is the resource "XMLRES" of
// type "XMLRES" in the current resource module (platform/Resources.h),
// loaded at the first lookup and tried again at each lookup until it parses.
//
// A lookup never fails: a missing or empty text yields a readable miss
// message that names the key (or an empty text where the caller asks for
// silence). Found texts have "%%" reduced to "%" and pass the current text
// formatter; miss messages do neither.
#include <string>
#include <utility>

namespace NTxtRes {

// The text of the element named by key below the root; the key may hold "/".
std::wstring GetText(const std::wstring& key);
// The text of key's child "Index_<index>".
std::wstring GetText(const std::wstring& key, int index);
// The text of key's child subKey; silent gives an empty text on a miss.
std::wstring GetText(const std::wstring& key, const std::wstring& subKey, bool silent);
// The text of the child of "Error" whose "code" attribute reads code.
std::wstring GetErrorText(int code);
// The short and the extended tooltip of a dialog's control; empty on a miss.
std::pair<std::wstring, std::wstring> GetTooltip(int dialogId, int controlId, int index);

// The text of key's child subKey as it stands: no "%%" reduction, no
// formatter, empty on a miss.
std::wstring GetRawText(const std::wstring& key, const std::wstring& subKey);

// Drops the loaded document; the next lookup loads it again. Called when the
// module unloads.
void ReleaseTextDocument();

}  // namespace NTxtRes
