// Damaged user sets that are worked on: entries added, found, overwritten, deleted, listed, the sets
// arranged, saved and opened again, in the order that the input says.
#include <cstring>

#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "engine/EngineAPI.h"
#include "foundation/ByteReader.h"
#include "support/DicWriter.h"

namespace {

using namespace zavel;

const char kPrefixE[] = "d/ue";
const char kPrefixJ[] = "d/uj";

// A serial entry as a caller reads it: nothing may lie outside the list, and every string ends in it.
class SerialList {
 public:
  SerialList(uint16_t status, uint16_t count, Handle list) : count_(count) {
    fuzz::demand(status != 0, "a status is never 0");
    fuzz::demand((count == 0) == (list == nullptr), "count and list are empty together");
    fuzz::demand(status == 1 || count == 0, "a failure gives nothing");
    bytes_ = fuzz::takeBytes(list);
  }
  uint16_t count() const { return count_; }

  // Reads every entry; the identifications are kept.
  void readE() {
    for (uint16_t i = 0; i < count_; ++i) {
      start_ = at_;
      text();
      skip(3);
      offset();
      offset();
      const uint16_t examples = word();
      offset();
      kana.push_back(sikibetu());
      text();
      text();
      pairs(examples);
    }
    fuzz::demand(at_ == bytes_.size(), "entries fill the list");
  }
  void readJ() {
    for (uint16_t i = 0; i < count_; ++i) {
      start_ = at_;
      text();
      text();
      offset();
      const uint16_t kureis = word();
      offset();
      const uint16_t bunreis = word();
      offset();
      kana.push_back(sikibetu());
      kanji.push_back(sikibetu());
      text();
      pairs(kureis);
      pairs(bunreis);
    }
    fuzz::demand(at_ == bytes_.size(), "entries fill the list");
  }

  std::vector<sikibetu_data> kana;  // of English entries too
  std::vector<sikibetu_data> kanji;

 private:
  void skip(size_t length) {
    fuzz::demand(length <= bytes_.size() - at_, "a field lies in the list");
    at_ += length;
  }
  const uint8_t* field(size_t length) {
    skip(length);
    return reinterpret_cast<const uint8_t*>(bytes_.data()) + at_ - length;
  }
  uint16_t word() { return readLE16(field(2)); }
  void offset() { offsetAt(readLE32(field(4))); }
  void offsetAt(uint32_t offset) {
    fuzz::demand(offset <= bytes_.size() - start_, "an offset lies in the list");
  }
  void text() {
    const size_t end = bytes_.find('\0', at_);
    fuzz::demand(end != std::string::npos, "a text ends in the list");
    at_ = end + 1;
  }
  void pairs(uint16_t count) {
    for (unsigned i = 0; i < 2u * count; ++i) offset();
    for (unsigned i = 0; i < 2u * count; ++i) text();
  }
  sikibetu_data sikibetu() {
    static_assert(sizeof(sikibetu_data) == 28);
    sikibetu_data data;
    std::memcpy(&data, field(sizeof data), sizeof data);
    return data;
  }

  uint16_t count_;
  std::string bytes_;
  size_t start_ = 0;
  size_t at_ = 0;
};

SerialList findE(const std::string& word) {
  uint16_t count = 0;
  Handle list = nullptr;
  const uint16_t status = SerchUserDicE(word.c_str(), nullptr, &count, &list);
  SerialList found(status, count, list);
  found.readE();
  return found;
}

SerialList findJ(const std::string& word) {
  uint16_t count = 0;
  Handle list = nullptr;
  const uint16_t status = SerchUserDicJ(word.c_str(), nullptr, &count, &list);
  SerialList found(status, count, list);
  found.readJ();
  return found;
}

// The headwords of both sets; *whole tells whether both could be listed.
std::string lists(bool* whole) {
  std::string all;
  *whole = true;
  for (const auto function : {GetListUserDicE, GetListUserDicJ}) {
    uint16_t count = 0;
    uint32_t size = 0;
    Handle list = nullptr;
    *whole = function(&count, &list, &size) == 1 && *whole;
    all += fuzz::takeBytes(list);
    fuzz::demand((size == 0) == (count == 0), "size and count are empty together");
  }
  return all;
}

uint16_t addE(const std::string& word, const std::string& text, uint8_t kind, sikibetu_data* sikibetu) {
  std::string owned = word, imi = text, phrase = "in " + word;
  yourei example{phrase.data(), imi.data()};
  yourei* examples[] = {&example};
  add_dic_e entry{};
  entry.word = owned.data();
  entry.kind = kind;
  entry.hinsi = 5;
  entry.imi = imi.data();
  entry.phrase = phrase.data();
  entry.youreiCount = kind == 2;
  entry.youreis = examples;
  entry.sikibetu = sikibetu;
  return AddUserDicE(&entry);
}

uint16_t addJ(const std::string& kana, const std::string& kanji, sikibetu_data* sikibetuKana,
              sikibetu_data* sikibetuKanji) {
  std::string owned = kana, form = kanji, imi = "meaning";
  kurei phrase{imi.data(), owned.data()};
  kurei* phrases[] = {&phrase};
  add_dic_j entry{};
  entry.kana = owned.data();
  entry.kanji = form.empty() ? nullptr : form.data();
  entry.imi = imi.data();
  entry.kureiCount = 1;
  entry.kureis = phrases;
  entry.sikibetuKana = sikibetuKana;
  entry.sikibetuKanji = sikibetuKanji;
  return AddUserDicJ(&entry);
}

// What is worked with: a word of each kind that the sets hold and one that they don't.
const std::string& wordE(uint8_t choice) {
  static const std::string words[] = {"go", "church", "gold", "zebra"};
  return words[choice % 4];
}
const std::string& wordJ(uint8_t choice) {
  static const std::string words[] = {test::sjis("いく"), test::sjis("いくら"), test::sjis("うま")};
  return words[choice % 3];
}
const std::string& formJ(uint8_t choice) {
  static const std::string forms[] = {"", test::sjis("行く"), test::sjis("馬")};
  return forms[choice % 3];
}

void arrange() {
  bool wholeBefore = false;
  bool wholeAfter = false;
  const std::string before = lists(&wholeBefore);
  const bool arranged = ArrangeUserDicE() == 1 && ArrangeUserDicJ() == 1;
  const std::string after = lists(&wholeAfter);
  fuzz::demand(!arranged || !wholeBefore || !wholeAfter || before == after, "arranging keeps every headword");
}

// One change. `choice` picks its word, `which` the entry among those found.
void change(uint8_t operation, uint8_t choice, uint8_t which) {
  const std::string& word = wordE(choice);
  const std::string& kana = wordJ(choice);
  bool whole = false;
  switch (operation % 8) {
    case 0:
      if (addE(word, test::sjis("意味"), 1 + which % 2, nullptr) != 1) return;
      findE(word);
      return;
    case 1:
      if (addJ(kana, formJ(which), nullptr, nullptr) != 1) return;
      findJ(kana);
      return;
    case 2: {
      SerialList found = findE(word);
      if (found.count() > 0) addE(word, test::sjis("別の"), 1, &found.kana[which % found.count()]);
      return;
    }
    case 3: {
      SerialList found = findJ(kana);
      if (found.count() == 0) return;
      const size_t row = which % found.count();
      addJ(kana, formJ(choice), &found.kana[row], &found.kanji[row]);
      return;
    }
    case 4: {
      const SerialList found = findE(word);
      if (found.count() == 0) return;
      const sikibetu_data& sikibetu = found.kana[which % found.count()];
      if (DelUserDicE(&sikibetu) == 1) fuzz::demand(DelUserDicE(&sikibetu) != 1, "nothing is deleted twice");
      return;
    }
    case 5: {
      const SerialList found = findJ(kana);
      if (found.count() == 0) return;
      const size_t row = which % found.count();
      DelUserDicJ(&found.kana[row], &found.kanji[row]);
      return;
    }
    case 6:
      arrange();
      return;
    default:
      EndAPI();
      if (InitAPI("d/", kPrefixE, kPrefixJ) == 1) lists(&whole);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::vector<std::string> names = {"ueej.dic",  "ueej.ix3",  "ueej.idx",
                                                 "ujje.dic",  "ujkna.idx", "ujkna.ix3",
                                                 "ujkji.idx", "ujkji.ix3", "uj001.idx"};
  constexpr int kMostChanges = 12;
  if (size > 4096) return 0;
  fuzz::Input input(data, size);
  const std::string changes = input.bytes(3 * (input.byte() % (kMostChanges + 1)));
  std::map<std::string, std::string> files = fuzz::baseUserSets();
  fuzz::damage(input, files, names);
  fuzz::MemoryStorage disk;
  for (const auto& [name, content] : fuzz::baseDictionary()) disk.files["d/" + name] = content;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  if (InitAPI("d/", kPrefixE, kPrefixJ) != 1) return 0;
  for (size_t at = 0; at + 3 <= changes.size(); at += 3) {
    change(static_cast<uint8_t>(changes[at]), static_cast<uint8_t>(changes[at + 1]),
           static_cast<uint8_t>(changes[at + 2]));
  }
  EndAPI();
  return 0;
}
