#pragma once
// Plays the script's dialog directives as a user would. Directives wait in
// order until a dialog of the module waits for its user (the idle moment of
// its modal loop), then each is played on the newest dialog: clicks and
// hovers go to the elements' places as pointer messages, keys and typed
// characters as key messages, waits let time pass. When nothing is left to
// play, the dialog is closed unanswered. Directives that no modal dialog
// took during a call go to a dialog that stays open without one (the
// splash), which the host's message loop serves; it stays open after them. Message boxes take a waiting
// @answer. Every dialog that opens is drawn into the render folder, once one
// is set. The dialogs are the headless desktop's windows on Linux and real
// windows on Windows; DialogDirectorDesktop.cpp and DialogDirectorWindows.cpp
// hold what differs.
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "host/arx/ArxTypes.h"
#include "tools/kvt1-host/DialogDirective.h"

namespace kvt1::emu {

class DialogDirector {
 public:
  using Print = std::function<void(const std::wstring&)>;
  using Fault = std::function<void(int line, const std::wstring&)>;

  // Takes over the desktop's idle and window-created handlers until destroyed.
  DialogDirector(Print print, Fault fault);
  ~DialogDirector();
  DialogDirector(const DialogDirector&) = delete;
  DialogDirector& operator=(const DialogDirector&) = delete;

  // The director of the running session, for the message box export; null without one.
  static DialogDirector* current();

  // Directives wait for the next dialogs; @render takes effect at once.
  void add(DialogDirective directive);
  // Where dialogs are drawn from now on; line 0 for the command line.
  void setRenderFolder(const std::wstring& folder, int line);

  // The answer of a waiting @answer for a message box of that type, printed;
  // nothing when no @answer waits first in line.
  std::optional<int> answerMessageBox(unsigned type);
  // After a call: directives that no modal dialog took are played on an open
  // modeless dialog; those that none took are reported and dropped.
  void reportUnplayed();

  // The host's message loop with nothing else to do: handles what is queued
  // (what modules posted to the main thread among it), then, while modules
  // still have work pending, waits for more, up to milliseconds of real time.
  static void idle(unsigned milliseconds);

 private:
  // Played: done, and the dialog has input to handle; Playing: not done yet,
  // the dialog has input; Passed: done (or failed) without input, go on.
  enum class Outcome { Played, Playing, Passed };
  enum class Pointer { Click, RightClick, Hover };

  void onIdle();
  void onCreated(HWND window);
  // Draws the window into the render folder as N-NAME.png.
  void render(HWND window, const std::wstring& name, int line);
  Outcome play(DialogDirective& directive, HWND dialog);
  // Clicks, right-clicks or hovers the middle of the element that the selector finds.
  Outcome pointAtElement(const DialogDirective& directive, const std::wstring& selector, HWND dialog);
  std::wstring label(HWND dialog) const;

  // What differs per system.
  void attach();
  void detach();
  // The dialog a user would answer now: the newest enabled top-level dialog window.
  static HWND waitingDialog();
  static std::wstring title(HWND dialog);
  static bool isTopLevelDialog(HWND window);
  // Pointer input at a point of the dialog's client area.
  static void point(HWND dialog, int x, int y, Pointer pointer);
  // Lets time pass for a @wait, at most until the next timer falls due.
  Outcome wait(DialogDirective& directive, HWND dialog);
  // Nothing is left to play: the dialog is closed; again: it was asked before and is still there.
  static void closeUnanswered(HWND dialog, bool again);
  // The host's own message loop between calls: handles what is queued, after
  // waiting for the next message when asked to.
  static void serveHostLoop(bool waitForMessage);
  // Waits up to milliseconds of real time for a message from another thread.
  static void waitForHostMessage(unsigned milliseconds);

  Print print_;
  Fault fault_;
  std::deque<DialogDirective> pending_;
  std::wstring renderFolder_;
  int renderLine_ = 0;
  int rendered_ = 0;
  bool waitAnnounced_ = false;   // the @wait first in line has been printed
  std::uint64_t waitUntil_ = 0;  // with real time: when that @wait ends
  std::set<HWND> unanswered_;
};

}  // namespace kvt1::emu
