// Content of elements: HTML in and out, inner text.
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/HtmlParser.h"
#include "htmlui/engine/HtmlWriter.h"
#include "htmlui/engine/PageText.h"
#include "platform/Unicode.h"

namespace kvt1::html {

void DomEngine::releaseNodes(const std::vector<Node>& nodes) {
  std::vector<std::uint32_t> released;
  for (const Node& node : nodes)
    if (node.element != nullptr) released.push_back(node.element->number);
  // Handlers called while one is destroyed may change the others: look each up again.
  for (const std::uint32_t n : released) {
    Element* e = tree_.find(n);
    if (e != nullptr && e->parent == nullptr && e->useCount == 0) collect(*e, false);
  }
}

HLDOM_RESULT DomEngine::GetElementHtmlCB(HELEMENT he, BOOL outer, HTMLayoutWriterCallbackB* cb, LPVOID cbParam) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (cb == nullptr) return HLDOM_INVALID_PARAMETER;
  const std::string html = platform::toUtf8(outer ? writeOuterHtml(*e, tree_) : writeInnerHtml(*e, tree_));
  cb(reinterpret_cast<LPCBYTE>(html.c_str()), static_cast<UINT>(html.size()), cbParam);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SetElementHtml(HELEMENT he, LPCBYTE html, DWORD htmlLength, UINT where) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if ((html == nullptr && htmlLength != 0) || where > SOH_INSERT_AFTER) return HLDOM_INVALID_PARAMETER;
  const bool outside = where >= SOH_REPLACE;
  if (outside && e->parent == nullptr) return HLDOM_OPERATION_FAILED;
  std::vector<Node> nodes = parseHtml(decodePageBytes(html, htmlLength), tree_);
  std::vector<std::uint32_t> added;
  for (const Node& node : nodes)
    if (node.element != nullptr) added.push_back(node.element->number);
  Element* parent = outside ? e->parent : e;
  switch (where) {
    case SIH_REPLACE_CONTENT: {
      std::vector<Node> old = tree_.takeChildren(*e);
      tree_.insert(*e, 0, std::move(nodes));
      releaseNodes(old);
      break;
    }
    case SIH_INSERT_AT_START:
      tree_.insert(*e, 0, std::move(nodes));
      break;
    case SIH_APPEND_AFTER_LAST:
      tree_.insert(*e, e->children.size(), std::move(nodes));
      break;
    case SOH_INSERT_BEFORE:
      tree_.insert(*parent, parent->nodePosition(e), std::move(nodes));
      break;
    default:
      tree_.insert(*parent, parent->nodePosition(e) + 1, std::move(nodes));
      break;
  }
  if (where == SOH_REPLACE) {
    tree_.remove(*e);
    if (e->useCount == 0) collect(*e, false);
  }
  for (const std::uint32_t n : added) {
    if (Element* fresh = tree_.find(n)) initialStates(*fresh);
  }
  changed();
  for (const std::uint32_t n : added) {
    if (Element* fresh = tree_.find(n)) attachBehaviors(*fresh);
  }
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementInnerTextCB(HELEMENT he, HTMLayoutWriterCallbackW* cb, LPVOID cbParam) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (cb == nullptr) return HLDOM_INVALID_PARAMETER;
  const std::wstring text = innerText(*e);
  cb(text.c_str(), static_cast<UINT>(text.size()), cbParam);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SetElementInnerText16(HELEMENT he, LPCWSTR text, UINT length) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (text == nullptr && length != 0) return HLDOM_INVALID_PARAMETER;
  std::vector<Node> old = tree_.takeChildren(*e);
  if (length != 0) tree_.append(*e, Node{nullptr, std::wstring(text, length)});
  releaseNodes(old);
  changed();
  return HLDOM_OK;
}

}  // namespace kvt1::html
