// Tests: tests/zavel/user/UserTextTest.cpp
#include "user/UserText.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

#include "QueryText.h"
#include "Utf8.h"
#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/MidasiCheck.h"
#include "engine/WordInfo.h"
#include "foundation/Utf8.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"
#include "user/FiledWord.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

using engine::kOk;

constexpr char32_t kDakuten = 0x3099, kHandakuten = 0x309A;
constexpr size_t kMostExamples = 65535;
constexpr size_t kMostSentences = kMostExamples - 2;  // and two for spellings
constexpr size_t kLongestText = 65534;                // bytes in Shift_JIS

// Half-width katakana from U+FF61 on, in full width.
constexpr std::u32string_view kFullKatakana =
    U"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモ"
    U"ヤユヨラリルレロワン";

std::string utf8Of(char32_t code) {
  std::string out;
  appendUtf8(out, code);
  return out;
}

bool isAsciiKind(TextKind kind) {
  return kind == TextKind::kEnglishWord || kind == TextKind::kAscii;
}

// A kana with the sound mark behind it; 0 where it takes none.
char32_t withMark(char32_t kana, char32_t mark) {
  const char32_t shift = kana >= 0x30A1 && kana <= 0x30F6 ? 0x60 : 0;
  const char32_t base = kana - shift;
  const bool h = base >= 0x306F && base <= 0x307B && (base - 0x306F) % 3 == 0;
  if (mark == kHandakuten) return h ? kana + 2 : 0;
  const bool k = base >= 0x304B && base <= 0x3061 && base % 2 == 1;
  const bool t = base == 0x3064 || base == 0x3066 || base == 0x3068;
  if (h || k || t) return kana + 1;
  return base == 0x3046 ? 0x3094 + shift : 0;  // う
}

// What stands for a character that a text can't hold: in ASCII, and where ASCII is not all there is.
struct StandIn {
  char32_t code;
  std::string_view ascii;  // empty: none
  std::u32string_view wide;
};

constexpr StandIn kStandIns[] = {
    {0x00A0, " ", U" "},   {0x00A5, "", U"￥"},   {0x00B4, "'", U"´"},  {0x00B7, "", U"・"},
    {0x2002, " ", U" "},   {0x2003, " ", U" "},   {0x2009, " ", U" "},  {0x200A, " ", U" "},
    {0x202F, " ", U" "},   {0x3000, " ", U"　"},  {0x2010, "-", U"‐"},  {0x2011, "-", U"‐"},
    {0x2012, "-", U"-"},   {0x2013, "-", U"-"},   {0x2014, "-", U"―"},  {0x2015, "-", U"―"},
    {0x2212, "-", U"－"},  {0x2018, "'", U"‘"},   {0x2019, "'", U"’"},  {0x201A, "'", U"'"},
    {0x201B, "'", U"'"},   {0x2032, "'", U"′"},   {0x201C, "\"", U"“"}, {0x201D, "\"", U"”"},
    {0x201E, "\"", U"\""}, {0x201F, "\"", U"\""}, {0x2033, "\"", U"″"}, {0x2022, "", U"・"},
    {0x2026, "...", U"…"}, {0x203E, "~", U"￣"},  {0x301C, "~", U"～"}, {0x3094, "", U"ヴ"},
};

const StandIn* standInOf(char32_t code) {
  const auto* const found = std::find_if(std::begin(kStandIns), std::end(kStandIns),
                                         [code](const StandIn& standIn) { return standIn.code == code; });
  return found == std::end(kStandIns) ? nullptr : found;
}

// One character in the ASCII that it stands for; empty where it stands for none.
std::string asciiOf(char32_t code) {
  if (code >= 0xFF01 && code <= 0xFF5E) return std::string(1, static_cast<char>(code - 0xFEE0));
  const StandIn* const standIn = standInOf(code);
  return standIn ? std::string(standIn->ascii) : std::string();
}

char32_t fullWidth(char32_t code) {
  if (code >= 0xFF61 && code < 0xFF61 + kFullKatakana.size()) return kFullKatakana[code - 0xFF61];
  if (code == 0xFF9E) return kDakuten;
  if (code == 0xFF9F) return kHandakuten;
  return code;
}

// Marks that nobody sees: of the byte order, of places where a line or a word may break.
bool isInvisible(char32_t code) {
  return code == 0xFEFF || code == 0x200B || code == 0x2060 || code == 0x00AD;
}

// A character, and where it stands in what was typed, counted from 1.
struct Typed {
  char32_t code;
  size_t place;
};

void appendFolded(TextKind kind, Typed typed, std::vector<Typed>* out) {
  if (isInvisible(typed.code)) return;
  if (isAsciiKind(kind)) {
    const std::string ascii = asciiOf(typed.code);
    if (ascii.empty()) out->push_back(typed);
    for (const char c : ascii) out->push_back({static_cast<char32_t>(c), typed.place});
    return;
  }
  const char32_t full = fullWidth(typed.code);
  const bool isMark = full == kDakuten || full == kHandakuten;
  const char32_t marked = isMark && !out->empty() ? withMark(out->back().code, full) : 0;
  if (marked != 0) {
    out->back().code = marked;
  } else if (isMark) {
    out->push_back({full == kDakuten ? U'゛' : U'゜', typed.place});
  } else {
    out->push_back({full, typed.place});
  }
}

bool isBlank(const Typed& typed) {
  const StandIn* const standIn = standInOf(typed.code);
  return typed.code == ' ' || typed.code == 0x3000 || (standIn && standIn->wide == U" ");
}

std::vector<Typed> folded(TextKind kind, std::string_view utf8) {
  std::vector<Typed> out;
  Typed typed{0, 1};
  for (size_t length = 0; (length = decodeUtf8(utf8, &typed.code)) > 0; utf8.remove_prefix(length)) {
    appendFolded(kind, typed, &out);
    ++typed.place;
  }
  while (!out.empty() && isBlank(out.back())) out.pop_back();
  out.erase(out.begin(), std::find_if_not(out.begin(), out.end(), isBlank));
  return out;
}

constexpr std::string_view kMiddleDot = "\x81\x45";  // ・

// Whether words with this character, which the engine files none under, are filed otherwise.
bool isFiledOtherwise(const std::string& sjis) {
  const std::string character = platform().encoding().fromSjisLossy(sjis);
  return wordAsFiled(character) != character;
}

bool accepts(TextKind kind, const std::string& sjis) {
  switch (kind) {
    case TextKind::kEnglishWord:
      return engine::ChkMidasiStrE(sjis.c_str()) == kOk;
    case TextKind::kReading:
      return engine::ChkMidasiStrJ(sjis.c_str()) == kOk || sjis == kMiddleDot;
    case TextKind::kWritten:
      return engine::ChkMidasiStrK(sjis.c_str()) == kOk || isFiledOtherwise(sjis);
    case TextKind::kMixed:
      return engine::ChkMixStr(sjis.c_str()) == kOk;
    case TextKind::kAscii:
      return engine::Chk1ByteStr(sjis.c_str()) == kOk;
  }
  return false;
}

const char* allowed(TextKind kind) {
  switch (kind) {
    case TextKind::kEnglishWord:
      return "an English word has letters, blanks and & ' , - . / _";
    case TextKind::kReading:
      return "a reading has hiragana, katakana and ー － … ・";
    case TextKind::kWritten:
      return "a written form has kana, kanji of JIS levels 1 and 2, 々 and ・";
    case TextKind::kMixed:
      return "the dictionary has no place for it";
    case TextKind::kAscii:
      return "only ASCII can stand here";
  }
  return "";
}

std::string nameOf(char32_t code) {
  char number[16];
  std::snprintf(number, sizeof number, "U+%04X", static_cast<unsigned>(code));
  const auto called = [&number](const char* name) { return std::string(name) + " (" + number + ")"; };
  if (code == ' ') return called("a blank");
  if (code == 0x3000) return called("an ideographic blank");
  if (code == '\t') return called("a tab");
  if (code == '\n') return called("a line end");
  if (code < 0x20 || (code >= 0x7F && code < 0xA0)) return number;
  return "\"" + utf8Of(code) + "\" (" + number + ")";
}

// One character as the dictionary holds it, in UTF-8; empty where it has no place there.
std::string heldCharacter(TextKind kind, char32_t code) {
  if (code == 0) return {};
  if (code < 0x80) return accepts(kind, utf8Of(code)) ? utf8Of(code) : std::string();
  const std::optional<SjisBytes> sjis = platform().encoding().toSjisStrict(utf8Of(code));
  if (!sjis || !accepts(kind, sjis->bytes())) return {};
  return platform().encoding().fromSjisLossy(sjis->bytes());
}

// The same, with what stands for it where it has no place itself.
std::string settledCharacter(TextKind kind, char32_t code) {
  std::string held = heldCharacter(kind, code);
  const StandIn* const standIn = held.empty() && !isAsciiKind(kind) ? standInOf(code) : nullptr;
  return standIn ? heldCharacter(kind, standIn->wide.front()) : held;
}

struct Field {
  std::string name;
  TextKind kind;
  std::string* text;
};

// The texts of an entry that must be there, but for its examples.
std::vector<Field> fieldsOf(UserEntry* entry) {
  const bool english = entry->language == UserLanguage::kEnglish;
  std::vector<Field> fields = {{"word", english ? TextKind::kEnglishWord : TextKind::kReading, &entry->word}};
  if (!english && !entry->kanji.empty()) fields.push_back({"kanji", TextKind::kWritten, &entry->kanji});
  if (english && !entry->phrase.empty()) fields.push_back({"phrase", TextKind::kAscii, &entry->phrase});
  fields.push_back({"meaning", english ? TextKind::kMixed : TextKind::kAscii, &entry->meaning});
  return fields;
}

bool isExchanged(const UserExample& example) {
  std::string english = example.japanese, japanese = example.english;
  return settleText(TextKind::kAscii, &english).empty() && settleText(TextKind::kMixed, &japanese).empty();
}

std::string settleExamples(const char* name, std::vector<UserExample>* examples) {
  for (size_t i = 0; i < examples->size(); ++i) {
    UserExample& example = (*examples)[i];
    const std::string which = std::string(name) + " " + std::to_string(i + 1);
    if (const std::string wrong = settleText(TextKind::kAscii, &example.english); !wrong.empty()) {
      if (isExchanged(example)) return which + ": English stands first, then Japanese";
      return which + ", English side: " + wrong;
    }
    if (const std::string wrong = settleText(TextKind::kMixed, &example.japanese); !wrong.empty()) {
      return which + ", Japanese side: " + wrong;
    }
  }
  return {};
}

// Whether the index has anything to file the text of a Japanese entry under.
bool hasKana(const std::string& text, bool kanji) {
  std::string key;
  const std::string sjis = storedText(wordAsFiled(text));
  return engine::ChkMidasiStrK(sjis.c_str()) == kOk && engine::ChangeMidasiStrJ(sjis, kanji, &key) == kOk &&
         !key.empty();
}

std::string withoutKey(const UserEntry& entry) {
  if (entry.language == UserLanguage::kEnglish) {
    return engine::ChangeMidasiStrE(entry.word).empty() ? "word: it has no letter" : "";
  }
  if (!hasKana(entry.word, false)) return "word: it has no kana";
  const bool filed = entry.kanji.empty() || hasKana(entry.kanji, true);
  return filed ? "" : "kanji: it has neither kanji nor kana";
}

uint16_t storedLength(const std::string& text) {
  return static_cast<uint16_t>(storedText(text).size());
}

engine::PairSizes storedLengths(const std::vector<UserExample>& examples) {
  engine::PairSizes sizes;
  for (const UserExample& example : examples) {
    sizes.eng.push_back(storedLength(example.english));
    sizes.jpn.push_back(storedLength(example.japanese));
  }
  return sizes;
}

// Bytes of a settled entry in the dictionary: its texts and the marks between them.
size_t storedSize(const UserEntry& settled) {
  size_t size = 0;
  const UserEntry entry = asFiled(settled);
  const uint16_t word = storedLength(entry.word), meaning = storedLength(entry.meaning);
  if (entry.language == UserLanguage::kJapanese) {
    engine::GetImiDataSizeJ({word, storedLength(entry.kanji), meaning, storedLengths(entry.examples),
                             storedLengths(entry.sentences)},
                            &size);
    return size;
  }
  add_dic_e record = {};
  record.kind = entry.phrase.empty() ? engine::kKindMeaning : engine::kKindPhrase;
  record.hinsi = static_cast<uint16_t>(entry.pos);
  engine::GetImiDataSizeE(record, {word, meaning, storedLength(entry.phrase), storedLengths(entry.examples)},
                          &size);
  return size;
}

std::string tooLong(const UserEntry& entry) {
  const size_t size = storedSize(entry);
  if (size < engine::kMaxEntry) return {};
  return "the entry is too long: with all its texts it has " + grouped(size) + " bytes in Shift_JIS, " +
         grouped(engine::kMaxEntry - 1) + " at most; leave examples out, or make two entries of it";
}

std::string misplaced(const UserEntry& entry) {
  const bool english = entry.language == UserLanguage::kEnglish;
  if (english && !entry.kanji.empty()) return "kanji: an English entry has none";
  if (english && !entry.sentences.empty()) return "sentence: an English entry has examples only";
  if (!english && entry.pos != 0) return "pos: a Japanese entry has no part of speech";
  if (!english && !entry.phrase.empty()) return "phrase: a Japanese entry explains no phrase";
  if (english && entry.pos != 0 && !entry.phrase.empty()) return "pos: a phrase has no part of speech";
  if (entry.pos < 0 || (entry.pos != 0 && *posName(entry.pos) == '\0')) return "pos: there is no such one";
  if (entry.examples.size() > kMostExamples) return "example: there are too many";
  if (entry.sentences.size() > kMostSentences) return "sentence: there are too many";
  return {};
}

}  // namespace

std::string storedText(const std::string& utf8) {
  return platform().encoding().toSjisLossy(utf8).bytes();
}

std::string textOfStored(const std::string& sjis) {
  return platform().encoding().fromSjisLossy(sjis);
}

std::string settleText(TextKind kind, std::string* text) {
  if (!isUtf8(*text)) return "it is not UTF-8 text";
  std::string settled;
  for (const Typed& typed : folded(kind, *text)) {
    const std::string character = settledCharacter(kind, typed.code);
    if (character.empty()) {
      return nameOf(typed.code) + ", character " + std::to_string(typed.place) +
             ", can't stand here: " + allowed(kind);
    }
    settled += character;
  }
  if (settled.empty()) return "it is empty";
  const size_t size = settled.size() > kLongestText ? storedText(settled).size() : 0;
  if (size > kLongestText) {
    return "it is too long: it has " + grouped(size) + " bytes in Shift_JIS, " + grouped(kLongestText) +
           " at most";
  }
  *text = settled;
  return {};
}

std::string settleEntry(UserEntry* entry) {
  if (const std::string wrong = misplaced(*entry); !wrong.empty()) return wrong;
  for (const Field& field : fieldsOf(entry)) {
    const std::string wrong = settleText(field.kind, field.text);
    if (!wrong.empty()) return field.name + ": " + wrong;
  }
  std::string wrong = settleExamples("example", &entry->examples);
  if (wrong.empty()) wrong = settleExamples("sentence", &entry->sentences);
  if (wrong.empty()) wrong = withoutKey(*entry);
  if (!wrong.empty()) return wrong;
  if (entry->language == UserLanguage::kEnglish && entry->phrase.empty() && entry->pos == 0) entry->pos = 1;
  return tooLong(*entry);
}

}  // namespace zavel::host
