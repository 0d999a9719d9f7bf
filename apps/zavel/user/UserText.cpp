// Tests: tests/zavel/user/UserTextTest.cpp
#include "user/UserText.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

#include "Utf8.h"
#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/MidasiCheck.h"
#include "foundation/Utf8.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

using engine::kOk;

constexpr char32_t kDakuten = 0x3099, kHandakuten = 0x309A;
constexpr size_t kMostExamples = 65535;
constexpr size_t kLongestText = 65534;  // bytes in Shift_JIS

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

// One character in the ASCII that it stands for; nothing where it stands for none.
std::optional<std::string> asciiOf(char32_t code) {
  if (code >= 0xFF01 && code <= 0xFF5E) return std::string(1, static_cast<char>(code - 0xFEE0));
  switch (code) {
    case 0x00A0:
    case 0x3000:
      return " ";
    case 0x2018:
    case 0x2019:
    case 0x201B:
      return "'";
    case 0x201C:
    case 0x201D:
      return "\"";
    case 0x2010:
    case 0x2011:
    case 0x2012:
    case 0x2013:
    case 0x2014:
    case 0x2212:
      return "-";
    case 0x2026:
      return "...";
    default:
      return std::nullopt;
  }
}

char32_t fullWidth(char32_t code) {
  if (code >= 0xFF61 && code < 0xFF61 + kFullKatakana.size()) return kFullKatakana[code - 0xFF61];
  if (code == 0xFF9E) return kDakuten;
  if (code == 0xFF9F) return kHandakuten;
  return code == 0x00A0 ? 0x20 : code;
}

void appendFolded(TextKind kind, char32_t code, std::u32string* out) {
  if (isAsciiKind(kind)) {
    const std::optional<std::string> ascii = asciiOf(code);
    if (!ascii) return out->push_back(code);
    return void(out->append(ascii->begin(), ascii->end()));
  }
  const char32_t full = fullWidth(code);
  const bool isMark = full == kDakuten || full == kHandakuten;
  const char32_t marked = isMark && !out->empty() ? withMark(out->back(), full) : 0;
  if (marked != 0) {
    out->back() = marked;
  } else if (isMark) {
    out->push_back(full == kDakuten ? U'゛' : U'゜');
  } else {
    out->push_back(full);
  }
}

bool isBlank(char32_t code) {
  return code == ' ' || code == 0x3000;
}

std::u32string folded(TextKind kind, std::string_view utf8) {
  std::u32string out;
  char32_t code = 0;
  for (size_t length = 0; (length = decodeUtf8(utf8, &code)) > 0; utf8.remove_prefix(length)) {
    appendFolded(kind, code, &out);
  }
  while (!out.empty() && isBlank(out.back())) out.pop_back();
  size_t begin = 0;
  while (begin < out.size() && isBlank(out[begin])) ++begin;
  return out.substr(begin);
}

bool accepts(TextKind kind, const std::string& sjis) {
  switch (kind) {
    case TextKind::kEnglishWord:
      return engine::ChkMidasiStrE(sjis.c_str()) == kOk;
    case TextKind::kReading:
      return engine::ChkMidasiStrJ(sjis.c_str()) == kOk;
    case TextKind::kWritten:
      return engine::ChkMidasiStrK(sjis.c_str()) == kOk;
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
      return "a reading has hiragana, katakana and ー － …";
    case TextKind::kWritten:
      return "a written form has kana and kanji of JIS levels 1 and 2";
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
  if (code < 0x20 || (code >= 0x7F && code < 0xA0)) return number;
  return "\"" + utf8Of(code) + "\" (" + number + ")";
}

// One character as the dictionary holds it, in UTF-8; empty where it has no place there.
std::string settledCharacter(TextKind kind, char32_t code) {
  if (code == 0) return {};
  if (code < 0x80) return accepts(kind, utf8Of(code)) ? utf8Of(code) : std::string();
  const std::optional<SjisBytes> sjis = platform().encoding().toSjisStrict(utf8Of(code));
  if (!sjis || !accepts(kind, sjis->bytes())) return {};
  return platform().encoding().fromSjisLossy(sjis->bytes());
}

struct Field {
  const char* name;
  TextKind kind;
  std::string* text;
};

// The texts of an entry that must be there.
std::vector<Field> fieldsOf(UserEntry* entry) {
  const bool english = entry->language == UserLanguage::kEnglish;
  std::vector<Field> fields = {{"word", english ? TextKind::kEnglishWord : TextKind::kReading, &entry->word}};
  if (!english && !entry->kanji.empty()) fields.push_back({"kanji", TextKind::kWritten, &entry->kanji});
  if (english && !entry->phrase.empty()) fields.push_back({"phrase", TextKind::kAscii, &entry->phrase});
  fields.push_back({"meaning", english ? TextKind::kMixed : TextKind::kAscii, &entry->meaning});
  for (auto* examples : {&entry->examples, &entry->sentences}) {
    const char* name = examples == &entry->examples ? "example" : "sentence";
    for (UserExample& example : *examples) {
      fields.push_back({name, TextKind::kAscii, &example.english});
      fields.push_back({name, TextKind::kMixed, &example.japanese});
    }
  }
  return fields;
}

// Whether the index has anything to file the word under.
bool hasKey(const UserEntry& entry) {
  std::string key;
  if (entry.language == UserLanguage::kEnglish) return !engine::ChangeMidasiStrE(entry.word).empty();
  const auto filed = [&key](const std::string& text, bool kanji) {
    return engine::ChangeMidasiStrJ(storedText(text), kanji, &key) == kOk && !key.empty();
  };
  return filed(entry.word, false) && (entry.kanji.empty() || filed(entry.kanji, true));
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
  if (entry.sentences.size() > kMostExamples) return "sentence: there are too many";
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
  for (const char32_t code : folded(kind, *text)) {
    const std::string character = settledCharacter(kind, code);
    if (character.empty()) return nameOf(code) + " can't stand here: " + allowed(kind);
    settled += character;
  }
  if (settled.empty()) return "it is empty";
  if (settled.size() > kLongestText && storedText(settled).size() > kLongestText) return "it is too long";
  *text = settled;
  return {};
}

std::string settleEntry(UserEntry* entry) {
  if (const std::string wrong = misplaced(*entry); !wrong.empty()) return wrong;
  const bool english = entry->language == UserLanguage::kEnglish;
  for (const Field& field : fieldsOf(entry)) {
    const std::string wrong = settleText(field.kind, field.text);
    if (!wrong.empty()) return std::string(field.name) + ": " + wrong;
  }
  if (!hasKey(*entry)) return english ? "word: it has no letter" : "word: it has no kana";
  if (english && entry->phrase.empty() && entry->pos == 0) entry->pos = 1;
  return {};
}

}  // namespace zavel::host
