// An entry as it comes out, for 明かす [あかす] /(v5s,vt) (1) to pass (the night)/to spend/(v5s,vt) (2) to
// reveal/:
//
//   F5D1 あかす 1B 明かす 0A
//   F5D3 -[動サ五][他] 0A
//   F5D4 F5BD 1 F5C1 " to pass (the night); to spend" 0A
//   F5D4 F5BD 2 F5C1 " to reveal" 0A
//
// Senses are numbered within a part of speech, as the readers' layout expects of it: sense 1 follows its
// part-of-speech line directly, the others stand apart. Tests: tests/mkdict/JapaneseEntriesTest.cpp.
#include "mkdict/JapaneseEntries.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/MidasiCheck.h"
#include "engine/Shim.h"
#include "mkdict/EdictLabels.h"
#include "mkdict/IterationMark.h"
#include "mkdict/Tag.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

constexpr char kSeparator = static_cast<char>(engine::kKanjiSeparator);

using Codes = std::vector<std::string>;

std::string inWords(const Codes& codes) {
  std::string out;
  for (const std::string& code : codes) out += (out.empty() ? "" : "; ") + std::string(remark(code));
  return out;
}

// Remarks on the whole word: those on its spelling, and those that each of several senses carries.
Codes wordRemarks(const EdictLine& line) {
  Codes common = line.spelling;
  if (line.senses.size() < 2) return common;
  for (const std::string& code : line.senses.front().remarks) {
    if (code == "uk" && line.written.empty()) continue;
    const auto carries = [&code](const EdictSense& sense) { return hasCode(sense.remarks, code); };
    if (std::all_of(line.senses.begin(), line.senses.end(), carries)) common.push_back(code);
  }
  return common;
}

// "to do; to act (usually kana; archaic)"; what is told of the whole word is not told again.
std::string senseText(const EdictSense& sense, const Codes& told) {
  std::string out;
  Codes own;
  for (const std::string& gloss : sense.glosses) out += (out.empty() ? "" : "; ") + gloss;
  for (const std::string& code : sense.remarks) {
    if (!hasCode(told, code)) own.push_back(code);
  }
  return own.empty() ? out : out + " (" + inWords(own) + ")";
}

// "-[動ラ五][他]"; empty when the codes name no part of speech.
std::string posLine(const Codes& codes) {
  std::string out, last;
  for (const std::string& code : codes) {
    const std::string label = posLabel(code);
    if (label != last) out += label;
    last = label;
  }
  return out.empty() ? out : "-" + out;
}

// The number of a sense. Readers part the senses 2 to 9 from the text before them by an empty line; they
// judge by the first digit, so the senses 10 to 19 bring that line along.
std::string numberMark(size_t number) {
  const std::string digits = std::to_string(number);
  const std::string apart = number >= 10 && digits[0] == '1' ? "\n" : "";
  return apart + tag(engine::kTagImi) + tag(engine::kTagGothic) + digits + tag(engine::kTagRoman) + " ";
}

// The reader's own test.
bool holdsKanji(std::string_view sjis) {
  for (size_t at = 0; at + 1 < sjis.size(); at += 2) {
    const unsigned code = static_cast<uint8_t>(sjis[at]) << 8 | static_cast<uint8_t>(sjis[at + 1]);
    if (engine::_ismbcl1(code) || engine::_ismbcl2(code)) return true;
  }
  return false;
}

// A reading without the dots that part the words of a foreign phrase: no query can hold one.
std::string withoutDots(const std::string& utf8) {
  static const std::string kDot = "・";
  std::string out;
  size_t at = 0;
  for (size_t dot; (dot = utf8.find(kDot, at)) != std::string::npos; at = dot + kDot.size()) {
    out += utf8.substr(at, dot - at);
  }
  return out + utf8.substr(at);
}

// The written form in a headword line, empty when there is none.
std::string_view writtenIn(std::string_view headLine) {
  const size_t at = headLine.find(kSeparator);
  return at == std::string_view::npos ? std::string_view() : headLine.substr(at + 1);
}

// "(usually written 人々)" or "(also written 一杯々々)", in a line of its own.
std::string otherSpelling(std::string_view headLine, bool usual) {
  const std::string how = usual ? "(usually written " : "(also written ";
  const std::optional<std::string> text = toEntryText(how + toUtf8(writtenIn(headLine)) + ")");
  return text ? tag(engine::kTagNote) + *text + "\n" : std::string();
}

}  // namespace

bool JapaneseEntries::body(const EdictLine& line, std::string* text, std::string* lacking) {
  text->clear();
  const auto append = [&](const std::string& head, std::string_view utf8) {
    const std::optional<std::string> sjis = toEntryText(utf8, lacking);
    if (sjis) *text += head + *sjis + "\n";
    return sjis.has_value();
  };
  Codes told = wordRemarks(line);
  if (!told.empty() && !append(tag(engine::kTagNote), "(" + inWords(told) + ")")) return false;
  if (line.written.empty()) told.push_back("uk");  // goes without saying
  for (size_t begin = 0, end; begin < line.senses.size(); begin = end) {
    const Codes& pos = line.senses[begin].pos;
    for (end = begin + 1; end < line.senses.size() && line.senses[end].pos == pos;) ++end;
    const std::string labels = posLine(pos);
    if (!labels.empty() && !append(tag(engine::kTagHinsi), labels)) return false;
    for (size_t i = begin; i < end; ++i) {
      const std::string head = end - begin == 1 ? tag(engine::kTagImi) : numberMark(i - begin + 1);
      if (!append(head, senseText(line.senses[i], told))) return false;
    }
  }
  return true;
}

bool JapaneseEntries::headword(const EdictLine& line, Headword* out) {
  std::string lacking;
  const std::optional<std::string> kana = toShiftJis(withoutDots(line.reading), &lacking);
  const std::optional<std::string> written = toShiftJis(line.written, &lacking);
  if (!kana || !written) {
    summary_->leftOut("Japanese words with a character that Shift_JIS lacks (" + lacking + ")",
                      line.written.empty() ? line.reading : line.written);
    return false;
  }
  *out = {*kana, *written};
  return true;
}

// Decides under which words an entry is filed.
void JapaneseEntries::file(const Headword& shown, const std::string& name, JapaneseEntry* entry) {
  if (engine::ChkMidasiStrJ(shown.kana.c_str()) == engine::kOk) entry->kana = shown.kana;
  // A reader takes a word for a written form only when it holds a kanji.
  const std::string written = withKanjiRepeated(shown.written.empty() ? shown.kana : shown.written);
  const bool kanji = engine::ChkMidasiStrK(written.c_str()) == engine::kOk && holdsKanji(written);
  if (kanji) entry->kanji = written;
  if (entry->kana.empty() && !kanji) {
    summary_->leftOut("Japanese words that no query can hold", name);
  } else if (entry->kana.empty()) {
    summary_->leftOut("Japanese words found by written form only", name);
  } else if (!kanji && !shown.written.empty()) {
    summary_->leftOut("Japanese words found by reading only (digits, letters or signs in the written form)",
                      name);
  }
}

void JapaneseEntries::join(Word* word, const std::string& body, const WordFrequency& line) {
  std::string& text = word->entry.text;
  if (text.find(body) != std::string::npos) {
    summary_->count("EDICT lines that say nothing new");
  } else if (line.byReading < word->frequency.byReading) {
    text = body + text;
  } else {
    text += body;
  }
  summary_->count("EDICT lines joined to one of the same word");
  word->frequency.join(line);
}

void JapaneseEntries::add(const EdictLine& line) {
  const std::string& name = line.written.empty() ? line.reading : line.written;
  Headword shown;
  std::string text, lacking;
  if (!headword(line, &shown)) return;
  if (!body(line, &text, &lacking)) {
    summary_->leftOut("Japanese words with a meaning that Shift_JIS lacks (" + lacking + ")", name);
    return;
  }
  const std::string head = shown.kana + (shown.written.empty() ? "" : kSeparator + shown.written);
  const auto [known, isNew] = byHead_.try_emplace(head, words_.size());
  if (!isNew) {
    join(&words_[known->second], text, WordFrequency::of(line));
    return;
  }
  Word word;
  word.head = head;
  word.frequency = WordFrequency::of(line);
  file(shown, name, &word.entry);
  if (word.entry.kana.empty() && word.entry.kanji.empty()) {
    byHead_.erase(known);
    return;
  }
  if (looksTagged(head)) summary_->leftOut("headwords in which some readers see a tag (kept)", name);
  word.entry.text = std::move(text);
  words_.push_back(std::move(word));
}

// A list line shows the written form of its entry, and what it shows must be a word that can be searched. So
// a word written with 々 is two entries: by its reading one that shows 人々, by its written form one that
// shows 人人 and names 人々.
void JapaneseEntries::partSpellings() {
  const size_t count = words_.size();
  for (size_t i = 0; i < count; ++i) {
    const std::string repeated = withKanjiRepeated(words_[i].head);
    if (repeated != words_[i].head && !words_[i].entry.kanji.empty()) partSpelling(i, repeated);
  }
}

// EDICT itself gives most of these words both ways. Where it tells them unlike, both stay as they are.
void JapaneseEntries::partSpelling(size_t marked, const std::string& repeated) {
  const auto [known, isNew] = byHead_.try_emplace(repeated, words_.size());
  if (isNew) words_.push_back({repeated, words_[marked].entry, words_[marked].frequency});
  Word& byReading = words_[marked];
  Word& byWritten = words_[known->second];
  byReading.entry.kanji.clear();
  if (byWritten.entry.text != byReading.entry.text) return;
  const bool usual = isNew || byReading.frequency.byReading < byWritten.frequency.byReading;
  if (usual) byWritten.frequency = byReading.frequency;
  byWritten.entry.kana.clear();
  byWritten.entry.text = otherSpelling(byReading.head, usual) + byWritten.entry.text;
  summary_->count("Japanese words written with 々");
}

std::vector<JapaneseEntry> JapaneseEntries::take() {
  partSpellings();
  byHead_.clear();
  std::vector<JapaneseEntry> entries;
  std::vector<WordFrequency> frequencies;
  entries.reserve(words_.size());
  frequencies.reserve(words_.size());
  for (Word& word : words_) {
    word.entry.text = tag(engine::kTagEntry) + word.head + "\n" + word.entry.text;
    entries.push_back(std::move(word.entry));
    frequencies.push_back(word.frequency);
  }
  std::vector<Word>().swap(words_);
  setRanks(frequencies, &entries);
  return entries;
}

}  // namespace zavel::mkdict
