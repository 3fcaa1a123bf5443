// The director on the emulator's headless desktop: the module's dialog
// windows live there, and the engine inside the module answers the
// automation messages that find elements and draw pages.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "htmlui/engine/AutomationMessages.h"
#include "platform/WideFormat.h"
#include "platform/posix/HeadlessDesktop.h"
#include "tools/kvt1-host/DialogDirector.h"

namespace kvt1::emu {
namespace {

using platform::HeadlessDesktop;
using platform::HeadlessWindow;

HeadlessDesktop& desktop() { return HeadlessDesktop::local(); }

// The dialog a user would answer now, and the one that the desktop closes
// when nothing is played: the newest enabled top-level window.
HWND waitingDialog() {
  const std::vector<HWND> windows = desktop().windows();
  for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
    const HeadlessWindow* w = desktop().find(*it);
    if (w != nullptr && w->enabled && !w->isChild()) return *it;
  }
  return nullptr;
}

// A window title as part of a file name: other characters than letters,
// digits, "-", "_", "." and inner blanks become "_".
std::wstring fileNamePart(const std::wstring& title) {
  std::wstring name;
  for (wchar_t c : title) {
    const bool plain = (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') ||
                       c == L'-' || c == L'_' || c == L'.' || c == L' ';
    name += plain ? c : L'_';
  }
  const std::size_t first = name.find_first_not_of(L' ');
  if (first == std::wstring::npos) return L"dialog";
  return name.substr(first, name.find_last_not_of(L' ') - first + 1);
}

std::wstring at(int x, int y) { return platform::formatWide(L" at (%d,%d)", x, y); }

}  // namespace

void DialogDirector::attach() {
  desktop().setIdleHandler([this] { onIdle(); });
  desktop().setWindowCreatedHandler([this](HWND window) { onCreated(window); });
}

void DialogDirector::detach() {
  desktop().setIdleHandler(nullptr);
  desktop().setWindowCreatedHandler(nullptr);
}

std::wstring DialogDirector::label(HWND dialog) const {
  const HeadlessWindow* w = desktop().find(dialog);
  return L"dialog [" + (w != nullptr ? w->text : std::wstring()) + L"]";
}

void DialogDirector::onCreated(HWND window) {
  const HeadlessWindow* w = desktop().find(window);
  if (w == nullptr || w->isChild()) return;
  print_(label(window) + L": opened\n");
  if (!renderFolder_.empty()) render(window, fileNamePart(w->text), renderLine_);
}

void DialogDirector::render(HWND window, const std::wstring& name, int line) {
  const std::wstring path = renderFolder_ + L"/" + std::to_wstring(++rendered_) + L"-" + name + L".png";
  if (desktop().send(window, html::kWmAutomationRender, 0, reinterpret_cast<std::intptr_t>(path.c_str())) == 1) {
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
  // Nothing left to play: the desktop closes the dialog.
  if (unanswered_.insert(dialog).second) print_(label(dialog) + L": closed unanswered\n");
}

DialogDirector::Outcome DialogDirector::play(DialogDirective& directive, HWND dialog) {
  switch (directive.kind) {
    case DialogDirective::Kind::Click:
      return pointAtElement(directive, L"[id='" + directive.argument + L"']", dialog);
    case DialogDirective::Kind::ClickSelector:
      return pointAtElement(directive, directive.argument, dialog);
    case DialogDirective::Kind::Answer:
      return pointAtElement(directive, L"[name='" + directive.argument + L"']", dialog);
    case DialogDirective::Kind::RightClick:
    case DialogDirective::Kind::Hover:
      return pointAtElement(directive, L"[id='" + directive.argument + L"']", dialog);
    case DialogDirective::Kind::ClickAt:
      print_(label(dialog) + L": click" + at(directive.x, directive.y) + L"\n");
      desktop().click(dialog, platform::WindowPoint{directive.x, directive.y});
      return Outcome::Played;
    case DialogDirective::Kind::Key:
      print_(label(dialog) + L": " + directive.text + L"\n");
      desktop().post(dialog, WM_KEYDOWN, directive.keyCode, 0);
      desktop().post(dialog, WM_KEYUP, directive.keyCode, 0);
      return Outcome::Played;
    case DialogDirective::Kind::Type:
      print_(label(dialog) + L": " + directive.text + L"\n");
      for (const wchar_t c : directive.argument) desktop().post(dialog, WM_CHAR, static_cast<std::uintptr_t>(c), 0);
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
  if (desktop().send(dialog, html::kWmAutomationLocate, 0, reinterpret_cast<std::intptr_t>(&query)) != 1) {
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
  if (directive.kind == DialogDirective::Kind::Hover) {
    desktop().hover(dialog, platform::WindowPoint{x, y});
  } else {
    desktop().click(dialog, platform::WindowPoint{x, y}, directive.kind == DialogDirective::Kind::RightClick);
  }
  return Outcome::Played;
}

// Moves the clock on to the next timer within the wait, so that each tick
// is handled before the next one falls due.
DialogDirector::Outcome DialogDirector::wait(DialogDirective& directive, HWND dialog) {
  if (!waitAnnounced_) {
    print_(label(dialog) + L": " + directive.text + L" ms\n");
    waitAnnounced_ = true;
  }
  const std::uint64_t now = desktop().now();
  const std::optional<std::uint64_t> due = desktop().nextTimerDue();
  const bool ticks = due && *due - now <= directive.milliseconds;
  const unsigned step = ticks ? static_cast<unsigned>(*due - now) : directive.milliseconds;
  desktop().advance(step);
  desktop().send(dialog, html::kWmAutomationAdvance, step, 0);
  directive.milliseconds -= step;
  if (directive.milliseconds > 0) return Outcome::Playing;
  waitAnnounced_ = false;
  return ticks ? Outcome::Played : Outcome::Passed;
}

}  // namespace kvt1::emu
