// What a look-up asks of the bilingual dictionary's manager, and what it makes of the answers.
#include <utility>

#include "lookup/MirellModule.h"
#include "platform/TextEncoding.h"
#include "shell/ShellTesting.h"

namespace zavel::test {
namespace {

using Lines = std::vector<std::string>;

// Answers as told, and notes what it was asked.
class NotingManager : public MirellDictionaryManager {
 public:
  std::string GetOrigin(const std::string& word) override {
    asked.push_back("origin " + word);
    return origin.empty() ? word : origin;
  }
  bool GetMidashiE(const std::string& word) override {
    asked.push_back("E " + word);
    return found;
  }
  bool GetMidashiJ(const std::string& word) override {
    asked.push_back("J " + word);
    return found;
  }
  uint32_t CountMidashiData() override { return count; }
  std::string GetMidashiData(uint32_t index) override {
    return "word" + std::to_string(index) + std::string(1, '\0');
  }
  bool NewGetImiE(const std::string& word, uint8_t filter, const std::string& keyword) override {
    asked.push_back("imi E " + word + " " + std::to_string(filter) + " " + keyword);
    return false;
  }
  bool NewGetImiJ(const std::string& word, uint8_t filter, const std::string& keyword) override {
    asked.push_back("imi J " + word + " " + std::to_string(filter) + " " + keyword);
    return false;
  }

  Lines asked;
  std::string origin;
  bool found = true;
  uint32_t count = 0;
};

// A host with a manager of its own.
class Manager : public ShellTest {
 protected:
  Manager() {
    auto own = std::make_unique<NotingManager>();
    manager = own.get();
    module_.setObjectODM(std::move(own));
    gMirellModule = &module_;
    writeDictList({item("oType", "StandardDictionary", "YES"), item("tType", "TranslationDictionary", "NO")});
  }
  ~Manager() override { gMirellModule = nullptr; }

  NotingManager* manager = nullptr;

 private:
  MirellModule module_;
};

TEST_F(Manager, OneOfTheHostsOutlivesTheControllers) {
  { Window window(kAllModes); }
  ASSERT_NE(gMirellModule, nullptr);
  EXPECT_EQ(gMirellModule->objectODM(), manager);
}

TEST_F(Manager, AnEnglishWordIsCutThenReducedToItsOrigin) {
  manager->origin = "go";
  Window window(kAllModes);
  window.look(std::string(49, 'a') + "み");
  EXPECT_EQ(manager->asked, (Lines{"origin " + std::string(49, 'a') + "\x82", "E go"}));
}

TEST_F(Manager, AJapaneseWordIsCutInsideACharacterToo) {
  Window window(kAllModes);
  std::string kana;
  for (int i = 0; i < 24; ++i) kana += "み";  // 48 bytes
  window.look(kana + "aみ");
  EXPECT_EQ(manager->asked, Lines{"J " + sjis(kana) + "a\x82"});
}

TEST_F(Manager, AllHeadwordsArriveThoughTheyPassTheLimit) {
  manager->count = 500;
  Window window(kAllModes);
  EXPECT_EQ(referenceMaxCount, 400u);
  S_Controller& tab = window.dictionary();
  EXPECT_EQ(tab.lookup(TextEncoding::adoptSjis("word"), item("oType", "", "YES"), true, 0),
            LookupLimitReached);
  ASSERT_EQ(tab.hwResultArray().size(), 500u);
  EXPECT_EQ(window.rows()[0], "word0");
  EXPECT_EQ(window.rows()[499], "word499");
}

TEST_F(Manager, OneHeadwordBelowTheLimitIsNotTheLimit) {
  manager->count = 399;
  Window window(kAllModes);
  S_Controller& tab = window.dictionary();
  EXPECT_EQ(tab.lookup(TextEncoding::adoptSjis("word"), item("oType", "", "YES"), true, 0), LookupFound);
  EXPECT_EQ(tab.hwResultArray().size(), 399u);
}

TEST_F(Manager, AnswersOfASearchThatFailedAreNotTaken) {
  manager->count = 5;
  manager->found = false;
  Window window(kAllModes);
  window.look("word");
  EXPECT_EQ(window.rows(), Lines{});
  EXPECT_EQ(window.detail(), "No entries");
}

TEST_F(Manager, ARowThatCannotBeShownIsStillABilingualOne) {
  manager->count = 1;
  Window window(kAllModes);
  window.look("みち");
  EXPECT_EQ(manager->asked, (Lines{"J " + sjis("みち"), "imi J word0 0 word0"}));
  EXPECT_EQ(window.dictionary().resultType(), S_Controller::kMirellRow);
  EXPECT_EQ(window.detail(), "");
  EXPECT_EQ(window.dictionary().iPodOutTitle(), "");
  window.dictionary().clear();
  EXPECT_EQ(window.dictionary().resultType(), S_Controller::kNoRow);
}

// The dictionary on disk in place of the host's manager.
class Dictionary : public ShellTest {};

TEST_F(Dictionary, HalfACharacterAtTheCutIsNotTakenOff) {
  const std::string word(49, 'a');
  DicWriter writer;
  writer.addE(word, entryE(word, "名", "語"));
  writeDictionary(writer);
  Window window(kAllModes);
  window.look(word + "み");
  EXPECT_EQ(window.rows(), Lines{});
  window.look(word);
  EXPECT_EQ(window.rows(), Lines{word + " [語]"});
}

TEST_F(Dictionary, TheNoteOfAJapaneseRowIsJapanese) {
  writeDictionary();
  platform.ownBundle.texts["OiPodTitle"] = "word %@";
  Window window(kAllModes);
  window.look("take");
  EXPECT_TRUE(window.dictionary().iPodOutEnglish());
  window.look("みち");
  EXPECT_EQ(window.dictionary().iPodOutTitle(), "word みち");
  EXPECT_FALSE(window.dictionary().iPodOutEnglish());
}

}  // namespace
}  // namespace zavel::test
