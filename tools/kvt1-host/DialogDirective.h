#pragma once
// The script's directives for the module's dialogs, the lines that start with
// "@": what a user does when a dialog waits, and where dialogs are drawn.
//   @click ID              clicks the element with that id
//   @click-selector CSS    clicks the first element that the selector finds
//   @click-at X Y          clicks at a point of the dialog (client pixels)
//   @right-click ID        clicks the element with that id with the right button
//   @hover ID              rests the pointer on the element with that id
//   @key NAME              presses and releases a key: LEFT, RIGHT, UP, DOWN,
//                          HOME, END, RETURN, ESCAPE, TAB, BACK or DELETE
//   @type TEXT             types the text into the element that has the focus
//   @wait MS               lets MS milliseconds pass: timers fire
//   @answer OK|CANCEL|YES|NO  answers the next message box or message dialog
//   @render DIR            draws every dialog that opens from now on into DIR
//   @snapshot NAME         draws the waiting dialog as it is now into the
//                          render folder, as N-NAME.png
#include <optional>
#include <string>

namespace kvt1::emu {

struct DialogDirective {
  enum class Kind { Click, ClickSelector, ClickAt, RightClick, Hover, Key, Type, Wait, Answer, Render, Snapshot };

  Kind kind = Kind::Click;
  int line = 0;
  std::wstring text;      // as written, without the "@"
  std::wstring argument;  // the id, selector, key name, text, answer name, folder or picture name
  int x = 0;              // ClickAt
  int y = 0;
  unsigned milliseconds = 0;  // Wait
  int answer = 0;             // Answer: the message box code (1 OK, 2 Cancel, 6 Yes, 7 No)
  unsigned keyCode = 0;       // Key: the virtual-key code
};

// The directive of text (a script line without its "@"); nothing, with
// error set, when it is not one.
std::optional<DialogDirective> parseDialogDirective(const std::wstring& text, int line, std::wstring& error);

}  // namespace kvt1::emu
