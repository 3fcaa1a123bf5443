#pragma once
// How the dumps write values: each after one space, numbers in the shortest
// form that reads back exactly ("nan", "inf" and "-inf" for the values that
// are not finite), points as "(x, y)".
#include <string>

#include "support/HvElement/HvGeometry.h"

namespace kvt1 {

void AppendHvNumber(std::wstring& text, double value);
void AppendHvPoint(std::wstring& text, const CHvPoint2d& point);

}  // namespace kvt1
