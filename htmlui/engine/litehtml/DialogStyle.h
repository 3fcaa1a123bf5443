#pragma once
// The style sheets of dialog pages: the master sheet (a light grey Windows
// dialog look for the elements the pages use, and the kvt1-* state classes)
// and the user sheet (the generated content of the controls).
#include <string>

namespace kvt1::html {

// The parts of the master sheet whose elements the page holds.
std::string dialogStyleSheet(const std::string& html);
const char* controlContentStyleSheet();

}  // namespace kvt1::html
