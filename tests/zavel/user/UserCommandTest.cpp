// `zavel user` as its users meet it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

using Json = nlohmann::ordered_json;
using test::Outcome;

std::string repeated(const std::string& text, size_t times) {
  std::string out;
  for (size_t i = 0; i < times; ++i) out += text;
  return out;
}

class UserCommandTest : public test::RootTest {
 protected:
  test::Command user(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "user");
    return inRoot(std::move(arguments));
  }
  Outcome run(std::vector<std::string> arguments) const { return user(std::move(arguments)).run(); }
  std::string users() const { return root() + "/user"; }
  std::string out(std::vector<std::string> arguments) const { return run(std::move(arguments)).out; }
};

TEST_F(UserCommandTest, AnEntryIsAddedAndFound) {
  const Outcome added = run({"add", "bank", "ﾊﾞﾝｸ", "--example", "a bank account=銀行口座"});
  EXPECT_EQ(added.status, 0);
  EXPECT_EQ(added.err, "");
  EXPECT_EQ(added.out, "Added to your English entries in " + users() +
                           ":\nbank  [noun]  バンク\n    a bank account  銀行口座\n");
  EXPECT_EQ(out({"find", "Bank"}), "1  bank  [noun]  バンク\n       a bank account  銀行口座\n");
}

TEST_F(UserCommandTest, JapaneseEntriesComeBothWays) {
  EXPECT_EQ(
      out({"add", "犬", "dog", "--reading", "いぬ", "--sentence", "I have a dog.=犬を飼う。"}),
      "Added to your Japanese entries in " + users() + ":\n犬 (いぬ)  dog\n    犬を飼う。  I have a dog.\n");
  EXPECT_EQ(out({"add", "ねこ", "cat", "--kanji", "猫"}),
            "Added to your Japanese entries in " + users() + ":\n猫 (ねこ)  cat\n");
  EXPECT_EQ(out({"find", "猫"}), "1  猫 (ねこ)  cat\n");
  EXPECT_EQ(out({"find", "いぬ"}), "1  犬 (いぬ)  dog\n       犬を飼う。  I have a dog.\n");
  EXPECT_EQ(out({"list"}), "いぬ\nねこ\n");
}

TEST_F(UserCommandTest, PhrasesAndPartsOfSpeech) {
  run({"add", "bank", "当てにする", "--phrase", "bank on"});
  run({"add", "bank", "預ける", "--pos", "他動"});
  EXPECT_EQ(out({"find", "bank"}), "1  bank: bank on  当てにする\n2  bank  [transitive]  預ける\n");
}

TEST_F(UserCommandTest, WhatCantBeHeldIsRefusedBeforeAnythingIsWritten) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"add", "café", "x"},
       "word: \"é\" (U+00E9), character 4, can't stand here: an English word has letters, blanks and & ' , - "
       ". / _"},
      {{"add", "a", "😀"},
       "meaning: \"😀\" (U+1F600), character 1, can't stand here: the dictionary has no place for it"},
      {{"add", "犬", "dog"}, "a word in kanji needs its reading: --reading KANA"},
      {{"add", "犬", "dog", "--reading", "いぬ", "--kanji", "戌"},
       "give --kanji with a reading, or --reading with a word in kanji, not both"},
      {{"add", "a", "x", "--pos", "nown"},
       "--pos \"nown\": it is one of noun, pronoun, adjective, adverb, verb, transitive, intransitive, "
       "preposition, "
       "conjunction"},
      {{"add", "a", "x", "--example", "b"}, "--example \"b\": it is ENGLISH=JAPANESE"},
      {{"add", "a", "x", "--pos", "noun", "--phrase", "a b"}, "pos: a phrase has no part of speech"},
      {{"add", "a", "x", "--lang", "en", "--reading", "い"}, "an English word has no reading"},
      {{"add", "a", "x", "--pos", "no\nun"},
       "--pos \"no\xEF\xBF\xBDun\": it is one of noun, pronoun, adjective, adverb, verb, transitive, "
       "intransitive, preposition, conjunction"},
      {{"add", "犬", "dog", "--reading", "犬"},
       "--reading: \"犬\" (U+72AC), character 1, can't stand here: a reading has hiragana, katakana and ー "
       "－ … ・"},
      {{"add", "①", "one", "--reading", "いち"},
       "word: \"①\" (U+2460), character 1, can't stand here: a written form has kana, kanji of JIS levels 1 "
       "and 2, "
       "々 and ・"},
      {{"add", "い", "x", "--kanji", "①"},
       "kanji: \"①\" (U+2460), character 1, can't stand here: a written form has kana, kanji of JIS levels 1 "
       "and 2, "
       "々 and ・"},
      {{"add", "い", "x", "--kanji", "々"}, "kanji: it has neither kanji nor kana"},
      {{"add", "・", "x"}, "word: it has no kana"},
      {{"add", "犬", "dog", "--reading", "いぬ", "--sentence", "a=あ", "--sentence", "犬=犬"},
       "sentence 2, English side: \"犬\" (U+72AC), character 1, can't stand here: only ASCII can stand here"},
      {{"add", "", "x"}, "word: it is empty"}};
  for (const auto& [arguments, message] : cases) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2) << message;
    EXPECT_EQ(outcome.err,
              std::string("zavel: ") + message + "\nNothing was stored. Change the text, then try again.\n");
  }
  EXPECT_FALSE(std::filesystem::exists(users()));
}

TEST_F(UserCommandTest, TheSameEntryIsAddedOnceUnlessForced) {
  run({"add", "bank", "銀行"});
  const Outcome again = run({"add", "bank", "銀行"});
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(again.err, "zavel: this entry is there already; --force adds it once more\n");
  EXPECT_EQ(Json::parse(out({"add", "bank", "銀行", "--json"}))["status"], "present");
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
  EXPECT_EQ(run({"add", "bank", "銀行", "--force"}).status, 0);
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n2  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, SearchesMakeNothing) {
  const Outcome find = run({"find", "bank"});
  EXPECT_EQ(find.status, 1);
  EXPECT_EQ(find.err, "zavel: you have no English entry \"bank\"\n");
  EXPECT_EQ(Json::parse(out({"find", "犬", "--json"})),
            Json::parse(R"({"schema":1,"query":"犬","status":"not_found","entries":[]})"));
  const Outcome list = run({"list"});
  EXPECT_EQ(list.status, 1);
  EXPECT_EQ(list.err, "zavel: you have no entries yet\n");
  EXPECT_EQ(run({"arrange"}).err, "zavel: you have no entries yet\n");
  EXPECT_EQ(run({"delete", "bank"}).status, 1);
  EXPECT_EQ(run({"edit", "bank"}).status, 1);
  EXPECT_EQ(out({"export"}), "lang\tword\tkanji\tpos\tphrase\tmeaning\texamples\tsentences\n");
  EXPECT_FALSE(std::filesystem::exists(users()));
}

TEST_F(UserCommandTest, ListsAreInOrderAndByBeginning) {
  for (const char* word : {"zebra", "Ant", "ant-eater", "bee"}) run({"add", word, "虫"});
  for (const char* word : {"いぬ", "イヌワシ", "ねこ"}) run({"add", word, "x"});
  EXPECT_EQ(out({"list"}), "Ant\nant-eater\nbee\nzebra\nいぬ\nイヌワシ\nねこ\n");
  EXPECT_EQ(out({"list", "AN"}), "Ant\nant-eater\n");
  EXPECT_EQ(out({"list", "いぬ"}), "いぬ\nイヌワシ\n");
  EXPECT_EQ(out({"list", "--lang", "ja"}), "いぬ\nイヌワシ\nねこ\n");
  EXPECT_EQ(run({"list", "x"}).err, "zavel: none of your words begins so\n");
  EXPECT_EQ(Json::parse(out({"list", "z", "--json"})),
            Json::parse(R"({"schema":1,"words":[{"lang":"en","word":"zebra"}],"count":1})"));
}

TEST_F(UserCommandTest, DeletingOneOfSeveralNeedsItsNumber) {
  for (const char* meaning : {"一", "二", "三"}) run({"add", "bank", meaning});
  const Outcome several = run({"delete", "bank"});
  EXPECT_EQ(several.status, 2);
  EXPECT_EQ(several.err, "zavel: there are 3 entries of this word\nSay which: --number N, or --all.\n");
  EXPECT_EQ(run({"delete", "bank", "--number", "4"}).err,
            "zavel: there are 3 entries of this word\nGive --number from 1 to 3.\n");
  EXPECT_EQ(out({"delete", "bank", "--number", "2"}), "Deleted:\nbank  [noun]  二\n");
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  一\n2  bank  [noun]  三\n");
  EXPECT_EQ(out({"delete", "bank", "--all"}), "Deleted 2 entries:\nbank  [noun]  一\nbank  [noun]  三\n");
  EXPECT_EQ(run({"find", "bank"}).status, 1);
  run({"add", "犬", "dog", "--reading", "いぬ"});
  EXPECT_EQ(out({"delete", "犬"}), "Deleted:\n犬 (いぬ)  dog\n");
  EXPECT_EQ(run({"delete", "犬"}).err, "zavel: you have no entry \"犬\"\nSee: zavel user list\n");
}

// What is filed alike is found together, and deleted by its own spelling.
TEST_F(UserCommandTest, UnaskedOnlyTheSpellingThatIsGivenIsDeleted) {
  for (const char* word : {"cant", "can't", "Polish", "polish", "polish", "ice cream"})
    run({"add", "-f", word, "x"});
  for (const char* word : {"いぬ", "イヌ"}) run({"add", "犬", "dog", "--reading", word});
  EXPECT_EQ(out({"delete", "cant", "--all", "-y"}), "Deleted:\ncant  [noun]  x\n");
  EXPECT_EQ(out({"find", "cant"}), "1  can't  [noun]  x\n");
  const Outcome capitals = run({"delete", "POLISH", "--all", "--no-input"});
  EXPECT_EQ(capitals.status, 1);
  EXPECT_EQ(capitals.err,
            "zavel: you have no entry \"POLISH\", but \"Polish\", \"polish\"\n"
            "Nothing was deleted. Give the word as it is spelled there.\n");
  const Outcome joined = run({"delete", "icecream", "-y"});
  EXPECT_EQ(joined.status, 1);
  EXPECT_TRUE(joined.err.starts_with("zavel: you have no entry \"icecream\", but \"ice cream\"\n"))
      << joined.err;
  EXPECT_EQ(Json::parse(out({"delete", "icecream", "--json"}))["error"]["code"], "other_spelling");
  EXPECT_EQ(run({"delete", "polish"}).err,
            "zavel: there are 2 entries of this word\nSay which: --number N, or --all.\n");
  EXPECT_EQ(out({"delete", "polish", "--all"}), "Deleted 2 entries:\npolish  [noun]  x\npolish  [noun]  x\n");
  EXPECT_EQ(out({"delete", "polish", "--number", "1"}),
            "Deleted:\nPolish  [noun]  x\n");  // as `find` shows it
  EXPECT_EQ(out({"delete", "イヌ"}), "Deleted:\n犬 (イヌ)  dog\n");
  EXPECT_EQ(run({"delete", "イヌ"}).err,
            "zavel: you have no entry \"イヌ\", but \"犬 (いぬ)\"\n"
            "Nothing was deleted. Give the word as it is spelled there.\n");
  EXPECT_EQ(out({"delete", "犬"}), "Deleted:\n犬 (いぬ)  dog\n");
  EXPECT_EQ(out({"list"}), "can't\nice cream\n");
}

TEST_F(UserCommandTest, AnotherSpellingIsAskedAbout) {
  run({"add", "ice cream", "x"});
  const Outcome none = user({"delete", "icecream"}).terminal(24, 80).typed("\n").run();
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.out.find("1  ice cream  [noun]  x\n"), std::string::npos) << none.out;
  EXPECT_EQ(out({"list"}), "ice cream\n");
  EXPECT_EQ(user({"delete", "icecream"}).terminal(24, 80).typed("1\n").run().status, 0);
  EXPECT_EQ(out({"list"}), "");
}

TEST_F(UserCommandTest, AllEntriesOfAShortWordAreShownAndDeleted) {
  std::string table = "word\tmeaning\n";
  for (int i = 0; i < 130; ++i) table += "go\t意味" + std::to_string(i) + "\n";
  folder_.write("go.tsv", table);
  EXPECT_EQ(out({"import", file("go.tsv")}), "130 entries added\n");
  EXPECT_EQ(out({"import", file("go.tsv")}), "0 entries added, 130 there already\n");
  EXPECT_EQ(run({"add", "go", "意味129"}).status, 1);
  EXPECT_EQ(out({"export", file("out.tsv")}), "130 entries written to " + file("out.tsv") + "\n");
  EXPECT_EQ(Json::parse(out({"find", "go", "--json"}))["entries"].size(), 130u);
  const Json looked = Json::parse(inRoot({"look", "--json", "go"}).run().out)["entries"];
  EXPECT_EQ(std::count_if(looked.begin(), looked.end(), [](const Json& one) { return one.contains("user"); }),
            130);
  EXPECT_EQ(out({"delete", "go", "--number", "130"}), "Deleted:\ngo  [noun]  意味129\n");
  EXPECT_TRUE(out({"delete", "go", "--all", "-y"}).starts_with("Deleted 129 entries:\n"));
  EXPECT_EQ(run({"find", "go"}).status, 1);
  EXPECT_EQ(out({"list"}), "");
}

TEST_F(UserCommandTest, AWordTooLongForLookUpsIsToldSo) {
  const std::string most(255, 'w');
  EXPECT_EQ(run({"add", most, "x"}).err, "");
  const Outcome longer = run({"add", most + "w", "x"});
  EXPECT_EQ(longer.status, 0);
  EXPECT_EQ(
      longer.err,
      "zavel: the word has more than 255 bytes in Shift_JIS: `zavel user find` finds it, `zavel look` takes "
      "no words so long\n");
  const std::string kana = repeated("き", 128);
  EXPECT_EQ(run({"add", kana, "x", "--kanji", "木"}).err, "");
  EXPECT_EQ(run({"add", kana, "x"}).err, longer.err);
}

TEST_F(UserCommandTest, AFileInThePlaceOfTheFolderIsNoFolder) {
  std::filesystem::create_directories(root());
  std::ofstream(users()) << "x";
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"list"}, {"export"}, {"add", "bank", "銀行"}, {"arrange"}}) {
    const Outcome outcome = run(command);
    EXPECT_EQ(outcome.status, 3) << command[0];
    EXPECT_EQ(
        outcome.err,
        "zavel: " + users() + " is no folder; your entries stand in one\nGive what is there another name.\n");
  }
}

TEST_F(UserCommandTest, AnOptionOfAnotherCommandIsNamed) {
  const Outcome outcome = run({"import", "--format", "json", "f"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "zavel: there is no option --format\nRun: zavel user import --help\n");
}

TEST_F(UserCommandTest, AFormThatTheEditorTookAwayIsNotPromised) {
  run({"add", "bank", "銀行"});
  const std::string remover = script(file("remover"), "rm \"$1\"\n");
  const std::string folder = script(file("folder"), "rm \"$1\"; mkdir \"$1\"\n");
  for (const std::string& editor : {remover, folder}) {
    const Outcome outcome = user({"edit", "bank"}).env("EDITOR", editor).run();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(outcome.err.starts_with("zavel: the form can't be read, or has more than 1 MB: "))
        << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with("\nThe editor left no file there.\n")) << outcome.err;
  }
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, AnEditorThatCtrlCEndedIsAnInterruptedEdit) {
  run({"add", "bank", "銀行"});
  const std::string killed = script(file("killed"), "sed -i 's/銀行/土手/' \"$1\"; kill -INT $$\n");
  const std::string says = script(file("says"), "sed -i 's/銀行/土手/' \"$1\"; exit 130\n");
  for (const std::string& editor : {killed, says}) {
    const Outcome outcome = user({"edit", "bank"}).env("EDITOR", editor).run();
    EXPECT_EQ(outcome.status, 130);
    EXPECT_TRUE(outcome.err.starts_with("zavel: interrupted; nothing was stored\nWhat you typed is in "))
        << outcome.err;
  }
  EXPECT_EQ(user({"edit", "bank"}).env("EDITOR", script(file("quits"), "exit 130\n")).run().err,
            "zavel: interrupted; nothing was stored\nRun it again to change the entry.\n");
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, FieldsAreSetWithoutAnEditor) {
  run({"add", "bank", "銀行"});
  EXPECT_EQ(out({"edit", "bank", "--set", "meaning=土手", "--set", "example=on the bank=土手で"}),
            "Changed:\nbank  [noun]  土手\n    on the bank  土手で\n");
  EXPECT_EQ(out({"edit", "bank", "--set", "word=shore"}),
            "Changed:\nshore  [noun]  土手\n    on the bank  土手で\n");
  EXPECT_EQ(out({"list"}), "shore\n");
  const Outcome same = run({"edit", "shore", "--set", "word=shore"});
  EXPECT_EQ(same.status, 1);
  EXPECT_EQ(same.err, "zavel: nothing was changed\n");
  EXPECT_EQ(run({"edit", "shore", "--set", "meaning="}).err,
            "zavel: meaning: it is empty\nNothing was stored. Change the text, then try again.\n");
}

TEST_F(UserCommandTest, APhraseIsNotTakenAwayUnasked) {
  run({"add", "bank", "当てにする", "--phrase", "bank on", "--example", "Bank on it.=当てにせよ。"});
  const Outcome refused = run({"edit", "bank", "--set", "pos=verb"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(
      refused.err,
      "zavel: --set pos: a phrase has no part of speech; --set phrase= takes the phrase \"bank on\" away\n"
      "Nothing was stored. Change the text, then try again.\n");
  EXPECT_EQ(out({"find", "bank"}), "1  bank: bank on  当てにする\n       Bank on it.  当てにせよ。\n");
  EXPECT_EQ(out({"edit", "bank", "--set", "pos=verb", "--set", "phrase="}),
            "Changed:\nbank  [verb]  当てにする\n    Bank on it.  当てにせよ。\n");
}

TEST_F(UserCommandTest, WhatIsTypedComesOutAsTyped) {
  run({"add", "path", "a\\b\\", "--example", "C:\\new\\dir=\\t|x"});
  EXPECT_EQ(out({"find", "path"}), "1  path  [noun]  a\\b\\\n       C:\\new\\dir  \\t|x\n");
  run({"add", "dash", "1–2 — 「…」’"});
  EXPECT_EQ(out({"find", "dash"}), "1  dash  [noun]  1-2 ― 「…」’\n");
  EXPECT_EQ(run({"add", "bank　note", "銀行券"}).status, 0);
  EXPECT_EQ(out({"find", "bank note"}), "1  bank note  [noun]  銀行券\n");
}

TEST_F(UserCommandTest, AWordThatLooksLikeOptionsIsToldHowToBeGiven) {
  for (const char* command : {"add", "find", "list", "edit", "delete"}) {
    const Outcome refused = run({command, "-ism", "主義"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err, std::string("zavel: there is no option \"-ism\"\n"
                                       "If it is a word, put it behind -- and all options: zavel user ") +
                               command + " -- -ism\n");
  }
  EXPECT_EQ(run({"add", "-ful", "に満ちた"}).err,
            "zavel: there is no option \"-ful\"\n"
            "If it is a word, put it behind -- and all options: zavel user add -- -ful\n");
  EXPECT_EQ(run({"add", "--", "-ism", "主義"}).status, 0);
  EXPECT_EQ(out({"find", "--", "-ism"}), "1  -ism  [noun]  主義\n");
}

TEST_F(UserCommandTest, NumbersBeginWithOne) {
  run({"add", "bank", "銀行"});
  for (const char* number : {"0", "-1", "x", "1000001", ""}) {
    const Outcome refused = run({"delete", "bank", "--number", number});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err, std::string("zavel: --number: \"") + number +
                               "\" is not a number from 1 to 1000000\nRun: zavel user delete --help\n");
  }
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, LimitsAreToldWithTheFieldAndBothNumbers) {
  const std::string end = "\nNothing was stored. Change the text, then try again.\n";
  const std::string full(65534, 'x'), over = full + 'x', kana = repeated("あ", 32767);
  const std::string long65535 = "it is too long: it has 65,535 bytes in Shift_JIS, 65,534 at most" + end;
  const std::string long65536 = "it is too long: it has 65,536 bytes in Shift_JIS, 65,534 at most" + end;
  const std::string entry = "the entry is too long: with all its texts it has ";
  const auto refusal = [this](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "add");
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2);
    return outcome.err;
  };
  EXPECT_EQ(refusal({over, "x"}), "zavel: word: " + long65535);
  EXPECT_EQ(refusal({"a", over}), "zavel: meaning: " + long65535);
  EXPECT_EQ(refusal({"a", "x", "--phrase", over}), "zavel: phrase: " + long65535);
  EXPECT_EQ(refusal({"a", "x", "--example", over + "=あ"}), "zavel: example 1, English side: " + long65535);
  EXPECT_EQ(refusal({"a", "x", "--example", "a=" + kana + "あ"}),
            "zavel: example 1, Japanese side: " + long65536);
  EXPECT_EQ(refusal({"犬", "x", "--reading", kana + "あ"}), "zavel: --reading: " + long65536);
  EXPECT_EQ(refusal({"い", "x", "--kanji", kana + "あ"}), "zavel: kanji: " + long65536);
  EXPECT_EQ(refusal({"い", over}), "zavel: meaning: " + long65535);
  EXPECT_EQ(refusal({"い", "x", "--sentence", over + "=あ"}),
            "zavel: sentence 1, English side: " + long65535);
  // A text of full length leaves no room for the others.
  for (const auto& arguments : {std::vector<std::string>{full, "x"},
                                {"a", full},
                                {"a", "x", "--phrase", full},
                                {"a", "x", "--example", full + "=あ"},
                                {"a", "x", "--example", "a=" + kana},
                                {"犬", "x", "--reading", kana},
                                {"い", "x", "--kanji", kana},
                                {"い", full},
                                {"い", "x", "--sentence", full + "=あ"}}) {
    EXPECT_TRUE(refusal(arguments).starts_with("zavel: " + entry + "65,5"));
  }
  EXPECT_EQ(refusal({"bank", std::string(65513, 'x')}),
            "zavel: " + entry +
                "65,535 bytes in Shift_JIS, 65,534 at most; leave examples out, or make two "
                "entries of it" +
                end);
  EXPECT_FALSE(std::filesystem::exists(users()));
  const std::string most(65512, 'x');
  EXPECT_EQ(run({"add", "bank", most}).status, 0);
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  " + most + "\n");
  const std::string longest(65515, 'w');
  EXPECT_EQ(run({"add", longest, "x"}).status, 0);
  EXPECT_EQ(out({"find", longest}), "1  " + longest + "  [noun]  x\n");
}

TEST_F(UserCommandTest, AWrongAnswerIsAskedAgain) {
  for (const char* meaning : {"一", "二", "三"}) run({"add", "bank", meaning});
  const Outcome outcome = user({"delete", "bank"}).terminal(24, 80).typed("x\n2x\n4\n 2 \n").run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("\"x\" is no number from 1 to 3\n"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("\"2x\" is no number from 1 to 3\n"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("\"4\" is no number from 1 to 3\n"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("Deleted:\nbank  [noun]  二\n"), std::string::npos) << outcome.out;
  EXPECT_EQ(user({"delete", "bank"}).terminal(24, 80).typed("\n").run().status, 1);
  EXPECT_EQ(user({"delete", "bank"}).terminal(24, 80).typed("\x04").run().status, 1);
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  一\n2  bank  [noun]  三\n");
}

// The end of the input is no wish to begin anew.
TEST_F(UserCommandTest, AFormWithAMistakeIsNotOpenedAgainUnasked) {
  run({"add", "bank", "銀行"});
  const std::string editor =
      script(file("editor"), "echo again >> " + file("times") + "; echo nonsense >> \"$1\"\n");
  const Outcome outcome =
      user({"edit", "bank"}).env("EDITOR", editor).terminal(24, 80).typed("y\n\x04").run();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.out.find("What you typed is in " + root() + "/state/edit-"), std::string::npos)
      << outcome.out;
  EXPECT_EQ(folder_.read("times"), "again\nagain\n");
}

TEST_F(UserCommandTest, AnInterruptedEditTellsWhereTheFormIs) {
  run({"add", "bank", "銀行"});
  const std::string editor =
      script(file("editor"), "sed -i 's/銀行/土手/' \"$1\"; touch " + file("open") + "; exec sleep 5\n");
  for (const int signal : {SIGTERM, SIGHUP}) {
    std::filesystem::remove(file("open"));
    const Outcome outcome = user({"edit", "bank"}).env("EDITOR", editor).signalAt(file("open"), signal).run();
    EXPECT_EQ(outcome.status, 128 + signal);
    const std::string told = "zavel: interrupted; nothing was stored\nWhat you typed is in ";
    ASSERT_TRUE(outcome.err.starts_with(told)) << outcome.err;
    std::ifstream kept(outcome.err.substr(told.size(), outcome.err.size() - told.size() - 1));
    const std::string form{std::istreambuf_iterator<char>(kept), {}};
    EXPECT_NE(form.find("\nmeaning: 土手\n"), std::string::npos) << form;
  }
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, TheEditorGetsAFormAndItsTextIsStored) {
  run({"add", "bank", "銀行"});
  const std::string editor = script(file("editor"),
                                    "grep -q '^meaning: 銀行$' \"$1\" || exit 9\n"
                                    "sed -i 's/^meaning: .*/meaning: 土手/' \"$1\"\n");
  EXPECT_EQ(user({"edit", "bank"}).env("EDITOR", "/bin/false").env("VISUAL", editor).run().out,
            "Changed:\nbank  [noun]  土手\n");
  EXPECT_EQ(user({"edit", "bank"}).env("EDITOR", "true").run().err, "zavel: nothing was changed\n");
  EXPECT_TRUE(std::filesystem::is_empty(root() + "/state"));
}

TEST_F(UserCommandTest, WhatWasTypedWithAMistakeIsKept) {
  run({"add", "bank", "銀行"});
  const std::string editor = script(file("editor"), "printf 'word: bank\\nmeaning: 😀\\n' > \"$1\"\n");
  const Outcome outcome = user({"edit", "bank"}).env("EDITOR", editor).run();
  EXPECT_EQ(outcome.status, 2);
  const std::string told =
      "zavel: meaning: \"😀\" (U+1F600), character 1, can't stand here: the dictionary has no place for "
      "it\nWhat you typed "
      "is in ";
  ASSERT_TRUE(outcome.err.starts_with(told)) << outcome.err;
  std::ifstream kept(outcome.err.substr(told.size(), outcome.err.size() - told.size() - 1));
  std::string line;
  std::getline(kept, line);
  EXPECT_EQ(line, "word: bank");
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, AnEditorThatDoesntRunIsNamedAndLeavesNoForm) {
  run({"add", "bank", "銀行"});
  const Outcome outcome = user({"edit", "bank"}).env("EDITOR", "false").run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: the editor failed: false\n"
            "Set VISUAL or EDITOR to an editor that runs, or give --set FIELD=TEXT.\n");
  EXPECT_TRUE(std::filesystem::is_empty(root() + "/state"));
  const std::string typing = script(file("typing"), "echo more >> \"$1\"; exit 1\n");
  EXPECT_TRUE(user({"edit", "bank"})
                  .env("EDITOR", typing)
                  .run()
                  .err.starts_with("zavel: the editor failed: " + typing + "\nWhat you typed is in "));
  EXPECT_FALSE(std::filesystem::is_empty(root() + "/state"));
}

// A later process may have the number of the one that left it.
TEST_F(UserCommandTest, AFormThatWasKeptIsNotOverwritten) {
  run({"add", "bank", "銀行"});
  std::filesystem::create_directories(root() + "/state");
  const std::string kept = root() + "/state/edit-$$.txt";
  const std::string command = "exec 2>&1; echo typed > " + kept + "; ZAVEL_ROOT=" + root() +
                              " EDITOR='sed -i s/銀行/土手/' exec " ZAVEL_PROGRAM " user edit bank > " +
                              file("out");
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(folder_.read("out"), "Changed:\nbank  [noun]  土手\n");
  const std::filesystem::directory_iterator left(root() + "/state");
  ASSERT_NE(left, std::filesystem::directory_iterator());
  std::ifstream in(left->path());
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(line, "typed");
}

TEST_F(UserCommandTest, ArrangingTellsTheSizes) {
  for (const char* word : {"zebra", "zeal", "zest"}) run({"add", word, "x"});
  run({"delete", "zeal"});
  const Outcome arranged = run({"arrange"});
  EXPECT_EQ(arranged.status, 0);
  EXPECT_EQ(arranged.out, "Your English entries: 94,091 bytes before, 94,054 bytes now\n");
  EXPECT_EQ(
      Json::parse(out({"arrange", "--lang", "en", "--json"})),
      Json::parse(
          R"({"schema":1,"status":"arranged","sets":[{"lang":"en","bytes_before":94054,"bytes":94054}]})"));
  EXPECT_EQ(out({"list"}), "zebra\nzest\n");
}

TEST_F(UserCommandTest, ASecondWriterIsRefusedWithTheNameOfTheFirst) {
  run({"add", "bank", "銀行"});
  const int fd = open((users() + "/.lock").c_str(), O_RDWR);
  ASSERT_EQ(flock(fd, LOCK_EX), 0);
  ASSERT_EQ(pwrite(fd, "process 4711\n", 13, 0), 13);
  const Outcome outcome = run({"add", "shore", "岸"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: your entries are in use: process 4711\nWait for it to end, then try again.\n");
  EXPECT_EQ(Json::parse(out({"list", "--json"}))["error"]["code"], "locked");
  close(fd);
  EXPECT_EQ(out({"list"}), "bank\n");
}

TEST_F(UserCommandTest, ReadersStandBesideEachOther) {
  run({"add", "bank", "銀行"});
  const int fd = open((users() + "/.lock").c_str(), O_RDWR);
  ASSERT_EQ(flock(fd, LOCK_SH), 0);
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
  EXPECT_EQ(run({"add", "shore", "岸"}).err,
            "zavel: your entries are in use: another process\nWait for it to end, then try again.\n");
  close(fd);
}

TEST_F(UserCommandTest, OwnWordsNeedNoDictionary) {
  std::filesystem::remove_all(root() + "/dictionaries");
  EXPECT_EQ(run({"add", "bank", "銀行"}).status, 0);
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, ADamagedDictionaryHidesNoOwnWords) {
  std::ofstream(root() + "/dictionaries/basic/ej.idx", std::ios::trunc) << "x";
  EXPECT_EQ(run({"add", "bank", "銀行"}).status, 0);
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserCommandTest, AFolderThatCantBeMadeIsNamed) {
  std::ofstream(file("plain")) << "in the way";
  const Outcome outcome = user({"add", "bank", "銀行"}).env("ZAVEL_ROOT", file("plain")).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: the folder " + file("plain") + "/user" +
                " can't be made\nSee whether the disk is full, or the folder above it not yours.\n");
}

TEST_F(UserCommandTest, ADamagedSetIsToldAndLeftAlone) {
  run({"add", "bank", "銀行"});
  std::filesystem::remove(users() + "/myej.dic");
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"add", "shore", "岸"},
                                                    {"find", "bank"},
                                                    {"list"},
                                                    {"export"},
                                                    {"arrange"}}) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 5);
    EXPECT_TRUE(
        outcome.err.starts_with("zavel: your English entries in " + users() +
                                " are damaged: myej.dic is missing; no backup stands there, nothing was "
                                "changed"))
        << outcome.err;
  }
  EXPECT_FALSE(std::filesystem::exists(users() + "/myej.dic"));
}

TEST_F(UserCommandTest, RecoveryIsToldOnceOnStandardError) {
  run({"add", "bank", "銀行"});
  std::filesystem::copy_file(users() + "/myej.idx", users() + "/myej.idx.bkup");
  std::filesystem::resize_file(users() + "/myej.idx", 4096);
  std::ofstream(users() + "/.changing-en").flush();
  const Outcome outcome = run({"find", "bank"});
  EXPECT_EQ(outcome.out, "1  bank  [noun]  銀行\n");
  EXPECT_EQ(outcome.err,
            "zavel: a change of your English entries had broken off: they are as they were before it\n");
  EXPECT_EQ(run({"find", "bank"}).err, "");
}

TEST_F(UserCommandTest, JsonHasTheEntry) {
  EXPECT_EQ(Json::parse(out({"add", "犬", "dog", "--reading", "いぬ", "--json"})),
            Json::parse(R"({"schema":1,"status":"added","folder":")" + users() +
                        R"(","entry":{"lang":"ja","word":"いぬ","kanji":"犬","pos":null,"phrase":null,)"
                        R"("meaning":"dog","examples":[],"sentences":[]}})"));
  EXPECT_EQ(
      Json::parse(out({"find", "犬", "--json"})),
      Json::parse(
          R"({"schema":1,"query":"犬","status":"found","entries":[{"number":1,"lang":"ja","word":"いぬ",)"
          R"("kanji":"犬","pos":null,"phrase":null,"meaning":"dog","examples":[],"sentences":[]}]})"));
  EXPECT_EQ(Json::parse(out({"edit", "犬", "--set", "meaning=hound", "--json"}))["entry"]["meaning"],
            "hound");
  const Json deleted = Json::parse(out({"delete", "犬", "--json"}));
  EXPECT_EQ(deleted["status"], "deleted");
  EXPECT_EQ(deleted["entries"].size(), 1u);
  EXPECT_EQ(Json::parse(out({"delete", "犬", "--json"}))["error"]["code"], "no_entry");
}

TEST_F(UserCommandTest, EveryCommandHasExamples) {
  for (const char* command : {"add", "edit", "find", "list", "delete", "arrange", "import", "export"}) {
    const Outcome help = run({command, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.out.starts_with(std::string("Examples:\n  zavel user ") + command)) << help.out;
  }
  EXPECT_EQ(run({}).status, 2);
  EXPECT_EQ(run({"ad"}).err, "zavel: there is no command \"user ad\"\nDid you mean: zavel user add\n");
}

TEST_F(UserCommandTest, DocumentedKeysAreAllThereAre) {
  std::ifstream in(ZAVEL_DOCS "/json.md");
  const std::string documented{std::istreambuf_iterator<char>(in), {}};
  for (const char* key :
       {"lang",     "word",    "kanji",    "pos",     "phrase", "meaning", "examples",     "sentences",
        "number",   "english", "japanese", "words",   "count",  "sets",    "bytes_before", "added",
        "replaced", "present", "skipped",  "refused", "line",   "reason"}) {
    EXPECT_NE(documented.find(std::string("`") + key + "`"), std::string::npos) << key;
  }
}

TEST_F(UserCommandTest, EveryFailureCodeIsDocumented) {
  std::ifstream in(ZAVEL_DOCS "/json.md");
  const std::string documented{std::istreambuf_iterator<char>(in), {}};
  for (const char* code : {"damaged_user_dictionary",
                           "editor",
                           "input",
                           "locked",
                           "long_path",
                           "no_folder",
                           "no_memory",
                           "not_stored",
                           "not_written",
                           "too_many_kanji",
                           "unclear_user_dictionary",
                           "unreadable",
                           "changed",
                           "no_entry",
                           "none_chosen",
                           "no_such_number",
                           "not_entries",
                           "refused",
                           "several_entries",
                           "too_long",
                           "too_many_alike"}) {
    EXPECT_NE(documented.find(std::string("`") + code + "`"), std::string::npos) << code;
  }
}

}  // namespace
}  // namespace zavel::host
