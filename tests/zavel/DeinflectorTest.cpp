#include "Deinflector.h"

#include <gtest/gtest.h>

#include <chrono>

namespace zavel::host {
namespace {

using Strings = std::vector<std::string>;

struct Case {
  const char* typed;
  const char* base;
  Inflects inflects;
  Strings reasons;
};

// The chain from `typed` to `base`; "no" where it does not lead there.
Strings chain(const char* typed, const char* base, Inflects inflects, bool plain = false) {
  for (const BaseForm& form : baseFormsOf(typed, plain)) {
    if (form.word == base && form.inflects == inflects) return form.reasons;
  }
  return {"no"};
}

void check(const std::vector<Case>& cases) {
  for (const Case& row : cases) EXPECT_EQ(chain(row.typed, row.base, row.inflects), row.reasons) << row.typed;
}

TEST(Deinflector, PastOfEveryGodanRow) {
  check({{"買った", "買う", Inflects::kGodan, {"past"}},
         {"書いた", "書く", Inflects::kGodan, {"past"}},
         {"泳いだ", "泳ぐ", Inflects::kGodan, {"past"}},
         {"話した", "話す", Inflects::kGodan, {"past"}},
         {"待った", "待つ", Inflects::kGodan, {"past"}},
         {"死んだ", "死ぬ", Inflects::kGodan, {"past"}},
         {"飛んだ", "飛ぶ", Inflects::kGodan, {"past"}},
         {"読んだ", "読む", Inflects::kGodan, {"past"}},
         {"走った", "走る", Inflects::kGodan, {"past"}},
         {"行った", "行く", Inflects::kGodan, {"past"}},
         {"いった", "いく", Inflects::kGodan, {"past"}},
         {"問うた", "問う", Inflects::kGodan, {"past"}}});
}

TEST(Deinflector, EndingsOfAGodanVerb) {
  check({{"書かない", "書く", Inflects::kGodan, {"negative"}},
         {"書かず", "書く", Inflects::kGodan, {"negative (ず)"}},
         {"書きます", "書く", Inflects::kGodan, {"polite"}},
         {"書きました", "書く", Inflects::kGodan, {"past", "polite"}},
         {"書きません", "書く", Inflects::kGodan, {"negative", "polite"}},
         {"書きませんでした", "書く", Inflects::kGodan, {"past", "negative", "polite"}},
         {"書きましょう", "書く", Inflects::kGodan, {"volitional", "polite"}},
         {"書いて", "書く", Inflects::kGodan, {"te form"}},
         {"書いている", "書く", Inflects::kGodan, {"progressive"}},
         {"書いてる", "書く", Inflects::kGodan, {"progressive"}},
         {"書いていました", "書く", Inflects::kGodan, {"past", "progressive"}},
         {"書いたら", "書く", Inflects::kGodan, {"conditional (たら)"}},
         {"書いちゃった", "書く", Inflects::kGodan, {"past", "completion (てしまう)"}},
         {"書いてください", "書く", Inflects::kGodan, {"request (てください)"}},
         {"書けば", "書く", Inflects::kGodan, {"conditional (ば)"}},
         {"書ける", "書く", Inflects::kGodan, {"potential"}},
         {"書け", "書く", Inflects::kGodan, {"imperative"}},
         {"書こう", "書く", Inflects::kGodan, {"volitional"}},
         {"書かれる", "書く", Inflects::kGodan, {"passive"}},
         {"書かせる", "書く", Inflects::kGodan, {"causative"}},
         {"書かされた", "書く", Inflects::kGodan, {"past", "causative passive"}},
         {"書きたくなかった", "書く", Inflects::kGodan, {"past", "negative", "desire (たい)"}},
         {"書いてもらった", "書く", Inflects::kGodan, {"past", "favour received (てもらう)"}},
         {"書きに", "書く", Inflects::kGodan, {"purpose (に)"}},
         {"いらっしゃいます", "いらっしゃる", Inflects::kGodan, {"polite"}},
         {"書きすぎる", "書く", Inflects::kGodan, {"excess (すぎる)"}},
         {"書きながら", "書く", Inflects::kGodan, {"while (ながら)"}}});
}

TEST(Deinflector, EndingsOfAnIchidanVerb) {
  check({{"食べた", "食べる", Inflects::kIchidan, {"past"}},
         {"食べたい", "食べる", Inflects::kIchidan, {"desire (たい)"}},
         {"食べます", "食べる", Inflects::kIchidan, {"polite"}},
         {"食べない", "食べる", Inflects::kIchidan, {"negative"}},
         {"食べられる", "食べる", Inflects::kIchidan, {"potential or passive"}},
         {"食べれる", "食べる", Inflects::kIchidan, {"potential"}},
         {"食べさせる", "食べる", Inflects::kIchidan, {"causative"}},
         {"食べろ", "食べる", Inflects::kIchidan, {"imperative"}},
         {"食べよう", "食べる", Inflects::kIchidan, {"volitional"}},
         {"食べれば", "食べる", Inflects::kIchidan, {"conditional (ば)"}},
         {"食べられなかった", "食べる", Inflects::kIchidan, {"past", "negative", "potential or passive"}},
         {"食べさせられたくなかった",
          "食べる",
          Inflects::kIchidan,
          {"past", "negative", "desire (たい)", "potential or passive", "causative"}},
         {"見た", "見る", Inflects::kIchidan, {"past"}}});
}

TEST(Deinflector, EndingsOfAnAdjective) {
  check({{"美しく", "美しい", Inflects::kAdjective, {"adverbial"}},
         {"美しかった", "美しい", Inflects::kAdjective, {"past"}},
         {"美しくて", "美しい", Inflects::kAdjective, {"te form"}},
         {"美しくない", "美しい", Inflects::kAdjective, {"negative"}},
         {"美しくなかった", "美しい", Inflects::kAdjective, {"past", "negative"}},
         {"美しければ", "美しい", Inflects::kAdjective, {"conditional (ば)"}},
         {"美しさ", "美しい", Inflects::kAdjective, {"noun (さ)"}},
         {"美しいです", "美しい", Inflects::kAdjective, {"polite"}},
         {"美しかったです", "美しい", Inflects::kAdjective, {"polite", "past"}}});
}

TEST(Deinflector, TheTwoIrregularVerbs) {
  check({{"来た", "来る", Inflects::kKuru, {"past"}},
         {"来ない", "来る", Inflects::kKuru, {"negative"}},
         {"こなかった", "くる", Inflects::kKuru, {"past", "negative"}},
         {"きます", "くる", Inflects::kKuru, {"polite"}},
         {"来い", "来る", Inflects::kKuru, {"imperative"}},
         {"来られる", "来る", Inflects::kKuru, {"potential or passive"}},
         {"した", "する", Inflects::kSuru, {"past"}},
         {"愛している", "愛する", Inflects::kSuru, {"progressive"}},
         {"勉強する", "勉強", Inflects::kWithSuru, {"verb with する"}},
         {"勉強しました", "勉強", Inflects::kWithSuru, {"past", "polite", "verb with する"}},
         {"勉強できる", "勉強", Inflects::kWithSuru, {"potential", "verb with する"}},
         {"勉強されない", "勉強", Inflects::kWithSuru, {"negative", "passive", "verb with する"}}});
}

TEST(Deinflector, EndingsOfANaAdjective) {
  check({{"静かな", "静か", Inflects::kNa, {"attributive"}},
         {"静かに", "静か", Inflects::kNa, {"adverbial"}},
         {"静かだ", "静か", Inflects::kNa, {"predicative (だ)"}},
         {"静かで", "静か", Inflects::kNa, {"te form"}},
         {"静かさ", "静か", Inflects::kNa, {"noun (さ)"}},
         {"静かだった", "静か", Inflects::kNa, {"past"}},
         {"元気だった", "元気", Inflects::kNa, {"past"}},
         {"変な", "変", Inflects::kNa, {"attributive"}},
         {"静かだったら", "静か", Inflects::kNa, {"conditional (たら)"}},
         {"静かなら", "静か", Inflects::kNa, {"conditional (なら)"}},
         {"静かならば", "静か", Inflects::kNa, {"conditional (なら)"}},
         {"静かでも", "静か", Inflects::kNa, {"concession (ても)"}},
         {"静かだろう", "静か", Inflects::kNa, {"presumption (だろう)"}},
         {"静かでしょう", "静か", Inflects::kNa, {"presumption (だろう)", "polite"}},
         {"静かです", "静か", Inflects::kNa, {"polite"}},
         {"静かでした", "静か", Inflects::kNa, {"past", "polite"}},
         {"静かではない", "静か", Inflects::kNa, {"negative"}},
         {"静かじゃない", "静か", Inflects::kNa, {"negative"}},
         {"静かでない", "静か", Inflects::kNa, {"negative"}},
         {"静かではなかった", "静か", Inflects::kNa, {"past", "negative"}},
         {"静かではありません", "静か", Inflects::kNa, {"negative", "polite"}},
         {"静かじゃありませんでした", "静か", Inflects::kNa, {"past", "negative", "polite"}},
         {"静かでなければならない", "静か", Inflects::kNa, {"obligation (なければならない)"}},
         {"静かである", "静か", Inflects::kNa, {"literary (である)"}},
         {"静かであった", "静か", Inflects::kNa, {"past", "literary (である)"}},
         {"元気になった", "元気", Inflects::kNa, {"past", "becoming (になる)"}},
         {"静かにして", "静か", Inflects::kNa, {"te form", "making (にする)"}},
         {"静かそうだ", "静か", Inflects::kNa, {"predicative (だ)", "appearance (そう)"}},
         {"静かすぎる", "静か", Inflects::kNa, {"excess (すぎる)"}}});
}

TEST(Deinflector, WhatMustBe) {
  const Strings mustIfNot{"obligation (なければならない)"}, mustWithout{"obligation (なくてはならない)"};
  check(
      {{"食べなければならない", "食べる", Inflects::kIchidan, mustIfNot},
       {"来なければならない", "来る", Inflects::kKuru, mustIfNot},
       {"こなければならない", "くる", Inflects::kKuru, mustIfNot},
       {"しなければいけない", "する", Inflects::kSuru, mustIfNot},
       {"行かなければだめ", "行く", Inflects::kGodan, mustIfNot},
       {"食べなきゃ", "食べる", Inflects::kIchidan, mustIfNot},
       {"行かなきゃならない", "行く", Inflects::kGodan, mustIfNot},
       {"行かなきゃいけない", "行く", Inflects::kGodan, mustIfNot},
       {"行かなきゃだめ", "行く", Inflects::kGodan, mustIfNot},
       {"行かなくては", "行く", Inflects::kGodan, mustWithout},
       {"行かなくてはならない", "行く", Inflects::kGodan, mustWithout},
       {"行かなくてはいけない", "行く", Inflects::kGodan, mustWithout},
       {"行かなくてはだめ", "行く", Inflects::kGodan, mustWithout},
       {"行かなくちゃ", "行く", Inflects::kGodan, mustWithout},
       {"行かなくちゃならない", "行く", Inflects::kGodan, mustWithout},
       {"行かなくちゃいけない", "行く", Inflects::kGodan, mustWithout},
       {"行かなくちゃだめ", "行く", Inflects::kGodan, mustWithout},
       {"行かないといけない", "行く", Inflects::kGodan, {"obligation (ないといけない)"}},
       {"行かないとだめ", "行く", Inflects::kGodan, {"obligation (ないといけない)"}},
       {"行かねば", "行く", Inflects::kGodan, {"obligation (ねばならない)"}},
       {"行かねばならない", "行く", Inflects::kGodan, {"obligation (ねばならない)"}},
       {"行かねばならぬ", "行く", Inflects::kGodan, {"obligation (ねばならない)"}},
       {"せねばならない", "する", Inflects::kSuru, {"obligation (ねばならない)"}},
       {"来ねばならない", "来る", Inflects::kKuru, {"obligation (ねばならない)"}},
       {"食べねばなりません", "食べる", Inflects::kIchidan, {"polite", "obligation (ねばならない)"}},
       {"美しくなければならない", "美しい", Inflects::kAdjective, mustIfNot},
       {"食べなければならなかった", "食べる", Inflects::kIchidan, {"past", "obligation (なければならない)"}},
       {"食べなければなりません", "食べる", Inflects::kIchidan, {"polite", "obligation (なければならない)"}},
       {"食べなければなりませんでした",
        "食べる",
        Inflects::kIchidan,
        {"past", "polite", "obligation (なければならない)"}},
       {"行かないといけません", "行く", Inflects::kGodan, {"polite", "obligation (ないといけない)"}},
       {"勉強しなければならない",
        "勉強",
        Inflects::kWithSuru,
        {"obligation (なければならない)", "verb with する"}}});
}

TEST(Deinflector, WhatMustNotBeAndWhatMay) {
  check({{"食べてはいけない", "食べる", Inflects::kIchidan, {"prohibition (てはいけない)"}},
         {"飲んではならない", "飲む", Inflects::kGodan, {"prohibition (てはならない)"}},
         {"飲んじゃいけません", "飲む", Inflects::kGodan, {"polite", "prohibition (てはいけない)"}},
         {"飲んではなりません", "飲む", Inflects::kGodan, {"polite", "prohibition (てはならない)"}},
         {"食べちゃだめ", "食べる", Inflects::kIchidan, {"prohibition (てはだめ)"}},
         {"飲んではだめだ", "飲む", Inflects::kGodan, {"predicative (だ)", "prohibition (てはだめ)"}},
         {"食べてもいい", "食べる", Inflects::kIchidan, {"permission (てもいい)"}},
         {"食べてもいいです", "食べる", Inflects::kIchidan, {"polite", "permission (てもいい)"}}});
}

TEST(Deinflector, EndingsOfSpeech) {
  check({{"飲んじゃった", "飲む", Inflects::kGodan, {"past", "completion (てしまう)"}},
         {"食べちゃう", "食べる", Inflects::kIchidan, {"completion (てしまう)"}},
         {"食べちゃ", "食べる", Inflects::kIchidan, {"topic (ては)"}},
         {"飲んじゃ", "飲む", Inflects::kGodan, {"topic (ては)"}},
         {"食べないで", "食べる", Inflects::kIchidan, {"negative (ないで)"}},
         {"食べてほしかった", "食べる", Inflects::kIchidan, {"past", "desire (てほしい)"}},
         {"食べづらい", "食べる", Inflects::kIchidan, {"difficulty (づらい)"}},
         {"食べつつ", "食べる", Inflects::kIchidan, {"while (つつ)"}},
         {"食べそうだった", "食べる", Inflects::kIchidan, {"past", "appearance (そう)"}},
         {"美しそうな", "美しい", Inflects::kAdjective, {"attributive", "appearance (そう)"}},
         {"美しかったり", "美しい", Inflects::kAdjective, {"listing (たり)"}},
         {"美しくては", "美しい", Inflects::kAdjective, {"topic (ては)"}}});
}

// Particles and what follows a whole form are words of their own.
TEST(Deinflector, WhatIsNoEnding) {
  for (const char* word :
       {"食べるな", "食べるだろう", "食べるらしい", "食べるべき", "食べるから", "食べましたか"}) {
    EXPECT_EQ(chain(word, "食べる", Inflects::kIchidan), Strings{"no"}) << word;
  }
  EXPECT_EQ(chain("しねば", "する", Inflects::kSuru), Strings{"no"});  // of 死ぬ
  EXPECT_EQ(chain("静かか", "静か", Inflects::kNa), Strings{"no"});
  EXPECT_EQ(chain("静かない", "静か", Inflects::kNa), Strings{"no"});
  EXPECT_EQ(chain("静かなだった", "静か", Inflects::kNa), Strings{"no"});
}

TEST(Deinflector, KitaruHasNoPassiveAndNoPotential) {
  for (const char* word : {"来られる", "来れる", "来られた", "来られない", "来れます"}) {
    EXPECT_EQ(chain(word, "来る", Inflects::kGodan), Strings{"no"}) << word;
    EXPECT_NE(chain(word, "来る", Inflects::kKuru), Strings{"no"}) << word;
  }
  EXPECT_EQ(chain("来たられる", "来たる", Inflects::kGodan), Strings{"no"});
  EXPECT_EQ(chain("きたれる", "きたる", Inflects::kGodan), Strings{"no"});
  EXPECT_EQ(chain("来らず", "来る", Inflects::kGodan), Strings{"negative (ず)"});
  EXPECT_EQ(chain("入られる", "入る", Inflects::kGodan), Strings{"passive"});
}

TEST(Deinflector, KuruComesBeforeKitaru) {
  const std::vector<BaseForm> bases = baseFormsOf("来れば", false);
  ASSERT_FALSE(bases.empty());
  EXPECT_EQ(bases.front().inflects, Inflects::kKuru);
  EXPECT_EQ(bases.front().reasons, Strings{"conditional (ば)"});
}

TEST(Deinflector, SimplestFirst) {
  size_t least = 0;
  for (const BaseForm& form : baseFormsOf("食べられなかった", false)) {
    EXPECT_GE(form.reasons.size(), least);
    least = form.reasons.size();
  }
  EXPECT_EQ(least, 3u);
  EXPECT_EQ(baseFormsOf("行った", false).front().word, "行く");
}

TEST(Deinflector, NoReasonTwiceAndNoTwoVoices) {
  for (const char* word : {"食べられられる", "書きたくなくなくなかった", "書かれられた"}) {
    for (const BaseForm& form : baseFormsOf(word, false)) {
      const Strings& reasons = form.reasons;
      int voices = 0;
      for (size_t i = 0; i < reasons.size(); ++i) {
        for (size_t j = i + 1; j < reasons.size(); ++j) EXPECT_NE(reasons[i], reasons[j]) << word;
        if (reasons[i].find("passive") != std::string::npos || reasons[i] == "potential") ++voices;
      }
      EXPECT_LE(voices, 1) << word;
    }
  }
}

TEST(Deinflector, NothingFollowsAFinishedForm) {
  EXPECT_EQ(chain("書いたた", "書く", Inflects::kGodan), Strings{"no"});
  EXPECT_EQ(chain("書けばない", "書く", Inflects::kGodan), Strings{"no"});
  EXPECT_EQ(chain("書きたいます", "書く", Inflects::kGodan), Strings{"no"});
}

TEST(Deinflector, PlainLeavesOutWhatLooksLikeOtherWords) {
  for (const char* word : {"書ける", "書け", "書かれる", "書き", "書こう", "書いちゃ"}) {
    EXPECT_EQ(chain(word, "書く", Inflects::kGodan, true), Strings{"no"}) << word;
  }
  for (const char* word : {"静かな", "静かに", "静かだ", "静かで", "静かさ", "静かなら"}) {
    EXPECT_EQ(chain(word, "静か", Inflects::kNa, true), Strings{"no"}) << word;
  }
  EXPECT_EQ(chain("静かだった", "静か", Inflects::kNa, true), Strings{"past"});
  EXPECT_EQ(chain("書けない", "書く", Inflects::kGodan, true), (Strings{"negative", "potential"}));
  EXPECT_EQ(chain("書いた", "書く", Inflects::kGodan, true), Strings{"past"});
}

TEST(Deinflector, WordsWithoutEndingsHaveNoBase) {
  for (const char* word : {"", "a", "猫", "パン", "た", "\xFF\xFF\xFF"}) {
    EXPECT_TRUE(baseFormsOf(word, false).empty()) << word;
  }
}

TEST(Deinflector, AnythingEndsSoon) {
  std::string word;
  for (int i = 0; i < 30; ++i) word += "ている";
  const auto begin = std::chrono::steady_clock::now();
  for (size_t length = 3; length <= word.size(); length += 3) baseFormsOf(word.substr(0, length), false);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST(InflectsSo, AsksForTheClassOfTheBase) {
  EXPECT_TRUE(inflectsSo({"行く", Inflects::kGodan, {}}, {"動カ五", "自"}));
  EXPECT_FALSE(inflectsSo({"行く", Inflects::kGodan, {}}, {"動ラ五"}));
  EXPECT_FALSE(inflectsSo({"行く", Inflects::kIchidan, {}}, {"動カ五"}));
  EXPECT_FALSE(inflectsSo({"猫", Inflects::kGodan, {}}, {"名"}));
  EXPECT_TRUE(inflectsSo({"買う", Inflects::kGodan, {}}, {"動ワ五"}));
  EXPECT_TRUE(inflectsSo({"食べる", Inflects::kIchidan, {}}, {"動一段", "他"}));
  EXPECT_FALSE(inflectsSo({"走る", Inflects::kIchidan, {}}, {"動ラ五"}));
  EXPECT_TRUE(inflectsSo({"美しい", Inflects::kAdjective, {}}, {"形"}));
  EXPECT_FALSE(inflectsSo({"美しい", Inflects::kAdjective, {}}, {"形動"}));
  EXPECT_TRUE(inflectsSo({"来る", Inflects::kKuru, {}}, {"動カ変"}));
  EXPECT_TRUE(inflectsSo({"する", Inflects::kSuru, {}}, {"動サ変"}));
  EXPECT_TRUE(inflectsSo({"勉強", Inflects::kWithSuru, {}}, {"名", "サ変"}));
  EXPECT_FALSE(inflectsSo({"猫", Inflects::kWithSuru, {}}, {"名"}));
  EXPECT_TRUE(inflectsSo({"元気", Inflects::kNa, {}}, {"形動", "名"}));
  EXPECT_FALSE(inflectsSo({"猫", Inflects::kNa, {}}, {"名"}));
  EXPECT_FALSE(inflectsSo({"美しい", Inflects::kNa, {}}, {"形"}));
  EXPECT_FALSE(inflectsSo({"食べる", Inflects::kIchidan, {}}, {}));
}

}  // namespace
}  // namespace zavel::host
