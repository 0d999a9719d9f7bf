#include "ui/TextField.h"

#include <gtest/gtest.h>

#include <memory>

#include "ui/Changes.h"
#include "ui/SearchField.h"

namespace zavel {
namespace {

using test::Changes;
using test::Count;

TEST(TextField, IsSetWithoutTellingTheLogic) {
  TextField field;
  Changes changes(field);
  Count edits(field.textEdited);
  field.setText("goes");
  field.setText("goes");
  EXPECT_EQ(field.text(), "goes");
  EXPECT_EQ(changes.n, 1);
  EXPECT_EQ(edits.n, 0);
}

TEST(TextField, TypingTellsTheLogicEvenOfTheSameText) {
  TextField field;
  std::string heard;
  const Connection c = field.textEdited.connect([&] { heard += field.text() + "."; });
  Changes changes(field);
  EXPECT_TRUE(field.type("go"));
  EXPECT_TRUE(field.type("go"));
  EXPECT_TRUE(field.type(""));
  EXPECT_EQ(heard, "go.go..");
  EXPECT_EQ(changes.n, 2);
}

TEST(TextField, RefusesTypingWhileDisabledOrHidden) {
  TextField field;
  field.setEnabled(false);
  EXPECT_FALSE(field.type("x"));
  field.setEnabled(true);
  field.setHidden(true);
  EXPECT_FALSE(field.type("x"));
  EXPECT_EQ(field.text(), "");
}

TEST(TextField, ShowsWhatIsNoUtf8AsReplacements) {
  TextField field;
  field.type("a\xFFz");
  EXPECT_EQ(field.text(), "a\xEF\xBF\xBDz");
}

TEST(SearchField, ANewLineIsAnsweredByTheLogic) {
  SearchField field;
  EXPECT_FALSE(field.insertNewline());
  std::string heard;
  bool answer = true;
  field.onInsertNewline = [&] {
    heard += field.text();
    return answer;
  };
  field.setText("go");
  EXPECT_TRUE(field.insertNewline());
  answer = false;
  EXPECT_FALSE(field.insertNewline());
  EXPECT_EQ(heard, "gogo");
}

TEST(SearchField, RefusesANewLineWhileHidden) {
  SearchField field;
  int calls = 0;
  field.onInsertNewline = [&] {
    ++calls;
    return true;
  };
  field.setHidden(true);
  EXPECT_FALSE(field.insertNewline());
  EXPECT_EQ(calls, 0);
}

TEST(SearchField, TheHandlerMayTakeItselfOff) {
  SearchField field;
  const auto held = std::make_shared<std::string>("held");
  std::string heard;
  field.onInsertNewline = [&field, &heard, held] {
    field.onInsertNewline = nullptr;
    heard = *held;
    return true;
  };
  EXPECT_TRUE(field.insertNewline());
  EXPECT_EQ(heard, "held");
  EXPECT_FALSE(field.insertNewline());
}

TEST(SearchField, WhatChangesInItsMenuChangesTheField) {
  SearchField field;
  const auto menu = std::make_shared<Menu>("dMenu");
  const auto other = std::make_shared<Menu>("wMenu");
  Changes changes(field);
  field.setMenu(menu);
  field.setMenu(menu);
  EXPECT_EQ(changes.n, 1);
  menu->addItem(MenuItem());
  EXPECT_EQ(changes.n, 2);
  field.setMenu(other);
  EXPECT_EQ(changes.n, 3);
  menu->addItem(MenuItem());
  EXPECT_EQ(changes.n, 3);
  field.setMenu(nullptr);
  EXPECT_EQ(field.menu(), nullptr);
  EXPECT_EQ(changes.n, 4);
  other->addItem(MenuItem());
  EXPECT_EQ(changes.n, 4);
}

TEST(SearchField, AMenuMayOutliveTheField) {
  const auto menu = std::make_shared<Menu>();
  {
    SearchField field;
    field.setMenu(menu);
    EXPECT_EQ(menu->changed.count(), 1u);
  }
  EXPECT_EQ(menu->changed.count(), 0u);
  menu->addItem(MenuItem());
}

}  // namespace
}  // namespace zavel
