// The dialog lines of a script: how they are read, and how message boxes take
// a waiting @answer.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools/kvt1-host/DialogDirective.h"
#include "tools/kvt1-host/DialogDirector.h"
#include "tools/kvt1-host/LispReader.h"

namespace kvt1::emu {
namespace {

DialogDirective parsed(const std::wstring& text) {
  std::wstring error;
  const std::optional<DialogDirective> directive = parseDialogDirective(text, 4, error);
  EXPECT_TRUE(directive.has_value()) << std::string(error.begin(), error.end());
  return directive.value_or(DialogDirective{});
}

std::wstring rejected(const std::wstring& text) {
  std::wstring error;
  EXPECT_FALSE(parseDialogDirective(text, 4, error).has_value()) << std::string(text.begin(), text.end());
  return error;
}

TEST(DialogDirectiveTest, ReadsEachDirectiveWithItsArguments) {
  const DialogDirective click = parsed(L"click btnOk");
  EXPECT_EQ(click.kind, DialogDirective::Kind::Click);
  EXPECT_EQ(click.argument, L"btnOk");
  EXPECT_EQ(click.line, 4);
  EXPECT_EQ(click.text, L"click btnOk");

  const DialogDirective selector = parsed(L"click-selector  div.buttons > button[name='OK']");
  EXPECT_EQ(selector.kind, DialogDirective::Kind::ClickSelector);
  EXPECT_EQ(selector.argument, L"div.buttons > button[name='OK']");

  const DialogDirective point = parsed(L"click-at 12 340");
  EXPECT_EQ(point.kind, DialogDirective::Kind::ClickAt);
  EXPECT_EQ(point.x, 12);
  EXPECT_EQ(point.y, 340);

  const DialogDirective wait = parsed(L"wait 1500");
  EXPECT_EQ(wait.kind, DialogDirective::Kind::Wait);
  EXPECT_EQ(wait.milliseconds, 1500u);

  const DialogDirective answer = parsed(L"answer yes");
  EXPECT_EQ(answer.kind, DialogDirective::Kind::Answer);
  EXPECT_EQ(answer.argument, L"YES");
  EXPECT_EQ(answer.answer, 6);
  EXPECT_EQ(parsed(L"answer NO").answer, 7);
  EXPECT_EQ(parsed(L"answer Cancel").answer, 2);

  EXPECT_EQ(parsed(L"right-click tabStrip").kind, DialogDirective::Kind::RightClick);
  const DialogDirective hover = parsed(L"hover edtWidth");
  EXPECT_EQ(hover.kind, DialogDirective::Kind::Hover);
  EXPECT_EQ(hover.argument, L"edtWidth");

  const DialogDirective key = parsed(L"key Home");
  EXPECT_EQ(key.kind, DialogDirective::Kind::Key);
  EXPECT_EQ(key.argument, L"HOME");
  EXPECT_EQ(key.keyCode, 0x24u);
  EXPECT_EQ(parsed(L"key RIGHT").keyCode, 0x27u);
  EXPECT_EQ(parsed(L"key back").keyCode, 0x08u);

  const DialogDirective typed = parsed(L"type 12.5 m");
  EXPECT_EQ(typed.kind, DialogDirective::Kind::Type);
  EXPECT_EQ(typed.argument, L"12.5 m");

  const DialogDirective render = parsed(L"render /tmp/my pictures");
  EXPECT_EQ(render.kind, DialogDirective::Kind::Render);
  EXPECT_EQ(render.argument, L"/tmp/my pictures");
}

TEST(DialogDirectiveTest, RejectsWhatItCannotPlay) {
  EXPECT_EQ(rejected(L"clik OK"), L"unknown directive: @clik");
  EXPECT_EQ(rejected(L"click"), L"@click takes an element id");
  EXPECT_EQ(rejected(L"click a b"), L"@click takes one element id (use @click-selector for more): a b");
  EXPECT_EQ(rejected(L"click it's"), L"@click takes one element id (use @click-selector for more): it's");
  EXPECT_EQ(rejected(L"click-selector"), L"@click-selector takes a CSS selector");
  EXPECT_EQ(rejected(L"render"), L"@render takes a folder");
  for (const wchar_t* point : {L"click-at 10", L"click-at -1 5", L"click-at 5 x", L"click-at 40000 1"})
    EXPECT_EQ(rejected(point).rfind(L"@click-at takes two pixel coordinates X Y", 0), 0u);
  for (const wchar_t* wait : {L"wait", L"wait soon", L"wait -5", L"wait 86400001", L"wait 1.5"})
    EXPECT_EQ(rejected(wait).rfind(L"@wait takes milliseconds", 0), 0u);
  EXPECT_EQ(rejected(L"answer MAYBE"), L"@answer takes OK, CANCEL, YES or NO: MAYBE");
  EXPECT_EQ(rejected(L"hover"), L"@hover takes one element id: ");
  EXPECT_EQ(rejected(L"right-click a b"), L"@right-click takes one element id: a b");
  EXPECT_EQ(rejected(L"key F1").rfind(L"@key takes LEFT, RIGHT", 0), 0u);
  EXPECT_EQ(rejected(L"type"), L"@type takes the text to type");
}

TEST(DialogDirectiveTest, TheReaderGivesDirectiveLinesOutsideForms) {
  LispReader reader(L"  @click OK  \n(kvt1_info \"@x\")\n@\n@wait 5 ; not a comment\n");
  std::optional<ScriptItem> item = reader.next();
  ASSERT_TRUE(item);
  EXPECT_EQ(item->directive, L"click OK");
  EXPECT_EQ(item->line, 1);
  item = reader.next();
  ASSERT_TRUE(item);
  EXPECT_TRUE(item->directive.empty());
  EXPECT_EQ(item->form.items.size(), 2u);
  item = reader.next();
  ASSERT_TRUE(item);
  EXPECT_EQ(item->error, L"\"@\" without a directive");
  EXPECT_EQ(item->line, 3);
  item = reader.next();
  ASSERT_TRUE(item);
  EXPECT_EQ(item->directive, L"wait 5 ; not a comment");
  EXPECT_FALSE(reader.next());
}

class DirectorTest : public ::testing::Test {
 protected:
  void add(const std::wstring& text) {
    std::wstring error;
    director.add(*parseDialogDirective(text, ++line, error));
  }

  std::wstring printed;
  std::vector<std::wstring> faults;
  int line = 0;
  DialogDirector director{
      [this](const std::wstring& text) { printed += text; },
      [this](int at, const std::wstring& text) { faults.push_back(std::to_wstring(at) + L": " + text); }};
};

TEST_F(DirectorTest, MessageBoxesTakeTheAnswerFirstInLine) {
  EXPECT_EQ(DialogDirector::current(), &director);
  add(L"answer YES");
  add(L"answer CANCEL");
  add(L"answer YES");
  add(L"click btnOk");
  EXPECT_EQ(director.answerMessageBox(0x24), 6);  // Yes/No with a question mark
  EXPECT_EQ(director.answerMessageBox(0x1), 2);   // OK/Cancel
  // An answer the box does not offer is a fault; the box takes its default.
  EXPECT_EQ(director.answerMessageBox(0x0), std::nullopt);
  EXPECT_EQ(printed, L"message box: answer YES\nmessage box: answer CANCEL\n");
  EXPECT_EQ(faults, std::vector<std::wstring>{L"3: @answer YES: the message box has no YES button"});
  // A click waits for a dialog, not for a message box.
  EXPECT_EQ(director.answerMessageBox(0x0), std::nullopt);
  director.reportUnplayed();
  EXPECT_EQ(faults.back(), L"4: @click btnOk: no dialog opened to play it");
  director.reportUnplayed();
  EXPECT_EQ(faults.size(), 2u);
}

}  // namespace
}  // namespace kvt1::emu
