// Keywords of headword lines, the search keys in them, and the choice of entries by these keys.
// Tests: tests/lookup/KeywordTest.cpp, SearchKeyTest.cpp, RebuildTest.cpp
#include <exception>
#include <stdexcept>
#include <string_view>

#include "engine/DicFormat.h"
#include "lookup/ByteText.h"
#include "lookup/MirellDictionaryManager.h"

namespace zavel {
namespace {

constexpr size_t kNone = std::string::npos;

// ---- ExtractKeywordFromMidashiData ----

// Walks Shift_JIS text byte by byte and tells which bytes stand alone. A byte that can't be the second one
// of a character stands alone even behind a lead byte.
class CharacterState {
 public:
  enum class Place { kLead, kTrail, kSingle };

  Place step(uint8_t byte) {
    const bool second = expectsTrail_ && isSjisTrail(byte);
    const bool wasExpecting = expectsTrail_;
    expectsTrail_ = false;
    if (second) return Place::kTrail;
    if (wasExpecting || !isSjisLead(byte)) return Place::kSingle;
    expectsTrail_ = true;
    return Place::kLead;
  }

 private:
  bool expectsTrail_ = false;
};

struct KeywordMarks {
  size_t firstOpen = kNone;   // "["
  size_t lastClose = kNone;   // "]"
  size_t firstComma = kNone;  // ","
};

KeywordMarks findMarks(const std::string& line) {
  KeywordMarks marks;
  CharacterState state;
  for (size_t i = 0; i < line.size(); ++i) {
    if (state.step(static_cast<uint8_t>(line[i])) != CharacterState::Place::kSingle) continue;
    if (line[i] == '[' && marks.firstOpen == kNone) marks.firstOpen = i;
    if (line[i] == ']') marks.lastClose = i;
    if (line[i] == ',' && marks.firstComma == kNone) marks.firstComma = i;
  }
  return marks;
}

std::string withoutGloss(const std::string& line) {
  const KeywordMarks marks = findMarks(line);
  std::string text = line;
  if (marks.firstOpen != kNone && marks.lastClose != kNone && marks.firstOpen < marks.lastClose) {
    text.erase(marks.firstOpen, marks.lastClose - marks.firstOpen + 1);
  }
  // Kept: the comma's place in the whole line, though the brackets are gone by now; see docs/quirks.md.
  if (marks.firstComma < text.size()) text.erase(marks.firstComma);
  return text;
}

bool isJapanese(const std::string& text) {
  for (const char c : text) {
    if (isSjisLead(static_cast<uint8_t>(c))) return true;
  }
  return false;
}

bool dropsSingle(uint8_t byte, bool japanese) {
  if (byte == '(' || byte == ')' || byte == '*' || byte == engine::kSyllableMark) return true;
  return japanese && (byte == ' ' || byte == '-');
}

std::string withoutMarks(const std::string& text) {
  constexpr std::string_view kTimesSign = "\x81\x7E";  // ×
  const bool japanese = isJapanese(text);
  std::string kept;
  CharacterState state;
  for (size_t i = 0; i < text.size(); ++i) {
    const uint8_t byte = static_cast<uint8_t>(text[i]);
    const CharacterState::Place place = state.step(byte);
    if (place == CharacterState::Place::kLead && text.compare(i, 2, kTimesSign) == 0) {
      ++i;  // kept: the byte behind the dropped × is read as a second byte; see docs/quirks.md
      continue;
    }
    if (place == CharacterState::Place::kSingle && dropsSingle(byte, japanese)) continue;
    kept.push_back(text[i]);
  }
  return kept;
}

void strip(std::string& text) {
  const auto isInk = [](char c) { return static_cast<uint8_t>(c) >= 0x21; };
  size_t end = text.size();
  while (end > 0 && !isInk(text[end - 1])) --end;
  size_t begin = 0;
  while (begin < end && !isInk(text[begin])) ++begin;
  text = text.substr(begin, end - begin);
}

// ---- MakeSearchKey ----

// [begin, end) of the text. Throws when the end lies ahead of the beginning.
std::string cut(const std::string& text, size_t begin, size_t end) {
  if (end < begin) throw std::length_error("search key");
  return text.substr(begin, end - begin);
}

void addIfAny(std::vector<std::string>& keys, const std::string& key) {
  if (!key.empty()) keys.push_back(key);
}

}  // namespace

std::string MirellDictionaryManager::ExtractKeywordFromMidashiData(const std::string& midashi) {
  std::string keyword = withoutMarks(withoutGloss(midashi));
  keyword = ReplaceString(keyword, "  ", " ");
  strip(keyword);
  return keyword;
}

void MirellDictionaryManager::MakeSearchKey(const std::string& word, const std::string& keyword) {
  if (refuses(word)) return;
  searchKeys.clear();
  const std::string line = ReplaceString(keyword, std::string(kSjisLongMark), std::string(kHalfLongMark));
  try {
    addKeysOf(line);
  } catch (const std::exception&) {
    searchKeys.push_back(line);
  }
}

// Kept: brackets are looked for byte by byte, so that the second byte of 深 (90 5B) opens one; see
// docs/quirks.md.
void MirellDictionaryManager::addKeysOf(const std::string& line) {
  const size_t open = line.find('[');
  const size_t close = line.rfind(']');
  if (open == kNone || close == kNone) return addIfAny(searchKeys, line);

  if (open == 0) throw std::length_error("no byte to drop ahead of the bracket");
  headForm = cut(line, 0, open - 1);  // the blank ahead of the bracket goes, whatever it is
  removeBlanks(headForm);
  addIfAny(searchKeys, headForm);

  const std::string inside = cut(line, open + 1, close);
  size_t begin = 0;
  for (const char separator : {',', ';', ' '}) {
    for (size_t at = inside.find(separator, begin); at != kNone; at = inside.find(separator, begin)) {
      addIfAny(searchKeys, cut(inside, begin, at));
      begin = at + 1;
    }
  }
  addIfAny(searchKeys, cut(inside, begin, inside.size()));
}

std::string MirellDictionaryManager::candidateOf(const std::string& entry) {
  std::string candidate = RemoveMetaKey(entry.c_str());
  replaceAll(candidate, kSjisLongMark, kHalfLongMark);
  removeBlanks(candidate);
  return candidate;
}

std::string MirellDictionaryManager::RebuildResultData() {
  headForm.clear();
  std::vector<std::string> keys = searchKeys;
  for (std::string& key : keys) removeBlanks(key);

  // Lines and entries made for it could else ask for minutes. No real line has more than a few keys.
  constexpr size_t kMostSearched = size_t{1} << 29;
  size_t searched = 0;
  std::string best;
  std::string all;
  size_t bestScore = 0;
  for (const std::string& entry : meaningList) {
    const char* const text = entry.c_str();  // up to the first zero byte
    const std::string candidate = candidateOf(entry);
    size_t score = 0;
    for (size_t i = 0; i < keys.size(); ++i) {
      if (i > 0) {
        if (keys[i].size() < 2 || searched > kMostSearched) continue;
        searched += candidate.size();
        if (candidate.find(keys[i]) != kNone) ++score;
      } else if (candidate == keys[i]) {
        best = text;  // kept: and once more below, at an equal score; see docs/quirks.md
        ++score;
      } else if (GetHeadLine(candidate).find(keys[i]) != kNone) {
        ++score;
      }
    }
    if (score > bestScore) {
      best = text;
      bestScore = score;
    } else if (score == bestScore) {
      best += text;
    }
    all += text;
  }
  return best.empty() ? all : best;
}

}  // namespace zavel
