#include "lookup/MirellModule.h"

#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

// A folder with a small dictionary.
class Dictionary {
 public:
  Dictionary() {
    DicWriter writer;
    writer.addE("take", entryE("take", "動", "取る"));
    writer.addJ("みち", "道", entryJ("みち", "道", "road"));
    writer.write(folder_.path());
  }
  const std::string& path() const { return folder_.path(); }

 private:
  TempFolder folder_;
};

class FixedFont : public FontMetrics {
 public:
  FontHeights heights(const std::string& name, double size) override {
    asked = name;
    askedSize = size;
    return {18.4, -5.9};
  }
  std::string asked;
  double askedSize = 0;
};

using Lines = std::vector<std::string>;

TEST(MirellModuleLoad, MakesTheManagerAndAnEmptyResultFile) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  LogLines log;
  MirellModule module;
  EXPECT_EQ(module.objectODM(), nullptr);
  EXPECT_TRUE(module.load("kenkyu"));
  ASSERT_NE(module.objectODM(), nullptr);
  EXPECT_TRUE(module.objectODM()->initialized);
  EXPECT_EQ(module.cachePath(), table.cacheFolder() + "/kenkyu");
  EXPECT_EQ(module.objectODM()->outputSpec.path(), module.cachePath());
  std::string text, record;
  EXPECT_TRUE(platform().forkedFiles().read(module.cachePath(), "styl", 128, &text, &record));
  EXPECT_EQ(text, "");
  EXPECT_EQ(record, "");
  EXPECT_EQ(LogLines::lines, Lines{});
}

TEST(MirellModuleLoad, AddsNoSecondSeparatorToAFolderThatHasOne) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path() + "/", "/helper");
  MirellModule module;
  EXPECT_TRUE(module.load("kenkyu"));
  EXPECT_TRUE(module.objectODM()->initialized);
}

TEST(MirellModuleLoad, WithoutADictionaryFolderIsFalseWithoutALogLine) {
  const PathTable table("", "/helper");
  LogLines log;
  MirellModule module;
  EXPECT_FALSE(module.load("kenkyu"));
  EXPECT_EQ(module.objectODM(), nullptr);
  EXPECT_EQ(LogLines::lines, Lines{});
}

TEST(MirellModuleLoad, WithoutAPathTableIsFalseWithoutALogLine) {
  LogLines log;
  MirellModule module;
  EXPECT_FALSE(module.load("kenkyu"));
  EXPECT_EQ(LogLines::lines, Lines{});
}

TEST(MirellModuleLoad, AFolderPathOf255BytesGivesNoManager) {
  const PathTable table("/" + std::string(254, 'd'), "/helper");
  LogLines log;
  MirellModule module;
  EXPECT_FALSE(module.load("kenkyu"));
  EXPECT_EQ(module.objectODM(), nullptr);
  EXPECT_EQ(LogLines::lines, (Lines{"Initialize Error : Kenkyuu Dictionary."}));
}

TEST(MirellModuleLoad, AFolderPathOf254BytesIsTakenBeforeItsSeparatorIsAdded) {
  const PathTable table("/" + std::string(253, 'd'), "/helper");
  MirellModule module;
  testing::internal::CaptureStdout();
  EXPECT_TRUE(module.load("kenkyu"));
  testing::internal::GetCapturedStdout();
  EXPECT_NE(module.objectODM(), nullptr);
}

TEST(MirellModuleLoad, AResultFileThatCannotBeMadeGivesNoManager) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  TestPlatform platform;
  MemoryForkedFiles files;
  platform.forked = &files;
  LogLines log;
  MirellModule module;
  files.failCreate = true;
  EXPECT_FALSE(module.load("kenkyu"));
  files.failCreate = false;
  files.failClose = true;
  EXPECT_FALSE(module.load("kenkyu"));
  EXPECT_EQ(module.objectODM(), nullptr);
  EXPECT_EQ(LogLines::lines,
            (Lines{"Initialize Error : Kenkyuu Dictionary.", "Initialize Error : Kenkyuu Dictionary."}));
}

TEST(MirellModuleLoad, WithoutACacheFolderGivesNoManager) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper", false);
  LogLines log;
  MirellModule module;
  EXPECT_FALSE(module.load("kenkyu"));
  EXPECT_EQ(LogLines::lines, (Lines{"Initialize Error : Kenkyuu Dictionary."}));
}

TEST(MirellModuleLoad, AManagerWhoseDictionaryDoesNotOpenStaysAndAnswersNothing) {
  const TempFolder empty;
  const PathTable table(empty.path(), "/helper");
  LogLines log;
  MirellModule module;
  testing::internal::CaptureStdout();
  EXPECT_TRUE(module.load("kenkyu"));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "error: InitializeDictionaries\n");
  ASSERT_NE(module.objectODM(), nullptr);
  EXPECT_FALSE(module.objectODM()->initialized);
  EXPECT_FALSE(module.objectODM()->GetMidashiE("take"));
  EXPECT_FALSE(module.simpleLookup("take", 0, true, 12));
  EXPECT_EQ(LogLines::lines, Lines{});
}

TEST(MirellModuleLoad, ASecondLoadOpensTheDictionaryAgain) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  MirellModule module;
  EXPECT_TRUE(module.load("first"));
  EXPECT_TRUE(module.load("second"));
  EXPECT_TRUE(module.objectODM()->initialized);
  EXPECT_EQ(module.cachePath(), table.cacheFolder() + "/second");
}

TEST(MirellModule, ItsEndClosesTheDictionary) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  { EXPECT_TRUE(MirellModule().load("kenkyu")); }
  MirellModule module;
  EXPECT_TRUE(module.load("kenkyu"));
  EXPECT_TRUE(module.objectODM()->initialized);
}

TEST(MirellModule, TheProcessHasNoneAtFirst) {
  EXPECT_EQ(gMirellModule, nullptr);
}

TEST(SimpleLookup, WritesTheEntryOfAnEnglishWord) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  MirellModule module;
  ASSERT_TRUE(module.load("kenkyu"));
  EXPECT_TRUE(module.simpleLookup("take", 0, true, 12));
  std::string text, record;
  ASSERT_TRUE(platform().forkedFiles().read(module.cachePath(), "styl", 128, &text, &record));
  EXPECT_EQ(text, sjis("take\r\r-[動]\r取る\n\r\r"));
}

TEST(SimpleLookup, WritesTheEntryOfAJapaneseWord) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  MirellModule module;
  ASSERT_TRUE(module.load("kenkyu"));
  EXPECT_TRUE(module.simpleLookup(sjis("みち"), 0, false, 12));
  std::string text, record;
  ASSERT_TRUE(platform().forkedFiles().read(module.cachePath(), "styl", 128, &text, &record));
  EXPECT_EQ(text, sjis("みち 道\rroad\n\r\r"));
}

TEST(SimpleLookup, IsFalseWhenNothingIsFound) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  MirellModule module;
  ASSERT_TRUE(module.load("kenkyu"));
  EXPECT_FALSE(module.simpleLookup("zebra", 0, true, 12));
  EXPECT_FALSE(module.simpleLookup(sjis("やま"), 0, false, 12));
}

TEST(SimpleLookup, TakesAscenderAndDescenderOfOsakaEachCutToAWholeNumber) {
  const Dictionary dictionary;
  const PathTable table(dictionary.path(), "/helper");
  TestPlatform platform;
  FixedFont font;
  platform.fontMetrics = &font;
  MirellModule module;
  ASSERT_TRUE(module.load("kenkyu"));
  EXPECT_TRUE(module.simpleLookup("take", 0, true, 24));
  EXPECT_EQ(font.asked, "Osaka");
  EXPECT_EQ(font.askedSize, 24);
  const MirellDictionaryManager& manager = *module.objectODM();
  EXPECT_EQ(manager.fontName, "Osaka");
  EXPECT_EQ(manager.fontSize, 24u);
  EXPECT_EQ(manager.fontAscent, 18u);
  EXPECT_EQ(manager.lineHeight, 13u);  // 18 - 5, though 18.4 - 5.9 is 12.5
}

TEST(SimpleLookup, WithoutAManagerIsFalse) {
  EXPECT_FALSE(MirellModule().simpleLookup("take", 0, true, 12));
}

}  // namespace
}  // namespace zavel::test
