#include "tools/kvt1-host/DialogDirector.h"

#include <filesystem>

namespace kvt1::emu {
namespace {

DialogDirector* g_current = nullptr;

// Whether a message box of that type (its low four bits name the buttons) offers the answer.
bool offers(unsigned type, int answer) {
  switch (type & 0xF) {
    case 0x0: return answer == 1;
    case 0x1: return answer == 1 || answer == 2;
    case 0x2: return answer >= 3 && answer <= 5;
    case 0x3: return answer == 6 || answer == 7 || answer == 2;
    case 0x4: return answer == 6 || answer == 7;
    case 0x5: return answer == 4 || answer == 2;
    default: return false;
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
  for (const DialogDirective& directive : pending_)
    fault_(directive.line, L"@" + directive.text + L": no dialog opened to play it");
  pending_.clear();
  waitAnnounced_ = false;
}

}  // namespace kvt1::emu
