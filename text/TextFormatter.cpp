#include "text/TextFormatter.h"

namespace NTxtRes {
namespace {
CTxtResTextFormatter g_builtIn;
CTextFormatterInterface* g_current = &g_builtIn;
}  // namespace

void CTxtResTextFormatter::FormatText(std::wstring&) {}

CTextFormatterInterface& GetTextFormatter() { return *g_current; }

void SetTextFormatter(CTextFormatterInterface* formatter) { g_current = formatter ? formatter : &g_builtIn; }

}  // namespace NTxtRes
