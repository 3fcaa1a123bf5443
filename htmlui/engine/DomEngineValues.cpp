// Values of form controls, and the VALUE functions.
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/HtmlValue.h"
#include "htmlui/engine/HtmlWriter.h"
#include "platform/CaseFolding.h"

namespace kvt1::html {
namespace {

enum class ControlKind { Toggle, TextInput, TextArea, Select, Other };

ControlKind kindOf(const Element& e, const DomTree& tree) {
  if (e.tag == "textarea") return ControlKind::TextArea;
  if (e.tag == "select") return ControlKind::Select;
  if (e.tag != "input") return ControlKind::Other;
  const std::wstring* type = tree.attributeValue(e, "type");
  const std::wstring lowered = type != nullptr ? platform::asciiLowerCase(*type) : std::wstring();
  return lowered == L"checkbox" || lowered == L"radio" ? ControlKind::Toggle : ControlKind::TextInput;
}

std::wstring optionValue(const Element& option, const DomTree& tree) {
  const std::wstring* value = tree.attributeValue(option, "value");
  return value != nullptr ? *value : innerText(option);
}

}  // namespace

HLDOM_RESULT DomEngine::ControlGetValue(HELEMENT he, VALUE* pVal) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pVal == nullptr) return HLDOM_INVALID_PARAMETER;
  valueClear(pVal);
  std::wstring text;
  switch (kindOf(*e, tree_)) {
    case ControlKind::Toggle:
      valueIntDataSet(pVal, (e->state & STATE_CHECKED) != 0 ? 1 : 0, T_BOOL, 0);
      return HLDOM_OK;
    case ControlKind::TextInput: {
      const std::wstring* value = tree_.attributeValue(*e, "value");
      if (value != nullptr) text = *value;
      break;
    }
    case ControlKind::Select: {
      const Element* chosen = nullptr;
      forEachDescendant(*e, [&](Element& option, std::size_t) {
        if (chosen == nullptr && option.tag == "option" && (option.state & STATE_CHECKED) != 0) chosen = &option;
        return chosen == nullptr;
      });
      if (chosen == nullptr) return HLDOM_OK;  // nothing chosen: undefined
      text = optionValue(*chosen, tree_);
      break;
    }
    default:
      text = innerText(*e);
      break;
  }
  valueStringDataSet(pVal, text.c_str(), static_cast<UINT>(text.size()), 0);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::ControlSetValue(HELEMENT he, const VALUE* pVal) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pVal == nullptr) return HLDOM_INVALID_PARAMETER;
  switch (kindOf(*e, tree_)) {
    case ControlKind::Toggle: {
      INT on = 0;
      if (valueIntData(pVal, &on) != HV_OK) return HLDOM_INVALID_PARAMETER;
      e->state = on != 0 ? (e->state | STATE_CHECKED) : (e->state & ~STATE_CHECKED);
      break;
    }
    case ControlKind::TextInput:
      tree_.setAttribute(*e, "value", valueText(*pVal));
      editing_.deselect(e->number);  // a new text drops the selection, as an edit does
      break;
    case ControlKind::Select: {
      const std::wstring wanted = valueText(*pVal);
      forEachDescendant(*e, [&](Element& option, std::size_t) {
        if (option.tag != "option") return true;
        if (optionValue(option, tree_) == wanted)
          option.state |= STATE_CHECKED | STATE_CURRENT;
        else
          option.state &= ~(STATE_CHECKED | STATE_CURRENT);
        return true;
      });
      break;
    }
    default: {
      const std::wstring text = valueText(*pVal);
      return SetElementInnerText16(he, text.c_str(), static_cast<UINT>(text.size()));
    }
  }
  changed();
  return HLDOM_OK;
}

UINT DomEngine::ValueInit(VALUE* pval) { return valueInit(pval); }
UINT DomEngine::ValueClear(VALUE* pval) { return valueClear(pval); }
UINT DomEngine::ValueCopy(VALUE* pdst, const VALUE* psrc) { return valueCopy(pdst, psrc); }
UINT DomEngine::ValueCompare(const VALUE* pval1, const VALUE* pval2) { return valueCompare(pval1, pval2); }
UINT DomEngine::ValueIntData(const VALUE* pval, INT* pData) { return valueIntData(pval, pData); }
UINT DomEngine::ValueIntDataSet(VALUE* pval, INT data, UINT type, UINT units) {
  return valueIntDataSet(pval, data, type, units);
}
UINT DomEngine::ValueFloatDataSet(VALUE* pval, double data, UINT type, UINT units) {
  return valueFloatDataSet(pval, data, type, units);
}
UINT DomEngine::ValueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars) {
  return valueStringData(pval, pChars, pNumChars);
}
UINT DomEngine::ValueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units) {
  return valueStringDataSet(pval, chars, numChars, units);
}
UINT DomEngine::ValueToString(VALUE* pval, UINT how) { return valueToString(pval, how); }

}  // namespace kvt1::html
