#include "base/LinuxBundle.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <set>

#include "base/PlistPropertyLists.h"
#include "base/ProgramPlaces.h"
#include "foundation/Utf8.h"
#include "platform/Log.h"
#include "support/EnvironmentVariable.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::EnvironmentVariable;
using test::TempFolder;

class LinuxBundleTest : public testing::Test {
 protected:
  LinuxBundleTest() {
    std::filesystem::create_directories(folder_.file("en.lproj"));
    std::filesystem::create_directories(folder_.file("ja.lproj"));
    write("en.lproj/Localizable.plist", {{"Zu", "Figure"}, {"Only", "English"}});
    write("ja.lproj/Localizable.plist", {{"Zu", "図"}});
  }
  void write(const std::string& name, const Value::Dict& texts) {
    folder_.write(name, lists_.serialize(Value(texts), PropertyListFormat::kXml));
  }
  LinuxBundle bundle() { return LinuxBundle(lists_, folder_.path()); }

  TempFolder folder_;
  PlistPropertyLists lists_;
  EnvironmentVariable all_{"LC_ALL", nullptr};
  EnvironmentVariable messages_{"LC_MESSAGES", nullptr};
  EnvironmentVariable lang_{"LANG", nullptr};
};

TEST_F(LinuxBundleTest, HasTheSignatureThatTheHostGives) {
  LinuxBundle program = bundle();
  EXPECT_EQ(program.mainSignature(), "");
  program.setMainSignature("zVX8");
  EXPECT_EQ(program.mainSignature(), "zVX8");
  program.setMainSignature("zVX");
  EXPECT_EQ(program.mainSignature(), "");
  program.setMainSignature("zVX88");
  EXPECT_EQ(program.mainSignature(), "");
}

TEST_F(LinuxBundleTest, TellsIdentifierAndSystem) {
  EXPECT_EQ(bundle().libraryIdentifier(), "local.tarnwick.ZavelLex");
  EXPECT_EQ(bundle().systemVersion(), 0x1060u);
}

TEST_F(LinuxBundleTest, SpeaksTheLanguageOfTheFirstVariableThatIsSet) {
  struct Row {
    const char* all;
    const char* messages;
    const char* lang;
    const char* zu;
  };
  const Row rows[] = {
      {nullptr, nullptr, nullptr, "Figure"},
      {nullptr, nullptr, "ja_JP.UTF-8", "図"},
      {nullptr, nullptr, "ja", "図"},
      {nullptr, nullptr, "ja.UTF-8", "図"},
      {nullptr, nullptr, "jam_JM", "Figure"},
      {nullptr, nullptr, "j", "Figure"},
      {nullptr, nullptr, "de_DE.UTF-8", "Figure"},
      {nullptr, nullptr, "C", "Figure"},
      {nullptr, "ja_JP", "en_US", "図"},
      {nullptr, "en_US", "ja_JP", "Figure"},
      {"C", "ja_JP", "ja_JP", "Figure"},
      {"ja_JP@x", "C", "C", "図"},
      {"", "", "ja_JP", "図"},
  };
  for (const Row& row : rows) {
    const EnvironmentVariable all("LC_ALL", row.all);
    const EnvironmentVariable messages("LC_MESSAGES", row.messages);
    const EnvironmentVariable lang("LANG", row.lang);
    EXPECT_EQ(bundle().localized("Zu"), row.zu)
        << (row.all ? row.all : "-") << (row.messages ? row.messages : "-") << (row.lang ? row.lang : "-");
  }
}

TEST_F(LinuxBundleTest, AnUnknownKeyIsItsOwnText) {
  EXPECT_EQ(bundle().localized("Nothing of that kind"), "Nothing of that kind");
  EXPECT_EQ(bundle().localized(""), "");
  const EnvironmentVariable lang("LANG", "ja_JP.UTF-8");
  EXPECT_EQ(bundle().localized("Only"), "Only");  // no other language steps in
}

TEST_F(LinuxBundleTest, WithoutTextsKeysAreShown) {
  folder_.write("en.lproj/Localizable.plist", "no property list");
  static std::string line;
  setLogSink([](const std::string& text) { line = text; });
  EXPECT_EQ(bundle().localized("Zu"), "Zu");
  setLogSink(nullptr);
  EXPECT_EQ(line, "Error read : " + folder_.file("en.lproj/Localizable.plist"));
  std::filesystem::remove(folder_.file("en.lproj/Localizable.plist"));
  EXPECT_EQ(bundle().localized("Zu"), "Zu");
  folder_.write("en.lproj/Localizable.plist",
                lists_.serialize(Value(Value::Array{}), PropertyListFormat::kXml));
  EXPECT_EQ(bundle().localized("Zu"), "Zu");
}

TEST_F(LinuxBundleTest, FindsResourcesOfTheLanguageFirst) {
  folder_.write("A.plist", "");
  folder_.write("B.plist", "");
  folder_.write("en.lproj/A.plist", "");
  folder_.write("plain", "");
  EXPECT_EQ(bundle().resourcePath("A", "plist"), folder_.file("en.lproj/A.plist"));
  EXPECT_EQ(bundle().resourcePath("B", "plist"), folder_.file("B.plist"));
  EXPECT_EQ(bundle().resourcePath("plain", ""), folder_.file("plain"));
  EXPECT_EQ(bundle().resourcePath("C", "plist"), std::nullopt);
  EXPECT_EQ(bundle().resourcePath("A", "html"), std::nullopt);
  EXPECT_EQ(bundle().resourcePath("en", "lproj"), std::nullopt);  // a folder
}

TEST_F(LinuxBundleTest, NoNameLeadsElsewhere) {
  folder_.write("A.plist", "");
  EXPECT_EQ(bundle().resourcePath("../A", "plist"), std::nullopt);
  EXPECT_EQ(bundle().resourcePath("en.lproj/Localizable", "plist"), std::nullopt);
  EXPECT_EQ(bundle().resourcePath("/etc/passwd", ""), std::nullopt);
  EXPECT_EQ(bundle().resourcePath("", "plist"), std::nullopt);
  EXPECT_EQ(bundle().resourcePath("..", ""), std::nullopt);
  EXPECT_EQ(bundle().resourcePath("A", "plist/../A.plist"), std::nullopt);
}

// The resources that come with the system.

class Resources : public testing::Test {
 protected:
  Value read(const std::string& name) {
    Value value;
    EXPECT_TRUE(lists_.readFile(resourceFolder() + "/" + name, &value)) << name;
    return value;
  }
  std::map<std::string, std::string> texts(const std::string& language) {
    std::map<std::string, std::string> found;
    const Value all = read(language + ".lproj/Localizable.plist");
    for (const auto& [key, text] : *all.asDict()) found[key] = text.string();
    return found;
  }

  PlistPropertyLists lists_;
};

TEST_F(Resources, EveryTextStandsInBothLanguages) {
  const auto english = texts("en");
  const auto japanese = texts("ja");
  for (const auto& [key, text] : english) {
    EXPECT_NE(text, "") << key;
    EXPECT_TRUE(japanese.contains(key)) << key;
  }
  for (const auto& [key, text] : japanese) {
    EXPECT_NE(text, "") << key;
    EXPECT_TRUE(english.contains(key)) << key;
  }
}

TEST_F(Resources, EveryTextThatIsAskedForIsThere) {
  const auto english = texts("en");
  for (const char* key : {"StandardDictionary",
                          "TranslationDictionary",
                          "StarMark",
                          "No entries",
                          "DictList",
                          "RSSBookmaek",
                          "DisplayAll",
                          "PartOfSpeechAndTranslation",
                          "DisplayPhrase",
                          "DisplayExample",
                          "TarnwickDictionary",
                          "ForwardSearch",
                          "BackwardSearch",
                          "FullSearch",
                          "TWEDbrowser",
                          "AutoTranslate",
                          "EtoJTranslate",
                          "JtoETranslate",
                          "TiPodTitle",
                          "OiPodTitle",
                          "Zu",
                          "Error",
                          "ErrorLinkQuestionPage",
                          "ZFWDictPrefTool",
                          "ZFWDictPrefToolTip",
                          "ZFWTransPrefTool",
                          "ZFWTransPrefToolTip",
                          "ZFWSearchPrefTool",
                          "ZFWSearchPrefToolTip",
                          "ZFWRssPrefTool",
                          "ZFWRssPrefToolTip",
                          "ShortHyphen",
                          "LongHyphen",
                          "HidariApostrophe",
                          "MigiApostrophe",
                          "HidariQuote",
                          "MigiQuote"}) {
    EXPECT_TRUE(english.contains(key)) << key;
  }
}

size_t places(const std::string& format) {
  size_t count = 0;
  for (size_t at = format.find("%@"); at != std::string::npos; at = format.find("%@", at + 2)) ++count;
  return count;
}

TEST_F(Resources, FormatsHaveAPlaceForEachPart) {
  for (const char* language : {"en", "ja"}) {
    auto all = texts(language);
    EXPECT_EQ(places(all["TiPodTitle"]), 2u) << language;  // direction, title
    EXPECT_EQ(places(all["OiPodTitle"]), 1u) << language;
    EXPECT_EQ(places(all["Zu"]), 0u) << language;
  }
}

TEST_F(Resources, MenusTellTheirItemsApart) {
  for (const char* language : {"en", "ja"}) {
    auto all = texts(language);
    EXPECT_NE(all["DictList"], all["RSSBookmaek"]);  // a button's meaning is told from its title
    EXPECT_NE(all["AutoTranslate"], all["EtoJTranslate"]);
    EXPECT_NE(all["AutoTranslate"], all["JtoETranslate"]);
    EXPECT_NE(all["EtoJTranslate"], all["JtoETranslate"]);
  }
}

TEST_F(Resources, SitesHaveAPlaceForTheWord) {
  const Value all = read("SearchSite.plist");
  ASSERT_TRUE(all.find("SearchSite"));
  size_t sites = 0;
  for (const Value& item : *all.find("SearchSite")->asArray()) {
    const std::string title = item.find("SearchItemTitle")->string();
    if (title == "-" || title.starts_with(">>")) continue;
    ++sites;
    const std::string url = item.find("SearchItemURL")->string();
    EXPECT_TRUE(url.starts_with("https://")) << title;
    EXPECT_NE(url.find("TWQUERY"), std::string::npos) << title;
  }
  EXPECT_EQ(sites, 7u);
}

TEST_F(Resources, EntitiesAreReplacedOnce) {
  const Value all = read("Entity.plist");
  ASSERT_TRUE(all.find("Entity"));
  std::set<std::string> seen;
  bool ampersands = false;
  for (const Value& row : *all.find("Entity")->asArray()) {
    const std::string entity = row.find("entity")->string();
    const std::string character = row.find("character")->string();
    EXPECT_TRUE(seen.insert(entity).second) << entity;
    EXPECT_TRUE(entity.starts_with("&") && entity.ends_with(";")) << entity;
    ampersands = ampersands || character == "&";
    EXPECT_EQ(character == "&", ampersands) << entity << ": nothing may follow what makes ampersands";
  }
  EXPECT_TRUE(seen.contains("&amp;"));
  EXPECT_GT(seen.size(), 150u);
}

}  // namespace
}  // namespace zavel
