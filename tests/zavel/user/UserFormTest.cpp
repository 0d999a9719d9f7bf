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
  EXPECT_EQ(wrong("word: a\n\nword:\n"), "line 3: \"word\" stands in line 1 already");
  EXPECT_EQ(wrong("pos: nown\n"),
            "line 1: pos: \"nown\" is none; it is one of noun, pronoun, adjective, adverb, verb, transitive, "
            "intransitive, preposition, conjunction");
  EXPECT_EQ(
      wrong("# x\n\nmeening: a\n"),
      "line 3: there is no field \"meening\": an English entry has word, pos, phrase, meaning, example");
  EXPECT_EQ(wrong("kanji: 犬\n"),
            "line 1: there is no field \"kanji\": an English entry has word, pos, phrase, meaning, example");
  EXPECT_EQ(wrong("example: a\n"), "line 1: example: \"a\" is not ENGLISH=JAPANESE");
  EXPECT_EQ(wrong("word: a\nmeaning:\n"), "meaning: it is empty");
  EXPECT_EQ(wrong(""), "word: it is empty");
}

TEST(UserFormTest, AMarkOfTheByteOrderIsNoField) {
  UserEntry entry;
  EXPECT_EQ(readForm("\xEF\xBB\xBFword: bank\r\nmeaning: 銀行\r\n", UserLanguage::kEnglish, &entry), "");
  EXPECT_EQ(entry, (UserEntry{.word = "bank", .pos = 1, .meaning = "銀行"}));
}

TEST(UserFormTest, BackslashesStay) {
  UserEntry entry;
  EXPECT_EQ(
      readForm("word: a\nmeaning: C:\\temp\\\nexample: C:\\new\\\\=a\\|b\n", UserLanguage::kEnglish, &entry),
      "");
  EXPECT_EQ(entry.meaning, "C:\\temp\\");
  EXPECT_EQ(entry.examples, (std::vector<UserExample>{{"C:\\new\\", "a|b"}}));
  const UserEntry read = entry;
  EXPECT_EQ(readForm(formOf(read), UserLanguage::kEnglish, &entry), "");
  EXPECT_EQ(entry, read);
}

TEST(UserFormTest, SingleFieldsAreSet) {
  UserEntry entry = kBank;
  EXPECT_EQ(setFields({"meaning=土手", "example=c=う"}, &entry), "");
  EXPECT_EQ(entry.meaning, "土手");
  EXPECT_EQ(entry.examples.size(), 2u);
  EXPECT_EQ(setFields({"example=", "example=d=え"}, &entry), "");
  EXPECT_EQ(entry.examples, (std::vector<UserExample>{{"d", "え"}}));
  UserEntry dog{.language = UserLanguage::kJapanese, .word = "いぬ", .kanji = "犬", .meaning = "dog"};
  EXPECT_EQ(setFields({"kanji=", "sentence=A dog.=犬。"}, &dog), "");
  EXPECT_EQ(dog.kanji, "");
  EXPECT_EQ(dog.sentences, (std::vector<UserExample>{{"A dog.", "犬。"}}));
}

TEST(UserFormTest, SettingsThatSayTooLittleOrTwoThings) {
  UserEntry entry = kBank;
  const auto wrong = [&entry](std::vector<std::string> settings) { return setFields(settings, &entry); };
  EXPECT_EQ(wrong({"meaning"}), "--set \"meaning\": it is FIELD=TEXT, as in --set meaning=TEXT");
  EXPECT_EQ(wrong({"meaning=a", "word=b", "meaning=c"}), "--set: \"meaning\" is given twice");
  EXPECT_EQ(wrong({"fo\no=x"}),
            "--set: there is no field \"fo\xEF\xBF\xBDo\": an English entry has word, pos, phrase, meaning, "
            "example");
  EXPECT_EQ(
      wrong({"sentence="}),
      "--set: there is no field \"sentence\": an English entry has word, pos, phrase, meaning, example");
  EXPECT_EQ(wrong({"example=x"}), "--set: example: \"x\" is not ENGLISH=JAPANESE");
  entry = {.language = UserLanguage::kJapanese, .word = "いぬ", .meaning = "dog"};
  EXPECT_EQ(wrong({"pos=noun"}),
            "--set: there is no field \"pos\": a Japanese entry has word, kanji, meaning, example, sentence");
}

TEST(UserFormTest, NeitherPhraseNorPartOfSpeechTakesTheOthersPlaceUnasked) {
  const UserEntry phrase{.word = "bank", .phrase = "bank on", .meaning = "当てにする"};
  UserEntry entry = phrase;
  EXPECT_EQ(setFields({"pos=verb"}, &entry),
            "--set pos: a phrase has no part of speech; --set phrase= takes the phrase \"bank on\" away");
  entry = phrase;
  EXPECT_EQ(setFields({"pos=verb", "phrase="}, &entry), "");
  EXPECT_EQ(entry, (UserEntry{.word = "bank", .pos = 5, .meaning = "当てにする"}));
  EXPECT_EQ(setFields({"phrase=bank on"}, &entry),
            "--set phrase: a phrase has no part of speech; --set pos= takes the verb away");
  entry = {.word = "bank", .pos = 5, .meaning = "当てにする"};
  EXPECT_EQ(setFields({"phrase=bank on", "pos="}, &entry), "");
  EXPECT_EQ(entry, phrase);
  entry = {.word = "bank", .pos = 1, .meaning = "当てにする"};
  EXPECT_EQ(setFields({"phrase=bank on"}, &entry), "");
  EXPECT_EQ(entry, phrase);
}

}  // namespace
}  // namespace zavel::host
