#pragma once
// The style sheets of dialog pages: the master sheet (a light grey Windows
// dialog look for the elements the pages use, and the kvt1-* state classes)
// and the user sheet (the generated content of the controls).
namespace kvt1::html {

const char* dialogStyleSheet();
const char* controlContentStyleSheet();

}  // namespace kvt1::html
