#include "config/WorkStyles.h"

#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/ZavelStyle.h"
#include "platform/PropertyLists.h"
#include "support/FaultyStorage.h"

namespace zavel::test {
namespace {

class WorkStyles : public ConfigTest {
 protected:
  WorkStyles() { zavelStyleInitialize(); }
  ~WorkStyles() override { zavelStyleTerminate(); }

  static std::vector<std::string> names(StyleLanguage language) {
    std::vector<std::string> names;
    const Value styles = defaultStyles(language);
    for (const Value& style : *styles.find("Style")->asArray()) names.push_back(style.find("Name")->string());
    return names;
  }
};

TEST_F(WorkStyles, AreTenInTheUsersWords) {
  EXPECT_EQ(
      names(StyleLanguage::kEnglish),
      (std::vector<std::string>{"General", "Papers and reports", "Business letters", "E-mail", "Conversation",
                                "News", "Web pages", "Computers", "Science and technology", "Instructions"}));
  EXPECT_EQ(names(StyleLanguage::kJapanese),
            (std::vector<std::string>{"一般", "論文・レポート", "ビジネス文書", "メール", "会話", "ニュース",
                                      "ウェブページ", "コンピューター", "科学・技術", "取扱説明書"}));
}

TEST_F(WorkStyles, AnIdIsThePlaceInTheList) {
  const Value styles = defaultStyles(StyleLanguage::kEnglish);
  for (int place = 0; place < 10; ++place)
    EXPECT_EQ((*styles.find("Style")->asArray())[static_cast<size_t>(place)].find("ID")->integer(), place);
}

TEST_F(WorkStyles, LoadWholeOnceTheyAreWritten) {
  ASSERT_TRUE(writeStylesIfMissing(at("new/folder/ZavelStyle"), StyleLanguage::kJapanese));
  ASSERT_TRUE(zavelStyleSetTStyleUrl(at("new/folder/ZavelStyle").c_str()));
  // Style and They; Shugo, Ukemi and Kanshi. All learn.
  const std::vector<int> rows[] = {
      {0, 0, 0, 0, 0},  // General
      {1, 1, 1, 0, 0},  // Papers and reports
      {0, 0, 1, 0, 0},  // Business letters
      {0, 0, 0, 0, 0},  // E-mail
      {2, 0, 0, 1, 1},  // Conversation
      {1, 0, 2, 0, 0},  // News
      {0, 1, 1, 0, 0},  // Web pages
      {0, 1, 3, 0, 0},  // Computers
      {1, 1, 2, 0, 0},  // Science and technology
      {0, 1, 3, 1, 0},  // Instructions
  };
  int id = 0;
  for (const std::vector<int>& row : rows) {
    ASSERT_TRUE(zavelStyleLoadTranslationStyleWithID(id)) << id;
    EXPECT_EQ((std::vector<int>{zavelStyleEtojStyle(), zavelStyleEtojThey(), zavelStyleJtoeShugo(),
                                zavelStyleJtoeUkemi(), zavelStyleJtoeKanshi()}),
              row)
        << id;
    EXPECT_EQ(zavelStyleEtojLearning(), 1) << id;
    EXPECT_EQ(zavelStyleJtoeLearning(), 1) << id;
    ++id;
  }
}

TEST_F(WorkStyles, EveryApplicationWithAKeyHasAChoice) {
  ASSERT_TRUE(writeStylesIfMissing(at("ZavelStyle"), StyleLanguage::kEnglish));
  ASSERT_TRUE(zavelStyleSetTStyleUrl(at("ZavelStyle").c_str()));
  const std::vector<std::pair<int, int>> choices = {{1, 0}, {2, 0}, {3, 0},  {4, 0},  {5, 0}, {6, 0},
                                                    {7, 0}, {9, 3}, {17, 6}, {20, 0}, {21, 0}};
  for (const auto& [applet, style] : choices) {
    int current = -1;
    EXPECT_TRUE(zavelStyleLoadTitleAndCurrentID(applet, &current)) << applet;
    EXPECT_EQ(current, style) << applet;
  }
  EXPECT_EQ(defaultStyles(StyleLanguage::kEnglish).find("Selection")->asDict()->size(), choices.size());
}

TEST_F(WorkStyles, TechnicalDictionariesGoToTheStylesThatExpectThem) {
  const Value styles = defaultStyles(StyleLanguage::kEnglish, {"compdic", "medical.sdej"});
  std::string with;
  for (const Value& style : *styles.find("Style")->asArray()) {
    const Value* names = style.find("EJ")->find("TD");
    if (!names) continue;
    with += style.find("Name")->string() + ";";
    EXPECT_EQ(*names, (Value::Array{"compdic", "medical.sdej"}));
  }
  EXPECT_EQ(with, "General;Computers;Science and technology;Instructions;");
  const Value plain = defaultStyles(StyleLanguage::kEnglish);
  for (const Value& style : *plain.find("Style")->asArray()) EXPECT_EQ(style.find("EJ")->find("TD"), nullptr);
}

TEST_F(WorkStyles, AreWrittenAsXmlAndNeverOverAFile) {
  ASSERT_TRUE(writeStylesIfMissing(at("ZavelStyle"), StyleLanguage::kEnglish));
  EXPECT_EQ(readText(at("ZavelStyle.plist")).substr(0, 5), "<?xml");
  writeText(at("ZavelStyle.plist"), "mine");
  EXPECT_TRUE(writeStylesIfMissing(at("ZavelStyle"), StyleLanguage::kEnglish));
  EXPECT_EQ(readText(at("ZavelStyle.plist")), "mine");
}

TEST_F(WorkStyles, AreWrittenWholeOrNotAtAll) {
  writeText(at("file"), "");
  EXPECT_FALSE(writeStylesIfMissing(at("file/below/ZavelStyle"), StyleLanguage::kEnglish));
  const Value whole = defaultStyles(StyleLanguage::kEnglish);
  FaultyStorage disk;
  long n = 1;
  for (;; ++n) {
    disk.failAt(n);
    const bool written = writeStylesIfMissing(at("ZavelStyle"), StyleLanguage::kEnglish);
    const long faults = disk.faults();
    disk.failAt(0);
    Value found;
    if (platform.propertyLists().readFile(at("ZavelStyle.plist"), &found)) {
      EXPECT_EQ(found, whole) << n;
    } else {
      EXPECT_FALSE(exists(at("ZavelStyle.plist"))) << n;
      EXPECT_FALSE(written) << n;
    }
    if (faults == 0) {
      EXPECT_TRUE(written);
      break;
    }
    storage().remove(at("ZavelStyle.plist"));
  }
  EXPECT_GT(n, 5);
}

}  // namespace
}  // namespace zavel::test
