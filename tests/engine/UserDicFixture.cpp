#include "engine/UserDicFixture.h"

#include <algorithm>
#include <deque>

#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// Keeps texts and records alive for one call.
class Keeper {
 public:
  char* text(const std::string& utf8Text) {
    texts_.push_back(test::sjis(utf8Text));
    return texts_.back().data();
  }
  template <typename Pair>
  Pair** pairs(const Pairs& pairs, std::deque<Pair>* records, std::vector<Pair*>* addresses) {
    for (const auto& [eng, jpn] : pairs) records->push_back({text(eng), text(jpn)});
    for (Pair& record : *records) addresses->push_back(&record);
    return addresses->empty() ? nullptr : addresses->data();
  }

 private:
  std::deque<std::string> texts_;
};

// Fields of a serial entry one behind the other.
class Fields {
 public:
  Fields(const std::string& list, size_t start) : list_(list), start_(start), at_(start) {}

  std::string text() {
    const size_t end = list_.find('\0', at_);
    EXPECT_NE(end, std::string::npos);
    std::string text = list_.substr(at_, end - at_);
    at_ = end + 1;
    return test::utf8(text);
  }
  uint8_t byte() { return static_cast<uint8_t>(list_.at(at_++)); }
  uint16_t word() {
    at_ += 2;
    return readLE16(bytes(at_ - 2, 2));
  }
  uint32_t offset() {
    at_ += 4;
    return readLE32(bytes(at_ - 4, 4));
  }
  sikibetu_data sikibetu() {
    sikibetu_data data{};
    data.reserved = offset();
    data.fileNo = word();
    data.pos1 = word();
    data.pos2 = word();
    data.pos3 = word();
    data.ix3Offset = offset();
    data.ix3Size = word();
    data.ix3Count = word();
    data.ix3Index = word();
    EXPECT_EQ(word(), 0);
    data.dicOffset = offset();
    return data;
  }
  Pairs pairs(size_t count) {
    std::vector<uint32_t> offsets(2 * count);
    for (uint32_t& offset : offsets) offset = this->offset();
    Pairs pairs;
    for (size_t i = 0; i < count; ++i) {
      EXPECT_EQ(place(), offsets[2 * i]);
      std::string eng = text();
      EXPECT_EQ(place(), offsets[2 * i + 1]);
      pairs.emplace_back(std::move(eng), text());
    }
    return pairs;
  }
  uint32_t place() const { return static_cast<uint32_t>(at_ - start_); }
  size_t end() const { return at_; }

 private:
  const uint8_t* bytes(size_t at, size_t length) {
    EXPECT_LE(at + length, list_.size());
    return reinterpret_cast<const uint8_t*>(list_.data()) + at;
  }

  const std::string& list_;
  size_t start_;
  size_t at_;
};

FoundE ParseOneE(Fields& fields) {
  FoundE found;
  EntryE& entry = found.entry;
  entry.word = fields.text();
  entry.kind = fields.byte();
  entry.hinsi = fields.word();
  const uint32_t imi = fields.offset();
  const uint32_t phrase = fields.offset();
  const uint16_t examples = fields.word();
  const uint32_t table = fields.offset();
  found.sikibetu = fields.sikibetu();
  EXPECT_EQ(fields.place(), imi);
  entry.imi = fields.text();
  EXPECT_EQ(fields.place(), phrase);
  entry.phrase = fields.text();
  EXPECT_EQ(fields.place(), table);
  entry.youreis = fields.pairs(examples);
  return found;
}

FoundJ ParseOneJ(Fields& fields) {
  FoundJ found;
  EntryJ& entry = found.entry;
  entry.kana = fields.text();
  entry.kanji = fields.text();
  const uint32_t imi = fields.offset();
  const uint16_t kureis = fields.word();
  const uint32_t kureiTable = fields.offset();
  const uint16_t bunreis = fields.word();
  const uint32_t bunreiTable = fields.offset();
  found.kana = fields.sikibetu();
  found.kanji = fields.sikibetu();
  EXPECT_EQ(fields.place(), imi);
  entry.imi = fields.text();
  EXPECT_EQ(fields.place(), kureiTable);
  entry.kureis = fields.pairs(kureis);
  EXPECT_EQ(fields.place(), bunreiTable);
  entry.bunreis = fields.pairs(bunreis);
  return found;
}

template <typename Found>
std::vector<Found> Parse(const std::string& list, size_t count, Found (*parseOne)(Fields& fields)) {
  std::vector<Found> all;
  size_t start = 0;
  for (size_t i = 0; i < count; ++i) {
    Fields fields(list, start);
    all.push_back(parseOne(fields));
    start = fields.end();
  }
  EXPECT_EQ(start, list.size());
  return all;
}

void Settle(Status status, Status* out) {
  if (out != nullptr) {
    *out = status;
  } else {
    EXPECT_EQ(status, 1);
  }
}

std::vector<std::string> Split(const std::string& list, size_t count) {
  std::vector<std::string> words;
  for (size_t at = 0; at < list.size(); at = list.find('\0', at) + 1) {
    words.push_back(test::utf8(list.c_str() + at));
  }
  EXPECT_EQ(words.size(), count);
  return words;
}

std::vector<std::string> List(uint16_t (*function)(uint16_t* count, Handle* list, uint32_t* size),
                              Status* out) {
  uint16_t count = 99;
  uint32_t size = 99;
  Handle list = nullptr;
  Settle(function(&count, &list, &size), out);
  const std::string bytes = TakeBytes(list);
  EXPECT_EQ(bytes.size(), size);
  return Split(bytes, count);
}

}  // namespace

std::string TakeBytes(Handle list) {
  std::string bytes(static_cast<const char*>(GlobalLock(list)), GlobalSize(list));
  GlobalFree(list);
  return bytes;
}

Status Add(const EntryE& entry, sikibetu_data* sikibetu) {
  Keeper keeper;
  std::deque<yourei> records;
  std::vector<yourei*> addresses;
  add_dic_e added{};
  added.word = keeper.text(entry.word);
  added.kind = entry.kind;
  added.hinsi = entry.hinsi;
  added.imi = keeper.text(entry.imi);
  added.phrase = keeper.text(entry.phrase);
  added.youreis = keeper.pairs(entry.youreis, &records, &addresses);
  added.youreiCount = static_cast<uint16_t>(entry.youreis.size());
  added.sikibetu = sikibetu;
  return AddUserDicE(&added);
}

Status Add(const EntryJ& entry, sikibetu_data* kana, sikibetu_data* kanji) {
  Keeper keeper;
  std::deque<kurei> kureis;
  std::deque<bunrei> bunreis;
  std::vector<kurei*> kureiAddresses;
  std::vector<bunrei*> bunreiAddresses;
  add_dic_j added{};
  added.kana = keeper.text(entry.kana);
  added.kanji = entry.kanji.empty() ? nullptr : keeper.text(entry.kanji);
  added.imi = keeper.text(entry.imi);
  added.kureis = keeper.pairs(entry.kureis, &kureis, &kureiAddresses);
  added.kureiCount = static_cast<uint16_t>(entry.kureis.size());
  added.bunreis = keeper.pairs(entry.bunreis, &bunreis, &bunreiAddresses);
  added.bunreiCount = static_cast<uint16_t>(entry.bunreis.size());
  added.sikibetuKana = kana;
  added.sikibetuKanji = kanji;
  return AddUserDicJ(&added);
}

std::vector<FoundE> FindE(const std::string& word, Status* status) {
  uint16_t count = 99;
  Handle list = nullptr;
  Settle(SerchUserDicE(word.c_str(), nullptr, &count, &list), status);
  return ParseE(TakeBytes(list), count);
}

std::vector<FoundJ> FindJ(const std::string& kana, Status* status) {
  uint16_t count = 99;
  Handle list = nullptr;
  Settle(SerchUserDicJ(test::sjis(kana).c_str(), nullptr, &count, &list), status);
  return ParseJ(TakeBytes(list), count);
}

std::vector<std::string> ListE(Status* status) {
  return List(GetListUserDicE, status);
}

std::vector<std::string> ListJ(Status* status) {
  return List(GetListUserDicJ, status);
}

std::vector<FoundE> ParseE(const std::string& list, size_t count) {
  return Parse(list, count, ParseOneE);
}

std::vector<FoundJ> ParseJ(const std::string& list, size_t count) {
  return Parse(list, count, ParseOneJ);
}

UserDicTest::UserDicTest() {
  WriteSmallSet();
  MakeUserFolder();
  EXPECT_EQ(OpenBoth(), 1);
}

void UserDicTest::Reopen() {
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(OpenBoth(), 1);
}

std::vector<std::string> UserDicTest::Files() const {
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(folder_.path() + "/user")) {
    names.push_back(file.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace zavel::engine
