// Tests: tests/engine/UsualLineTest.cpp
#include "engine/UsualLine.h"

#include "engine/ByteWords.h"
#include "engine/EntryCursor.h"
#include "engine/LineBuffer.h"

namespace zavel::engine {
namespace {

constexpr uint8_t kSignLeadByte = 0x81;
constexpr uint16_t kDoubleAngle = 0x8173;  // "《", the bracket besides "≦" that is a sign

struct Run {
  size_t at;
  size_t size;
};

bool Skip(uint16_t pair, Cursor* cursor) {
  if (cursor->pair() != pair) return false;
  cursor->at += 2;
  return true;
}

// Moves behind a run of ASCII without control characters.
Run TakePrintables(Cursor* cursor) {
  const Run run{cursor->at, cursor->run(kPrintable, 0)};
  cursor->at += run.size;
  return run;
}

// Moves behind a tag, one digit of at least `least` and a tag, if they stand here.
void SkipNumber(uint16_t open, char least, uint16_t close, Cursor* cursor) {
  if (!cursor->has(kLabelRun) || cursor->pair() != open) return;
  const std::string_view run = cursor->text.substr(cursor->at, kLabelRun);
  const bool closed = Cursor{run, kLabelRun - 2}.pair() == close;
  if (run[2] >= least && run[2] <= '9' && closed) cursor->at += kLabelRun;
}

// Moves behind the end of a line without tags. False when something comes first that may be one: only a tag's
// first byte can take a line end along.
bool SkipPlainLine(Cursor* cursor) {
  const char* here = cursor->text.data() + cursor->at;
  const char* const end = cursor->text.data() + cursor->text.size();
  for (; end - here >= static_cast<ptrdiff_t>(sizeof(ByteWord)); here += sizeof(ByteWord)) {
    const ByteWord word = WordAt(here);
    if (Holds(word, '\n') || HoldsFromF0(word)) break;
  }
  while (here != end && *here != '\n' && static_cast<uint8_t>(*here) < 0xF0) ++here;
  if (here == end || *here != '\n') return false;
  cursor->at = static_cast<size_t>(here - cursor->text.data()) + 1;
  return true;
}

// Moves behind the headword line to the text of the first meaning.
bool FindMeaning(Cursor* cursor) {
  if (Skip(kSpanOpen, cursor)) {
    TakePrintables(cursor);
    if (!Skip(kSpanClose, cursor)) return false;
  }
  if (cursor->done() || cursor->byte() != '\n') return false;
  ++cursor->at;
  while (Skip(kTagHinsi, cursor)) {
    if (!SkipPlainLine(cursor)) return false;
  }
  return Skip(kTagImi, cursor);
}

// Moves behind the text of a gloss. Of the signs only brackets end it here.
Run TakeGloss(Cursor* cursor) {
  Run gloss{cursor->at, 0};
  for (;;) {
    cursor->at += cursor->run(kPlainGloss, kLead);
    const uint16_t pair = cursor->pair();
    if (HIBYTE(pair) != kSignLeadByte || pair == kDoubleAngle || pair == kSpanOpen || !cursor->legalPair())
      break;
    cursor->at += 2;
  }
  gloss.size = cursor->at - gloss.at;
  return gloss;
}

}  // namespace

bool BuildUsualLine(std::string_view text, size_t cap, std::string* line) {
  Cursor cursor{text};
  if (!Skip(kTagEntry, &cursor)) return false;
  const Run stars = TakePrintables(&cursor);
  SkipNumber(kTagMarker, '0', kTagMarkerEnd, &cursor);
  const Run word = TakePrintables(&cursor);
  if (stars.size + word.size >= cap || !FindMeaning(&cursor)) return false;
  SkipNumber(kTagGothic, '1', kTagRoman, &cursor);
  while (!cursor.done() && cursor.byte() == ' ') ++cursor.at;
  const Run gloss = TakeGloss(&cursor);
  const bool separated = !cursor.done() && std::string_view("\n ,.:;").find(text[cursor.at]) != text.npos;
  if (gloss.size == 0 || !separated || !SkipPlainLine(&cursor)) return false;
  LineBuffer buffer;
  buffer.append(text, stars.at, stars.size);
  buffer.append(text, word.at, word.size);
  buffer.push_back(' ');
  buffer.push_back('[');
  buffer.append(text, gloss.at, gloss.size);
  buffer.push_back(']');
  line->assign(buffer.view());
  return true;
}

}  // namespace zavel::engine
