// A line is built in three scans over the entry: the headword line; for English the first meaning that
// leaves a gloss; for Japanese by kana the first "〈...〉" of the meaning. Every scan steps by characters,
// so that the second byte of a kanji is never taken for a mark.
// Tests: tests/engine/EntryLineTest.cpp
#include "engine/IndexLine.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/EntryCursor.h"
#include "engine/LineBuffer.h"
#include "engine/Shim.h"
#include "engine/UsualLine.h"

namespace zavel::engine {
namespace {

constexpr uint16_t kAngleOpen = 0x8171;   // "〈"
constexpr uint16_t kAngleClose = 0x8172;  // "〉"
constexpr uint16_t kLongMark = 0x815B;    // "ー", what the byte 0xB0 is shown as

// Bracket pairs whose text a gloss drops. A code below 0x100 is one byte.
struct BracketPair {
  uint16_t open;
  uint16_t close;
};
constexpr BracketPair Musi[] = {{'[', ']'}, {0x8173, 0x8174}, {'(', ')'}, {kSpanOpen, kSpanClose}};

void AppendPair(uint16_t pair, LineBuffer* out) {
  out->push_back(static_cast<char>(HIBYTE(pair)));
  out->push_back(static_cast<char>(LOBYTE(pair)));
}

// Appends the character at the cursor as a line shows it and moves past it.
void CollectCharacter(Cursor* cursor, bool keepPairs, LineBuffer* out) {
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

// Moves behind the entry tag. False when the line or the text ends first.
bool MoveToHeadword(Cursor* cursor) {
  for (; !cursor->done(); ++cursor->at) {
    if (cursor->pair() == kTagEntry) {
      cursor->at += 2;
      return true;
    }
    if (cursor->byte() == '\n') {
      ++cursor->at;
      return false;
    }
  }
  return false;
}

// Moves behind the "≧" that closes the "≦" here, or to the line end or entry that cuts the span short.
void SkipSpan(Cursor* cursor) {
  size_t depth = 0;
  while (!cursor->done()) {
    const uint16_t pair = cursor->pair();
    if (pair == kTagEntry || cursor->byte() == '\n') return;
    if (pair == kSpanOpen) ++depth;
    if (pair == kSpanClose) --depth;
    cursor->at += cursor->step();
    if (depth == 0) return;
    cursor->at += cursor->run(kPlainSpan, kLead);
  }
}

// Collects the headword line up to its 0x0A and leaves the cursor behind that.
// kept: an English headword loses its double-byte characters, tags among them; a Japanese one keeps them,
// tags among them (docs/quirks.md)
HeadwordEnd ScanHeadword(Cursor* cursor, bool keepPairs, size_t cap, LineBuffer* line) {
  if (!MoveToHeadword(cursor)) return HeadwordEnd::kNoEntry;
  while (!cursor->done()) {
    const size_t run = std::min(cursor->run(kPlainHeadword, keepPairs ? kLead : 0), cap - line->size());
    if (run > 0) {
      line->append(cursor->text, cursor->at, run);
      cursor->at += run;
      if (line->size() == cap) return HeadwordEnd::kCap;
      if (cursor->done()) break;
    }
    if (cursor->byte() == '\n') {
      ++cursor->at;
      return HeadwordEnd::kLineEnd;
    }
    const uint16_t pair = cursor->pair();
    if (pair == kTagEntry) return HeadwordEnd::kNextEntry;
    if (pair == kSpanOpen) {
      SkipSpan(cursor);
    } else if (const size_t marker = HomographMarker(*cursor); marker > 0) {
      cursor->at += marker;
    } else if (!keepPairs && cursor->legalPair()) {
      cursor->at += 2;
    } else {
      CollectCharacter(cursor, keepPairs, line);
      if (line->size() < cap) continue;
      line->truncate(cap);
      return HeadwordEnd::kCap;
    }
  }
  return HeadwordEnd::kTextEnd;
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
  LineBuffer* line;    // borrowed: the text goes to its end
  size_t start;        // of the text in the line
  bool ended = false;  // a separator was met behind some text

  bool empty() const { return line->size() == start; }
  void drop() { line->truncate(start); }

  // Takes the characters at the cursor that are neither separators nor signs, among which the brackets
  // stand, if there are any.
  bool takeRun(Cursor* cursor) {
    const size_t run = cursor->run(kPlainGloss, kLead);
    if (run == 0) return false;
    if (!ended) line->append(cursor->text, cursor->at, run);
    cursor->at += run;
    return true;
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

// Moves past a tag that gives no text of its own. False when none stands here.
bool SkipTag(Cursor* cursor) {
  uint16_t tag = 0;
  if (cursor->byte() < HIBYTE(kTagMarker)) return false;  // every tag begins with 0xF4 or 0xF5
  const bool marker = cursor->byte() == HIBYTE(kTagMarker);
  if (!marker && !(cursor->has(2) && IsTag(cursor->byte(), cursor->byte(1), &tag))) return false;
  cursor->at += 2;
  return true;
}

// Moves behind the next meaning tag. False when the entry or the text ends first.
bool MoveToMeaning(Cursor* cursor) {
  while (!cursor->done()) {
    cursor->at += cursor->run(kSingle, kLead | kSignLead);
    if (cursor->done()) return false;
    const uint16_t pair = cursor->pair();
    if (pair == kTagEntry) return false;
    if (!cursor->legalPair() && SkipTag(cursor)) continue;
    cursor->at += cursor->step();
    if (pair == kTagImi) return true;
  }
  return false;
}

// Tells whether nothing on the rest of a line can change a gloss that has ended: no tag stands there. A line
// is looked through once and again behind its last tag, not at each of its marks.
class LineEnd {
 public:
  bool isPlainFrom(const Cursor& cursor) {
    if (cursor.at < tagged_) return false;
    const std::string_view rest = cursor.text.substr(cursor.at);
    const std::string_view line = rest.substr(0, rest.find('\n'));
    const bool complete = line.size() < rest.size();
    // Every tag that matters begins with 0xF5; a marker's 0xF4 matters where it would take the line end
    // along.
    const size_t tag = line.ends_with('\xF4') ? line.size() - 1 : line.find('\xF5');
    if (complete && tag == line.npos) return true;
    tagged_ = complete ? cursor.at + std::max(tag, line.rfind('\xF5') + 1) : cursor.text.size();
    return false;
  }

 private:
  size_t tagged_ = 0;  // up to here a tag follows, or no line end does
};

enum class GlossEnd { kLineEnd, kNextEntry, kTextEnd };

// Takes a meaning up to the end of its line, which stays.
GlossEnd TakeMeaning(Cursor* cursor, LineEnd& lineEnd, Gloss& gloss) {
  while (!cursor->done()) {
    if (gloss.takeRun(cursor)) continue;
    if (cursor->byte() == '\n') return GlossEnd::kLineEnd;
    if (gloss.ended && lineEnd.isPlainFrom(*cursor)) return GlossEnd::kLineEnd;
    if (cursor->pair() == kTagEntry) return GlossEnd::kNextEntry;
    if (IsLabelRun(*cursor)) {
      cursor->at += kLabelRun;
    } else if (SkipTag(cursor)) {
      continue;
    } else if (const BracketPair* bracket = OpeningBracket(*cursor); bracket != nullptr) {
      SkipBracket(*bracket, cursor);
    } else {
      gloss.take(cursor);
    }
  }
  return GlossEnd::kTextEnd;
}

// Scans line by line for a meaning that leaves some text; an empty one: the entry has none.
// False: the text ended first.
bool ScanGloss(Cursor* cursor, Gloss& gloss) {
  LineEnd lineEnd;
  while (MoveToMeaning(cursor)) {
    const GlossEnd end = TakeMeaning(cursor, lineEnd, gloss);
    if (end == GlossEnd::kTextEnd) return false;
    if (end == GlossEnd::kNextEntry) gloss.drop();  // only a line end completes a gloss
    if (end == GlossEnd::kNextEntry || !gloss.empty()) return true;
  }
  return !cursor->done();
}

LineResult AddGloss(Cursor* cursor, bool whole, LineBuffer* line) {
  const size_t headword = line->size();
  line->push_back(' ');
  line->push_back('[');
  Gloss gloss{line, line->size()};
  const bool settled = ScanGloss(cursor, gloss);
  if (!settled) gloss.drop();
  if (gloss.empty()) {
    line->truncate(headword);
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

// Turns the headword of a Japanese entry into its line.
static LineResult FinishLineJ(Cursor* cursor, bool whole, uint16_t type, std::string* line) {
  // kept: any byte 0xA5 counts here, the second byte of "ぇ" too (docs/quirks.md)
  const bool hasMark = line->find(static_cast<char>(kSyllableMark)) != std::string::npos;
  if (type == kTypeKana && !hasMark && AddAngleSpan(cursor, whole, line) == LineResult::kNeedsMore) {
    return LineResult::kNeedsMore;
  }
  InformMidasiJ(line, type);
  return LineResult::kLine;
}

LineResult BuildIndexLine(std::string_view text, bool whole, uint16_t type, size_t cap, std::string* line) {
  if (type == kTypeE && BuildUsualLine(text, cap, line)) return LineResult::kLine;
  Cursor cursor{text};
  LineBuffer buffer;
  const bool english = type == kTypeE;
  const HeadwordEnd end = ScanHeadword(&cursor, !english, cap, &buffer);
  LineResult result = LineResult::kLine;
  if (cursor.done() && !whole && end != HeadwordEnd::kLineEnd) {
    result = LineResult::kNeedsMore;
  } else if (end == HeadwordEnd::kNoEntry) {
    result = LineResult::kNoEntry;
  } else if (english && end != HeadwordEnd::kCap) {
    result = AddGloss(&cursor, whole, &buffer);
  }
  line->assign(buffer.view());
  const bool headwordOnly = english || end == HeadwordEnd::kCap || result != LineResult::kLine;
  return headwordOnly ? result : FinishLineJ(&cursor, whole, type, line);
}

}  // namespace zavel::engine
