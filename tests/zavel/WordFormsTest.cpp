#include "WordForms.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

using Strings = std::vector<std::string>;

std::vector<Form> table(const std::vector<std::pair<int, std::string>>& rows) {
  std::vector<Form> forms;
  for (const auto& [code, form] : rows) forms.push_back({code, form, "", ""});
  return forms;
}

const std::vector<Form> kSaw =
    table({{6, "saw"}, {6, "see"}, {7, "saws"}, {7, "sees"}, {8, "saw"}, {9, "seen"}});

TEST(BasesIn, AnotherWordsFormLeadsToThatWord) {
  const std::vector<InflectedFrom> bases = basesIn(kSaw, "saw");
  ASSERT_EQ(bases.size(), 1u);
  EXPECT_EQ(bases[0].base, "see");
  EXPECT_EQ(bases[0].namesFor(kAllForms), Strings{"past"});
  EXPECT_EQ(bases[0].paradigms(), kVerbForms);
}

TEST(BasesIn, SeveralBasesAndSeveralWays) {
  const std::vector<InflectedFrom> bases =
      basesIn(table({{1, "leaf"}, {1, "leave"}, {2, "leaves"}, {6, "leave"}, {7, "leaves"}}), "Leaves");
  ASSERT_EQ(bases.size(), 2u);
  EXPECT_EQ(bases[0].base, "leaf");
  EXPECT_EQ(bases[0].namesFor(kAllForms), Strings{"plural"});
  EXPECT_EQ(bases[1].base, "leave");
  EXPECT_EQ(bases[1].namesFor(kAllForms), (Strings{"plural", "third person singular"}));
  EXPECT_EQ(bases[1].namesFor(kVerbForms), Strings{"third person singular"});
  EXPECT_EQ(bases[1].namesFor(kAdjectiveForms), Strings{});
}

TEST(BasesIn, ABaseIsNoFormOfItself) {
  EXPECT_TRUE(basesIn(table({{6, "put"}, {8, "put"}, {9, "put"}}), "put").empty());
  EXPECT_TRUE(basesIn(kSaw, "go").empty());
  EXPECT_TRUE(basesIn({}, "go").empty());
}

TEST(BasesIn, TheOtherPersonsOfBe) {
  const std::vector<Form> be = table({{6, "be"}, {7, "am"}, {7, "are"}, {7, "is"}});
  EXPECT_EQ(basesIn(be, "are").at(0).namesFor(kAllForms), Strings{"present"});
  EXPECT_EQ(basesIn(be, "is").at(0).namesFor(kAllForms), Strings{"third person singular"});
}

TEST(IsBaseIn, TellsBasesFromForms) {
  EXPECT_TRUE(isBaseIn(kSaw, "saw"));
  EXPECT_TRUE(isBaseIn(kSaw, "see"));
  EXPECT_FALSE(isBaseIn(kSaw, "saws"));
}

TEST(ParadigmsOf, FollowTheLabels) {
  EXPECT_EQ(paradigmsOf({"名", "Ｃ"}), kNounForms);
  EXPECT_EQ(paradigmsOf({"動"}), kVerbForms);
  EXPECT_EQ(paradigmsOf({"副"}), kAdjectiveForms);
  EXPECT_EQ(paradigmsOf({"名", "動"}), kNounForms | kVerbForms);
  EXPECT_EQ(paradigmsOf({"間"}), 0u);
  EXPECT_EQ(paradigmsOf({}), kAllForms);
}

TEST(FormName, IsThatOfItsCode) {
  const Strings names = {"",
                         "singular",
                         "plural",
                         "positive",
                         "comparative",
                         "superlative",
                         "present",
                         "third person singular",
                         "past",
                         "past participle",
                         "present participle",
                         ""};
  for (int code = 0; code <= 11; ++code) EXPECT_EQ(formName(code), names[static_cast<size_t>(code)]);
}

}  // namespace
}  // namespace zavel::host
