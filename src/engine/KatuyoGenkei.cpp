// "goes" is tried as it stands, then by rule 3 as "goe", then by rule 4 as "go", which has a verb entry.
// Tests: tests/engine/KatuyoGenkeiTest.cpp.
#include "engine/KatuyoGenkei.h"

#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/Index1.h"
#include "engine/Index3.h"
#include "engine/KatuyoForms.h"

namespace zavel::engine {
namespace {

struct Rule {
  std::string_view suffix;
  uint8_t drop;          // letters taken off the end
  std::string_view add;  // what takes their place
  uint8_t mask;          // parts of speech that inflect so
  uint8_t minLength;     // letters in the word
  uint16_t otherwise;    // rule to go on with when the word is shorter
};

constexpr uint8_t kMeisiDousi = kHinsiMeisi | kHinsiDousi;

// From rule 1 on.
constexpr Rule kRules[] = {
    {"ed", 1, "", kHinsiDousi, 3, 5},          {"ed", 2, "", kHinsiDousi, 3, 5},
    {"es", 1, "", kMeisiDousi, 3, 5},          {"es", 2, "", kMeisiDousi, 3, 5},
    {"s", 1, "", kMeisiDousi, 2, kNoStage},    {"er", 1, "", kHinsiKeiyo, 3, kNoStage},
    {"er", 2, "", kHinsiKeiyo, 3, kNoStage},   {"ing", 3, "", kHinsiDousi, 5, kNoStage},
    {"ing", 3, "e", kHinsiDousi, 5, kNoStage}, {"ing", 3, "y", kHinsiDousi, 5, kNoStage},
    {"est", 2, "", kHinsiKeiyo, 5, kNoStage},  {"est", 3, "", kHinsiKeiyo, 5, kNoStage},
    {"ied", 3, "y", kHinsiDousi, 5, kNoStage}, {"ies", 3, "y", kHinsiDousi, 5, kNoStage},
    {"ier", 3, "y", kHinsiKeiyo, 5, kNoStage}, {"iest", 4, "y", kHinsiKeiyo, 6, 17},
    {"ies", 3, "y", kHinsiMeisi, 5, kNoStage},  // the suffix of rule 14 again, now as a noun
};
static_assert(sizeof(kRules) / sizeof(kRules[0]) == kLastStage);

char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool EndsIn(std::string_view word, std::string_view suffix) {
  if (word.size() < suffix.size()) return false;
  const std::string_view end = word.substr(word.size() - suffix.size());
  for (size_t i = 0; i < end.size(); ++i) {
    if (ToLower(end[i]) != suffix[i]) return false;
  }
  return true;
}

constexpr std::string_view kMeisiLabel = "-[\x96\xBC]";  // -[名]
constexpr std::string_view kKeiyoLabel = "-[\x8C\x60]";  // -[形]
constexpr std::string_view kDousiLabel = "-[\x93\xAE]";  // -[動]

bool Holds(std::string_view text, std::string_view part) {
  return text.find(part) != text.npos;
}

// Bytes of entries that are read for one guess. No word has homographs enough to come near this. It ends the
// work on a damaged block that lists one long entry thousands of times.
constexpr size_t kMaxRead = 1u << 20;

// Appends the entries at the rows' offsets that have something to inflect.
Status CollectEntries(const Ix3Rows& rows, std::string* collected) {
  std::string entry;
  size_t read = 0;
  for (const uint32_t offset : rows.offsets) {
    if (read >= kMaxRead) break;
    entry.clear();
    const Status status = GetDicData(nullptr, kTypeE, kSetKihon, offset, &entry);
    if (status != kOk) return status;
    read += entry.size();
    if (!LookForDousi(entry)) continue;
    const size_t tagLength = collected->empty() ? 0 : 2;
    collected->append(entry, tagLength);
  }
  return kOk;
}

// The rows of `candidate` in the basic English index, none if it isn't there.
Status FindRows(const std::string& candidate, Ix3Rows* rows) {
  *rows = Ix3Rows();
  uint32_t block = kNoBlockKihon;
  const Status status = GetIdxKihon(kTypeE, candidate, &block);
  if (status != kOk || block == kNoBlockKihon) return status;
  return GetDicOffImi(kTypeE, kSetKihon, candidate, block, rows);
}

// What rows without anything to inflect mean for the search.
bool EndsSearch(const Ix3Rows& rows, uint16_t stage, bool irregular) {
  if (stage == 0 || stage == kLastStage) return true;
  // kept: a guess that stands alone in its block ends the search, see docs/quirks.md.
  return rows.blockCount == 1 && !irregular;
}

}  // namespace

bool GetOriginalForm(std::string_view word, std::string* base, uint16_t stage, uint16_t* nextStage,
                     uint8_t* mask) {
  uint16_t number = stage == 0 ? 1 : stage;
  while (number <= kLastStage) {
    const Rule& rule = kRules[number - 1];
    if (word.size() < rule.minLength) {
      number = rule.otherwise;
    } else if (!EndsIn(word, rule.suffix)) {
      ++number;
    } else {
      *base = word.substr(0, word.size() - rule.drop);
      base->append(rule.add);
      *nextStage = number;
      *mask |= rule.mask;
      return true;
    }
  }
  *nextStage = kNoStage;
  return false;
}

bool LookForDousi(std::string_view text) {
  return DscvHinsi(text, kHinsiAll) != 0;
}

uint8_t DscvHinsi(std::string_view text, uint8_t mask) {
  uint8_t hinsi = 0;
  if ((mask & kHinsiMeisi) != 0 && Holds(text, kMeisiLabel)) hinsi |= kHinsiMeisi;
  if ((mask & kHinsiKeiyo) != 0 && Holds(text, kKeiyoLabel)) hinsi |= kHinsiKeiyo;
  if ((mask & kHinsiDousi) != 0 && Holds(text, kDousiLabel)) hinsi |= kHinsiDousi;
  return hinsi;
}

Status SerchGenkei(const std::string& key, bool irregular, Genkei* result, std::string* text) {
  *result = Genkei::kNone;
  std::string candidate = key;
  Ix3Rows rows;
  uint8_t mask = 0;
  for (uint16_t stage = 0; stage <= kLastStage;) {
    Status status = FindRows(candidate, &rows);
    if (status != kOk) return status;
    text->clear();
    status = CollectEntries(rows, text);
    if (status != kOk) return status;
    if (text->empty() && !rows.offsets.empty() && EndsSearch(rows, stage, irregular)) {
      *result = Genkei::kNothing;
      return kOk;
    }
    if (!text->empty() && (stage == 0 || DscvHinsi(*text, mask) != 0)) {
      *result = Genkei::kFound;
      return kOk;
    }
    GetOriginalForm(key, &candidate, static_cast<uint16_t>(stage + 1), &stage, &mask);
  }
  text->clear();
  return kOk;
}

}  // namespace zavel::engine
