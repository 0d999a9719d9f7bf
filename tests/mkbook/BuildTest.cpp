// Whole runs: from files to a book, what a host finds in it, and the check of it.
#include "mkbook/Build.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "book/SDic.h"
#include "mkbook/BookFolder.h"
#include "support/BookWriter.h"
#include "support/DictdFiles.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

namespace fs = std::filesystem;
using test::jis;

class Build : public testing::Test {
 protected:
  void SetUp() override {
    folder_.write("font.hex", "00E9:" + std::string(32, '3') + "\n9830:" + std::string(64, '5') + "\n");
    options_ = {.form = "dictd",
                .source = folder_.file("d.index"),
                .target = folder_.file("book"),
                .title = "",
                .number = 0,
                .unifont = folder_.file("font.hex"),
                .verify = false,
                .progress = "none",
                .json = false,
                .quiet = false};
    files_.entry("00-database-short\nSmall Words\n", {"00-database-short"})
        .entry("ant <n>\n    an insect, see {dog} and {zebra}\n", {"ant"})
        .entry("café\n    a place\n", {"café", "cafe"})
        .entry("dog\n    1: an animal\n    2: see {caf\u00E9}\n", {"dog", "hound dog"})
        .entry("頰\n    a cheek 😀\n", {"頰"});
    files_.write(folder_.file("d"));
  }

  mkdict::Outcome run() {
    summary_ = {};
    faults_ = {};
    return build(options_, progress_, &summary_, &faults_);
  }
  mkdict::Outcome check() {
    options_.verify = true;
    const mkdict::Outcome outcome = run();
    options_.verify = false;
    return outcome;
  }
  std::string read(const std::string& name) const {
    std::string out;
    EXPECT_TRUE(readWholeFile(options_.target + "/" + name, 1 << 24, &out)) << name;
    return out;
  }
  void write(const std::string& name, const std::string& bytes) const {
    folder_.write("book/" + name, bytes);
  }

  test::TempFolder folder_;
  test::DictdFiles files_;
  Options options_;
  mkdict::Progress progress_;
  mkdict::Summary summary_;
  mkdict::Faults faults_;
};

class Opened {
 public:
  explicit Opened(const std::string& folder) {
    EXPECT_EQ(SDicOpenDictionary((folder + "/BOOK.CAT").c_str(), &handle, nullptr, false, false), 0u);
  }
  ~Opened() { SDicCloseDictionary(handle); }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  // The headwords of the hits, or the code.
  std::string find(const std::string& query) {
    long count = 0, first = 0;
    const uint32_t code = SDicExecIndexSearch(handle, jis(query).c_str(), false, false, &count, &first);
    if (code != 0) return std::to_string(code);
    std::string out;
    for (long i = 0; i < count; ++i) {
      _SDICITEMADDRESS hit{};
      EXPECT_EQ(SDicGetSearchResult(handle, static_cast<unsigned long>(i), &hit), 0u);
      char* text = nullptr;
      uint16_t length = 0;
      EXPECT_EQ(SDicGetHeadword(handle, &hit.headword, &text, &length, false), 0u);
      out += (out.empty() ? "" : ",") + plain({text, length});
      std::free(text);
      last = hit.body;
    }
    return out;
  }
  std::string body(const _SDICADDRESS& at) {
    char* bytes = nullptr;
    uint32_t length = 0;
    EXPECT_EQ(SDicGetBodyData(handle, &at, &bytes, &length), 0u);
    const std::string out(bytes, length);
    std::free(bytes);
    return out;
  }
  // Characters alone.
  static std::string plain(std::string_view text) {
    std::string out;
    for (size_t i = 0; i + 2 <= text.size(); i += 2)
      if (text[i] != 0x1F && text[i] != 0) out += text.substr(i, 2);
    return test::fromJis(out);
  }

  void* handle = nullptr;
  _SDICADDRESS last{};
};

TEST_F(Build, MakesABookThatAHostCanRead) {
  EXPECT_EQ(run().status, 0);
  Opened book(options_.target);
  EXPECT_STREQ(SDicGetDicName(book.handle), "Small Words");
  EXPECT_EQ(book.find("◆ant"), "ａｎｔ");
  EXPECT_EQ(book.find("◆hound dog"), "ｄｏｇ");
  EXPECT_EQ(book.find("■dog"), "ｄｏｇ");
  EXPECT_EQ(book.find("□h"), "ｄｏｇ");
  EXPECT_EQ(book.find("◆zebra"), "");
  uint32_t methods = 0;
  EXPECT_EQ(SDicGetAvailableMethods(book.handle, &methods), 0u);
  EXPECT_EQ(methods, 0x867u);
  char* info = nullptr;
  uint32_t length = 0;
  ASSERT_EQ(SDicGetPublisherInfo(book.handle, &info, &length), 0u);
  EXPECT_STREQ(info, "Small Words");
  std::free(info);
}

// "ant" is 1F02, then 4+4+2+6+2+2 bytes of keyword, 2+8+2 of " <n>", 2 of line feed ...
TEST_F(Build, LeadsReferencesToTheirEntries) {
  EXPECT_EQ(run().status, 0);
  Opened book(options_.target);
  EXPECT_EQ(book.find("◆dog"), "ｄｏｇ");
  const _SDICADDRESS dog = book.last;
  EXPECT_EQ(book.find("◆ant"), "ａｎｔ");
  const std::string body = book.body(book.last);
  const size_t at = body.find("\x1F\x62");
  ASSERT_NE(at, std::string::npos);
  EXPECT_EQ(body.substr(at + 2, 6), test::bcd(dog.block, 4) + test::bcd(dog.offset, 2));
  EXPECT_EQ(body.find("\x1F\x62", at + 2), std::string::npos);  // zebra has no entry
  EXPECT_EQ(summary_.valueOf("references"), 2u);
  EXPECT_EQ(summary_.leftOutCount("references to words that have no entry, written as plain text"), 1u);
}

TEST_F(Build, NamesALostReferenceOnce) {
  files_.entry("emu\n    {zebra}, {zebra} and {ox}\n", {"emu"}).write(folder_.file("d"));
  EXPECT_EQ(run().status, 0);
  EXPECT_NE(summary_.text().find(
                "          4  references to words that have no entry, written as plain text: zebra, ox\n"),
            std::string::npos)
      << summary_.text();
}

TEST_F(Build, FindsWordsAsTheyAreTyped) {
  EXPECT_EQ(run().status, 0);
  Opened book(options_.target);
  EXPECT_NE(book.find("◆cafe"), "");
  EXPECT_NE(book.find("◆頬"), "");
  EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, true), 1);
  EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, false), 1);
  char dots[32];
  uint16_t length = 0;
  EXPECT_EQ(SDicGetRawCustomCharacterBitmap(book.handle, true, 0xA121, 16, dots, &length), 0u);
  EXPECT_EQ(std::string(dots, length), std::string(32, '\x55'));
  EXPECT_EQ(summary_.leftOutCount("characters without code or glyph, written as 〓"), 1u);
}

// Keywords are the words of the headwords, words of texts all others too.
TEST_F(Build, FindsEntriesByTheWordsInThem) {
  EXPECT_EQ(run().status, 0);
  Opened book(options_.target);
  EXPECT_EQ(book.find("▲hound"), "ｄｏｇ");
  EXPECT_EQ(book.find("▲Dog"), "ｄｏｇ");
  EXPECT_EQ(book.find("▲insect"), "");
  EXPECT_EQ(book.find("△insect"), "ａｎｔ");
  EXPECT_EQ(book.find("△see"), "ａｎｔ,ｄｏｇ");
  EXPECT_EQ(book.find("△see◇△animal"), "ｄｏｇ");
  EXPECT_EQ(book.find("△cafe"), book.find("◆cafe") + ",ｄｏｇ");
  EXPECT_EQ(book.find("△inse"), "");
}

TEST_F(Build, GivesTheSameBytesEachTime) {
  EXPECT_EQ(run().status, 0);
  const std::string first = options_.target;
  options_.target = folder_.file("again");
  EXPECT_EQ(run().status, 0);
  size_t files = 0;
  for (const std::string& name : bookFileNames()) {
    if (!fs::exists(first + "/" + name)) continue;  // this source has no form and no kana
    ++files;
    std::string one, other;
    EXPECT_TRUE(readWholeFile(first + "/" + name, 1 << 24, &one)) << name;
    EXPECT_TRUE(readWholeFile(options_.target + "/" + name, 1 << 24, &other)) << name;
    EXPECT_EQ(one, other) << name;
  }
  EXPECT_EQ(files, 14u);
}

TEST_F(Build, TakesTitleAndIdentity) {
  options_.title = "辞書";
  options_.number = 4711;
  EXPECT_EQ(run().status, 0);
  const Opened book(options_.target);
  EXPECT_STREQ(SDicGetDicName(book.handle), "\x8E\xAB\x8F\x91");
  EXPECT_EQ(SDicGetDicID(book.handle), 4711u);
}

TEST_F(Build, TellsOfATitleThatDoesNotFit) {
  const char* const reason = "titles that a catalog can't hold as they are";
  EXPECT_EQ(run().status, 0);
  EXPECT_EQ(summary_.leftOutCount(reason), 0u);
  for (const std::string& title : {std::string(64, 'x'), std::string("a \U0001F600")}) {
    options_.title = title;
    EXPECT_EQ(run().status, 0);
    EXPECT_EQ(summary_.leftOutCount(reason), 1u) << title;
  }
  options_.title = std::string(63, 'x');
  EXPECT_EQ(run().status, 0);
  EXPECT_EQ(summary_.leftOutCount(reason), 0u);
}

// The engine knows corrections for the books of some publishers' numbers, which are small.
TEST_F(Build, MakesAnIdentityOfTheTitle) {
  EXPECT_EQ(run().status, 0);
  const Opened book(options_.target);
  EXPECT_GE(SDicGetDicID(book.handle), 0x40000000u);
}

TEST_F(Build, ComparesABookWithItsSource) {
  EXPECT_EQ(run().status, 0);
  EXPECT_EQ(check().status, 0);
  EXPECT_EQ(faults_.total(), 0u);
  EXPECT_EQ(summary_.valueOf("entries"), 4u);
  EXPECT_EQ(summary_.valueOf("words asked for"), 5u);     // ant, cafe (twice), dog, hound dog, 頬
  EXPECT_EQ(summary_.valueOf("keywords asked for"), 7u);  // ant, cafe, café, dog, hound, 頬, 頰
  // The seven but hound; an, insect, see, and, zebra; place; animal; cheek.
  EXPECT_EQ(summary_.valueOf("words of texts asked for"), 14u);
  EXPECT_EQ(reportText(options_, {}, summary_, faults_),
            summary_.text() + "Written to " + options_.target + "\n");
}

// Another text, another reference, another word, an entry more or less: each shows.
TEST_F(Build, FindsWhatDiffersFromTheSource) {
  struct Change {
    const char* from;
    const char* to;
    std::string fault;
  };
  const std::string elsewhere = "\", one of the words of texts, leads to other entries than in the source\n";
  const std::string ant = "entry 0: the text of \"ant\" differs\n";
  const Change changes[] = {{"an insect", "an infect", ant + "entry 0: \"infect" + elsewhere},
                            {"{dog}", "{ant}", ant + "entry 2: \"dog" + elsewhere},
                            {"    1: an", "     : an", "entry 2: the text of \"dog\" differs\n"}};
  EXPECT_EQ(run().status, 0);
  const std::string good = files_.text();
  for (const Change& change : changes) {
    std::string text = good;
    text.replace(text.find(change.from), std::string(change.from).size(), change.to);
    folder_.write("d.dict", text);
    const mkdict::Outcome outcome = check();
    EXPECT_EQ(outcome.status, 5) << change.to;
    EXPECT_EQ(reportText(options_, outcome, summary_, faults_), change.fault);
    const bool one = change.fault.find('\n') + 1 == change.fault.size();
    EXPECT_EQ(outcome.message, (one ? "1 fault in " : "2 faults in ") + options_.target);
  }
  folder_.write("d.dict", good);
  files_.entry("emu\nbird\n", {"emu"}).write(folder_.file("d"));
  EXPECT_EQ(check().status, 5);
  EXPECT_EQ(faults_.kept()[0].message, "the way to the next entry ends here");
}

TEST_F(Build, FindsWordsThatAreMissing) {
  EXPECT_EQ(run().status, 0);
  std::string index;
  ASSERT_TRUE(readWholeFile(folder_.file("d.index"), 1 << 20, &index));
  index.replace(index.find("hound dog"), 9, "sound dog");
  folder_.write("d.index", index);
  EXPECT_EQ(check().status, 5);
  EXPECT_EQ(faults_.kept()[0].text(), "BODY.DAT at 2: a word of \"dog\" isn't found");
}

// Each index and each font is looked at: without any one of them the book isn't what its source says.
TEST_F(Build, FindsEachFileThatIsMissing) {
  files_.entry("かな漢字\n    script\n", {"かな漢字", "漢字かな"}).entry("かな\n    kana\n", {"かな"});
  files_.entry("long\n    a long word\n", {"begin " + std::string(70, 'x') + " end", "end"});
  files_.write(folder_.file("d"));
  EXPECT_EQ(run().status, 0);
  EXPECT_EQ(check().status, 0);
  size_t files = 0;
  for (const std::string& name : bookFileNames()) {
    const std::string path = options_.target + "/" + name;
    if (name == kCatalogFile || !fs::exists(path)) continue;
    ++files;
    fs::rename(path, folder_.file("aside"));
    EXPECT_EQ(check().status, 5) << name;
    fs::rename(folder_.file("aside"), path);
  }
  EXPECT_EQ(files, 16u);
  std::string font = read(kHalfFontFile);
  font[2048] = static_cast<char>(font[2048] ^ 1);
  write(kHalfFontFile, font);
  EXPECT_EQ(check().status, 5);
  EXPECT_EQ(faults_.kept()[0].text(), "HALF16.FNT at 41249: the glyph of a character differs");
}

TEST_F(Build, FindsDamage) {
  EXPECT_EQ(run().status, 0);
  std::string text = read(kBodyFile);
  text[90] = static_cast<char>(text[90] + 1);
  write(kBodyFile, text);
  EXPECT_EQ(check().status, 5);
  write(kCatalogFile, "nothing");
  const mkdict::Outcome outcome = check();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.code, "damaged_book");
  fs::remove_all(options_.target);
  EXPECT_EQ(check().status, 3);
}

TEST_F(Build, ReplacesAnOlderBook) {
  EXPECT_EQ(run().status, 0);
  options_.title = "New";
  EXPECT_EQ(run().status, 0);
  const Opened book(options_.target);
  EXPECT_STREQ(SDicGetDicName(book.handle), "New");
}

TEST_F(Build, TouchesNoOtherFolder) {
  fs::create_directory(options_.target);
  write("letter.txt", "mine");
  const mkdict::Outcome outcome = run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.message,
            options_.target + " holds something else than a book (letter.txt); it is left as it is");
  EXPECT_EQ(read("letter.txt"), "mine");
  folder_.write("file", "x");
  options_.target = folder_.file("file");
  EXPECT_EQ(run().message, options_.target + " is no folder");
}

TEST_F(Build, LeavesNothingBehindWhenItFails) {
  options_.unifont = folder_.file("none.hex");
  EXPECT_EQ(run().status, 3);
  EXPECT_FALSE(fs::exists(options_.target));
  for (const auto& found : fs::directory_iterator(folder_.path())) {
    EXPECT_EQ(found.path().string().find("partial"), std::string::npos) << found.path();
  }
}

// A run that was killed can't remove its folder. Numbers of processes end far below these.
TEST_F(Build, RemovesWhatKilledRunsLeft) {
  const auto leave = [this](const std::string& name, const std::string& file) {
    fs::create_directory(folder_.file(name));
    folder_.write(name + "/" + file, "x");
    return folder_.file(name);
  };
  const std::string dead = leave("other.partial-99999999", "BODY.DAT");
  const std::string alive = leave("other.partial-" + std::to_string(::getppid()), "BODY.DAT");
  const std::string foreign = leave("mine.partial-99999998", "letter.txt");
  const std::string named = leave("mine.partial-99999998x", "BODY.DAT");
  const std::string held = leave("held.partial-99999997", "BODY.DAT");
  const auto holder = std::make_unique<PartialFolder>(held);
  EXPECT_EQ(run().status, 0);
  EXPECT_FALSE(fs::exists(dead));
  for (const std::string& left : {alive, foreign, named, held}) EXPECT_TRUE(fs::exists(left)) << left;
  EXPECT_TRUE(fs::exists(held + "/BODY.DAT"));
}

// Whatever operation of the disk fails, once or from then on: the old book or the new one, each of them
// whole.
TEST_F(Build, KeepsTheOldBookWhenTheDiskFails) {
  const auto all = [this] {
    std::string out;
    for (const std::string& name : bookFileNames())
      if (fs::exists(options_.target + "/" + name)) out += name + read(name);
    return out;
  };
  EXPECT_EQ(run().status, 0);
  const std::string old = all();
  options_.title = "New";
  options_.target = folder_.file("new");
  EXPECT_EQ(run().status, 0);
  const std::string renewed = all();
  options_.target = folder_.file("book");
  for (const auto repeat : {test::FaultyStorage::kOnce, test::FaultyStorage::kForEver}) {
    long faults = 1;
    for (long n = 1; faults > 0; ++n) {
      options_.title = "Small Words";
      ASSERT_EQ(run().status, 0);
      options_.title = "New";
      mkdict::Outcome outcome;
      {
        test::FaultyStorage disk;
        disk.failAt(n, repeat);
        outcome = run();
        faults = disk.faults();
      }
      const std::string now = all();
      EXPECT_TRUE(now == old || now == renewed) << n;
      EXPECT_TRUE(outcome.status == 0 ? now == renewed : outcome.status == 3 || outcome.status == 5) << n;
      if (outcome.hint.starts_with("What stood there before is unchanged")) {
        EXPECT_EQ(now, old) << n;
      }
    }
  }
}

TEST_F(Build, StopsWhenItIsTold) {
  EXPECT_EQ(run().status, 0);
  const std::string before = read(kCatalogFile);
  const volatile std::sig_atomic_t stop = 1;
  progress_.watch(&stop);
  options_.title = "New";
  const mkdict::Outcome outcome = run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(reportErrors(outcome), "mkbook: interrupted; nothing was changed\n");
  EXPECT_EQ(read(kCatalogFile), before);
  EXPECT_EQ(check().status, 130);
}

TEST_F(Build, TellsItAsJson) {
  mkdict::Outcome outcome = run();
  const std::string json = reportJson(options_, outcome, summary_, faults_);
  EXPECT_TRUE(json.starts_with("{\"schema\":1,\"status\":\"built\",\"folder\":\"" + options_.target +
                               "\",\"figures\":{\"entries\":4,\"references\":2,"))
      << json;
  folder_.write("d.dict", "");
  outcome = run();
  EXPECT_EQ(
      reportJson(options_, outcome, summary_, faults_),
      "{\"schema\":1,\"status\":\"error\",\"error\":{\"code\":\"damaged_input\",\"message\":\"" +
          folder_.file("d.index") +
          " is damaged: line 1 of the index leads nowhere\",\"hint\":\"Install its package again, or name "
          "another file.\"}}\n");
  faults_.add("BODY.DAT", 3, "wrong");
  EXPECT_EQ(reportJson(options_, outcome, {}, faults_),
            "{\"schema\":1,\"status\":\"damaged\",\"folder\":\"" + options_.target +
                "\",\"figures\":{},\"left_out\":[],\"fault_count\":1,\"faults\":[{\"entry\":3,\"message\":"
                "\"wrong\"}]}\n");
}

}  // namespace
}  // namespace zavel::mkbook
