#include "text/MessageDescription.h"

#include "platform/MessageBox.h"
#include "text/Placeholders.h"
#include "text/TextFormatter.h"
#include "text/TextResources.h"

namespace NTxtRes {
namespace {

CMsgHandler g_builtIn;
CMsgHandlerInterface* g_current = &g_builtIn;
std::wstring g_applicationTitle;

std::wstring formattedRaw(const std::wstring& key, const wchar_t* subKey) {
  std::wstring text = GetRawText(key, subKey);
  if (!text.empty()) {
    ReplaceAll(text, L"%%", L"%");
    GetTextFormatter().FormatText(text);
  }
  return text;
}

CMessageButton button(const std::wstring& key, const wchar_t* subKey, bool asked) {
  CMessageButton result;
  if (!asked) return result;
  result.present = true;
  result.caption = GetRawText(key, subKey);
  if (result.caption.empty()) {
    result.caption = GetRawText(L"XMLTextButtons", subKey);
    if (result.caption.compare(0, 2, L"__") == 0) result.caption.erase(0, 2);
  }
  if (result.caption.find(L'&') == std::wstring::npos) result.caption.insert(0, 1, L'&');
  return result;
}

std::wstring withoutAmpersands(std::wstring caption) {
  ReplaceAll(caption, L"&", L"");
  return caption;
}

void replaceButtonNames(std::wstring& text, const CMessageDescription& message) {
  if (text.empty()) return;
  ReplaceAll(text, L"%OK%", withoutAmpersands(message.ok.caption));
  ReplaceAll(text, L"%CANCEL%", withoutAmpersands(message.cancel.caption));
  ReplaceAll(text, L"%YES%", withoutAmpersands(message.yes.caption));
  ReplaceAll(text, L"%NO%", withoutAmpersands(message.no.caption));
}

}  // namespace

CMessageDescription BuildMessage(const std::wstring& key, std::uint32_t style, std::uint32_t extraValue, bool flag,
                                 bool ok, bool cancel, bool yes, bool no) {
  CMessageDescription message;
  message.key = key;
  message.style = style;
  message.extraValue = extraValue;
  message.flag = flag;
  message.infoText = GetText(key, L"InfoText", false);
  message.captionText = formattedRaw(key, L"CaptionText");
  message.checkBoxText = formattedRaw(key, L"CheckBoxText");
  message.ok = button(key, L"ok", ok);
  message.cancel = button(key, L"cancel", cancel);
  message.yes = button(key, L"yes", yes);
  message.no = button(key, L"no", no);
  replaceButtonNames(message.infoText, message);
  replaceButtonNames(message.captionText, message);
  replaceButtonNames(message.checkBoxText, message);
  return message;
}

int GetButtonType(const CMessageDescription& message) {
  if (message.cancel.present && message.yes.present && message.no.present) return kvt1::platform::kMbYesNoCancel;
  if (message.ok.present && message.cancel.present) return kvt1::platform::kMbOkCancel;
  if (!message.yes.present) return kvt1::platform::kMbOk;
  if (message.no.present) return kvt1::platform::kMbYesNo;
  return kvt1::platform::kMbOk;
}

int CMsgHandler::ShowMessage(CMessageDescription& message) {
  return kvt1::platform::showMessageBox(nullptr, message.infoText, g_applicationTitle,
                                        message.style + static_cast<unsigned>(GetButtonType(message)));
}

void SetApplicationTitle(const std::wstring& title) { g_applicationTitle = title; }

CMsgHandlerInterface& GetMsgHandler() { return *g_current; }

void SetMsgHandler(CMsgHandlerInterface* handler) { g_current = handler ? handler : &g_builtIn; }

int ShowMessage(CMessageDescription& message) { return GetMsgHandler().ShowMessage(message); }

}  // namespace NTxtRes
