// Words are compared with headwords of ASCII letters alone. So a reference may be cut and cleaned byte by
// byte: where that would split a kanji, the word can't be found anyway.
// Tests: tests/engine/ImiBeieiTest.cpp
#include "engine/Beiei.h"

#include <algorithm>
#include <charconv>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/Index3.h"
#include "engine/SerchFrame.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

constexpr uint16_t kDoubleOpen = 0x8173;              // "《"
constexpr uint16_t kSpanOpen = 0x8185;                // "≦"
constexpr uint16_t kAmerica = 0x95C4;                 // "米"
constexpr uint16_t kEngland = 0x8970;                 // "英"
constexpr std::string_view kRefersTo = "\x81\x74 =";  // "》 ="
constexpr size_t kReferenceHead = 8;                  // "《米》 ="
constexpr size_t kMaxReference = 64;
constexpr size_t kReferenceLimit = 256;  // references are shorter than this wherever they come from

constexpr std::string_view kSeiku = "[\x90\xAC\x8B\xE5]";                    // "[成句]"
constexpr std::string_view kNoteOpenings[] = {"\x81\x73", "\x81\x6D", "["};  // 《 ［ [
constexpr std::string_view kMarker = "\xF4\xB5";
constexpr std::string_view kMarkerEnd = "\xF4\xD0";
constexpr size_t kMaxNumbers = 10;
constexpr size_t kMaxWord = 254;

// What the references of one search may read. No real entry comes near it; without it a damaged dictionary
// could keep a search busy for hours.
constexpr size_t kReadBudget = size_t{16} << 20;
constexpr size_t kReadCost = 64;  // of a word, and of an entry beside its bytes

uint16_t PairAt(std::string_view text, size_t at) {
  if (text.size() - at < 2) return 0;
  return readBE16(reinterpret_cast<const uint8_t*>(text.data()) + at);
}

// A tag at which the scan for references leaves a meaning.
// kept: a byte 0xD5 to 0xD9 counts whatever stands before it, so "ぷ" ends a meaning too (docs/quirks.md)
bool LeavesMeaning(uint16_t pair) {
  const uint8_t low = LOBYTE(pair);
  if (low >= 0xD5 && low <= 0xD9) return true;
  if (HIBYTE(pair) != HIBYTE(kTagEntry)) return false;
  return (low >= 0xD0 && low <= 0xD3) || low == 0xE3 || low == 0xE4 || low == 0xE5 || low == 0xE7;
}

// A reference stands two bytes from `at`, behind the opening bracket.
bool IsReference(std::string_view block, size_t at) {
  if (block.size() - at < kReferenceHead) return false;
  const uint16_t country = PairAt(block, at + 2);
  return (country == kAmerica || country == kEngland) && block.substr(at + 4).starts_with(kRefersTo);
}

std::string_view ReferenceText(std::string_view rest) {
  rest = rest.substr(0, kMaxReference);
  return rest.substr(0, rest.find_first_of("\n."));
}

// An item up to its first note, without its tags but for closed or open homograph markers.
std::string CleanItem(std::string_view item) {
  for (const std::string_view opening : kNoteOpenings) item = item.substr(0, item.find(opening));
  std::string clean;
  bool open = false;
  for (size_t at = 0; at < item.size();) {
    const uint16_t pair = PairAt(item, at);
    uint16_t tag = 0;
    const bool isTag = IsTag(HIBYTE(pair), LOBYTE(pair), &tag);
    const bool opens = tag == kTagMarker;
    const bool closes = tag == kTagMarkerEnd && open;
    if (opens || closes) open = opens;
    if (!isTag || opens || closes) clean.append(item, at, isTag ? 2 : 1);
    at += isTag ? 2 : 1;
  }
  return clean;
}

// The numbers at the beginning of `text`, separated by ",".
std::vector<int> ReadNumbers(std::string_view text) {
  std::vector<int> numbers;
  while (numbers.size() < kMaxNumbers) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) break;
    numbers.push_back(number);
    text.remove_prefix(static_cast<size_t>(end - text.data()));
    if (!text.starts_with(',')) break;
    text.remove_prefix(1);
  }
  return numbers;
}

std::string_view CutBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Cuts trailing blanks, and one or two digits with a blank before them.
// kept: leading blanks stay, so the word behind "; " is not found (docs/quirks.md)
std::string_view CutWord(std::string_view text) {
  text = CutBlanks(text);
  size_t digits = 0;
  while (digits < text.size() && text[text.size() - 1 - digits] >= '0' &&
         text[text.size() - 1 - digits] <= '9') {
    ++digits;
  }
  if (digits == 0 || digits > 2 || !text.substr(0, text.size() - digits).ends_with(' ')) return text;
  return CutBlanks(text.substr(0, text.size() - digits));
}

void AddItem(std::string_view item, std::vector<BeieiWord>* words) {
  const std::string clean = CleanItem(item);
  const std::string_view text = clean;
  const size_t marker = text.find(kMarker);
  if (marker == std::string_view::npos) {
    words->push_back({std::string(CutWord(text)), 0});
    return;
  }
  const std::string_view behind = text.substr(marker + kMarker.size());
  std::string_view word = text.substr(0, marker);
  if (CutBlanks(word).empty()) {  // the marker stands in front of the word
    const size_t end = behind.find(kMarkerEnd);
    if (end != std::string_view::npos) word = behind.substr(end + kMarkerEnd.size());
  }
  for (const int number : ReadNumbers(behind)) words->push_back({std::string(CutWord(word)), number});
}

bool IsDigit(std::string_view text, size_t at) {
  return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

// Reads the homograph marker at `*at` and moves past it.
int ReadMarker(std::string_view entry, size_t* at) {
  *at += kMarker.size();
  int number = 0;
  for (int digits = 0; digits < 2 && IsDigit(entry, *at); ++digits)
    number = number * 10 + (entry[(*at)++] - '0');
  if (entry.substr(*at).starts_with(kMarkerEnd)) *at += kMarkerEnd.size();
  return number;
}

bool EndsHeadword(std::string_view entry, size_t at) {
  const uint16_t pair = PairAt(entry, at);
  return entry[at] == ',' || entry[at] == '[' || entry[at] == '\n' || pair == kDoubleOpen ||
         pair == kSpanOpen || HIBYTE(pair) == HIBYTE(kTagMarker);
}

bool IsWordByte(char c) {
  return _isalpha(static_cast<uint8_t>(c)) || std::string_view(" &'-./_").find(c) != std::string_view::npos;
}

bool Spend(size_t cost, size_t* budget) {
  if (cost > *budget) return false;
  *budget -= cost;
  return true;
}

}  // namespace

std::vector<std::string> FindBeiei(std::string_view block) {
  std::vector<std::string> references;
  if (block.find('=') == std::string_view::npos) return references;  // most entries refer to nothing
  bool inMeaning = false;
  for (size_t at = 0; at + 1 < block.size();) {
    const uint16_t pair = PairAt(block, at);
    if (pair == kTagImi || LeavesMeaning(pair)) {
      inMeaning = pair == kTagImi;
      at += 2;
    } else if (!inMeaning && pair != kDoubleOpen) {
      ++at;
    } else if (IsReference(block, at)) {
      const std::string_view text = ReferenceText(block.substr(at + kReferenceHead));
      references.emplace_back(text);
      at += kReferenceHead + text.size();
    } else {
      at += 2;  // kept: in steps of two, so a reference at an odd distance is passed over (docs/quirks.md)
    }
  }
  return references;
}

void GetBeiEiMidasi(std::string_view text, std::vector<BeieiWord>* words) {
  while (!text.empty()) {
    const std::string_view item = text.substr(0, text.find(';'));
    text.remove_prefix(std::min(item.size() + 1, text.size()));
    if (item.find(kSeiku) == std::string_view::npos) AddItem(item, words);
  }
}

BeieiWord GetMidasiNo(std::string_view entry) {
  BeieiWord found;
  size_t at = FindEntryTag(entry, 0);
  if (at == std::string_view::npos) return found;
  at += 2;
  while (at < entry.size()) {
    if (PairAt(entry, at) == kTagMarker) {
      found.number = ReadMarker(entry, &at);
      if (!CutBlanks(found.word).empty()) break;
    } else if (EndsHeadword(entry, at)) {
      break;
    } else if (_ismbclegal(PairAt(entry, at))) {
      at += 2;
    } else {
      if (found.word.size() < kMaxWord && IsWordByte(entry[at])) found.word.push_back(entry[at]);
      ++at;
    }
  }
  found.word.resize(CutBlanks(found.word).size());
  return found;
}

Status SrchBeiei(const BeieiWord& wanted, size_t* budget, std::string* text) {
  if (!Spend(kReadCost, budget)) return kNoMemory;
  const std::string key = ChangeMidasiStrE(wanted.word);
  uint32_t offset = 0;
  bool found = false;
  Status status = FindBlock(kTypeE, kSetKihon, key, &offset, &found);
  if (status != kOk || !found) return status;
  Ix3Rows rows;
  status = GetDicOffImi(kTypeE, kSetKihon, key, offset, &rows);
  if (status != kOk) return status;
  for (const uint32_t row : rows.offsets) {
    std::string entry;
    status = GetDicData(nullptr, kTypeE, kSetKihon, row, &entry);
    if (status != kOk) return status;
    if (!Spend(entry.size() + kReadCost, budget)) return kNoMemory;
    if (GetMidasiNo(entry) == wanted) text->append(entry);
  }
  return kOk;
}

Status SrchBeieiImi(const std::vector<std::string>& references, std::string* text) {
  size_t budget = kReadBudget;
  BeieiWord last;
  for (const std::string& reference : references) {
    if (reference.size() >= kReferenceLimit) return kInternal;
    std::vector<BeieiWord> words;
    GetBeiEiMidasi(reference, &words);
    for (const BeieiWord& word : words) {
      if (word == last) continue;
      if (Status status = SrchBeiei(word, &budget, text); status != kOk) return status;
      last = word;
    }
  }
  return kOk;
}

}  // namespace zavel::engine
