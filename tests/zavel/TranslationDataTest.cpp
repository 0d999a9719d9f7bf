// `zavel dict build`: what it makes for the translation dictionary, and that look-ups find it.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

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
            "          1  lines left out, not in EDICT form\n"
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
            "          1  lines left out, not in EDICT form\nWritten to " +
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

// What stands in for the converter writes its lines and ends so.
struct Failing {
  const char* lines;
  int status;
  const char* code;
  const char* told;
  const char* hint;
};

TEST_F(TranslationDataTest, TheConvertersFailureIsTheBuilds) {
  fs::create_directories(file("helpers"));
  const std::string program = file("helpers") + "/zavel-dicttool";
  const std::string again = ", then run: zavel dict build --if-missing";
  for (const Failing& failing : std::vector<Failing>{
           {"echo 'zavel-dicttool: /e/enamdict is not an EDICT file' >&2; exit 5", 5, "damaged_source",
            "/e/enamdict is not an EDICT file", "Install the Debian package enamdict again"},
           {"echo \"zavel-dicttool: /t can't be written: No space left on device\" >&2; exit 3", 3,
            "not_written", "/t can't be written: No space left on device",
            "Make room on the disk, or make the folder writable"},
           {"echo \"zavel-dicttool: /e/enamdict can't be read\" >&2; exit 3", 3, "unreadable_source",
            "/e/enamdict can't be read", "Make the file readable"},
           {"kill -KILL $$", 3, "converter_killed", "the program PROGRAM was ended by signal 9",
            "Check that there is enough memory"},
           {"echo sick >&2; exit 7", 3, "converter_failed", "the program PROGRAM ended with status 7: sick",
            "Install zavel again"}}) {
    script(program, std::string(failing.lines) + "\n");
    std::string told = failing.told;
    if (const size_t at = told.find("PROGRAM"); at != std::string::npos) told.replace(at, 7, program);
    const std::string message = "the translation dictionary gets no proper nouns: " + told;
    Outcome outcome = zavel({"dict", "build"}).env("ZAVEL_LIBEXEC", file("helpers")).run();
    EXPECT_EQ(outcome.status, failing.status) << failing.code;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "zavel: " + message + "\n" + failing.hint + again + "\n");
    outcome = zavel({"dict", "build", "--json"}).env("ZAVEL_LIBEXEC", file("helpers")).run();
    EXPECT_EQ(outcome.status, failing.status) << failing.code;
    const Json document = Json::parse(outcome.out);
    EXPECT_EQ(document["status"], "error");
    EXPECT_EQ(document["error"]["code"], failing.code);
    EXPECT_EQ(document["error"]["message"], message);
    EXPECT_EQ(document["error"]["hint"], failing.hint + again);
  }
}

TEST_F(TranslationDataTest, TheRealConverterTellsWhatIsWrong) {
  writeFile(edict() + "/enamdict", "garbage\n");
  const Outcome outcome = zavel({"dict", "build"}).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err,
            "zavel: the translation dictionary gets no proper nouns: " + edict() +
                "/enamdict is not an EDICT file: 1 of 1 lines have another format\n"
                "Install the Debian package enamdict again, then run: zavel dict build --if-missing\n");
  EXPECT_FALSE(fs::exists(made("enamdict.index")));
}

TEST_F(TranslationDataTest, WhatWasMadeBeforeAFailureIsTold) {
  writeFile(edict() + "/compdic", "garbage\n");
  const Outcome outcome = zavel({"dict", "build"}).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.out, "For the translation dictionary:\n          1  proper nouns, enamdict\nWritten to " +
                             root() + "/dictionaries/translation\n");
}

// Interruption

TEST_F(TranslationDataTest, AnInterruptionIsOneLineAndLeavesNothingBehind) {
  fs::create_directories(file("helpers"));
  const std::string folder = root() + "/dictionaries/translation", started = file("started");
  // One that takes nothing away when it is ended.
  script(file("helpers") + "/zavel-dicttool", "mkdir -p '" + folder + "'\n: >'" + folder +
                                                  "'/.new-$$.00000001.1\n: >'" + started +
                                                  "'\nexec sleep 20\n");
  for (const auto& [signal, status] : {std::pair{SIGINT, 130}, {SIGTERM, 143}, {SIGHUP, 129}}) {
    for (const bool json : {false, true}) {
      fs::remove(started);
      std::vector<std::string> arguments{"dict", "build"};
      if (json) arguments.push_back("--json");
      const Outcome outcome =
          zavel(arguments).env("ZAVEL_LIBEXEC", file("helpers")).signalAt(started, signal).run();
      EXPECT_EQ(outcome.status, status);
      EXPECT_EQ(outcome.err, "zavel: interrupted; run it again to finish\n");
      EXPECT_EQ(outcome.out, json ? R"({"schema":1,"status":"error","error":{"code":"interrupted",)"
                                    R"("message":"interrupted; run it again to finish",)"
                                    R"("hint":"Run it again."}})"
                                    "\n"
                                  : "");
      EXPECT_TRUE(fs::is_empty(folder));
    }
  }
}

TEST_F(TranslationDataTest, ACompilerThatASignalEndedIsAnInterruptionToo) {
  const std::string started = file("started");
  const std::string compiler = script(file("slow"), ": >'" + started + "'\nexec sleep 20\n");
  const Outcome outcome =
      zavel({"dict", "build"}).env("ZAVEL_MKDICT", compiler).signalAt(started, SIGINT, 2).run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "zavel: interrupted; run it again to finish\n");
}

TEST_F(TranslationDataTest, NothingIsBegunAfterAnInterruption) {
  const std::string started = file("started");
  // A compiler that finishes all the same.
  const std::string compiler =
      script(file("slow"), "trap '' INT TERM HUP\n: >'" + started + "'\nsleep 1\nexit 0\n");
  const Outcome outcome =
      zavel({"dict", "build"}).env("ZAVEL_MKDICT", compiler).signalAt(started, SIGINT).run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "zavel: interrupted; run it again to finish\n");
  EXPECT_FALSE(fs::exists(made("enamdict.index")));
}

TEST_F(TranslationDataTest, WhatKilledRunsLeftIsRemovedByTheNextBuild) {
  const pid_t ended = fork();
  if (ended == 0) _exit(0);
  waitpid(ended, nullptr, 0);
  const std::string ours = ".new-" + std::to_string(getpid()) + ".0badcafe.1";  // a process that lives
  const std::string theirs = ".new-" + std::to_string(ended) + ".0badcafe.1";
  fs::create_directories(root() + "/dictionaries/translation");
  for (const std::string& name : {ours, theirs, std::string(".new-notes"), std::string("my.dict")}) {
    writeFile(made(name), "x");
  }
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  EXPECT_FALSE(fs::exists(made(theirs)));
  for (const std::string& name : {ours, std::string(".new-notes"), std::string("my.dict")}) {
    EXPECT_TRUE(fs::exists(made(name))) << name;
  }
}

// Damage

TEST_F(TranslationDataTest, WhatIsDamagedIsMadeAgain) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  const std::string index = readFile(made("compdic.index")), text = readFile(made("compdic.dict"));
  const std::string told =
      "For the translation dictionary:\n          9  technical terms, compdic\n"
      "          1  lines left out, not in EDICT form\nWritten to " +
      root() + "/dictionaries/translation\n";
  std::string changed = index;
  changed[changed.find('\t') + 1] = '!';
  for (const auto& [name, bytes] :
       std::vector<std::pair<std::string, std::string>>{{"compdic.index", ""},
                                                        {"compdic.index", index.substr(0, index.size() - 1)},
                                                        {"compdic.index", changed},
                                                        {"compdic.dict", ""},
                                                        {"compdic.dict", text.substr(0, text.size() / 2)}}) {
    writeFile(made(name), bytes);
    EXPECT_EQ(zavel({"dict", "build", "--if-missing"}).run().out, told) << name << bytes.size();
    EXPECT_EQ(readFile(made("compdic.index")), index);
    EXPECT_EQ(readFile(made("compdic.dict")), text);
  }
  fs::remove(made("compdic.dict"));
  EXPECT_EQ(zavel({"dict", "build", "--if-missing"}).run().out, told);
}

TEST_F(TranslationDataTest, LookUpsTellHowWhatIsDamagedIsMadeAgain) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0);
  fs::remove(made("enamdict.dict"));
  const Outcome outcome = zavel({"look", "逆鱗機関"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "zavel-dicttool: " + made("enamdict.dict") + " is missing; run: zavel dict build\n");
}

// Whether the word stands in the part that can't be searched is not known.
TEST_F(TranslationDataTest, AWordIsNotMissingWhileAPartIsDamaged) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0);
  const std::string index = readFile(made("enamdict.index")), text = readFile(made("enamdict.dict"));
  struct Case {
    const char* name;
    std::string bytes;
    const char* what;
  };
  for (const Case& damage :
       {Case{"enamdict.index", "", "enamdict.index is damaged: it is empty"},
        Case{"enamdict.index", index.substr(0, index.size() - 3),
             "enamdict.index is damaged: its last line is incomplete"},
        Case{"enamdict.index", index.substr(0, index.rfind('\n', index.size() - 2) + 1),
             "enamdict.index is damaged: it has not the size that its text tells"},
        Case{"enamdict.dict", "", "enamdict.dict is damaged: an entry at 72 can't be read"},
        Case{"enamdict.dict", std::string(text.size(), '\0'),
             "enamdict.dict is damaged: what stands at 72 is no text"},
        Case{"enamdict.dict", std::string(text.size(), '\xB5'),
             "enamdict.dict is damaged: what stands at 72 is no text"}}) {
    writeFile(made("enamdict.index"), index);
    writeFile(made("enamdict.dict"), text);
    writeFile(made(damage.name), damage.bytes);
    const std::string part = root() + "/dictionaries/translation/" + damage.what;
    const Outcome outcome = zavel({"look", "--json", "鷺ノ宮"}).run();
    EXPECT_EQ(outcome.status, 3) << damage.what;
    EXPECT_EQ(outcome.err, "zavel-dicttool: " + part + "; run: zavel dict build\n");
    const Json told = Json::parse(outcome.out)["dictionaries"][1];
    EXPECT_EQ(told["status"], "failed") << damage.what;
    EXPECT_EQ(told["error"]["code"], "damaged_part");
    EXPECT_EQ(told["error"]["message"], "the translation dictionary was not searched in whole: " + part);
    EXPECT_EQ(told["error"]["hint"], "Run: zavel dict build");
  }
}

TEST_F(TranslationDataTest, OfADamagedPartABatchTellsOnce) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0);
  fs::remove(made("enamdict.dict"));
  const std::string told =
      "zavel-dicttool: " + made("enamdict.dict") + " is missing; run: zavel dict build\n";
  Outcome outcome = zavel({"look", "--plain"}).input("鷺ノ宮\n逆鱗機関\n松本\n").run();
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, told + "zavel: no entry for \"鷺ノ宮\"\nzavel: no entry for \"松本\"\n");
  outcome = zavel({"look", "鷺ノ宮"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, told + "zavel: no entry for \"鷺ノ宮\"\n");
}

TEST_F(TranslationDataTest, WhereAllPartsAreDamagedTheHintIsToMakeThemAgain) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0);
  fs::remove(made("enamdict.dict"));
  fs::remove(made("compdic.dict"));
  const Outcome outcome = zavel({"look", "--json", "鷺ノ宮"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(Json::parse(outcome.out)["dictionaries"][1]["error"]["hint"],
            "Run: zavel dict build, or: zavel prefs dict disable translation");
  // A line for each fault, and one for what comes of them.
  EXPECT_EQ(outcome.err, "zavel-dicttool: " + made("compdic.dict") +
                             " is missing; run: zavel dict build\nzavel-dicttool: " + made("enamdict.dict") +
                             " is missing; run: zavel dict build\n");
}

TEST_F(TranslationDataTest, ATextWithoutItsIndexIsTold) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0);
  fs::remove(made("enamdict.index"));
  const Outcome outcome = zavel({"look", "鷺ノ宮"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(
      outcome.err.find("zavel-dicttool: " + made("enamdict.index") + " is missing; run: zavel dict build\n"),
      0u)
      << outcome.err;
}

TEST_F(TranslationDataTest, AFolderInThePlaceOfAFileIsNamedAndCostsNothing) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  for (const auto& [taken, kept] :
       {std::pair{"compdic.index", "compdic.dict"}, std::pair{"compdic.dict", "compdic.index"}}) {
    const std::string before = readFile(made(taken)), other = readFile(made(kept));
    fs::remove(made(taken));
    fs::create_directory(made(taken));
    const Outcome outcome = zavel({"dict", "build", "--if-missing"}).run();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(
        outcome.err.ends_with("compdic.index and .dict can't be written: Is a directory\n"
                              "Remove what stands in the place of the folder or the file, "
                              "then run: zavel dict build --if-missing\n"))
        << outcome.err;
    EXPECT_EQ(readFile(made(kept)), other);
    fs::remove(made(taken));
    writeFile(made(taken), before);
  }
}

TEST_F(TranslationDataTest, AFileInThePlaceOfTheFolderIsNamed) {
  writeFile(root() + "/dictionaries/translation", "");
  const Outcome outcome = zavel({"dict", "build"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.err.find("\nRemove what stands in the place of the folder or the file, "),
            std::string::npos)
      << outcome.err;
}

TEST_F(TranslationDataTest, InfoTellsAFolderFromAFileThatIsMissing) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  fs::remove(made("enamdict.index"));
  fs::create_directory(made("enamdict.index"));
  const Outcome outcome = zavel({"dict", "info"}).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_NE(outcome.out.find("\nenamdict.index            0  no file\n"), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.err,
            "zavel: " + made("enamdict.index") + " is no file\nRemove it, then run: zavel dict build\n");
}

TEST_F(TranslationDataTest, WhereAllIsThereNothingIsWritten) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  ASSERT_TRUE(fs::remove(root() + "/dictionaries/.lock"));
  const Outcome outcome =
      zavel({"dict", "build", "--if-missing"}).env("ZAVEL_MKDICT", "/nowhere/mkdict").run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
  EXPECT_FALSE(fs::exists(root() + "/dictionaries/.lock"));
}

TEST_F(TranslationDataTest, VerifyLooksThroughThemToo) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  const std::string folder = root() + "/dictionaries/translation/";
  Outcome outcome = zavel({"dict", "verify"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "          6  words of proper nouns\n" + folder +
                             "enamdict is sound.\n         32  words of technical terms\n" + folder +
                             "compdic is sound.\n");
  fs::remove(made("enamdict.dict"));
  writeFile(made("compdic.index"), "");
  outcome = zavel({"dict", "verify"}).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "zavel: " + folder + "enamdict.dict is missing\nRun: zavel dict build\nzavel: " +
                             folder + "compdic.index is damaged: it is empty\nRun: zavel dict build\n");
  fs::remove(made("enamdict.index"));
  fs::remove(made("compdic.index"));
  fs::remove(made("compdic.dict"));
  outcome = zavel({"dict", "verify"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
}

TEST_F(TranslationDataTest, VerifyTellsWhatMakesADamagedDictionaryAnew) {
  const std::string index = root() + "/dictionaries/basic/ej.ix3";
  writeFile(index, readFile(index) + "x");
  const Outcome outcome = inRoot({"dict", "verify"}).env("ZAVEL_MKDICT", MKDICT_PROGRAM).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_NE(outcome.out.find("ej.ix3 at "), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.out.find("mkdict"), std::string::npos) << outcome.out;
  EXPECT_TRUE(outcome.err.starts_with("zavel: ")) << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with(" in " + root() + "/dictionaries/basic\nRun: zavel dict build\n"))
      << outcome.err;
}

TEST_F(TranslationDataTest, WhatTheCompilerComplainsOfIsPassedOn) {
  const std::string compiler =
      script(file("verifier"), "echo one\necho 'mkdict: no way' >&2\necho 'Try it.' >&2\nexit 3\n");
  const Outcome outcome = zavel({"dict", "verify"}).env("ZAVEL_MKDICT", compiler).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "one\n");
  EXPECT_EQ(outcome.err, "mkdict: no way\nTry it.\n");
}

TEST_F(TranslationDataTest, VerifyTellsThemAsJson) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  writeFile(made("compdic.index"), "");
  const std::string compiler = script(
      file("verifier"), R"(echo '{"schema":1,"status":"good","folder":"/f","figures":{},"left_out":[]}')"
                        "\n");
  const Outcome outcome = zavel({"dict", "verify", "--json"}).env("ZAVEL_MKDICT", compiler).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.out,
            R"({"schema":1,"status":"damaged","folder":"/f","figures":{},"left_out":[],"translation":[)"
            R"({"name":"enamdict","status":"good","words":6},{"name":"compdic","status":"damaged",)"
            R"("message":")" +
                made("compdic.index") + " is damaged: it is empty\"}]}\n");
}

TEST_F(TranslationDataTest, WithoutTheConverterVerifyTellsThatItDidNotLook) {
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  fs::remove(made("compdic.index"));
  fs::remove(made("compdic.dict"));
  const Outcome outcome = zavel({"dict", "verify"}).env("ZAVEL_LIBEXEC", "/nowhere").run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel: " + made("enamdict") +
                             " was not checked: the program /nowhere/zavel-dicttool is missing\n"
                             "Install zavel again, or set ZAVEL_LIBEXEC to that program's folder.\n");
}

TEST_F(TranslationDataTest, InfoListsThemToo) {
  EXPECT_EQ(zavel({"dict", "info"}).run().out.find("translation"), std::string::npos);
  ASSERT_EQ(zavel({"dict", "build"}).run().status, 0);
  const std::string folder = root() + "/dictionaries/translation";
  for (const char* name : {"enamdict.index", "enamdict.dict", "compdic.index"}) writeFile(made(name), "four");
  fs::remove(made("compdic.dict"));
  Outcome outcome = zavel({"dict", "info"}).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_TRUE(outcome.out.ends_with("\n" + folder +
                                    "\n"
                                    "enamdict.index            4\n"
                                    "enamdict.dict             4\n"
                                    "compdic.index             4\n"
                                    "compdic.dict              0  missing\n"
                                    "together                 12  incomplete\n"))
      << outcome.out;
  EXPECT_EQ(outcome.err,
            "zavel: the file compdic.dict is missing in " + folder + "\nRun: zavel dict build\n");
  outcome = zavel({"dict", "info", "--json"}).run();
  EXPECT_EQ(
      Json::parse(outcome.out)["translation"].dump(),
      "{\"folder\":\"" + folder +
          R"(","complete":false,"files":[{"name":"enamdict.index","bytes":4},{"name":"enamdict.dict","bytes":4},)"
          R"({"name":"compdic.index","bytes":4},{"name":"compdic.dict","bytes":null}],"bytes":12})");
  writeFile(made("compdic.dict"), "");
  EXPECT_EQ(zavel({"dict", "info"}).run().err,
            "zavel: the file compdic.dict in " + folder + " is empty\nRun: zavel dict build\n");
}

// The environment

TEST_F(TranslationDataTest, TheFolderOfSourcesMustExist) {
  const Outcome outcome = zavel({"dict", "build"}).env("ZAVEL_EDICT", "/nowhere/edict").run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: ZAVEL_EDICT names no folder: /nowhere/edict\n"
            "Set it to the folder of enamdict and compdic, or leave it unset for /usr/share/edict.\n");
}

}  // namespace
}  // namespace zavel::host
