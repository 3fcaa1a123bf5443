#include "htmlui/CHTMTextBoxCtrl.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <string>

#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMCtrlInPlace.h"
#include "htmlui/HTMEngine.h"
#include "platform/Unicode.h"
#include "platform/Win32.h"
#include "text/TextResources.h"

namespace kvt1 {
namespace {

constexpr UINT kPlaceRight = 6;
constexpr int kMaxDecimals = 15;

// A limit's place in the popup.
std::wstring limitHtml(const std::optional<double>& limit, bool shown, const std::wstring& number) {
  if (!shown) return L"&nbsp;";
  return limit ? number : L"No Limit";
}

}  // namespace

CHTMTextBoxCtrl::CHTMTextBoxCtrl(std::wstring id) : CHTMCtrl(std::move(id)) {}

bool CHTMTextBoxCtrl::CreateInPlace(CHTMDialog& page, int left, int top, int width, int height) {
  return CreateControlInPlace(*this, page, L"<input id='" + Id() + L"' type='text' value='' />", left, top, width,
                              height);
}

std::wstring CHTMTextBoxCtrl::GetText() const {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || !IsBound()) return {};
  VALUE value;
  engine->ValueInit(&value);
  std::wstring text;
  if (engine->ControlGetValue(Element().Handle(), &value) == HLDOM_OK) {
    LPCWSTR chars = nullptr;
    UINT count = 0;
    if (engine->ValueToString(&value, CVT_SIMPLE) == HV_OK &&
        engine->ValueStringData(&value, &chars, &count) == HV_OK && chars != nullptr)
      text.assign(chars, count);
  }
  engine->ValueClear(&value);
  return text;
}

void CHTMTextBoxCtrl::WriteText(const std::wstring& text) {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || !IsBound()) return;
  VALUE value;
  engine->ValueInit(&value);
  engine->ValueStringDataSet(&value, text.c_str(), static_cast<UINT>(text.size()), 0);
  engine->ControlSetValue(Element().Handle(), &value);
  engine->ValueClear(&value);
  Element().Update();
}

void CHTMTextBoxCtrl::SetText(const std::wstring& text) {
  if (m_numeric) {
    if (const std::optional<double> number = ParseNumber(text)) {
      SetNumber(*number, m_decimals);
      return;
    }
  } else {
    m_committed = text;
  }
  WriteText(text);
}

std::wstring CHTMTextBoxCtrl::FormatNumber(double value) const {
  const int length = std::snprintf(nullptr, 0, "%.*f", m_decimals, value);
  if (length <= 0) return {};
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  std::snprintf(text.data(), text.size(), "%.*f", m_decimals, value);
  text.resize(static_cast<std::size_t>(length));
  return platform::fromUtf8(text);
}

std::optional<double> CHTMTextBoxCtrl::ParseNumber(const std::wstring& text) {
  // Decimal digits, a sign, a point and an exponent only: no "inf", "nan" or hexadecimal.
  if (text.find_first_not_of(L"0123456789+-.eE \t") != std::wstring::npos) return std::nullopt;
  const wchar_t* begin = text.c_str();
  wchar_t* end = nullptr;
  const double value = std::wcstod(begin, &end);
  if (end == begin || !std::isfinite(value)) return std::nullopt;
  while (*end == L' ' || *end == L'\t') ++end;
  if (*end != L'\0') return std::nullopt;
  return value;
}

double CHTMTextBoxCtrl::Clamp(double value) const {
  if (m_lower && value < *m_lower) value = *m_lower;
  if (m_upper && value > *m_upper) value = *m_upper;
  return value;
}

void CHTMTextBoxCtrl::attached(HELEMENT) {
  if (!m_numeric) {
    m_committed = GetText();
    return;
  }
  WriteFormat();
  Element().SetAttribute("step", std::to_wstring(m_step));
  WriteText(m_committed);
}

void CHTMTextBoxCtrl::WriteFormat() {
  Element().SetAttribute(
      "format", L"fdigits:" + std::to_wstring(m_decimals) + L";leading-zero:true;thousand-sep:'';grouping-sep:'';");
}

void CHTMTextBoxCtrl::SetNumber(double value, int decimals) {
  m_numeric = true;
  m_decimals = std::clamp(decimals, 0, kMaxDecimals);
  WriteFormat();
  m_committed = FormatNumber(std::isfinite(value) ? value : 0.0);
  WriteText(m_committed);
}

double CHTMTextBoxCtrl::GetNumber() {
  if (const std::optional<double> number = ParseNumber(GetText())) return *number;
  if (m_numeric && IsBound()) {
    m_committed = FormatNumber(0.0);
    WriteText(m_committed);
  }
  return 0.0;
}

void CHTMTextBoxCtrl::SetStep(int step) {
  m_step = step;
  Element().SetAttribute("step", std::to_wstring(step));
}

void CHTMTextBoxCtrl::SetLimits(std::optional<double> lower, std::optional<double> upper) {
  m_lower = lower;
  m_upper = upper;
}

void CHTMTextBoxCtrl::SetLimitsShown(bool lower, bool upper) {
  m_showLower = lower;
  m_showUpper = upper;
}

void CHTMTextBoxCtrl::SelectAll() {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || !IsBound()) return;
  XCALL_PARAMS params{};
  params.methodID = XCALL;
  params.method_name = "selectAll";
  engine->ValueInit(&params.retval);
  engine->CallBehaviorMethod(Element().Handle(), &params);
  engine->ValueClear(&params.retval);
}

void CHTMTextBoxCtrl::Report(const std::wstring& text, bool clamped, bool rejected) {
  SHTMTextBoxCtrlEventArgs args;
  args.element = Element().Handle();
  args.code = EDIT_VALUE_CHANGED;
  args.text = text;
  args.number = m_numeric ? ParseNumber(text).value_or(0.0) : 0.0;
  args.clamped = clamped;
  args.rejected = rejected;
  Notify(args);
}

void CHTMTextBoxCtrl::Commit() {
  const std::wstring text = GetText();
  if (!m_numeric) {
    if (text == m_committed) return;
    m_committed = text;
    Report(text, false, false);
    return;
  }
  const std::optional<double> number = ParseNumber(text);
  if (!number) {
    if (text == m_committed) return;
    if (!ParseNumber(m_committed)) m_committed = FormatNumber(0.0);
    WriteText(m_committed);
    Report(m_committed, false, true);
    return;
  }
  const double kept = Clamp(*number);
  const bool clamped = kept != *number;
  const std::wstring written = FormatNumber(kept);
  if (written != text) WriteText(written);
  if (written == m_committed && !clamped) return;
  m_committed = written;
  Report(written, clamped, false);
}

void CHTMTextBoxCtrl::Spin(int direction) {
  const double base = ParseNumber(GetText()).value_or(ParseNumber(m_committed).value_or(0.0));
  WriteText(FormatNumber(Clamp(base + static_cast<double>(direction) * m_step)));
  Commit();
}

BOOL CHTMTextBoxCtrl::handle_key(HELEMENT, KEY_PARAMS& params) {
  if (params.cmd != KEY_DOWN || params.target != Element().Handle()) return FALSE;
  switch (params.key_code) {
    case VK_RETURN:
      Commit();
      return TRUE;
    case VK_ESCAPE:
      if (GetText() == m_committed) return FALSE;
      WriteText(m_committed);
      return TRUE;
    case VK_UP:
    case VK_DOWN:
      if (!m_numeric) return FALSE;
      Spin(params.key_code == VK_UP ? 1 : -1);
      return TRUE;
    default:
      return FALSE;
  }
}

BOOL CHTMTextBoxCtrl::handle_focus(HELEMENT, FOCUS_PARAMS& params) {
  if (params.target != Element().Handle()) return FALSE;
  if (params.cmd == FOCUS_GOT && m_numeric) {
    SelectAll();
    ShowLimitsPopup();
  } else if (params.cmd == FOCUS_LOST) {
    HideLimitsPopup();
    Commit();
  }
  return FALSE;
}

CHTMElement CHTMTextBoxCtrl::LimitsPanel() {
  CHTMDialog* page = Owner();
  html::HtmlEngine* engine = GetHtmlEngine();
  if (page == nullptr || engine == nullptr) return {};
  CHTMElement container = page->ElementById(kLimitsTabId);
  if (!container.IsValid()) container = page->Body();
  if (!container.IsValid()) return {};
  CHTMElement panel = page->ElementById(kLimitsPanelId);
  if (panel.IsValid()) {
    engine->InsertElement(panel.Handle(), container.Handle(), container.ChildCount());
    return panel;
  }
  const std::wstring minimum = NTxtRes::GetText(L"CtrlTextBox", L"LowerLimit", true);
  const std::wstring maximum = NTxtRes::GetText(L"CtrlTextBox", L"UpperLimit", true);
  container.SetHtml(std::wstring(L"<popup id='") + kLimitsPanelId + L"' class='LimitsTextPanel'>" +
                        L"<div class='LimitRow'><span>" + minimum + L"</span><div id='MinVal'>&nbsp;</div></div>" +
                        L"<div class='LimitRow'><span>" + maximum + L"</span><div id='MaxVal'>&nbsp;</div></div>" +
                        L"</popup>",
                    SIH_APPEND_AFTER_LAST);
  return page->ElementById(kLimitsPanelId);
}

bool CHTMTextBoxCtrl::ShowLimitsPopup() {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || !IsBound() || Owner() == nullptr || (!m_showLower && !m_showUpper)) return false;
  for (const CHTMElement& open : Owner()->Root().SelectAll(L":popup")) engine->HidePopup(open.Handle());
  const CHTMElement panel = LimitsPanel();
  if (!panel.IsValid()) return false;
  panel.SelectFirst(L"div[id='MinVal']")
      .SetHtml(limitHtml(m_lower, m_showLower, m_lower ? FormatNumber(*m_lower) : std::wstring()));
  panel.SelectFirst(L"div[id='MaxVal']")
      .SetHtml(limitHtml(m_upper, m_showUpper, m_upper ? FormatNumber(*m_upper) : std::wstring()));
  return engine->ShowPopup(panel.Handle(), Element().Handle(), kPlaceRight) == HLDOM_OK;
}

void CHTMTextBoxCtrl::HideLimitsPopup() {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || Owner() == nullptr) return;
  const CHTMElement panel = Owner()->ElementById(kLimitsPanelId);
  if (panel.IsValid() && (panel.GetState() & STATE_POPUP) != 0) engine->HidePopup(panel.Handle());
}

}  // namespace kvt1
