#include "tools/kvt1-host/DialogDirector.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>

#include "htmlui/engine/AutomationMessages.h"
#include "platform/DialogWindow.h"
#include "platform/FilePath.h"
#include "platform/WideFormat.h"
#include "tools/kvt1-host/PendingWork.h"

namespace kvt1::emu {
namespace {

DialogDirector* g_current = nullptr;

// The longest message text printed whole.
constexpr unsigned kMessageTextCapacity = 4096;

// Whether a message box of that type (its low four bits name the buttons) offers the answer.
bool offers(unsigned type, int answer) {
  switch (type & 0xF) {
    case 0x0:
      return answer == 1;
    case 0x1:
      return answer == 1 || answer == 2;
    case 0x2:
      return answer >= 3 && answer <= 5;
    case 0x3:
      return answer == 6 || answer == 7 || answer == 2;
    case 0x4:
      return answer == 6 || answer == 7;
    case 0x5:
      return answer == 4 || answer == 2;
    default:
      return false;
  }
}

}  // namespace

DialogDirector::DialogDirector(Print print, Fault fault) : print_(std::move(print)), fault_(std::move(fault)) {
  g_current = this;
  attach();
}

DialogDirector::~DialogDirector() {
  detach();
  if (g_current == this) g_current = nullptr;
}

DialogDirector* DialogDirector::current() { return g_current; }

namespace {

// A window title as part of a file name: other characters than letters,
// digits, "-", "_", "." and inner blanks become "_".
std::wstring fileNamePart(const std::wstring& title) {
  std::wstring name;
  for (wchar_t c : title) {
    const bool plain = (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'-' ||
                       c == L'_' || c == L'.' || c == L' ';
    name += plain ? c : L'_';
  }
  const std::size_t first = name.find_first_not_of(L' ');
  if (first == std::wstring::npos) return L"dialog";
  return name.substr(first, name.find_last_not_of(L' ') - first + 1);
}

std::wstring at(int x, int y) { return platform::formatWide(L" at (%d,%d)", x, y); }

}  // namespace

std::wstring DialogDirector::label(HWND dialog) const { return L"dialog [" + title(dialog) + L"]"; }

void DialogDirector::onCreated(HWND window) {
  if (!isTopLevelDialog(window)) return;
  print_(label(window) + L": opened\n");
  // A message dialog's text, as its user reads it, before its picture.
  wchar_t text[kMessageTextCapacity] = {};
  html::AutomationQuery message;
  message.selector = L"#txtInfo";
  message.text = text;
  message.textCapacity = kMessageTextCapacity;
  if (platform::sendMessage(window, html::kWmAutomationLocate, 0, reinterpret_cast<std::intptr_t>(&message)) == 1 &&
      text[0] != L'\0') {
    print_(label(window) + L": " + text + L"\n");
  }
  if (!renderFolder_.empty()) render(window, fileNamePart(title(window)), renderLine_);
}

void DialogDirector::render(HWND window, const std::wstring& name, int line) {
  const std::wstring path = platform::joinPath(renderFolder_, std::to_wstring(++rendered_) + L"-" + name + L".png");
  if (platform::sendMessage(window, html::kWmAutomationRender, 0, reinterpret_cast<std::intptr_t>(path.c_str())) == 1) {
    print_(L"rendered: " + path + L"\n");
  } else {
    fault_(line, L"cannot render " + label(window) + L" to " + path);
  }
}

void DialogDirector::onIdle() {
  const HWND dialog = waitingDialog();
  if (dialog == nullptr) return;
  while (!pending_.empty()) {
    switch (play(pending_.front(), dialog)) {
      case Outcome::Playing:
        return;
      case Outcome::Played:
        pending_.pop_front();
        return;
      case Outcome::Passed:
        pending_.pop_front();
        break;
    }
  }
  const bool first = unanswered_.insert(dialog).second;
  if (first) print_(label(dialog) + L": closed unanswered\n");
  closeUnanswered(dialog, !first);
}

DialogDirector::Outcome DialogDirector::play(DialogDirective& directive, HWND dialog) {
  switch (directive.kind) {
    case DialogDirective::Kind::Click:
    case DialogDirective::Kind::RightClick:
    case DialogDirective::Kind::Hover:
      return pointAtElement(directive, L"[id='" + directive.argument + L"']", dialog);
    case DialogDirective::Kind::ClickSelector:
      return pointAtElement(directive, directive.argument, dialog);
    case DialogDirective::Kind::Answer:
      return pointAtElement(directive, L"[name='" + directive.argument + L"']", dialog);
    case DialogDirective::Kind::ClickAt:
      print_(label(dialog) + L": click" + at(directive.x, directive.y) + L"\n");
      point(dialog, directive.x, directive.y, Pointer::Click);
      return Outcome::Played;
    case DialogDirective::Kind::Key:
      print_(label(dialog) + L": " + directive.text + L"\n");
      platform::postMessage(dialog, WM_KEYDOWN, directive.keyCode, 0);
      platform::postMessage(dialog, WM_KEYUP, directive.keyCode, 0);
      return Outcome::Played;
    case DialogDirective::Kind::Type:
      print_(label(dialog) + L": " + directive.text + L"\n");
      for (const wchar_t c : directive.argument)
        platform::postMessage(dialog, WM_CHAR, static_cast<std::uintptr_t>(c), 0);
      return Outcome::Played;
    case DialogDirective::Kind::Wait:
      return wait(directive, dialog);
    case DialogDirective::Kind::Snapshot:
      if (renderFolder_.empty()) {
        fault_(directive.line, L"@" + directive.text + L": no render folder (@render DIR or --render DIR)");
      } else {
        render(dialog, fileNamePart(directive.argument), directive.line);
      }
      return Outcome::Passed;
    case DialogDirective::Kind::Render:
      break;
  }
  return Outcome::Passed;
}

DialogDirector::Outcome DialogDirector::pointAtElement(const DialogDirective& directive, const std::wstring& selector,
                                                       HWND dialog) {
  html::AutomationQuery query;
  query.selector = selector.c_str();
  if (platform::sendMessage(dialog, html::kWmAutomationLocate, 0, reinterpret_cast<std::intptr_t>(&query)) != 1) {
    fault_(directive.line, L"@" + directive.text + L": nothing matches " + selector + L" in " + label(dialog));
    return Outcome::Passed;
  }
  if (!query.visible) {
    fault_(directive.line, L"@" + directive.text + L": " + selector + L" is not visible in " + label(dialog));
    return Outcome::Passed;
  }
  const int x = (query.rect.left + query.rect.right) / 2;
  const int y = (query.rect.top + query.rect.bottom) / 2;
  print_(label(dialog) + L": " + directive.text + at(x, y) + L"\n");
  const Pointer pointer = directive.kind == DialogDirective::Kind::Hover        ? Pointer::Hover
                          : directive.kind == DialogDirective::Kind::RightClick ? Pointer::RightClick
                                                                                : Pointer::Click;
  point(dialog, x, y, pointer);
  return Outcome::Played;
}

void DialogDirector::add(DialogDirective directive) {
  if (directive.kind == DialogDirective::Kind::Render) {
    setRenderFolder(directive.argument, directive.line);
    return;
  }
  pending_.push_back(std::move(directive));
}

void DialogDirector::setRenderFolder(const std::wstring& folder, int line) {
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(folder), error);
  if (error) {
    fault_(line, L"cannot make the render folder " + folder);
    return;
  }
  renderFolder_ = folder;
  renderLine_ = line;
}

std::optional<int> DialogDirector::answerMessageBox(unsigned type) {
  if (pending_.empty() || pending_.front().kind != DialogDirective::Kind::Answer) return std::nullopt;
  const DialogDirective directive = pending_.front();
  pending_.pop_front();
  if (!offers(type, directive.answer)) {
    fault_(directive.line, L"@" + directive.text + L": the message box has no " + directive.argument + L" button");
    return std::nullopt;
  }
  print_(L"message box: answer " + directive.argument + L"\n");
  return directive.answer;
}

void DialogDirector::reportUnplayed() {
  // A dialog that stays open without a modal loop of its own (the splash)
  // takes what is left while the host's message loop serves it; it stays open.
  for (HWND dialog = waitingDialog(); dialog != nullptr && !pending_.empty(); dialog = waitingDialog()) {
    const Outcome outcome = play(pending_.front(), dialog);
    if (outcome != Outcome::Playing) pending_.pop_front();
    serveHostLoop(outcome == Outcome::Playing);
  }
  for (const DialogDirective& directive : pending_)
    fault_(directive.line, L"@" + directive.text + L": no dialog opened to play it");
  pending_.clear();
  waitAnnounced_ = false;
}

void DialogDirector::idle(unsigned milliseconds) {
  serveHostLoop(false);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (pendingModuleWork() > 0) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    if (left.count() <= 0) break;
    waitForHostMessage(static_cast<unsigned>(std::min<std::int64_t>(left.count(), 50)));
    serveHostLoop(false);
  }
}

}  // namespace kvt1::emu
