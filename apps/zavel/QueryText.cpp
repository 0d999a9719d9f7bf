// Tests: tests/zavel/QueryTextTest.cpp
#include "QueryText.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

#include "Utf8.h"

namespace zavel::host {
namespace {

bool isOuterBlank(char32_t c) {
  return c <= 0x20 || c == 0x3000 || c == 0xFEFF || c == 0xA0;
}

// Signs that stand around a word in running text and begin or end no headword.
bool isOuterSign(char32_t c) {
  constexpr std::u32string_view kSigns = U"\"!?.,;:()[]{}<>`*“”„«»‹›…¡¿「」『』【】〈〉《》（）。、！？・～";
  return isOuterBlank(c) || kSigns.find(c) != std::u32string_view::npos;
}

bool isKana(char32_t c) {
  return c >= 0x3041 && c <= 0x30FF;
}

bool isKanji(char32_t c) {
  return (c >= 0x4E00 && c <= 0x9FFF) || (c >= 0x3400 && c <= 0x4DBF);
}

bool isDigit(char32_t c) {
  return c >= U'0' && c <= U'9';
}

std::u32string decoded(std::string_view utf8, bool* sound) {
  std::u32string text;
  while (!utf8.empty()) {
    char32_t code = 0;
    const size_t length = decodeUtf8(utf8, &code);
    if (length == 0) {
      *sound = false;
      return text;
    }
    text += code;
    utf8.remove_prefix(length);
  }
  return text;
}

std::string encoded(std::u32string_view text) {
  std::string out;
  const auto tail = [&out](char32_t c, int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  for (const char32_t c : text) {
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | (c >> 6));
      tail(c, 0);
    } else if (c < 0x10000) {
      out += static_cast<char>(0xE0 | (c >> 12));
      tail(c, 6);
      tail(c, 0);
    } else {
      out += static_cast<char>(0xF0 | (c >> 18));
      tail(c, 12);
      tail(c, 6);
      tail(c, 0);
    }
  }
  return out;
}

// The letters below U+0180 without their accents, from U+00C0 on; a blank where there is no plain letter.
constexpr std::string_view kPlainLetters =
    "AAAAAA CEEEEIIII NOOOOO OUUUUY  aaaaaa ceeeeiiii nooooo ouuuuy y"
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi  JjKk LlLlLlLlLlNnNnNnn  "
    "OoOoOo  RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
static_assert(kPlainLetters.size() == 0x180 - 0xC0);

std::u32string_view ligature(char32_t c) {
  switch (c) {
    case U'Æ':
      return U"AE";
    case U'æ':
      return U"ae";
    case U'Œ':
      return U"OE";
    case U'œ':
      return U"oe";
    case U'ß':
      return U"ss";
    case U'ﬁ':
      return U"fi";
    case U'ﬂ':
      return U"fl";
    default:
      return {};
  }
}

// Half-width katakana U+FF66 to U+FF9D in full width.
constexpr std::u32string_view kFullKatakana =
    U"ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリ"
    U"ルレロワン";
static_assert(kFullKatakana.size() == 0xFF9E - 0xFF66);

// The voiced or half-voiced sound of a kana; 0 when it has none.
char32_t voiced(char32_t kana, bool half) {
  constexpr std::u32string_view kVoiceless = U"かきくけこさしすせそたちつてとはひふへほ";
  const bool katakana = kana >= 0x30A1 && kana <= 0x30F6;
  if (!half && (kana == U'う' || kana == U'ウ')) return katakana ? U'ヴ' : U'ゔ';
  const char32_t hiragana = katakana ? kana - 0x60 : kana;
  const bool h = hiragana >= U'は' && hiragana <= U'ほ';
  if (kVoiceless.find(hiragana) == std::u32string_view::npos || (half && !h)) return 0;
  return kana + (half ? 2 : 1);
}

// 1 for a voiced, 2 for a half-voiced sound mark, spaced or combining, full or half width; else 0.
int soundMark(char32_t c) {
  if (c == 0xFF9E || c == 0x3099 || c == 0x309B) return 1;
  if (c == 0xFF9F || c == 0x309A || c == 0x309C) return 2;
  return 0;
}

// Kanji that keyboards give in a shape that headwords lack, each with the shape that they have. The second
// line of each holds those of names; Shift_JIS as it is in use has a place for them.
constexpr std::u32string_view kNewShapes =
    U"𠮷𠮟俠剝啞嚙囊塡屢搔摑潑瀆焰瘦禱簞繡繫萊蔣蟬蠟軀醬醱頰顚驒鷗鹼麴"
    U"髙﨑濵德增寬敎曻昻曺栁桒杦橫淸瀨甁綠緖羡薰裵賴贒郞鄕閒靍靏靑黑冝凬勛厓咊悅愠﨟";
constexpr std::u32string_view kOldShapes =
    U"吉叱侠剥唖噛嚢填屡掻掴溌涜焔痩祷箪繍繋莱蒋蝉蝋躯醤醗頬顛騨鴎鹸麹"
    U"高崎濱徳増寛教昇昂曹柳桑杉横清瀬瓶緑緒羨薫裴頼賢郎郷間鶴鶴青黒宜風勲崖和悦慍臈";
static_assert(kNewShapes.size() == kOldShapes.size());

// The kanji that U+FA10 to U+FA6A repeat for other character sets; a blank where one is a kanji of its own
// or Shift_JIS lacks it.
constexpr char32_t kFirstRepeated = 0xFA10;
constexpr std::u32string_view kRepeated =
    U"塚　晴　　　猪益礼神祥福靖精羽　　　諸　　逸都　　　飯飼館鶴　隷侮僧免勉勤卑喝嘆器塀墨層屮悔"
    U"慨憎懲敏既暑梅海渚漢煮　琢碑社祉祈祐祖祝禍禎穀突節練縉繁署者臭　　著褐視謁謹賓贈　逸難響頻";
static_assert(kRepeated.size() == 0xFA6B - kFirstRepeated);

char32_t oldShape(char32_t c) {
  if (c < 0x4E00) return c;
  const size_t place = kNewShapes.find(c);
  if (place != std::u32string_view::npos) return kOldShapes[place];
  const bool repeated = c >= kFirstRepeated && c - kFirstRepeated < kRepeated.size();
  return repeated && kRepeated[c - kFirstRepeated] != U'　' ? kRepeated[c - kFirstRepeated] : c;
}

// Characters that only tell how their neighbours are drawn or where a line may break.
bool isInvisible(char32_t c) {
  return c == 0xAD || (c >= 0x200B && c <= 0x200F) || c == 0x2060 || (c >= 0xFE00 && c <= 0xFE0F) ||
         c == 0xFEFF || (c >= 0xE0100 && c <= 0xE01EF);
}

// Whether `c` is a sound mark that the kana at the end of `out` took.
bool joinedAsSoundMark(char32_t c, std::u32string* out) {
  const int mark = soundMark(c);
  const char32_t joined = mark != 0 && !out->empty() ? voiced(out->back(), mark == 2) : 0;
  if (joined != 0) out->back() = joined;
  return joined != 0;
}

void appendPlain(char32_t c, std::u32string* out) {
  if (isInvisible(c)) return;
  if (c >= 0xFF01 && c <= 0xFF5E) c -= 0xFEE0;  // full-width ASCII
  if (c >= 0xFF66 && c <= 0xFF9D) c = kFullKatakana[c - 0xFF66];
  if (c == 0xFF65) c = U'・';
  if (joinedAsSoundMark(c, out)) return;
  const std::u32string_view letters = ligature(c);
  if (!letters.empty()) {
    *out += letters;
  } else if (c == 0x2018 || c == 0x2019 || c == 0x02BC || c == 0x2032 || c == 0xB4) {
    *out += U'\'';
  } else if ((c >= 0x2010 && c <= 0x2015) || c == 0x2212) {
    *out += U'-';
  } else if (c == 0x3000 || c == 0xA0) {
    *out += U' ';
  } else if (c >= 0xC0 && c < 0x180 && kPlainLetters[c - 0xC0] != ' ') {
    *out += static_cast<char32_t>(kPlainLetters[c - 0xC0]);
  } else if (c < 0x300 || c >= 0x370) {  // an accent by itself belongs to the letter ahead of it
    *out += oldShape(c);
  }
}

std::u32string plain(std::u32string_view typed) {
  std::u32string out;
  for (const char32_t c : typed) appendPlain(c, &out);
  return out;
}

// Signs of ASCII and those of its neighbours that words are written with.
bool isSign(char32_t c) {
  if (c >= 0xFF01 && c <= 0xFF5E) c -= 0xFEE0;
  if (c < 0x80) return c > ' ' && !isDigit(c) && !(c >= U'a' && c <= U'z') && !(c >= U'A' && c <= U'Z');
  const bool japanese = (c >= 0x3001 && c <= 0x3020 && !(c >= 0x3005 && c <= 0x3007)) || c == 0x30FB;
  return japanese || (c >= 0x2010 && c <= 0x203B) || (c >= 0x2190 && c <= 0x25FF);
}

std::u32string_view withoutOuterSigns(std::u32string_view text) {
  while (!text.empty() && isOuterSign(text.front())) text.remove_prefix(1);
  while (!text.empty() && isOuterSign(text.back())) text.remove_suffix(1);
  const bool quoted = text.size() > 2 && text.front() == U'\'' && text.back() == U'\'';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

// "々" once or more behind as many kanji stands for those kanji.
std::u32string withoutIterationMarks(std::u32string_view text) {
  std::u32string out;
  for (size_t i = 0; i < text.size();) {
    size_t marks = 0;
    while (i + marks < text.size() && text[i + marks] == U'々') ++marks;
    if (marks == 0) {
      out += text[i++];
      continue;
    }
    const size_t count = std::min(marks, out.size());
    out += out.substr(out.size() - count);
    i += marks;
  }
  return out;
}

// Kanji that came to level 2 last, when words were filed under the others already, each with its twin.
constexpr std::u32string_view kLastKanji = U"堯槇遙瑤凜熙", kTwins = U"尭槙遥瑶凛煕";

std::u32string asFiled(std::u32string_view text) {
  std::u32string out = withoutIterationMarks(text);
  std::erase(out, U'・');
  for (char32_t& c : out) {
    const size_t place = kLastKanji.find(c);
    if (place != std::u32string_view::npos) c = kTwins[place];
  }
  return out;
}

// A number of one or two digits in kanji: 7 七, 10 十, 25 二十五.
std::u32string kanjiNumber(std::u32string_view digits) {
  constexpr std::u32string_view kDigits = U"〇一二三四五六七八九";
  const size_t first = digits[0] - U'0';
  if (digits.size() == 1) return std::u32string(1, kDigits[first]);
  const size_t second = digits[1] - U'0';
  std::u32string out;
  if (first > 1) out += kDigits[first];
  if (first > 0) out += U'十';
  if (second > 0) out += kDigits[second];
  return out;
}

std::u32string withKanjiNumbers(std::u32string_view text) {
  std::u32string out;
  for (size_t i = 0; i < text.size();) {
    size_t count = 0;
    while (i + count < text.size() && isDigit(text[i + count])) ++count;
    if (count == 0) {
      out += text[i++];
    } else {
      out += count <= 2 ? kanjiNumber(text.substr(i, count)) : std::u32string(text.substr(i, count));
      i += count;
    }
  }
  return out;
}

// Whether the word is made of letters that all headwords have, so that there is nothing to fold.
bool isPlainAscii(std::string_view word) {
  return std::all_of(word.begin(), word.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == ' ' || c == '-';
  });
}

}  // namespace

std::string_view withoutOuterBlanks(std::string_view utf8) {
  char32_t code = 0;
  while (!utf8.empty()) {
    const size_t length = decodeUtf8(utf8, &code);
    if (length == 0 || !isOuterBlank(code)) break;
    utf8.remove_prefix(length);
  }
  while (!utf8.empty()) {
    size_t last = utf8.size() - 1;
    while (last > 0 && (utf8[last] & 0xC0) == 0x80) --last;
    const size_t length = decodeUtf8(utf8.substr(last), &code);
    if (length == 0 || !isOuterBlank(code)) break;
    utf8.remove_suffix(utf8.size() - last);
  }
  return utf8;
}

std::string foldedQuery(std::string_view utf8) {
  if (isPlainAscii(utf8)) return std::string(utf8);
  bool sound = true;
  const std::u32string typed = decoded(utf8, &sound);
  if (!sound) return std::string(utf8);
  const std::u32string inner = plain(typed);
  std::u32string word(withoutOuterSigns(inner));
  const auto isJapanese = [](char32_t c) { return isKana(c) || isKanji(c); };
  if (std::any_of(word.begin(), word.end(), isJapanese)) {
    word = withKanjiNumbers(asFiled(word));
  }
  return encoded(word);
}

std::string wordAsFiled(std::string_view utf8) {
  bool sound = true;
  const std::u32string typed = decoded(utf8, &sound);
  return sound ? encoded(asFiled(typed)) : std::string(utf8);
}

std::string withSoundMarksJoined(std::string_view utf8) {
  bool sound = true;
  std::u32string out;
  for (const char32_t c : decoded(utf8, &sound)) {
    if (!joinedAsSoundMark(c, &out)) out += c;
  }
  return sound ? encoded(out) : std::string(utf8);
}

std::string plainCharacters(std::string_view utf8) {
  bool sound = true;
  const std::u32string typed = decoded(utf8, &sound);
  return sound ? encoded(plain(typed)) : std::string(utf8);
}

std::string withoutSigns(std::string_view utf8) {
  bool sound = true;
  std::u32string word = decoded(utf8, &sound);
  if (!sound) return std::string(utf8);
  std::erase_if(word, isSign);
  return encoded(word);
}

}  // namespace zavel::host
