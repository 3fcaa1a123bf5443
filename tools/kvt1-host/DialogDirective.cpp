#include "tools/kvt1-host/DialogDirective.h"

#include <cwchar>

#include "platform/CaseFolding.h"
#include "platform/Win32.h"

namespace kvt1::emu {
namespace {

// The first word of text and the rest, without the blanks between.
std::wstring firstWord(const std::wstring& text, std::wstring& rest) {
  const std::size_t end = text.find_first_of(L" \t");
  const std::wstring word = text.substr(0, end);
  const std::size_t next = end == std::wstring::npos ? end : text.find_first_not_of(L" \t", end);
  rest = next == std::wstring::npos ? std::wstring() : text.substr(next);
  return word;
}

// A whole non-negative decimal number no larger than limit.
bool readNumber(const std::wstring& text, long limit, long& value) {
  if (text.empty() || text.find_first_not_of(L"0123456789") != std::wstring::npos || text.size() > 9) return false;
  value = std::wcstol(text.c_str(), nullptr, 10);
  return value <= limit;
}

std::optional<int> answerCode(const std::wstring& name) {
  if (name == L"OK") return 1;
  if (name == L"CANCEL") return 2;
  if (name == L"YES") return 6;
  if (name == L"NO") return 7;
  return std::nullopt;
}

struct KeyName {
  const wchar_t* name;
  unsigned code;
};

// Virtual-key codes of the keys that dialogs answer.
const KeyName kKeys[] = {{L"BACK", VK_BACK},   {L"TAB", VK_TAB},   {L"RETURN", VK_RETURN}, {L"ESCAPE", VK_ESCAPE},
                         {L"END", VK_END},     {L"HOME", VK_HOME}, {L"LEFT", VK_LEFT},     {L"UP", VK_UP},
                         {L"RIGHT", VK_RIGHT}, {L"DOWN", VK_DOWN}, {L"DELETE", VK_DELETE}};

std::optional<unsigned> keyCode(const std::wstring& name) {
  for (const KeyName& key : kKeys)
    if (name == key.name) return key.code;
  return std::nullopt;
}

bool isElementId(const std::wstring& text) {
  return !text.empty() && text.find_first_of(L"'\\ \t") == std::wstring::npos;
}

}  // namespace

std::optional<DialogDirective> parseDialogDirective(const std::wstring& text, int line, std::wstring& error) {
  DialogDirective directive;
  directive.line = line;
  directive.text = text;
  std::wstring rest;
  const std::wstring name = firstWord(text, rest);
  directive.argument = rest;

  if (name == L"snapshot") {
    if (rest.empty() || rest.find_first_of(L"/\\") != std::wstring::npos) {
      error = L"@snapshot takes a picture name without folders: " + rest;
      return std::nullopt;
    }
    directive.kind = DialogDirective::Kind::Snapshot;
    return directive;
  }
  if (name == L"click" || name == L"click-selector" || name == L"render") {
    if (rest.empty()) {
      const wchar_t* wanted = name == L"click" ? L"an element id" : name == L"render" ? L"a folder" : L"a CSS selector";
      error = L"@" + name + L" takes " + wanted;
      return std::nullopt;
    }
    if (name == L"click" && !isElementId(rest)) {
      error = L"@click takes one element id (use @click-selector for more): " + rest;
      return std::nullopt;
    }
    directive.kind = name == L"click"    ? DialogDirective::Kind::Click
                     : name == L"render" ? DialogDirective::Kind::Render
                                         : DialogDirective::Kind::ClickSelector;
    return directive;
  }
  if (name == L"click-at") {
    std::wstring yText;
    const std::wstring xText = firstWord(rest, yText);
    long x = 0;
    long y = 0;
    if (!readNumber(xText, 0x7FFF, x) || !readNumber(yText, 0x7FFF, y)) {
      error = L"@click-at takes two pixel coordinates X Y: " + rest;
      return std::nullopt;
    }
    directive.kind = DialogDirective::Kind::ClickAt;
    directive.x = static_cast<int>(x);
    directive.y = static_cast<int>(y);
    return directive;
  }
  if (name == L"right-click" || name == L"hover") {
    if (!isElementId(rest)) {
      error = L"@" + name + L" takes one element id: " + rest;
      return std::nullopt;
    }
    directive.kind = name == L"hover" ? DialogDirective::Kind::Hover : DialogDirective::Kind::RightClick;
    return directive;
  }
  if (name == L"key") {
    const std::wstring upper = platform::upperCase(rest);
    const std::optional<unsigned> code = keyCode(upper);
    if (!code) {
      error = L"@key takes LEFT, RIGHT, UP, DOWN, HOME, END, RETURN, ESCAPE, TAB, BACK or DELETE: " + rest;
      return std::nullopt;
    }
    directive.kind = DialogDirective::Kind::Key;
    directive.argument = upper;
    directive.keyCode = *code;
    return directive;
  }
  if (name == L"type") {
    if (rest.empty()) {
      error = L"@type takes the text to type";
      return std::nullopt;
    }
    directive.kind = DialogDirective::Kind::Type;
    return directive;
  }
  if (name == L"wait") {
    long milliseconds = 0;
    if (!readNumber(rest, 24L * 60 * 60 * 1000, milliseconds)) {
      error = L"@wait takes milliseconds (at most a day): " + rest;
      return std::nullopt;
    }
    directive.kind = DialogDirective::Kind::Wait;
    directive.milliseconds = static_cast<unsigned>(milliseconds);
    return directive;
  }
  if (name == L"answer") {
    const std::wstring upper = platform::upperCase(rest);
    const std::optional<int> code = answerCode(upper);
    if (!code) {
      error = L"@answer takes OK, CANCEL, YES or NO: " + rest;
      return std::nullopt;
    }
    directive.kind = DialogDirective::Kind::Answer;
    directive.argument = upper;
    directive.answer = *code;
    return directive;
  }
  error = L"unknown directive: @" + name;
  return std::nullopt;
}

}  // namespace kvt1::emu
