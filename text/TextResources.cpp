#include "text/TextResources.h"

#include <memory>
#include <string_view>

#include "platform/Resources.h"
#include "platform/Unicode.h"
#include "platform/WideFormat.h"
#include "text/Placeholders.h"
#include "text/TextFormatter.h"
#include "text/XmlDocument.h"

namespace NTxtRes {
namespace {

using kvt1::platform::formatWide;

// The text document and the language module it was parsed from. A module
// is parsed once, even when its document is not well-formed: a fault must
// not make every lookup parse it again. Another module is tried while the
// document is not well-formed; a well-formed one stays until released.
struct LoadedTexts {
  void* parsedModule = nullptr;
  bool parsed = false;
  kvt1::CXmlDocument document;
};
std::unique_ptr<LoadedTexts> g_texts;

// The resource's text: UTF-16LE up to its terminating NUL.
std::wstring resourceText(const kvt1::platform::ResourceData& data) {
  std::size_t units = data.size / 2;
  for (std::size_t i = 0; i < units; ++i) {
    if (data.bytes[2 * i] == 0 && data.bytes[2 * i + 1] == 0) {
      units = i;
      break;
    }
  }
  return kvt1::platform::fromUtf16(std::string_view(reinterpret_cast<const char*>(data.bytes), units * 2));
}

kvt1::CXmlDocument& document() {
  if (!g_texts) g_texts = std::make_unique<LoadedTexts>();
  LoadedTexts& texts = *g_texts;
  void* const module = kvt1::platform::resourceModule();
  const bool tried = texts.parsed && texts.parsedModule == module;
  if (texts.document.IsWellFormed() || tried) {
    texts.document.ResetPos();
  } else if (auto data = kvt1::platform::findResource(module, L"XMLRES", L"XMLRES")) {
    texts.document.SetDoc(resourceText(*data));
    texts.parsed = true;
    texts.parsedModule = module;
  }
  return texts.document;
}

std::wstring lookup(const std::wstring& path) { return document().GetData(path); }

// A found text has "%%" reduced and passes the formatter; an empty one is a miss.
bool finish(std::wstring& text) {
  if (text.empty()) return false;
  ReplaceAll(text, L"%%", L"%");
  GetTextFormatter().FormatText(text);
  return true;
}

}  // namespace

std::wstring GetText(const std::wstring& key) {
  std::wstring text = lookup(L"/*/" + key);
  return finish(text) ? text : formatWide(L"Can not find text for key '%s'", key.c_str());
}

std::wstring GetText(const std::wstring& key, int index) {
  std::wstring text = lookup(formatWide(L"/*/%s/Index_%d", key.c_str(), index));
  return finish(text) ? text : formatWide(L"Can not find text for key '%s' index %u", key.c_str(), index);
}

std::wstring GetText(const std::wstring& key, const std::wstring& subKey, bool silent) {
  std::wstring text = lookup(L"/*/" + key + L"/" + subKey);
  if (finish(text)) return text;
  return silent ? std::wstring()
                : formatWide(L"Can not find text for key '%s' subKey '%s'", key.c_str(), subKey.c_str());
}

std::wstring GetErrorText(int code) {
  std::wstring text = lookup(formatWide(L"/*/Error/*[@code='%d']", code));
  return finish(text) ? text : formatWide(L"No text found for error %u", code);
}

std::pair<std::wstring, std::wstring> GetTooltip(int dialogId, int controlId, int index) {
  const wchar_t* const path = L"/*/Tooltip/*[@did='%d']/*[@cid='%d']/Index_%d/%s";
  std::wstring text = lookup(formatWide(path, dialogId, controlId, index, L"Text"));
  std::wstring extended = lookup(formatWide(path, dialogId, controlId, index, L"ExtendedText"));
  finish(text);
  finish(extended);
  return {text, extended};
}

std::wstring GetRawText(const std::wstring& key, const std::wstring& subKey) {
  return lookup(L"/*/" + key + L"/" + subKey);
}

void ReleaseTextDocument() { g_texts.reset(); }

}  // namespace NTxtRes
