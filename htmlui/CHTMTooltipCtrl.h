#pragma once
// The popup in which a dialog shows the tooltip of what the pointer rests
// on: "<popup id='ID' class='Tooltip'>" holding a title and, below it, a
// "div.details" block. Both texts are HTML as they stand (callers convert
// plain text first), so markup in them shows as markup.
#include <string>

#include "htmlui/CHTMCtrl.h"

namespace kvt1 {

class CHTMTooltipCtrl : public CHTMCtrl {
 public:
  explicit CHTMTooltipCtrl(std::wstring id);

  // Appends the popup to the page's body and binds to it: "<popup id='ID'
  // class='Tooltip'></popup>", or with the content when some was set before.
  // The owner registers the control itself if it wants it bound again with
  // the page. False without a window or when the markup cannot be added.
  bool Create(CHTMDialog& page);

  // The popup's inner content becomes title + "<div .details>" + details +
  // "</div>" (kept for Create while unbound).
  void SetContent(const std::wstring& title, const std::wstring& details);
  // Replaces the content of the popup's "div.details" block, found anew each time.
  void SetDetails(const std::wstring& details);
  const std::wstring& Title() const { return m_title; }
  const std::wstring& Details() const { return m_details; }

  // Shows the popup below the anchor (the library's placement 2); false when
  // either is not in a page.
  bool ShowBeside(const CHTMElement& anchor);
  // Hides the popup when it is shown.
  void Hide();
  bool IsPopupShown() const;

  std::wstring TypeName() const override { return L"CHTMTooltipCtrl"; }

 private:
  std::wstring ContentHtml() const;

  std::wstring m_title;
  std::wstring m_details;
  bool m_hasContent = false;
};

}  // namespace kvt1
