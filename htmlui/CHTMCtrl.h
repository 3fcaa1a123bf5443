#pragma once
// The base of every control that a dialog binds to an element of its page by
// the element's id. A control turns its operations into attribute, style and
// state changes of that element, and the engine's events on the element into
// calls of its handlers and notifications to the owning dialog. An unbound
// control (its id is not in the page) does nothing and answers empty values.
#include <string>

#include "htmlui/CHTMElement.h"
#include "htmlui/HTMCtrlText.h"
#include "htmlui/engine/HtmlayoutEventHandler.h"

namespace kvt1 {

class CHTMCtrl;
class CHTMDialog;

// What a control hands to its owner with a notification.
struct SHTMCtrlEventArgs {
  CHTMCtrl* control = nullptr;
  HELEMENT element = nullptr;  // where the event happened
  UINT code = 0;               // the engine's event code
};

class CHTMCtrl : public htmlayout::event_handler {
 public:
  explicit CHTMCtrl(std::wstring id);
  ~CHTMCtrl() override;
  CHTMCtrl(const CHTMCtrl&) = delete;
  CHTMCtrl& operator=(const CHTMCtrl&) = delete;

  virtual void SetVisible(bool visible);  // style "visibility"; keeps the element's place
  virtual bool IsVisible() const;
  virtual void Show(bool show);  // style "display"; gives up the element's place
  virtual bool IsShown() const;
  virtual int GetWidth() const;  // style "width" in pixels
  virtual void SetWidth(int pixels);
  virtual int GetHeight() const;
  virtual void SetHeight(int pixels);
  virtual void SetClass(const std::wstring& classes);
  virtual void SetBackgroundColor(int color, int transparency = kNoTransparency);
  virtual void ModifyClass(const std::wstring& name, bool add);
  virtual void SetFontFamily(const std::wstring& family);
  virtual void SetFontSize(const std::wstring& size);
  virtual void SetWeight(const std::wstring& weight);  // empty: inherit
  virtual void SetItalic(bool italic);
  virtual void Enable(bool enable);  // the element's disabled state
  virtual bool IsEnabled() const;
  virtual void SetFocus();
  virtual std::wstring GetText() const;
  // The text, converted to HTML, so that blanks and line breaks show.
  virtual void SetText(const std::wstring& text);
  // Style "position" absolute or relative, with "left" in pixels.
  virtual void SetPositionAbsolute(int left);
  virtual void SetPositionRelative(int left);

  // The control's class name, by which the framework tells families apart.
  virtual std::wstring TypeName() const = 0;
  // The key of a tooltip control's title ("titleid"); empty for other controls.
  virtual std::wstring TitleKey() const;

  // Tooltip texts: the second applies while the control is disabled and
  // falls back to the first when empty.
  void SetTooltip(const std::wstring& text, const std::wstring& disabledText = {});
  std::wstring CurrentTooltip() const;

  // Binding to the dialog's page: finds the element by id and attaches the
  // control to it. False (and unbound) when the page has no such element.
  bool Bind(CHTMDialog& owner, const CHTMElement& root);
  void Unbind();
  bool IsBound() const { return m_element.IsValid(); }

  const std::wstring& Id() const { return m_id; }
  const CHTMElement& Element() const { return m_element; }
  CHTMDialog* Owner() const { return m_owner; }

 protected:
  // Hands a notification to the owning dialog.
  void Notify(SHTMCtrlEventArgs& args);
  void SetPixels(const char* style, int pixels);
  int GetPixels(const char* style) const;

 private:
  std::wstring m_id;
  CHTMElement m_element;
  CHTMDialog* m_owner = nullptr;
  bool m_enabled = true;
  bool m_visible = true;
  std::wstring m_tooltip;
  std::wstring m_disabledTooltip;
};

}  // namespace kvt1
