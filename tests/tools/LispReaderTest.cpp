#include "tools/kvt1-host/LispReader.h"

#include <gtest/gtest.h>

#include <vector>

namespace kvt1::emu {
namespace {

std::vector<ScriptItem> readAll(const std::wstring& text) {
  LispReader reader(text);
  std::vector<ScriptItem> items;
  while (std::optional<ScriptItem> item = reader.next()) items.push_back(*item);
  return items;
}

TEST(LispReader, ReadsValuesInAutoLispNotation) {
  const auto items = readAll(L"(f 5 -3 2.5 1e3 \"a\\\\b\\\"c\" nil T sym (1 (2)) '(x))");
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(toLispText(items[0].form), L"(f 5 -3 2.5 1000.0 \"a\\\\b\\\"c\" nil T sym (1 (2)) (quote (x)))");
  EXPECT_EQ(items[0].form.items[3].kind, LispValue::Kind::Real);
  EXPECT_EQ(items[0].form.items[5].text, L"a\\b\"c");
}

TEST(LispReader, TellsWordsFromNumbers) {
  const auto items = readAll(L"KVT1\n1+\n-\ninf\n");
  ASSERT_EQ(items.size(), 4u);
  for (const ScriptItem& item : items) EXPECT_EQ(item.form.kind, LispValue::Kind::Symbol) << item.line;
}

TEST(LispReader, SkipsCommentsAndCountsLines) {
  const auto items = readAll(L"; comment\n\n(a) ; trailing\n(b\n  \"x;y\")\nKVT1\n");
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[0].line, 3);
  EXPECT_EQ(items[1].line, 4);
  EXPECT_EQ(toLispText(items[1].form), L"(b \"x;y\")");
  EXPECT_EQ(items[2].line, 6);
}

TEST(LispReader, NamesTheLineOfEachFaultAndGoesOn) {
  const auto items = readAll(L"(a\n(b)\n)\n(c \"open\n");
  ASSERT_EQ(items.size(), 4u);
  EXPECT_EQ(items[0].line, 1);
  EXPECT_EQ(items[0].error, L"unbalanced parentheses: '(' is not closed");
  EXPECT_EQ(toLispText(items[1].form), L"(b)");
  EXPECT_EQ(items[2].line, 3);
  EXPECT_EQ(items[2].error, L"unbalanced parentheses: ')' closes nothing");
  EXPECT_EQ(items[3].line, 4);
  EXPECT_EQ(items[3].error, L"the string is not closed");
}

TEST(LispReader, PassesOverANulCharacterAndGoesOn) {
  const auto items = readAll(std::wstring(L"ab\0(c)\n\0\n(d)", 12));
  ASSERT_EQ(items.size(), 5u);
  EXPECT_EQ(toLispText(items[0].form), L"ab");
  EXPECT_EQ(items[1].error, L"a value was expected");
  EXPECT_EQ(toLispText(items[2].form), L"(c)");
  EXPECT_EQ(items[3].error, L"a value was expected");
  EXPECT_EQ(items[3].line, 2);
  EXPECT_EQ(toLispText(items[4].form), L"(d)");
}

TEST(LispReader, PrintsRealsAndEmptyListsAsAutoLispDoes) {
  EXPECT_EQ(toLispText(LispValue::fromReal(2.0)), L"2.0");
  EXPECT_EQ(toLispText(LispValue::list({})), L"nil");
  EXPECT_EQ(toLispText(LispValue::fromString(L"line\nnext")), L"\"line\\nnext\"");
}

}  // namespace
}  // namespace kvt1::emu
