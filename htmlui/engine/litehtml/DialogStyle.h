#pragma once
// The master style sheet of dialog pages: a light grey Windows dialog look
// for the elements the pages use, and the kvt1-* state classes.
#include <litehtml.h>

namespace kvt1::html {

// The litehtml context whose master sheet styles the dialog elements, parsed once.
litehtml::context& dialogStyleContext();

// The generated content of the controls (check marks, input values, drop-down
// arrows), to be passed as the user styles of each document.
litehtml::css& controlContentStyles();

}  // namespace kvt1::html
