#include "engine/RamDicFixture.h"

#include "engine/DicFormat.h"

namespace zavel::engine {
namespace {

using test::sjis;

// Collects entries behind a header; each text stands once.
class Entries {
 public:
  uint32_t offset(const std::string& text) {
    const auto [place, added] = offsets_.try_emplace(text, static_cast<uint32_t>(dic_.size()));
    if (added) dic_ += text;
    return place->second;
  }
  const std::string& dic() const { return dic_; }

 private:
  std::string dic_ = std::string(128, '\0');
  std::map<std::string, uint32_t> offsets_;
};

std::vector<test::IndexRow> Rows(const std::vector<std::pair<std::string, std::string>>& rows, bool reading,
                                 Entries* entries) {
  std::vector<test::IndexRow> result;
  for (const auto& [word, text] : rows) {
    const std::string both = sjis(word);
    std::string key;
    for (size_t at = reading ? 1 : 0; at < both.size(); at += reading ? 2 : 1) key += both[at];
    result.push_back({key, entries->offset(text)});
  }
  return result;
}

const std::vector<std::string> kFilesE = {"ej.dic", "ej.ix3", "ej.idx"};
const std::vector<std::string> kFilesJ = {"je.dic",  "kna.ix3", "kji.ix3", "kji.idx",
                                          "001.idx", "002.idx", "003.idx", "kna.idx"};

}  // namespace

std::string Le16(unsigned value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

std::string Le32(uint32_t value) {
  return Le16(value & 0xFFFF) + Le16(value >> 16);
}

UserState ReadState() {
  UserState state;
  for (const std::string& word : ListE()) {
    for (const FoundE& found : FindE(word)) state.english.push_back(found.entry);
  }
  for (const std::string& kana : ListJ()) {
    for (const FoundJ& found : FindJ(kana))
      state.japanese.emplace_back(found.entry, found.kanji.pos1 != 0xFFFF);
  }
  return state;
}

RamDicTest::RamDicTest() : disk_(folder_.path() + "/user") {
  WriteSmallSet();
  EXPECT_EQ(OpenBoth(), 1);
}

void RamDicTest::Reopen() {
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(OpenBoth(), 1);
}

std::vector<std::string> RamDicTest::Files() const {
  std::vector<std::string> names;
  for (const auto& [name, bytes] : disk_.files()) names.push_back(name.substr(1));
  return names;
}

void RamDicTest::WriteSetE(const std::vector<std::pair<std::string, std::string>>& rows) {
  EndAPI();
  Entries entries;
  std::vector<test::IndexRow> index;
  for (const auto& [key, text] : rows) index.push_back({key, entries.offset(text)});
  const auto files = test::writeIndex(kTypeE, index, true);
  SetFile("ej.dic", entries.dic());
  SetFile("ej.idx", files.idx);
  SetFile("ej.ix3", files.ix3);
  ASSERT_EQ(OpenBoth(), 1);
}

void RamDicTest::WriteSetJ(const RowsJ& kana, const RowsJ& kanji) {
  EndAPI();
  Entries entries;
  const auto kna = test::writeIndex(kTypeKana, Rows(kana, true, &entries), true);
  const auto kji = test::writeIndex(kTypeKji, Rows(kanji, false, &entries), true);
  SetFile("je.dic", entries.dic());
  SetFile("kna.idx", kna.idx);
  SetFile("kna.ix3", kna.ix3);
  SetFile("kji.idx", kji.idx);
  SetFile("kji.ix3", kji.ix3);
  ASSERT_EQ(OpenBoth(), 1);
}

void RamDicTest::PutBack(const std::vector<std::string>& names, const std::string& suffix) {
  for (const std::string& name : names) {
    if (Exists(name + suffix)) SetFile(name, File(name + suffix));
  }
  Drop(names, suffix);
}

void RamDicTest::Drop(const std::vector<std::string>& names, const std::string& suffix) {
  for (const std::string& name : names) disk_.removeFile("u" + name + suffix);
}

void RamDicTest::Recover() {
  for (const auto& names : {kFilesE, kFilesJ}) {
    const std::string& first = names.back();
    if (Exists(first + ".arrbkp")) {
      PutBack(names, ".arrbkp");
    } else if (Exists(first + ".bkup")) {
      PutBack(names, ".bkup");
    }
    Drop(names, ".bkup");
    Drop(names, ".arrbkp");
  }
  if (!Exists("kji.idx") && Exists("kji.idx.Bkup")) PutBack({"kji.idx"}, ".Bkup");
  Drop({"kji.idx"}, ".Bkup");
}

}  // namespace zavel::engine
