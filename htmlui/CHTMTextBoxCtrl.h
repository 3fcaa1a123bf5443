#pragma once
// A one-line entry field: "<input type='text'>" holding free text or a
// number with a fixed count of decimals, optional lower and upper limits
// and a step for the spin keys.
//
// What the user sees:
// - Typing changes only the field. The value is committed when the user
//   presses Enter or the field loses the focus; the owner then hears one
//   EDIT_VALUE_CHANGED with SHTMTextBoxCtrlEventArgs, if the committed text
//   differs from the last one or was corrected. Escape brings back the last
//   committed text.
// - A numeric field commits only numbers. Anything else (text, "NaN", "inf",
//   an empty field) is refused: the last good value comes back and the owner
//   is told with `rejected` set. A number beyond a limit is brought to that
//   limit, and the owner is told with `clamped` set. Committed numbers are
//   written with the field's decimals ("%.*f").
// - Up and Down add or subtract the step to a numeric field's value (the last
//   good one when the text is no number), kept within the limits, and commit.
// - When a numeric field gets the focus its text is selected, so that typing
//   replaces it, and the limits popup "ID#LimitsTextPanel" shows beside it;
//   it goes when the field loses the focus.
// - What the program sets is never reported back to it.
//
// The limits popup is one per page, shared by its fields. The page may hold
// its own "ID#LimitsTextPanel" with "div[id='MinVal']" and
// "div[id='MaxVal']"; without one the control writes a plain panel. Either
// way it is moved to the end of "TextBoxTab#FormPilotDialog" when the page
// has that element, else to the end of the body, before it is shown.
#include <optional>
#include <string>

#include "htmlui/CHTMCtrl.h"

namespace kvt1 {

// A committed change of a text box.
struct SHTMTextBoxCtrlEventArgs : SHTMCtrlEventArgs {
  std::wstring text;      // the field's text after the commit
  double number = 0;      // its value, for a numeric field
  bool clamped = false;   // the value lay beyond a limit and was set to it
  bool rejected = false;  // the text was no number; the last good value came back
};

class CHTMTextBoxCtrl : public CHTMCtrl {
 public:
  explicit CHTMTextBoxCtrl(std::wstring id);

  // Appends "<input id='ID' type='text' value='' />" to the page's body,
  // binds to it and places it as buttons are placed. False when any step
  // fails; what was written into the page stays there.
  bool CreateInPlace(CHTMDialog& page, int left, int top, int width, int height);

  // The field's text (its value).
  std::wstring GetText() const override;
  // Sets the text as it stands. In a numeric field a number is taken as
  // SetNumber takes it; other text stays until the next commit refuses it.
  void SetText(const std::wstring& text) override;

  // Makes the field numeric with that many decimals (negative: none) and
  // writes value with "%.*f"; the "format" attribute tells the engine's
  // numeric editing the same. A value that is not finite resets the field.
  void SetNumber(double value, int decimals);
  // The field's number. When a numeric field holds no number it is reset:
  // zero is written with its decimals ("0.00" with two) and 0 returned.
  double GetNumber();
  int Decimals() const { return m_decimals; }

  // The spin step (attribute "step"); 1 until set.
  void SetStep(int step);

  // Limits: unset (nullopt) or a number. Which of them the popup shows: a
  // limit not shown leaves its place blank; an unset one shows "No Limit".
  void SetLimits(std::optional<double> lower, std::optional<double> upper);
  void SetLimitsShown(bool lower, bool upper);
  std::optional<double> LowerLimit() const { return m_lower; }
  std::optional<double> UpperLimit() const { return m_upper; }

  // Selects the whole text (the engine's "selectAll" method), so that the
  // next character typed replaces it.
  void SelectAll();

  // Shows the limits popup beside the field after hiding any open popup;
  // false when the field is unbound or shows no limits. Hides it again.
  bool ShowLimitsPopup();
  void HideLimitsPopup();

  std::wstring TypeName() const override { return L"CHTMTextBoxCtrl"; }

  static constexpr const wchar_t* kLimitsPanelId = L"ID#LimitsTextPanel";
  static constexpr const wchar_t* kLimitsTabId = L"TextBoxTab#FormPilotDialog";

 protected:
  // Binding takes over the page's text, or writes a numeric field's
  // settings made while it was unbound.
  void attached(HELEMENT he) override;
  BOOL handle_key(HELEMENT he, KEY_PARAMS& params) override;
  BOOL handle_focus(HELEMENT he, FOCUS_PARAMS& params) override;

 private:
  void WriteText(const std::wstring& text);
  void WriteFormat();
  std::wstring FormatNumber(double value) const;
  // The value the text reads as: a finite decimal number, nothing else.
  static std::optional<double> ParseNumber(const std::wstring& text);
  double Clamp(double value) const;
  // Enter or focus lost: checks the text, corrects it and tells the owner.
  void Commit();
  void Spin(int direction);
  CHTMElement LimitsPanel();
  void Report(const std::wstring& text, bool clamped, bool rejected);

  bool m_numeric = false;
  int m_decimals = 2;
  int m_step = 1;
  std::optional<double> m_lower;
  std::optional<double> m_upper;
  bool m_showLower = true;
  bool m_showUpper = true;
  std::wstring m_committed;  // the text the owner last heard of or set
};

}  // namespace kvt1
