// `zavel dict build`: what it makes for the translation dictionary, and that look-ups find it.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/DicWriter.h"
#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

using Json = nlohmann::ordered_json;
using test::Command;
using test::Outcome;
using test::readFile;
using test::writeFile;
namespace fs = std::filesystem;

class TranslationDataTest : public test::RootTest {
 protected:
  void SetUp() override {
    RootTest::SetUp();
    fs::create_directories(edict());
    writeFile(edict() + "/enamdict", "　？？？ /ENAMDICT/\n鷺ノ宮 [さぎのみや] /(p) Saginomiya/\n");
    // A tenth of the lines may be of another form.
    writeFile(edict() + "/compdic",
              "逆鱗機関 [げきりんきかん] /(n) zorblatt engine/\n緑 [みどり] /(n) green/\n"
              "青 [あお] /(n) blue/\n赤 [あか] /(n) red/\n白 [しろ] /(n) white/\n黒 [くろ] /(n) black/\n"
              "黄 [き] /(n) yellow/\n紫 [むらさき] /(n) purple/\n銀 [ぎん] /(n) silver/\nnot a line\n");
  }

  std::string edict() const { return file("edict"); }
  std::string made(const std::string& name) const { return root() + "/dictionaries/translation/" + name; }

  Command zavel(std::vector<std::string> arguments) const {
    return inRoot(std::move(arguments))
        .env("ZAVEL_EDICT", edict())
        .env("ZAVEL_MKDICT", script(file("mkdict"), "exit 0\n"));
  }
};

TEST_F(TranslationDataTest, NamesAndTechnicalTermsAreConverted) {
  const Outcome outcome = zavel({"dict", "build"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "For the translation dictionary:\n"
            "          1  proper nouns, enamdict\n"
            "          9  technical terms, compdic\n"
            "          1  lines of another form left out\n"
            "Written to " +
                root() + "/dictionaries/translation\n");
}

TEST_F(TranslationDataTest, LookUpsFindThem) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0);
  EXPECT_EQ(zavel({"look", "鷺ノ宮"}).run().out,
            "── Translation dictionary ──\n★enamdict\n    鷺ノ宮 [さぎのみや] (place) Saginomiya\n");
  EXPECT_EQ(zavel({"look", "zorblatt engine"}).run().out,
            "── Translation dictionary ──\n★compdic\n    逆鱗機関 [げきりんきかん] (noun) zorblatt engine\n");
}

TEST_F(TranslationDataTest, WhatIsThereIsKeptWhereItIsWanted) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  const Outcome again = zavel({"dict", "build", "--if-missing"}).run();
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(again.out, "");
  fs::remove(made("compdic.index"));
  EXPECT_EQ(zavel({"dict", "build", "--if-missing"}).run().out,
            "For the translation dictionary:\n          9  technical terms, compdic\n"
            "          1  lines of another form left out\nWritten to " +
                root() + "/dictionaries/translation\n");
}

TEST_F(TranslationDataTest, TheSameDataGiveTheSameBytes) {
  const char* const names[] = {"enamdict.index", "enamdict.dict", "compdic.index", "compdic.dict"};
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  std::vector<std::string> before;
  for (const char* name : names) before.push_back(readFile(made(name)));
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  for (size_t i = 0; i < before.size(); ++i) {
    EXPECT_FALSE(before[i].empty()) << names[i];
    EXPECT_EQ(readFile(made(names[i])), before[i]) << names[i];
  }
}

TEST_F(TranslationDataTest, SourcesThatAreNotInstalledAreLeftOut) {
  fs::remove(edict() + "/enamdict");
  fs::remove(edict() + "/compdic");
  const Outcome outcome = zavel({"dict", "build"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(TranslationDataTest, QuietMeansQuietAndPlainProgressALineEach) {
  const Outcome outcome = zavel({"dict", "build", "--quiet", "--progress", "plain"}).run();
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "Converting enamdict, proper nouns ...\nConverting compdic, technical terms ...\n");
}

TEST_F(TranslationDataTest, JsonIsOneDocumentWithBoth) {
  const std::string compiler = script(
      file("mkdict"), R"(echo '{"schema":1,"status":"built","folder":"/f","figures":{},"left_out":[]}')"
                      "\n");
  const Outcome outcome = Command({"dict", "build", "--json"})
                              .env("ZAVEL_ROOT", root())
                              .env("ZAVEL_EDICT", edict())
                              .env("ZAVEL_MKDICT", compiler)
                              .run();
  EXPECT_EQ(outcome.out, R"({"schema":1,"status":"built","folder":"/f","figures":{},"left_out":[],)"
                         R"("translation":[{"name":"enamdict","entries":1,"words":6,"left_out":0},)"
                         R"({"name":"compdic","entries":9,"words":32,"left_out":1}]})"
                         "\n");
}

TEST_F(TranslationDataTest, TheDistributionsTechnicalTermsAreFound) {
  const std::string installed = "/usr/share/edict/compdic";
  if (!fs::exists(installed)) GTEST_SKIP() << "the package edict is not installed";
  fs::remove(edict() + "/compdic");
  fs::create_symlink(installed, edict() + "/compdic");
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0);
  EXPECT_NE(zavel({"look", "コンパイラ"}).run().out.find("★compdic\n    コンパイラ (noun) compiler\n"),
            std::string::npos);
}

TEST_F(TranslationDataTest, WithoutTheConverterTheRestIsBuilt) {
  const Outcome outcome = zavel({"dict", "build"}).env("ZAVEL_LIBEXEC", "/nowhere").run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "zavel: the translation dictionary gets no proper nouns: the program /nowhere/zavel-dicttool is "
            "missing\n");
}

TEST_F(TranslationDataTest, TheConvertersFailureIsTheBuilds) {
  fs::create_directories(file("helpers"));
  for (const auto& [lines, status] :
       std::vector<std::pair<std::string, int>>{{"echo broken >&2\nexit 5\n", 5}, {"kill -KILL $$\n", 137}}) {
    script(file("helpers/zavel-dicttool"), lines);
    const Outcome outcome = zavel({"dict", "build"}).env("ZAVEL_LIBEXEC", file("helpers")).run();
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
  }
}

}  // namespace
}  // namespace zavel::host
