#include "htmlui/CHTMButtonCtrl.h"

#include "htmlui/HTMCtrlInPlace.h"

namespace kvt1 {

CHTMButtonCtrl::CHTMButtonCtrl(std::wstring id) : CHTMCtrl(std::move(id)) {}

bool CHTMButtonCtrl::CreateInPlace(CHTMDialog& page, int left, int top, int width, int height) {
  return CreateControlInPlace(*this, page, L"<button id='" + Id() + L"' ></button>", left, top, width, height);
}

void CHTMButtonCtrl::SetPushed(bool pushed) {
  Element().SetAttribute("state", pushed ? L"pushed" : L"normal");
  Element().Update();
}

bool CHTMButtonCtrl::IsPushed() const { return Element().GetAttribute("state") == L"pushed"; }

BOOL CHTMButtonCtrl::handle_event(HELEMENT, BEHAVIOR_EVENT_PARAMS& params) {
  // The dialog saw the click on its way down; the button reports it on the way up.
  if ((params.cmd & SINKING) || (params.cmd & ~HANDLED) != BUTTON_CLICK) return FALSE;
  SHTMButtonCtrlEventArgs args;
  args.element = params.heTarget;
  args.code = BUTTON_CLICK;
  args.pushed = IsPushed();
  Notify(args);
  return FALSE;
}

}  // namespace kvt1
