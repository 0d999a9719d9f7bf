// The verifier names each fault of a damaged set by file and offset.
#include "mkdict/Verify.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>

#include "engine/EngineAPI.h"
#include "foundation/ByteReader.h"
#include "mkdict/EntryCheck.h"
#include "mkdict/SmallSet.h"

namespace zavel::mkdict {
namespace {

using Files = std::map<std::string, std::string>;

struct Verified {
  explicit Verified(const Files& files) {
    writeSet(folder.path(), files);
    run();
  }
  void run() {
    summary = {};
    faults = {};
    Progress progress;
    verdict = verifySet(folder.path(), progress, &summary, &faults);
  }
  bool has(const std::string& text) const {
    return std::any_of(faults.kept().begin(), faults.kept().end(),
                       [&text](const Fault& fault) { return fault.text() == text; });
  }
  std::string all() const {
    std::string out;
    for (const Fault& fault : faults.kept()) out += fault.text() + "\n";
    return out;
  }
  test::TempFolder folder;
  Summary summary;
  Faults faults;
  Verdict verdict = Verdict::kGood;
};

TEST(Verify, FindsNoFaultInASoundSet) {
  const Verified verified(smallSet());
  EXPECT_EQ(Verdict::kGood, verified.verdict) << verified.all();
  EXPECT_EQ(4u, verified.summary.valueOf("English entries"));
  EXPECT_EQ(4u, verified.summary.valueOf("Japanese entries"));
  EXPECT_EQ(4u, verified.summary.valueOf("ej: rows"));
  EXPECT_EQ(3u, verified.summary.valueOf("ej: blocks"));
  EXPECT_EQ(1u, verified.summary.valueOf("hase: rows"));
  EXPECT_EQ(2u, verified.summary.valueOf("katu: rows"));
  EXPECT_EQ(4u, verified.summary.valueOf("je: rows"));
  EXPECT_EQ(3u, verified.summary.valueOf("ke: rows"));
  EXPECT_EQ(13u, verified.summary.valueOf("words looked up"));  // of two irregular forms one is tried
}

TEST(Verify, AcceptsASetByAnotherWriter) {
  test::DicWriter writer;
  const uint32_t apple = writer.addE("apple", test::entryE("apple", "名", "りんご"));
  writer.addE("run", test::entryForKatuyo("1",
                                          "**run\xA5"
                                          "ner\x81\x85"
                                          "A,B\x81\x86",
                                          "-[動]", "走る"));
  writer.aliasE("run-ner", apple + static_cast<uint32_t>(test::entryE("apple", "名", "りんご").size()));
  writer.addHase("apples", apple);
  writer.addKatu("ran", "{run:現,ran:過}");
  writer.addJ("いぬ", "犬", test::entryJ("いぬ", "犬", "dog"));
  const Verified verified(writer.files());
  // The alias agrees with the headword, the first row does not.
  EXPECT_EQ(1u, verified.faults.total()) << verified.all();
  EXPECT_TRUE(verified.has("ej.ix3 at 32: filed under another key than its headword \"runner\" gives"))
      << verified.all();
}

TEST(Verify, NeedsAFolder) {
  Summary summary;
  Faults faults;
  Progress progress;
  EXPECT_EQ(Verdict::kNoFolder, verifySet("/nowhere", progress, &summary, &faults));
}

// The small set's files, worked out by hand:
//   ej.idx   A at 0 (rows 8: a, 11: g), B at 14 (rows 22: p, 25: x, 28: o), C at 31 (rows 35, 40, 45)
//   ej.ix3   app at 0 (row offsets 4, strings 8 and 13, entries 18 and 22), ax at 26, go at 39, end 52
//   ej.dic   apple at 0, apply at 29, ax at 58, go at 84, end 110
//   hase.ix3 applied at 0 (string 6, entry 13)
//   katu.ix3 go at 0 (entry 10), went at 14 (entry 26)
struct Damage {
  const char* file;
  std::function<void(std::string&)> change;
  const char* fault;
};

std::function<void(std::string&)> set(size_t at, int byte) {
  return [at, byte](std::string& bytes) { bytes.at(at) = static_cast<char>(byte); };
}
std::function<void(std::string&)> set(size_t at, int byte, size_t at2, int byte2) {
  return [=](std::string& bytes) {
    bytes.at(at) = static_cast<char>(byte);
    bytes.at(at2) = static_cast<char>(byte2);
  };
}
std::function<void(std::string&)> cut(size_t size) {
  return [size](std::string& bytes) { bytes.resize(size); };
}
std::function<void(std::string&)> add(const std::string& tail) {
  return [tail](std::string& bytes) { bytes += tail; };
}

class DamagedSet : public testing::TestWithParam<Damage> {};

TEST_P(DamagedSet, IsNamed) {
  Files files = smallSet();
  GetParam().change(files[GetParam().file]);
  const Verified verified(files);
  EXPECT_EQ(Verdict::kDamaged, verified.verdict);
  EXPECT_TRUE(verified.has(GetParam().fault)) << GetParam().fault << "\nfound:\n" << verified.all();
}

INSTANTIATE_TEST_SUITE_P(
    Tables, DamagedSet,
    testing::Values(
        Damage{"ej.idx", cut(7), "ej.idx at 0: table A: head cut short"},
        Damage{"ej.idx", cut(33), "ej.idx at 31: table C: head cut short"},
        Damage{"ej.idx", set(0, 7), "ej.idx at 0: table A: 7 bytes are no whole rows of 3"},
        Damage{"ej.idx", set(0, 200), "ej.idx at 0: table A: 200 bytes of rows run past the end of the file"},
        Damage{"ej.idx", set(4, 15), "ej.idx at 4: table A: next table at 15, its rows end at 14"},
        Damage{"ej.idx", set(18, 32), "ej.idx at 18: table B: next table at 32, its rows end at 31"},
        Damage{"ej.idx", add("x"), "ej.idx at 50: 1 bytes behind the last table"},
        Damage{"ej.idx", set(8, 'g', 11, 'a'),
               "ej.idx at 11: table A row 1: key not above that of the row before"},
        Damage{"ej.idx", set(22, 'x'), "ej.idx at 25: table B row 1: key not above that of the row before"},
        Damage{"ej.idx", set(9, 1), "ej.idx at 9: table A row 0: first child 1 instead of 0"},
        Damage{"ej.idx", set(12, 9), "ej.idx at 9: table A row 0: children 0 to 9 of 3"},
        Damage{"ej.idx", set(12, 0), "ej.idx at 9: table A row 0: children 0 to 0 of 3"},
        Damage{"ej.idx", set(28, 0, 45, 'x'),
               "ej.idx at 45: table C row 2: a key behind a word that has ended"},
        Damage{"ej.idx", set(26, 2, 29, 1),
               "ej.idx at 29: table B row 2: children 1 to 3 belong to rows before"},
        Damage{"ej.idx", set(36, 52), "ej.ix3 at 52: no block here: the file ends at 52"},
        Damage{"ej.idx", set(35, 0), "ej.ix3 at 4: row 0: a remainder behind a word that has ended"},
        Damage{"ej.idx", set(40, 'q'),
               "ej.ix3 at 35: filed under another key than its headword \"ax\" gives"},
        Damage{"katu.idx",
               [](std::string& bytes) {
                 bytes.clear();
                 appendLE32(bytes, 65535 * 5);
                 bytes.resize(4 + 65535 * 5);
               },
               "katu.idx at 0: table C: 65535 rows, more than 65534"},
        Damage{"je.idx", set(8, 0xA2, 11, 0xA0),
               "je.idx at 11: table A row 1: key not above that of the row before"},
        Damage{"ke.idx", set(8, 0xFF), "ke.idx at 12: table A row 1: key not above that of the row before"}));

INSTANTIATE_TEST_SUITE_P(
    Blocks, DamagedSet,
    testing::Values(
        Damage{"ej.ix3", set(0, 9), "ej.ix3 at 0: block of 26 bytes is too short for 9 rows"},
        Damage{"ej.ix3", set(41, 200), "ej.ix3 at 39: block of 200 bytes runs past the end of the file"},
        Damage{"ej.ix3", set(39, 0), "ej.ix3 at 39: block without rows"},
        Damage{"ej.idx", set(41, 0), "ej.ix3 at 0: block overlaps the one at 0"},
        Damage{"ej.idx", set(41, 0), "ej.ix3 at 0: 13 bytes that no row leads to"},
        Damage{"ej.ix3", set(2, 27), "ej.ix3 at 26: block overlaps the one at 0"},
        Damage{"ej.ix3", set(6, 4), "ej.ix3 at 6: row 1: string at 4 instead of 5"},
        Damage{"ej.ix3", set(8, 9), "ej.ix3 at 8: row 0: string of 9 bytes leaves the block"},
        Damage{"ej.ix3", set(8, 1), "ej.ix3 at 8: row 0: string length 1 is not where its NUL stands"},
        Damage{"ej.ix3", set(11, 'z'), "ej.ix3 at 6: row 1: below the row before"},
        Damage{"ej.ix3", set(18, 1), "ej.ix3 at 18: entry at 1: no entry begins there"},
        Damage{"ej.ix3", set(18, 200), "ej.ix3 at 18: entry at 200: no entry begins there"},
        Damage{"ej.ix3", set(18, 29),
               "ej.ix3 at 18: filed under another key than its headword \"apply\" gives"},
        Damage{"ej.ix3", set(18, 29), "ej.dic at 0: no row leads to this entry"},
        Damage{"ej.ix3", add("x"), "ej.ix3 at 0: 1 bytes that no row leads to"},
        Damage{"ej.ix3",
               [](std::string& bytes) {
                 bytes.resize(39);
                 bytes += std::string("\1\0\16\0\0\0\0\0\0x", 10) + std::string("\x54\0\0\0", 4);
               },
               "ej.ix3 at 48: 1 bytes behind the last string"},
        Damage{"je.ix3", cut(3), "je.ix3 at 0: no block here: the file ends at 3"},
        Damage{"hase.ix3", set(13, 3), "hase.ix3 at 13: entry at 3: no entry begins there"}));

INSTANTIATE_TEST_SUITE_P(
    Entries, DamagedSet,
    testing::Values(Damage{"ej.dic", set(0, 'x'), "ej.dic at 0: the file does not begin with an entry"},
                    Damage{"ej.dic", set(10, 0), "ej.dic at 9: 0xF500 is no tag"},
                    Damage{"ej.dic", set(27, ' '), "ej.dic at 26: half a character"},
                    Damage{"ej.dic", set(4, 7), "ej.dic at 4: the byte 0x07 has no place here"},
                    Damage{"ej.dic", set(13, 0xA5, 12, ' '), "ej.dic at 13: the byte 0xA5 has no place here"},
                    Damage{"ej.dic", set(109, 'x'), "ej.dic at 84: the entry's last line does not end"},
                    Damage{"ej.dic", add(std::string(70000, 'x') + "\n"),
                           "ej.dic at 84: entry of 70027 bytes, more than 65534"},
                    Damage{"ej.dic", set(5, 0x81, 6, 0x85), "ej.dic at 5: a pronunciation that does not end"},
                    Damage{"ej.dic", cut(101), "ej.dic at 84: an entry without a meaning"},
                    Damage{"ej.dic", set(4, 'b'),
                           "ej.ix3 at 18: filed under another key than its headword \"bpple\" gives"},
                    Damage{"je.dic", add("\xF5\xD1\x82\xA0\n\xF5\xD4x\n"),
                           "je.dic at 71: no row leads to this entry"}));

INSTANTIATE_TEST_SUITE_P(
    IrregularForms, DamagedSet,
    testing::Values(
        Damage{"katu.dic", set(0, 'x'), "katu.ix3 at 10: record at 0: none begins there"},
        Damage{"katu.ix3", set(10, 99), "katu.ix3 at 10: record at 99: none begins there"},
        Damage{"katu.dic", cut(13), "katu.ix3 at 26: record at 0: no end within 512 bytes"},
        Damage{"katu.dic", set(4, 0), "katu.ix3 at 10: record at 0: an item without a known label"},
        Damage{"katu.dic", set(6, 'a'), "katu.ix3 at 10: record at 0: items not parted by a comma"},
        Damage{"katu.dic", set(1, 'h' - 10), "katu.ix3 at 10: record at 0: it does not hold the form \"go\""},
        // Messages are UTF-8 and steer no terminal, whatever they quote.
        Damage{"katu.ix3", set(22, 0xC5), "katu.ix3 at 26: record at 0: it does not hold the form \"wﾅnt\""},
        Damage{"katu.ix3", set(22, 0x1B),
               "katu.ix3 at 26: record at 0: it does not hold the form \"w\uFFFDnt\""}));

// A pronunciation ends in bytes that elsewhere would be half a character.
TEST(Verify, LeavesPronunciationsAlone) {
  Compilation compilation;
  compilation.english.push_back({"run",
                                 "\xF5\xD1\xF4\xD0run\x81\x85"
                                 "A\xD8?\xE9\x81\x86\n\xF5\xD4x\n",
                                 0});
  const Verified verified(filesOf(compilation));
  EXPECT_EQ(Verdict::kGood, verified.verdict) << verified.all();
}

TEST(Verify, NamesEachMissingFile) {
  Verified verified(smallSet());
  std::filesystem::remove(verified.folder.path() + "/ke.idx");
  std::filesystem::remove(verified.folder.path() + "/ej.dic");
  verified.run();
  EXPECT_EQ(Verdict::kDamaged, verified.verdict);
  EXPECT_EQ("ej.dic at 0: the file is missing\nke.idx at 0: the file is missing\n", verified.all());
}

// A headword that is filed as it should be, but that no query can hold.
TEST(Verify, TriesWordsThroughTheEngine) {
  test::DicWriter writer;
  writer.addE("b2", test::entryE("b2", "名", "x"));
  const Verified verified(writer.files());
  EXPECT_EQ("ej.ix3 at 9: the engine does not find \"b2\"\n", verified.all());
}

TEST(Verify, LeavesAnOpenEngineAlone) {
  Verified verified(smallSet());
  ASSERT_EQ(1, InitAPI(verified.folder.prefix().c_str(), nullptr, nullptr));
  verified.run();
  EXPECT_EQ(Verdict::kGood, verified.verdict);
  EXPECT_EQ(0u, verified.summary.valueOf("words looked up"));
  EXPECT_EQ(1, EndAPI());
}

TEST(Verify, StopsWhenAsked) {
  volatile std::sig_atomic_t stop = 1;
  const test::TempFolder folder;
  writeSet(folder.path(), smallSet());
  Summary summary;
  Faults faults;
  Progress progress;
  progress.watch(&stop);
  EXPECT_EQ(Verdict::kCancelled, verifySet(folder.path(), progress, &summary, &faults));
}

// No damage crashes it, and hardly any stays unseen.
TEST(Verify, StandsEveryDamagedByte) {
  const Files sound = smallSet();
  Verified verified(sound);
  size_t damages = 0, seen = 0;
  for (const auto& [name, bytes] : sound) {
    for (size_t at = 0; at < bytes.size(); ++at) {
      for (const int change : {0, 1, 2}) {
        std::string broken = bytes;
        broken[at] = static_cast<char>(change == 0 ? 0 : change == 1 ? 0xFF : broken[at] ^ 1);
        if (broken == bytes) continue;
        test::writeFile(verified.folder.path() + "/" + name, broken);
        verified.run();
        ++damages;
        if (verified.verdict == Verdict::kDamaged) ++seen;
      }
    }
    for (size_t size = 0; size < bytes.size(); ++size) {
      test::writeFile(verified.folder.path() + "/" + name, bytes.substr(0, size));
      verified.run();
      EXPECT_EQ(Verdict::kDamaged, verified.verdict) << name << " cut to " << size;
    }
    test::writeFile(verified.folder.path() + "/" + name, bytes);
  }
  // What stays unseen is another letter in a translation.
  EXPECT_GT(seen * 10, damages * 9) << seen << " of " << damages;
}

TEST(EntryCheck, TakesTheWordOutOfAHeadwordLine) {
  EXPECT_EQ("apple", EntryCheck::wordE("\xF5\xD1\xF5\xB1"
                                       "apple\xF5\xC1\nrest"));
  EXPECT_EQ("run up", EntryCheck::wordE("\xF5\xD1\xF4\xB5"
                                        "12\xF4\xD0**run\xA5 up\x81\x85"
                                        "x,y\x81\x86, z\n"));
  EXPECT_EQ("ab", EntryCheck::wordE("\xF5\xD1"
                                    "a\x81\x85[\xE9\x81\x86"
                                    "b\n"));
  EXPECT_EQ("a", EntryCheck::wordE("\xF5\xD1"
                                   "a\x81\x85x\n"));
  EXPECT_EQ("a", EntryCheck::wordE("\xF5\xD1"
                                   "a[b]\n"));
  EXPECT_EQ("a", EntryCheck::wordE("\xF5\xD1"
                                   "a\x81\x73"
                                   "b\n"));
  EXPECT_EQ("", EntryCheck::wordE("\xF5\xD1\n"));
  EXPECT_EQ("\x82\xA0", EntryCheck::kana("\xF5\xD1\x82\xA0\x1B\x88\x9F\nx"));
  EXPECT_EQ("\x88\x9F", EntryCheck::kanji("\xF5\xD1\x82\xA0\x1B\x88\x9F\nx"));
  EXPECT_EQ("\x88\x9F", EntryCheck::kanji("\xF5\xD1\x88\x9F\nx"));
}

TEST(Faults, CountsAllAndKeepsAHundred) {
  Faults faults;
  for (int i = 0; i < 102; ++i) faults.add("x", 7, "y");
  EXPECT_EQ(102u, faults.total());
  EXPECT_EQ(100u, faults.kept().size());
  EXPECT_EQ("x at 7: y", faults.kept()[0].text());
}

}  // namespace
}  // namespace zavel::mkdict
