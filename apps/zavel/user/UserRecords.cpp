// Tests: tests/zavel/user/UserStoreTest.cpp
#include "user/UserRecords.h"

#include <utility>

#include "engine/DicFormat.h"
#include "engine/UserEntry.h"
#include "foundation/ByteReader.h"
#include "user/FiledWord.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

// Fields of a serial entry one behind the other. Once one of them runs over the end, nothing counts.
class SerialFields {
 public:
  explicit SerialFields(std::string_view list) : list_(list) {}

  std::string text() {
    const size_t end = list_.find('\0', at_);
    if (!good_ || end == std::string_view::npos) return fail();
    const std::string sjis(list_.substr(at_, end - at_));
    at_ = end + 1;
    return textOfStored(sjis);
  }
  uint8_t byte() { return take(1) ? static_cast<uint8_t>(list_[at_ - 1]) : 0; }
  uint16_t word() { return take(2) ? readLE16(here(2)) : 0; }
  uint32_t offset() { return take(4) ? readLE32(here(4)) : 0; }
  sikibetu_data place() {
    sikibetu_data data = {};
    data.reserved = offset();
    data.fileNo = word();
    data.pos1 = word();
    data.pos2 = word();
    data.pos3 = word();
    data.ix3Offset = offset();
    data.ix3Size = word();
    data.ix3Count = word();
    data.ix3Index = word();
    word();
    data.dicOffset = offset();
    return data;
  }
  // The offsets are passed over: what they lead to stands right behind the table, in order.
  std::vector<UserExample> examples(size_t count) {
    std::vector<UserExample> found;
    if (!take(8 * count)) return found;
    for (size_t i = 0; i < count && good_; ++i) {
      std::string english = text();
      found.push_back({std::move(english), text()});
    }
    return found;
  }
  bool good() const { return good_; }
  bool atEnd() const { return at_ == list_.size(); }

 private:
  bool take(size_t length) {
    good_ = good_ && length <= list_.size() - at_;
    if (good_) at_ += length;
    return good_;
  }
  std::string fail() {
    good_ = false;
    return {};
  }
  const uint8_t* here(size_t length) const {
    return reinterpret_cast<const uint8_t*>(list_.data()) + at_ - length;
  }

  std::string_view list_;
  size_t at_ = 0;
  bool good_ = true;
};

StoredEntry readEnglish(SerialFields& fields) {
  StoredEntry stored;
  stored.entry.language = UserLanguage::kEnglish;
  stored.entry.word = fields.text();
  const bool phrase = fields.byte() == engine::kKindPhrase;
  const int pos = fields.word();
  fields.offset();
  fields.offset();
  const size_t count = fields.word();
  fields.offset();
  stored.place = fields.place();
  stored.entry.meaning = fields.text();
  stored.entry.phrase = fields.text();
  stored.entry.pos = phrase ? 0 : pos;
  stored.entry.examples = fields.examples(count);
  return stored;
}

StoredEntry readJapanese(SerialFields& fields) {
  StoredEntry stored;
  stored.entry.language = UserLanguage::kJapanese;
  stored.entry.word = fields.text();
  stored.entry.kanji = fields.text();
  fields.offset();
  const size_t examples = fields.word();
  fields.offset();
  const size_t sentences = fields.word();
  fields.offset();
  stored.place = fields.place();
  stored.kanji = fields.place();
  stored.entry.meaning = fields.text();
  stored.entry.examples = fields.examples(examples);
  stored.entry.sentences = fields.examples(sentences);
  takeSpellings(&stored.entry);
  return stored;
}

}  // namespace

EntryRecord::EntryRecord(const UserEntry& entry) : language_(entry.language) {
  if (language_ == UserLanguage::kEnglish) {
    english_.word = text(entry.word);
    english_.kind = entry.phrase.empty() ? engine::kKindMeaning : engine::kKindPhrase;
    english_.hinsi = static_cast<uint16_t>(entry.pos);
    english_.imi = text(entry.meaning);
    english_.phrase = text(entry.phrase);
    pairs(entry.examples, &youreis_, &youreiAddresses_);
    english_.youreiCount = static_cast<uint16_t>(youreiAddresses_.size());
    english_.youreis = youreiAddresses_.data();
    return;
  }
  const UserEntry filed = asFiled(entry);
  japanese_.kana = text(filed.word);
  japanese_.kanji = filed.kanji.empty() ? nullptr : text(filed.kanji);
  japanese_.imi = text(filed.meaning);
  pairs(filed.examples, &kureis_, &kureiAddresses_);
  pairs(filed.sentences, &bunreis_, &bunreiAddresses_);
  japanese_.kureiCount = static_cast<uint16_t>(kureiAddresses_.size());
  japanese_.kureis = kureiAddresses_.data();
  japanese_.bunreiCount = static_cast<uint16_t>(bunreiAddresses_.size());
  japanese_.bunreis = bunreiAddresses_.data();
}

char* EntryRecord::text(const std::string& utf8) {
  texts_.push_back(storedText(utf8));
  return texts_.back().data();
}

template <typename Pair>
void EntryRecord::pairs(const std::vector<UserExample>& examples, std::deque<Pair>* records,
                        std::vector<Pair*>* addresses) {
  for (const UserExample& example : examples) {
    records->push_back({text(example.english), text(example.japanese)});
  }
  for (Pair& record : *records) addresses->push_back(&record);
}

uint16_t EntryRecord::add(const StoredEntry* replaced) {
  // The engine only reads what identifies an entry.
  if (language_ == UserLanguage::kEnglish) {
    english_.sikibetu = replaced ? const_cast<sikibetu_data*>(&replaced->place) : nullptr;
    return AddUserDicE(&english_);
  }
  japanese_.sikibetuKana = replaced ? const_cast<sikibetu_data*>(&replaced->place) : nullptr;
  japanese_.sikibetuKanji = replaced ? const_cast<sikibetu_data*>(&replaced->kanji) : nullptr;
  return AddUserDicJ(&japanese_);
}

bool readSerial(std::string_view list, size_t count, UserLanguage language,
                std::vector<StoredEntry>* entries) {
  SerialFields fields(list);
  for (size_t i = 0; i < count; ++i) {
    StoredEntry stored = language == UserLanguage::kEnglish ? readEnglish(fields) : readJapanese(fields);
    if (!fields.good()) return false;
    entries->push_back(std::move(stored));
  }
  return fields.atEnd();
}

// The engine takes the text apart first and looks for its place then, which ends in the status for a set that
// is not open.
bool readEntryText(std::string_view text, UserLanguage language, StoredEntry* entry) {
  const bool english = language == UserLanguage::kEnglish;
  engine::UserEntryE inEnglish;
  engine::UserEntryJ inJapanese;
  const uint16_t status = english ? engine::GetOutputDataE(text, {}, 0, &inEnglish)
                                  : engine::GetOutputDataJ(text, {}, 0, &inJapanese);
  if (status != (english ? engine::kNoUserE : engine::kNoUserJ)) return false;
  std::string serial;
  english ? engine::OutputDataE(inEnglish, &serial) : engine::OutputDataJ(inJapanese, &serial);
  std::vector<StoredEntry> read;
  if (!readSerial(serial, 1, language, &read)) return false;
  *entry = std::move(read[0]);
  return true;
}

}  // namespace zavel::host
