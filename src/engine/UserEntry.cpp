// Reading: UserEntryText.cpp. Tests: tests/engine/UserEntryTest.cpp
#include "engine/UserEntry.h"

#include "engine/DicFormat.h"
#include "engine/Sikibetu.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

constexpr size_t kTableRow = 8;  // two offsets

// What stands between the headword and the strings: English kind, hinsi, two offsets, a count, an offset;
// Japanese an offset, a count, an offset, a count, an offset.
constexpr size_t kFixedE = 1 + 2 + 4 + 4 + 2 + 4 + kSikibetuSize;
constexpr size_t kFixedJ = 4 + 2 + 4 + 2 + 4 + 2 * kSikibetuSize;

size_t StringsSize(const std::vector<ExamplePair>& pairs) {
  size_t size = 0;
  for (const ExamplePair& pair : pairs) size += pair.eng.size() + 1 + pair.jpn.size() + 1;
  return size;
}

// A table with its strings.
size_t PairsSize(const std::vector<ExamplePair>& pairs) {
  return kTableRow * pairs.size() + StringsSize(pairs);
}

// Grows by fields; offsets count from where the entry began.
class Record {
 public:
  explicit Record(std::string* list) : list_(*list), start_(list->size()) {}

  void text(const std::string& text) { list_.append(text).push_back('\0'); }
  void byte(uint8_t value) { list_.push_back(static_cast<char>(value)); }
  void word(size_t value) { appendLE16(list_, static_cast<uint16_t>(value)); }
  void offset(size_t value) { appendLE32(list_, static_cast<uint32_t>(value)); }
  void sikibetu(const sikibetu_data& sikibetu) { list_ += PackSikibetu(sikibetu); }
  void pairs(const std::vector<ExamplePair>& pairs) {
    size_t at = list_.size() - start_ + kTableRow * pairs.size();
    for (const ExamplePair& pair : pairs) {
      offset(at);
      offset(at += pair.eng.size() + 1);
      at += pair.jpn.size() + 1;
    }
    for (const ExamplePair& pair : pairs) {
      text(pair.eng);
      text(pair.jpn);
    }
  }

 private:
  std::string& list_;
  size_t start_;
};

// Bytes of the phrase with its NUL: one NUL for an entry without phrase.
size_t PhraseSize(const UserEntryE& entry) {
  return entry.kind == kKindPhrase ? entry.phrase.size() + 1 : 1;
}

}  // namespace

void InitAddDicE(UserEntryE* entry) {
  *entry = UserEntryE{};
}
void InitAddDicJ(UserEntryJ* entry) {
  *entry = UserEntryJ{};
}
void FreeAddDicE(UserEntryE* entry) {
  *entry = UserEntryE{};
}
void FreeAddDicJ(UserEntryJ* entry) {
  *entry = UserEntryJ{};
}

size_t GetOutputSizeE(const UserEntryE& entry) {
  return entry.word.size() + 1 + kFixedE + entry.imi.size() + 1 + PhraseSize(entry) +
         PairsSize(entry.youreis);
}

size_t GetOutputSizeJ(const UserEntryJ& entry) {
  return entry.kana.size() + 1 + entry.kanji.size() + 1 + kFixedJ + entry.imi.size() + 1 +
         PairsSize(entry.kureis) + PairsSize(entry.bunreis);
}

void OutputDataE(const UserEntryE& entry, std::string* list) {
  Record record(list);
  const size_t imi = entry.word.size() + 1 + kFixedE;
  const size_t phrase = imi + entry.imi.size() + 1;
  record.text(entry.word);
  record.byte(entry.kind);
  record.word(entry.hinsi);
  record.offset(imi);
  record.offset(phrase);
  record.word(entry.youreis.size());
  record.offset(phrase + PhraseSize(entry));
  record.sikibetu(entry.sikibetu);
  record.text(entry.imi);
  record.text(entry.kind == kKindPhrase ? entry.phrase : std::string());
  record.pairs(entry.youreis);
}

void OutputDataJ(const UserEntryJ& entry, std::string* list) {
  Record record(list);
  const size_t imi = entry.kana.size() + 1 + entry.kanji.size() + 1 + kFixedJ;
  const size_t kureis = imi + entry.imi.size() + 1;
  record.text(entry.kana);
  record.text(entry.kanji);
  record.offset(imi);
  record.word(entry.kureis.size());
  record.offset(kureis);
  record.word(entry.bunreis.size());
  record.offset(kureis + PairsSize(entry.kureis));
  record.sikibetu(entry.sikibetuKana);
  record.sikibetu(entry.sikibetuKanji);
  record.text(entry.imi);
  record.pairs(entry.kureis);
  record.pairs(entry.bunreis);
}

}  // namespace zavel::engine
