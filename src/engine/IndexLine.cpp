// A line is built in three scans over the entry: the headword line; for English the first meaning that
// leaves a gloss; for Japanese by kana the first "〈...〉" of the meaning. Every scan steps by characters,
// so that the second byte of a kanji is never taken for a mark.
// Tests: tests/engine/EntryLineTest.cpp
#include "engine/IndexLine.h"

#include <algorithm>
#include <array>

#include "engine/DicFormat.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

constexpr uint16_t kSpanOpen = 0x8185;    // "≦"
constexpr uint16_t kSpanClose = 0x8186;   // "≧"
constexpr uint16_t kAngleOpen = 0x8171;   // "〈"
constexpr uint16_t kAngleClose = 0x8172;  // "〉"
constexpr uint16_t kLongMark = 0x815B;    // "ー", what the byte 0xB0 is shown as

constexpr uint8_t kFirstLead = 0x81;
constexpr uint8_t kLeadBehindSigns = 0x82;  // 0x81 leads all signs

constexpr size_t kLabelRun = 5;  // tag, letter or digit, tag

// Bracket pairs whose text a gloss drops. A code below 0x100 is one byte.
struct BracketPair {
  uint16_t open;
  uint16_t close;
};
constexpr BracketPair Musi[] = {{'[', ']'}, {0x8173, 0x8174}, {'(', ')'}, {kSpanOpen, kSpanClose}};

// Single bytes that a scan takes without a second look. A list of fifty lines is built while the user
// types, and most of an entry is such bytes.
enum ByteClass : uint8_t {
  kPlainHeadword = 1,  // collected as it is in a headword
  kPlainGloss = 2,     // collected as it is in a gloss
  kPlainSkipped = 4,   // passed over where nothing is collected
};

constexpr std::array<uint8_t, 256> MakeByteClasses() {
  std::array<uint8_t, 256> classes{};
  for (unsigned byte = 0; byte < 0x80; ++byte) {
    if (byte == '\n') continue;
    classes[byte] = kPlainSkipped;
    if (byte == 0 || byte == kKanjiSeparator) continue;
    classes[byte] |= kPlainHeadword;
    const bool mark = std::string_view(" ,.:;[(").find(static_cast<char>(byte)) != std::string_view::npos;
    if (!mark) classes[byte] |= kPlainGloss;
  }
  return classes;
}
constexpr std::array<uint8_t, 256> kByteClasses = MakeByteClasses();

// A position in the bytes of an entry.
struct Cursor {
  std::string_view text;
  size_t at = 0;

  bool done() const { return at >= text.size(); }
  uint8_t byte(size_t ahead = 0) const { return static_cast<uint8_t>(text[at + ahead]); }
  bool has(size_t bytes) const { return bytes <= text.size() - at; }
  // The two bytes here, high first; 0 when only one is left.
  uint16_t pair() const { return has(2) ? static_cast<uint16_t>(byte() << 8 | byte(1)) : 0; }
  // _ismbclegal of the pair here, written out: it is asked for every character.
  bool legalPair() const {
    if (!_ismbblead(byte()) || !has(2)) return false;
    const uint8_t trail = byte(1);
    return trail >= 0x40 && trail <= 0xFC && trail != 0x7F;
  }
  // Bytes of the character here.
  size_t step() const { return legalPair() ? 2 : 1; }
  // Bytes from here on that all are single ones of `kind`.
  size_t run(ByteClass kind) const {
    size_t end = at;
    while (end < text.size() && (kByteClasses[static_cast<uint8_t>(text[end])] & kind) != 0) ++end;
    return end - at;
  }
  // The same with double-byte characters among them, from lead byte `lead` on: tags begin at 0xF4.
  size_t runOfCharacters(ByteClass kind, uint8_t lead) const {
    Cursor ahead = *this;
    while (!ahead.done()) {
      const uint8_t byteHere = ahead.byte();
      if ((kByteClasses[byteHere] & kind) != 0) {
        ++ahead.at;
      } else if (byteHere >= lead && byteHere < 0xF0 && ahead.legalPair()) {
        ahead.at += 2;
      } else {
        break;
      }
    }
    return ahead.at - at;
  }
  bool isDigit(size_t ahead) const { return has(ahead + 1) && byte(ahead) >= '0' && byte(ahead) <= '9'; }
};

void AppendPair(uint16_t pair, std::string* out) {
  out->push_back(static_cast<char>(HIBYTE(pair)));
  out->push_back(static_cast<char>(LOBYTE(pair)));
}

// Appends the character at the cursor as a line shows it and moves past it.
void CollectCharacter(Cursor* cursor, bool keepPairs, std::string* out) {
  const uint8_t byte = cursor->byte();
  const size_t step = cursor->step();
  if (step == 2) {
    if (keepPairs) AppendPair(cursor->pair(), out);
  } else if (byte == kShortLong) {
    AppendPair(kLongMark, out);
  } else if (byte == kKanjiSeparator) {
    out->push_back(static_cast<char>(kSyllableMark));
  } else if (byte != 0) {
    out->push_back(static_cast<char>(byte));
  }
  cursor->at += step;
}

// Bytes of a homograph marker with its one or two digits; 0 when none stands here.
size_t HomographMarker(const Cursor& cursor) {
  if (cursor.pair() != kTagMarker || !cursor.isDigit(2)) return 0;
  return cursor.isDigit(3) ? 4 : 3;
}

enum class HeadwordEnd { kLineEnd, kNextEntry, kCap, kNoEntry, kTextEnd };

// Collects the headword line up to its 0x0A and leaves the cursor behind that.
// kept: an English headword loses its double-byte characters, tags among them; a Japanese one keeps them,
// tags among them (docs/quirks.md)
HeadwordEnd ScanHeadword(Cursor* cursor, bool keepPairs, size_t cap, std::string* line) {
  bool collecting = false;
  size_t depth = 0;  // of "≦"
  while (!cursor->done()) {
    if (collecting && depth == 0) {
      const size_t run = std::min(cursor->run(kPlainHeadword), cap - line->size());
      line->append(cursor->text, cursor->at, run);
      cursor->at += run;
      if (line->size() == cap) return HeadwordEnd::kCap;
      if (cursor->done()) break;
    }
    const uint16_t pair = cursor->pair();
    if (pair == kTagEntry) {
      if (collecting) return HeadwordEnd::kNextEntry;
      collecting = true;
      cursor->at += 2;
    } else if (cursor->byte() == '\n') {
      ++cursor->at;
      return collecting ? HeadwordEnd::kLineEnd : HeadwordEnd::kNoEntry;
    } else if (!collecting) {
      ++cursor->at;
    } else if (pair == kSpanOpen || depth > 0) {
      if (pair == kSpanOpen) ++depth;
      if (pair == kSpanClose) --depth;
      cursor->at += cursor->step();
      if (depth > 0) cursor->at += cursor->runOfCharacters(kPlainSkipped, kLeadBehindSigns);
    } else if (const size_t marker = HomographMarker(*cursor); marker > 0) {
      cursor->at += marker;
    } else {
      CollectCharacter(cursor, keepPairs, line);
      if (line->size() < cap) continue;
      line->resize(cap);
      return HeadwordEnd::kCap;
    }
  }
  return collecting ? HeadwordEnd::kTextEnd : HeadwordEnd::kNoEntry;
}

// A sense label (bold letter) or a sense number (gothic digit), tags included.
bool IsLabelRun(const Cursor& cursor) {
  if (!cursor.has(kLabelRun)) return false;
  const uint8_t mark = cursor.byte(2);
  const bool letter = (mark >= 'A' && mark <= 'D') || (mark >= 'a' && mark <= 'z');
  const bool digit = mark >= '1' && mark <= '9';
  const uint16_t open = cursor.pair();
  if (!(open == kTagBold && letter) && !(open == kTagGothic && digit)) return false;
  return (cursor.byte(3) << 8 | cursor.byte(4)) == kTagRoman;
}

bool Stands(const Cursor& cursor, uint16_t code) {
  return code < 0x100 ? cursor.byte() == code : cursor.pair() == code;
}

const BracketPair* OpeningBracket(const Cursor& cursor) {
  for (const BracketPair& bracket : Musi) {
    if (Stands(cursor, bracket.open)) return &bracket;
  }
  return nullptr;
}

// Moves from an opening bracket behind its partner. Only brackets of the same kind nest. One that stays
// open ends with its line or its entry.
void SkipBracket(const BracketPair& bracket, Cursor* cursor) {
  size_t depth = 0;
  while (!cursor->done() && cursor->byte() != '\n' && cursor->pair() != kTagEntry) {
    if (cursor->byte() < 0x80 && cursor->byte() != bracket.open && cursor->byte() != bracket.close) {
      ++cursor->at;
      continue;
    }
    if (Stands(*cursor, bracket.open)) ++depth;
    if (Stands(*cursor, bracket.close)) --depth;
    cursor->at += cursor->step();
    if (depth == 0) return;
  }
}

bool IsSeparator(uint8_t byte) {
  return byte == kShortLong || byte == kKanjiSeparator ||
         std::string_view(" ,.:;").find(static_cast<char>(byte)) != std::string_view::npos;
}

// What a meaning line leaves of its text.
struct Gloss {
  std::string* line;   // borrowed: the text goes to its end
  size_t start;        // of the text in the line
  bool ended = false;  // a separator was met behind some text

  bool empty() const { return line->size() == start; }
  void drop() { line->resize(start); }

  // Takes the characters at the cursor that are neither separators nor signs, among which the brackets
  // stand, if there are any.
  bool takeRun(Cursor* cursor) {
    const size_t begin = cursor->at;
    cursor->at += cursor->runOfCharacters(kPlainGloss, kLeadBehindSigns);
    if (!ended) line->append(cursor->text, begin, cursor->at - begin);
    return cursor->at > begin;
  }

  // Takes the character at the cursor.
  void take(Cursor* cursor) {
    if (IsSeparator(cursor->byte())) {
      ended = ended || !empty();
      ++cursor->at;
    } else if (ended) {
      cursor->at += cursor->step();
    } else {
      CollectCharacter(cursor, true, line);
    }
  }
};

// Moves past a tag or a label that gives no text of its own. False when none stands here.
bool SkipGlossTag(Cursor* cursor, bool collecting) {
  uint16_t tag = 0;
  if (cursor->byte() < HIBYTE(kTagMarker)) return false;  // every tag begins with 0xF4 or 0xF5
  if (cursor->byte() == HIBYTE(kTagMarker)) {
    cursor->at += 2;
  } else if (collecting && IsLabelRun(*cursor)) {
    cursor->at += kLabelRun;
  } else if (cursor->has(2) && IsTag(cursor->byte(), cursor->byte(1), &tag)) {
    cursor->at += 2;
  } else {
    return false;
  }
  return true;
}

// Tells whether nothing on the rest of a line can change a gloss that has ended: no tag stands there. A line
// is looked through once and again behind its last tag, not at each of its marks.
class LineEnd {
 public:
  bool isPlainFrom(const Cursor& cursor) {
    if (cursor.at < tagged_) return false;
    const std::string_view rest = cursor.text.substr(cursor.at);
    const std::string_view line = rest.substr(0, rest.find('\n'));
    const auto tag =
        std::find_if(line.rbegin(), line.rend(), [](char c) { return c == '\xF4' || c == '\xF5'; });
    const bool complete = line.size() < rest.size();
    if (complete && tag == line.rend()) return true;
    tagged_ = complete ? cursor.at + static_cast<size_t>(line.rend() - tag) : cursor.text.size();
    return false;
  }

 private:
  size_t tagged_ = 0;  // up to here a tag follows, or no line end does
};

bool SkipRun(Cursor* cursor) {
  const size_t run = cursor->runOfCharacters(kPlainSkipped, kFirstLead);
  cursor->at += run;
  return run > 0;
}

// Scans line by line for a meaning that leaves some text; an empty one: the entry has none.
// False: the text ended first.
bool ScanGloss(Cursor* cursor, Gloss& gloss) {
  bool collecting = false;
  LineEnd lineEnd;
  while (!cursor->done()) {
    if (collecting ? gloss.takeRun(cursor) : SkipRun(cursor)) continue;
    if (collecting && gloss.ended && lineEnd.isPlainFrom(*cursor)) return true;
    const uint16_t pair = cursor->pair();
    if (pair == kTagEntry) {
      gloss.drop();  // only a line end completes a gloss
      return true;
    }
    if (pair == kTagImi) {
      collecting = true;
      cursor->at += 2;
    } else if (cursor->byte() == '\n') {
      if (!gloss.empty()) return true;
      collecting = false;
      ++cursor->at;
    } else if (SkipGlossTag(cursor, collecting)) {
      continue;
    } else if (!collecting) {
      cursor->at += cursor->step();
    } else if (const BracketPair* bracket = OpeningBracket(*cursor); bracket != nullptr) {
      SkipBracket(*bracket, cursor);
    } else {
      gloss.take(cursor);
    }
  }
  return false;
}

LineResult AddGloss(Cursor* cursor, bool whole, std::string* line) {
  const size_t headword = line->size();
  line->append(" [");
  Gloss gloss{line, line->size()};
  const bool settled = ScanGloss(cursor, gloss);
  if (!settled) gloss.drop();
  if (gloss.empty()) {
    line->resize(headword);
  } else {
    line->push_back(']');
  }
  return settled || whole ? LineResult::kLine : LineResult::kNeedsMore;
}

// A tag that opens a section of an entry.
bool IsSectionTag(uint16_t pair) {
  uint16_t tag = 0;
  return IsTag(HIBYTE(pair), LOBYTE(pair), &tag) && tag >= kTagCompound && tag <= kTagPhraseNote;
}

// Moves to the pair `wanted`. False: the entry ended first; with `inSection` also where the section did.
bool MoveToPair(Cursor* cursor, uint16_t wanted, bool inSection) {
  for (; !cursor->done(); cursor->at += cursor->step()) {
    const uint16_t pair = cursor->pair();
    if (pair == wanted) return true;
    if (pair == kTagEntry || (inSection && IsSectionTag(pair))) return false;
  }
  return false;
}

// Appends the first "〈...〉" of the entry's meaning, brackets included.
LineResult AddAngleSpan(Cursor* cursor, bool whole, std::string* line) {
  bool found = MoveToPair(cursor, kTagImi, false);
  if (found) cursor->at += 2;
  found = found && MoveToPair(cursor, kAngleOpen, true);
  const size_t start = cursor->at;
  found = found && MoveToPair(cursor, kAngleClose, true);
  if (cursor->done() && !whole) return LineResult::kNeedsMore;
  if (!found) return LineResult::kLine;
  std::string span(cursor->text.substr(start, cursor->at + 2 - start));
  std::erase(span, '\0');  // a line holds none
  line->append(span);
  return LineResult::kLine;
}

// Where the pair or byte `code` first stands at a character border; npos for nowhere.
size_t FindCharacter(std::string_view text, uint16_t code) {
  for (Cursor cursor{text}; !cursor.done(); cursor.at += cursor.step()) {
    if (Stands(cursor, code)) return cursor.at;
  }
  return std::string_view::npos;
}

std::string AnglesToBrackets(std::string_view line) {
  std::string out;
  for (Cursor cursor{line}; !cursor.done();) {
    if (cursor.pair() == kAngleClose) return out.append("]");
    if (cursor.pair() == kAngleOpen) {
      out.append(" [");
    } else {
      out.append(line, cursor.at, cursor.step());
    }
    cursor.at += cursor.step();
  }
  return out;
}

}  // namespace

void InformMidasiJ(std::string* line, uint16_t type) {
  const size_t split = FindCharacter(*line, kSyllableMark);
  const bool angleFirst = FindCharacter(*line, kAngleOpen) < split;
  if (split == std::string::npos || angleFirst) {
    *line = AnglesToBrackets(*line);
    return;
  }
  const std::string kana = line->substr(0, split);
  const std::string kanji = line->substr(split + 1);
  *line = type == kTypeKji ? kanji + " [" + kana + "]" : kana + " [" + kanji + "]";
}

LineResult BuildIndexLine(std::string_view text, bool whole, uint16_t type, size_t cap, std::string* line) {
  line->clear();
  Cursor cursor{text};
  const bool english = type == kTypeE;
  const HeadwordEnd end = ScanHeadword(&cursor, !english, cap, line);
  if (cursor.done() && !whole && end != HeadwordEnd::kLineEnd) return LineResult::kNeedsMore;
  if (end == HeadwordEnd::kNoEntry) return LineResult::kNoEntry;
  if (end == HeadwordEnd::kCap) return LineResult::kLine;
  if (english) return AddGloss(&cursor, whole, line);
  // kept: any byte 0xA5 counts here, the second byte of "ぇ" too (docs/quirks.md)
  const bool hasMark = line->find(static_cast<char>(kSyllableMark)) != std::string::npos;
  if (type == kTypeKana && !hasMark && AddAngleSpan(&cursor, whole, line) == LineResult::kNeedsMore) {
    return LineResult::kNeedsMore;
  }
  InformMidasiJ(line, type);
  return LineResult::kLine;
}

}  // namespace zavel::engine
