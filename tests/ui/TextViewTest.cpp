#include "ui/TextView.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/ForkedFiles.h"
#include "platform/Platform.h"
#include "support/TempFolder.h"
#include "ui/Changes.h"

namespace zavel {
namespace {

using test::Changes;
using test::Count;

TEST(TextView, TellsOfEachRealChange) {
  TextView view;
  Changes changes(view);
  view.setText("go");
  view.setFont({"HiraKakuPro-W3", 12});
  view.setTextColor({0, 0, 1, 1});
  view.setBackgroundColor({1, 1, 0.9, 1});
  view.setEditable(true);
  EXPECT_EQ(changes.n, 5);
  view.setText("go");
  view.setFont({"HiraKakuPro-W3", 12});
  view.setTextColor({0, 0, 1, 1});
  view.setBackgroundColor({1, 1, 0.9, 1});
  view.setEditable(true);
  EXPECT_EQ(changes.n, 5);
  EXPECT_EQ(view.text().text(), "go");
  EXPECT_EQ(view.font().name, "HiraKakuPro-W3");
  EXPECT_EQ(view.font().size, 12);
  EXPECT_EQ(view.textColor(), (Color{0, 0, 1, 1}));
  EXPECT_EQ(view.backgroundColor(), (Color{1, 1, 0.9, 1}));
}

TEST(TextView, IsBlackOnWhiteAndReadOnlyToBeginWith) {
  const TextView view;
  EXPECT_EQ(view.textColor(), (Color{0, 0, 0, 1}));
  EXPECT_EQ(view.backgroundColor(), (Color{1, 1, 1, 1}));
  EXPECT_FALSE(view.editable());
}

TEST(TextView, AppendsReplacesAndRestyles) {
  TextView view;
  Changes changes(view);
  view.append("行く");
  view.append("");
  view.append("go");
  view.replace({2, 2}, "went");
  EXPECT_EQ(view.text().text(), "行くwent");
  view.restyle({2, 4}, [](TextStyle& style) { style.color = Color{0, 0, 1, 1}; });
  EXPECT_EQ(view.text().runs().size(), 2u);
  EXPECT_EQ(changes.n, 4);
  view.restyle({2, 4}, [](TextStyle& style) { style.color = Color{0, 0, 1, 1}; });
  view.replace({0, 2}, "行く");
  EXPECT_EQ(changes.n, 4);
}

TEST(TextView, ChangesByTheLogicAreNoEdits) {
  TextView view;
  Count edits(view.textEdited);
  view.setText("go");
  view.append("es");
  view.replace({0, 1}, "G");
  EXPECT_EQ(edits.n, 0);
}

TEST(TextView, TellsOfASelectionOnlyWhenItIsAnother) {
  TextView view;
  view.setText("行く go");
  Count selections(view.selectionChanged);
  EXPECT_TRUE(view.select({3, 2}));
  EXPECT_TRUE(view.select({3, 2}));
  view.setSelection({3, 2});
  EXPECT_EQ(selections.n, 1);
  EXPECT_EQ(view.selection(), (TextRange{3, 2}));
  EXPECT_TRUE(view.select({4, 9}));
  EXPECT_EQ(view.selection(), (TextRange{4, 1}));
  EXPECT_EQ(selections.n, 2);
}

TEST(TextView, TheSelectionIsCutToNewText) {
  TextView view;
  view.setText("goes");
  view.setSelection({1, 3});
  Count selections(view.selectionChanged);
  view.setText("went");
  EXPECT_EQ(view.selection(), (TextRange{1, 3}));
  EXPECT_EQ(selections.n, 0);
  view.setText("go");
  EXPECT_EQ(view.selection(), (TextRange{1, 1}));
  EXPECT_EQ(selections.n, 1);
  view.setText("");
  EXPECT_EQ(view.selection(), (TextRange{0, 0}));
  EXPECT_EQ(selections.n, 2);
}

TEST(TextView, AnEditPutsTheSelectionBehindIt) {
  TextView view;
  view.setText("abc");
  view.setEditable(true);
  std::string heard;
  const Connection c = view.textEdited.connect([&] { heard = view.text().text(); });
  EXPECT_TRUE(view.edit({1, 1}, "行く"));
  EXPECT_EQ(heard, "a行くc");
  EXPECT_EQ(view.selection(), (TextRange{3, 0}));
  EXPECT_TRUE(view.edit({99, 0}, "!"));
  EXPECT_EQ(heard, "a行くc!");
  EXPECT_EQ(view.selection(), (TextRange{5, 0}));
}

TEST(TextView, RefusesEditsWhileReadOnlyOrDisabled) {
  TextView view;
  Count edits(view.textEdited);
  EXPECT_FALSE(view.edit({0, 0}, "x"));
  view.setEditable(true);
  view.setEnabled(false);
  EXPECT_FALSE(view.edit({0, 0}, "x"));
  EXPECT_FALSE(view.select({0, 0}));
  EXPECT_EQ(view.text().text(), "");
  EXPECT_EQ(edits.n, 0);
}

TEST(TextView, TellsTheLinkUnderAClick) {
  TextView view;
  TextStyle link;
  link.link = 4;
  view.append("see ");
  view.append("go", link);
  view.append(".");
  int heard = -1;
  const Connection c = view.linkClicked.connect([&](int n) { heard = n; });
  EXPECT_FALSE(view.click(3));
  EXPECT_FALSE(view.click(6));
  EXPECT_FALSE(view.click(7));
  EXPECT_EQ(heard, -1);
  EXPECT_TRUE(view.click(5));
  EXPECT_EQ(heard, 4);
  view.setHidden(true);
  EXPECT_FALSE(view.click(4));
}

TEST(TextView, ASelectionThatEndsTheViewEndsTheEdit) {
  struct Case {
    const char* text;
    TextRange selection;
  };
  // The selection moves behind the new text; in the second case it is cut before that, with the text.
  for (const Case& each : {Case{"", {0, 0}}, Case{"take", {2, 2}}}) {
    test::Doomed<TextView> doomed;
    doomed->setEditable(true);
    doomed->setText(each.text);
    doomed->setSelection(each.selection);
    int edits = 0;
    const Connection end = doomed->selectionChanged.connect([&] { doomed.endInRuins(); });
    const Connection edited = doomed->textEdited.connect([&] { ++edits; });
    EXPECT_TRUE(doomed->edit({0, 4}, "go"));
    EXPECT_TRUE(doomed.ended());
    EXPECT_EQ(edits, 0);
  }
}

TEST(TextView, RecordsWhatIsToBeInView) {
  TextView view;
  view.setText("goes");
  Changes changes(view);
  view.scrollRangeToVisible({2, 9});
  view.scrollRangeToVisible({2, 2});
  EXPECT_EQ(view.scrolledRange(), (TextRange{2, 2}));
  EXPECT_EQ(changes.n, 2);
  view.setText("go");
  EXPECT_EQ(view.scrolledRange(), (TextRange{2, 0}));
}

TEST(TextView, MakesItsContextMenuAnew) {
  TextView view;
  EXPECT_EQ(view.contextMenu(), nullptr);
  view.onContextMenu = [&] { return std::make_shared<Menu>(view.text().text()); };
  view.setText("a");
  EXPECT_EQ(view.contextMenu()->title(), "a");
  view.setText("b");
  EXPECT_EQ(view.contextMenu()->title(), "b");
  view.setEnabled(false);
  EXPECT_EQ(view.contextMenu(), nullptr);
}

TEST(TextView, LoadsAStyledFile) {
  const test::TempFolder folder;
  const auto writer = platform().forkedFiles().create(folder.file("result"), "TEXT", "ttxt");
  ASSERT_NE(writer, nullptr);
  writer->writeText("\x8D\x73\x82\xAD");  // 行く
  writer->writeStyle("styl", 128,
                     std::string("\0\1\0\0\0\2\0\x10\0\x0C\x40\0\1\0\0\x0E\0\0\0\0\xFF\xFF", 22));
  ASSERT_TRUE(writer->close());
  TextView view;
  EXPECT_TRUE(view.loadStyledFile(folder.file("result")));
  EXPECT_EQ(view.text().text(), "行く");
  EXPECT_FALSE(view.text().styleAt(0)->bold);
  EXPECT_TRUE(view.text().styleAt(1)->bold);
  EXPECT_EQ(view.text().styleAt(1)->fontSize, 14);
  EXPECT_EQ(view.text().styleAt(1)->color, (Color{0, 0, 1, 1}));
}

TEST(TextView, KeepsItsTextWhenAFileCannotBeLoaded) {
  const test::TempFolder folder;
  folder.write("damaged", "x");
  TextView view;
  view.setText("before");
  Changes changes(view);
  EXPECT_FALSE(view.loadStyledFile(folder.file("missing")));
  EXPECT_FALSE(view.loadStyledFile(folder.file("damaged")));
  EXPECT_EQ(view.text().text(), "before");
  EXPECT_EQ(changes.n, 0);
}

}  // namespace
}  // namespace zavel
