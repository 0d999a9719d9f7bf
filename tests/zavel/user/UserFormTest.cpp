#include "user/UserForm.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

const UserEntry kBank{.word = "bank", .pos = 1, .meaning = "銀行", .examples = {{"a = b", "あ"}}};

TEST(UserFormTest, AFormIsReadBack) {
  const std::string form = formOf(kBank);
  EXPECT_NE(form.find("\nword: bank\npos: noun\nphrase: \nmeaning: 銀行\nexample: a \\= b=あ\n"),
            std::string::npos)
      << form;
  UserEntry entry;
  EXPECT_EQ(readForm(form, UserLanguage::kEnglish, &entry), "");
  EXPECT_EQ(entry, kBank);
}

TEST(UserFormTest, MistakesAreToldWithTheirLine) {
  UserEntry entry;
  const auto wrong = [&entry](const char* text) { return readForm(text, UserLanguage::kEnglish, &entry); };
  EXPECT_EQ(wrong("word: a\nbank\n"), "line 2: it is FIELD: TEXT");
  EXPECT_EQ(wrong("# x\n\nmeening: a\n"), "line 3: there is no field \"meening\"");
  EXPECT_EQ(wrong("kanji: 犬\n"), "line 1: there is no field \"kanji\"");
  EXPECT_EQ(wrong("example: a\n"), "line 1: example: it is ENGLISH=JAPANESE");
  EXPECT_EQ(wrong("word: a\nmeaning:\n"), "meaning: it is empty");
  EXPECT_EQ(wrong(""), "word: it is empty");
}

TEST(UserFormTest, SingleFieldsAreSet) {
  UserEntry entry = kBank;
  EXPECT_EQ(setField("meaning=土手", &entry), "");
  EXPECT_EQ(entry.meaning, "土手");
  EXPECT_EQ(setField("example=c=う", &entry), "");
  EXPECT_EQ(entry.examples.size(), 2u);
  EXPECT_EQ(setField("example=", &entry), "");
  EXPECT_EQ(entry.examples.size(), 0u);
  EXPECT_EQ(setField("phrase=bank on", &entry), "");
  EXPECT_EQ(entry.pos, 0);
  EXPECT_EQ(setField("pos=verb", &entry), "");
  EXPECT_EQ(entry.phrase, "");
  EXPECT_EQ(entry.pos, 5);
  EXPECT_EQ(setField("meaning", &entry), "--set \"meaning\": it is FIELD=TEXT");
  EXPECT_EQ(setField("kanji=犬", &entry), "there is no field \"kanji\"");
  UserEntry dog{.language = UserLanguage::kJapanese, .word = "いぬ", .kanji = "犬", .meaning = "dog"};
  EXPECT_EQ(setField("kanji=", &dog), "");
  EXPECT_EQ(dog.kanji, "");
}

}  // namespace
}  // namespace zavel::host
