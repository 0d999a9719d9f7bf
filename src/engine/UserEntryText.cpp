// Taking the text of a user entry apart. Tests: tests/engine/UserEntryTest.cpp
#include "engine/DicFormat.h"
#include "engine/EntryFields.h"
#include "engine/Sikibetu.h"
#include "engine/UserEntry.h"
#include "engine/WordInfo.h"

namespace zavel::engine {
namespace {

constexpr std::string_view kLaterMark = "/";

// The part of speech whose text `field` begins with, the longer texts first; 0 for none.
uint16_t HinsiOf(std::string_view field) {
  uint16_t found = 0;
  for (uint16_t hinsi = 1; hinsi <= kLastHinsi; ++hinsi) {
    const bool longer = HinsiText(hinsi).size() > HinsiText(found).size();
    if (longer && field.starts_with(HinsiText(hinsi))) found = hinsi;
  }
  return found;
}

// The second side of an example stands behind a blank.
std::string WithoutBlank(std::string_view text) {
  if (text.starts_with(' ')) text.remove_prefix(1);
  return std::string(text);
}

// Collects examples side by side. `second` names the side that comes second.
class Examples {
 public:
  Examples(std::vector<ExamplePair>* pairs, std::string ExamplePair::*first, std::string ExamplePair::*second)
      : pairs_(*pairs), first_(first), second_(second) {}

  void begin(std::string_view text) {
    pairs_.emplace_back().*first_ = text;
    half_ = true;
  }
  // False for a second side without a first one.
  bool complete(std::string_view text) {
    if (!half_) return false;
    pairs_.back().*second_ = WithoutBlank(text);
    half_ = false;
    return true;
  }
  bool isHalf() const { return half_; }

 private:
  std::vector<ExamplePair>& pairs_;
  std::string ExamplePair::*first_;
  std::string ExamplePair::*second_;
  bool half_ = false;
};

bool ReadHinsi(std::string_view field, UserEntryE* entry) {
  if (!field.starts_with('-')) return false;
  entry->hinsi = HinsiOf(field.substr(1));
  return true;
}

// One field into its place; false for one that can't stand there.
bool TakeFieldE(const EntryField& field, bool* headword, Examples* examples, UserEntryE* entry) {
  switch (field.tag) {
    case kTagEntry:
      if (*headword) return false;
      *headword = true;
      entry->word = field.text;
      return true;
    case kTagImi:
    case kTagPhraseImi:
      entry->kind = field.tag == kTagImi ? kKindMeaning : kKindPhrase;
      entry->imi = field.text;
      return true;
    case kTagPhrase:
      entry->phrase = field.text;
      return true;
    case kTagHinsi:
      return ReadHinsi(field.text, entry);
    case kTagYourei:
    case kTagPhraseYourei:
      if (examples->isHalf()) return false;
      examples->begin(field.text);
      return true;
    case kTagOtherSide:
      return examples->complete(field.text);
    default:
      return true;
  }
}

Status ReadTextE(std::string_view text, UserEntryE* entry) {
  EntryFields fields(text);
  EntryField field;
  Examples examples(&entry->youreis, &ExamplePair::eng, &ExamplePair::jpn);
  bool headword = false;
  while (fields.next(&field)) {
    if (!TakeFieldE(field, &headword, &examples, entry)) return kInternal;
  }
  return headword && entry->kind != 0 && !examples.isHalf() ? kOk : kInternal;
}

// Cuts the mark ahead of a first or a later example; false when none stands there.
bool CutMark(std::string_view firstMark, std::string_view* text) {
  for (const std::string_view mark : {firstMark, kLaterMark}) {
    if (!text->starts_with(mark)) continue;
    text->remove_prefix(mark.size());
    return true;
  }
  return false;
}

void SplitHeadword(const std::string& field, UserEntryJ* entry) {
  const size_t separator = FindSeparator(field);
  entry->kana = field.substr(0, separator);
  if (separator != std::string::npos) entry->kanji = field.substr(separator + 1);
}

// The two lists of examples of a Japanese entry, and the one that is being filled.
struct ListsJ {
  Examples kureis;
  Examples bunreis;
  Examples* current = nullptr;

  explicit ListsJ(UserEntryJ* entry)
      : kureis(&entry->kureis, &ExamplePair::jpn, &ExamplePair::eng),
        bunreis(&entry->bunreis, &ExamplePair::jpn, &ExamplePair::eng) {}

  bool begin(Examples* list, std::string_view firstMark, std::string_view text) {
    if (isHalf() || !CutMark(firstMark, &text)) return false;
    current = list;
    current->begin(text);
    return true;
  }
  bool complete(std::string_view text) { return current != nullptr && current->complete(text); }
  bool isHalf() const { return kureis.isHalf() || bunreis.isHalf(); }
};

bool TakeFieldJ(const EntryField& field, bool* imi, ListsJ* lists, UserEntryJ* entry) {
  switch (field.tag) {
    case kTagEntry:
      if (!entry->kana.empty()) return false;
      SplitHeadword(field.text, entry);
      return true;
    case kTagImi:
      *imi = true;
      entry->imi = field.text;
      return true;
    case kTagYourei:
      return lists->begin(&lists->kureis, kKureiMark, field.text);
    case kTagPhrase:
      return lists->begin(&lists->bunreis, kBunreiMark, field.text);
    case kTagOtherSide:
      return lists->complete(field.text);
    default:
      return true;
  }
}

Status ReadTextJ(std::string_view text, UserEntryJ* entry) {
  EntryFields fields(text);
  EntryField field;
  ListsJ lists(entry);
  bool imi = false;
  while (fields.next(&field)) {
    if (!TakeFieldJ(field, &imi, &lists, entry)) return kInternal;
  }
  return !entry->kana.empty() && imi && !lists.isHalf() ? kOk : kInternal;
}

// The identification of row `row` among those that `info` found.
Status Identify(uint16_t type, const index_info& info, uint16_t row, sikibetu_data* sikibetu) {
  std::vector<uint32_t> offsets;
  const Status status = GetDicOfset(type, kSetUser, info.ix3Offset, &offsets);
  if (status != kOk) return status;
  const size_t place = size_t{info.ix3First} + row;
  if (place >= offsets.size()) return kInternal;
  *sikibetu = MakeSikibetu(info, static_cast<uint16_t>(place), offsets[place]);
  return kOk;
}

}  // namespace

Status GetOutputDataE(std::string_view text, const index_info& info, uint16_t row, UserEntryE* entry) {
  const Status status = ReadTextE(text, entry);
  return status == kOk ? Identify(kTypeE, info, row, &entry->sikibetu) : status;
}

Status GetOutputDataJ(std::string_view text, const index_info& info, uint16_t row, UserEntryJ* entry) {
  Status status = ReadTextJ(text, entry);
  if (status == kOk) status = Identify(kTypeKana, info, row, &entry->sikibetuKana);
  entry->sikibetuKanji = NoSikibetu();
  if (status != kOk || entry->kanji.empty()) return status;
  index_info kanji;
  kanji.word = entry->kanji;
  return FindKanjiRow(&kanji, entry->sikibetuKana.dicOffset, &entry->sikibetuKanji);
}

}  // namespace zavel::engine
