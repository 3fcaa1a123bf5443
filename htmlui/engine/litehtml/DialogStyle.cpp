#include "htmlui/engine/litehtml/DialogStyle.h"

#include <algorithm>
#include <vector>

#include "platform/CaseFolding.h"

namespace kvt1::html {
namespace {

// The master sheet in parts, each with the marks of the elements its rules
// style: "<tag" for a tag, or a class name. litehtml parses the master sheet
// anew for every document, so a page gets only the parts it can use.
// Attribute selectors use double quotes: litehtml matches nothing with single ones.
struct SheetPart {
  std::vector<const char*> marks;  // none: every page
  const char* css;
};

const SheetPart kDialogStyleSheet[] = {
    {{}, R"css(
html { display: block; background-color: #f0f0f0; }
head, style, script, title, meta, link, base { display: none; }
body {
  display: block; margin: 0; padding: 8px;
  font-family: "DejaVu Sans", "Liberation Sans", sans-serif; font-size: 12px;
  color: #000000; background-color: #f0f0f0;
}
div, p, h1, h2, h3, h4, ul, ol, menu, pre, form, fieldset, blockquote, center, widget, header, footer, section {
  display: block;
}
p { margin: 0 0 8px 0; }
h1 { font-size: 18px; font-weight: bold; margin: 0 0 8px 0; }
h2 { font-size: 15px; font-weight: bold; margin: 0 0 6px 0; }
h3 { font-size: 13px; font-weight: bold; margin: 0 0 6px 0; }
h4 { font-size: 12px; font-weight: bold; margin: 0 0 4px 0; }
center { text-align: center; }
b, strong, th { font-weight: bold; }
i, em { font-style: italic; }
u { text-decoration: underline; }
small { font-size: 10px; }
pre { white-space: pre; margin: 0 0 8px 0; }
pre, code { font-family: "DejaVu Sans Mono", "Liberation Mono", monospace; font-size: 11px; }
a { color: #0066cc; text-decoration: underline; }
a.kvt1-hover { color: #003399; }
a.kvt1-disabled { color: #6d6d6d; }
img { display: inline-block; vertical-align: middle; }
hr { display: block; height: 0; margin: 6px 0; border-top: 1px solid #a0a0a0; border-bottom: 1px solid #ffffff; }
label { vertical-align: middle; }
label.kvt1-disabled { color: #838383; }
)css"},
    {{"<table", "<tr", "<td", "<th", "<caption"}, R"css(
table { display: table; border-spacing: 0; }
thead { display: table-header-group; }
tbody { display: table-row-group; }
tfoot { display: table-footer-group; }
tr { display: table-row; }
td, th { display: table-cell; padding: 2px 4px; vertical-align: middle; text-align: left; }
caption { display: table-caption; }
)css"},
    {{"<ul", "<ol", "<li"}, R"css(
ul, ol { margin: 0 0 8px 0; padding-left: 20px; }
ul { list-style-type: disc; }
ol { list-style-type: decimal; }
li { display: list-item; }
li.kvt1-collapsed > ul, li.kvt1-collapsed > ol { display: none; }
)css"},
    {{"<button", "<input"}, R"css(
button, input[type="button"], input[type="submit"], input[type="reset"] {
  display: inline-block; min-width: 53px; padding: 3px 10px; margin: 0 2px;
  border: 1px solid #adadad; background-color: #e1e1e1; color: #000000;
  text-align: center; vertical-align: middle; white-space: nowrap;
}
button.kvt1-hover, input[type="button"].kvt1-hover { border-color: #0078d7; background-color: #e5f1fb; }
button.kvt1-focus, input[type="button"].kvt1-focus, button.kvt1-current { border-color: #0078d7; }
button.kvt1-checked, button[state="pushed"] { border-color: #005499; background-color: #cce4f7; }
button.kvt1-disabled, input[type="button"].kvt1-disabled {
  border-color: #bfbfbf; background-color: #cccccc; color: #838383;
}
)css"},
    {{"<input", "<textarea", "<select"}, R"css(
input, textarea, select {
  display: inline-block; vertical-align: middle; padding: 2px 3px;
  border: 1px solid #7a7a7a; background-color: #ffffff; color: #000000;
}
input { width: 140px; height: 15px; white-space: nowrap; overflow: hidden; }
textarea { width: 200px; height: 60px; white-space: pre-wrap; overflow: hidden; }
input.kvt1-hover, textarea.kvt1-hover, select.kvt1-hover { border-color: #171717; }
input.kvt1-focus, textarea.kvt1-focus, select.kvt1-focus { border-color: #0078d7; }
input.kvt1-disabled, textarea.kvt1-disabled, select.kvt1-disabled {
  border-color: #cccccc; background-color: #f0f0f0; color: #838383;
}
)css"},
    {{"<input"}, R"css(
input[type="checkbox"], input[type="radio"] {
  width: 13px; height: 13px; padding: 0; margin: 0 4px 0 0;
  border: 1px solid #333333; background-color: #ffffff;
  font-size: 11px; line-height: 13px; text-align: center;
}
input[type="radio"] { border-radius: 7px; }
input[type="checkbox"].kvt1-hover, input[type="radio"].kvt1-hover { border-color: #0078d7; }
input[type="checkbox"].kvt1-disabled, input[type="radio"].kvt1-disabled {
  border-color: #bcbcbc; background-color: #ffffff; color: #bcbcbc;
}
)css"},
    {{"<select"}, R"css(
select { min-width: 60px; padding-right: 18px; position: relative; }
select > option { display: none; white-space: nowrap; }
select > option.kvt1-checked { display: block; }
select[size] > option, select[multiple] > option { display: block; padding: 1px 2px; }
select[size] > option.kvt1-checked, select[multiple] > option.kvt1-checked { background-color: #0078d7; color: #ffffff; }
)css"},
    {{"<menu", "menu-bar", "kvt1-swatch"}, R"css(
menu { list-style-type: none; margin: 0; padding: 0; }
menu > li { display: block; padding: 3px 20px 3px 24px; white-space: nowrap; }
menu > li.kvt1-hover, menu > li.kvt1-current { background-color: #91c9f7; }
menu > li.kvt1-disabled, menu > li[disabled] { color: #6d6d6d; }
menu > hr { margin: 3px 2px; }
widget.menu-bar { background-color: #f5f5f5; border-bottom: 1px solid #d0d0d0; }
/* A shown menu lies inside its bar item; the item's baseline would be the menu's. */
widget.menu-bar > menu > li { display: inline-block; padding: 3px 8px; vertical-align: top; }
menu.kvt1-popup { text-align: left; font-weight: normal; }
.kvt1-swatch {
  display: inline-block; width: 12px; height: 12px; margin: 0 6px 0 -18px;
  border: 1px solid #606060; vertical-align: middle;
}
)css"},
    {{"<menu", "popup"}, R"css(
button menu, li menu, menu.context, menu.popup, popup, .popup { display: none; }
menu.kvt1-popup, popup.kvt1-popup, .popup.kvt1-popup, menu.context.kvt1-popup, .kvt1-popup {
  display: block; position: absolute; z-index: 100;
  padding: 2px; border: 1px solid #a0a0a0; background-color: #f2f2f2; color: #000000;
}
/* litehtml sizes a positioned box within the box it stands in, so a menu
   shown from a narrow item would be as narrow. A table is as wide as its
   unbreakable lines; a block above the items gives it its least width, as
   litehtml gives tables no min-width. */
menu.kvt1-popup, menu.context.kvt1-popup, menu.popup.kvt1-popup { display: table; }
menu.kvt1-popup:before { content: ""; display: block; width: 100px; height: 0; }
popup.Tooltip.kvt1-popup { padding: 3px 5px; border-color: #767676; background-color: #ffffff; }
popup.Tooltip div.details { margin-top: 3px; max-width: 260px; color: #404040; white-space: normal; }
popup.Tooltip div.details:empty { display: none; }
popup.LimitsTextPanel.kvt1-popup { padding: 2px 6px; border-color: #767676; background-color: #ffffe1; font-size: 11px; }
popup.LimitsTextPanel .LimitRow { display: block; white-space: nowrap; }
popup.LimitsTextPanel .LimitRow > div { display: inline-block; margin-left: 4px; }
)css"},
    {{"tabs"}, R"css(
.tabs { position: relative; }
.tabs > .strip { display: block; white-space: nowrap; overflow: hidden; border-bottom: 1px solid #adadad; }
.tabs > .strip > [panel] {
  display: inline-block; padding: 3px 10px; margin: 0 2px 0 0; white-space: nowrap;
  border: 1px solid #adadad; border-bottom: none; background-color: #e1e1e1;
}
.tabs > .strip > [panel].kvt1-hover { background-color: #e5f1fb; }
.tabs > .strip > [panel].kvt1-current { background-color: #ffffff; border-top-color: #0078d7; }
.tabs > .strip > [panel].kvt1-disabled { color: #838383; }
.tabs > .panels { display: block; padding: 6px; border: 1px solid #adadad; border-top: none; background-color: #ffffff; }
.tabs > .ScrollButtonsContainer { position: absolute; top: 0; right: 0; white-space: nowrap; }
)css"},
};

// Generated content of the controls, and rules that the page's own styles
// must not undo: handed over as user styles, which come after the page's.
// Generated content is removed with "none": an empty string keeps what an
// earlier rule generated.
const char* const kControlContentSheet = R"css(
input:before { content: attr(value); }
input[type="checkbox"]:before, input[type="radio"]:before { content: none; }
input[type="checkbox"].kvt1-checked:before { content: "\2714"; }
input[type="radio"].kvt1-checked:before { content: "\25CF"; font-size: 8px; }
select:after { content: "\25BE"; position: absolute; right: 4px; top: 2px; }
select[size]:after, select[multiple]:after { content: none; }
/* The mark stands in the item's left padding. litehtml leaves the text of an
   inline block with a negative margin where the margin would have put it, so
   the mark is moved there relatively and takes no room in the line. */
menu > li.kvt1-checked:before, menu > li[status="checked"]:before {
  content: "\2714"; display: inline-block; width: 20px; margin-right: -20px; position: relative; left: -20px;
}
/* litehtml puts the last box of a right-aligned line flush right by its
   content, so a button's padding and border would stick out past the row's
   edge; an empty box after the buttons ends the line instead. */
.buttons:after { content: ""; }
/* The caret stands after the text of the field that has the focus. */
input.kvt1-focus:after, textarea.kvt1-focus:after {
  content: ""; display: inline-block; width: 0; height: 13px; border-left: 1px solid #000000; vertical-align: middle;
}
input[type="checkbox"].kvt1-focus:after, input[type="radio"].kvt1-focus:after, input[type="button"].kvt1-focus:after {
  content: none;
}
/* The tab strip's scroll buttons stay small whatever the page says of buttons. */
.tabs > .ScrollButtonsContainer > button { min-width: 0; margin: 0; padding: 1px 4px; }
)css";

}  // namespace

std::string dialogStyleSheet(const std::string& html) {
  const std::string page = platform::asciiLowerCase(html);
  std::string sheet;
  for (const SheetPart& part : kDialogStyleSheet) {
    if (part.marks.empty() || std::any_of(part.marks.begin(), part.marks.end(),
                                          [&](const char* mark) { return page.find(mark) != std::string::npos; })) {
      sheet += part.css;
    }
  }
  return sheet;
}

const char* controlContentStyleSheet() { return kControlContentSheet; }

}  // namespace kvt1::html
