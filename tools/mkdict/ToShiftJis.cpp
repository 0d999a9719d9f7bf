// Every character goes by one of three roads: the code page has it, the table of spellings has it, or the
// text can't be written. Tests: tests/mkdict/ToShiftJisTest.cpp.
#include "mkdict/ToShiftJis.h"

#include <array>
#include <cstdio>
#include <unordered_map>
#include <vector>

#include "engine/DicFormat.h"
#include "mkdict/Utf8.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::mkdict {
namespace {

// What the platform shows for bytes that the code page does not have.
constexpr char32_t kReplacement = 0xFFFD;

// Letters by Unicode block, from its first code point on; "-" where the block's letter is no business of
// this table.
struct Block {
  char32_t first;
  const char* spellings;
};

constexpr Block kBlocks[] = {
    // Latin-1
    {0xC0,
     "A A A A A A AE C E E E E I I I I D N O O O O O - O U U U U Y Th ss a a a a a a ae c e e e e i i i i d "
     "n o "
     "o o o o - o u u u u y th y"},
    // Latin Extended-A
    {0x100,
     "A a A a A a C c C c C c C c D d D d E e E e E e E e E e G g G g G g G g H h H h I i I i I i I i I i IJ "
     "ij "
     "J j K k q L l L l L l L l L l N n N n N n 'n Ng ng O o O o O o OE oe R r R r R r S s S s S s S s T t T "
     "t "
     "T t U u U u U u U u U u U u W w Y y Y Z z Z z Z z s"},
    {0x1A0, "O o"},
    {0x1AF, "U u"},
    {0x1CD, "A a I i O o U u U u U u U u U u - A a A a AE ae - - G g K k O o O o"},
    {0x1F8, "N n A a AE ae O o A a A a E e E e I i I i O o O o R r R r U u U u S s T t - - H h"},
    {0x226, "A a E e O o O o O o O o Y y"},
    // Latin Extended Additional
    {0x1E00,
     "A a B b B b B b C c D d D d D d D d D d E e E e E e E e E e F f G g H h H h H h H h H h I i I i K k K "
     "k K "
     "k L l L l L l L l M m M m M m N n N n N n N n O o O o O o O o P p P p R r R r R r R r S s S s S s S s "
     "S s "
     "T t T t T t T t U u U u U u U u U u V v V v W w W w W w W w W w X x X x Y y Z z Z z Z z h t w y - s - "
     "- - "
     "- A a A a A a A a A a A a A a A a A a A a A a A a E e E e E e E e E e E e E e E e I i I i O o O o O o "
     "O o "
     "O o O o O o O o O o O o O o O o U u U u U u U u U u U u U u Y y Y y Y y Y y"},
    // Greek with accents, and the final sigma
    {0x386, "Α - Ε Η Ι - Ο - Υ Ω ι"},
    {0x3AA, "Ι Υ α ε η ι υ"},
    {0x3C2, "σ"},
    {0x3CA, "ι υ ο υ ω"},
    // Half-width punctuation and katakana
    {0xFF61,
     "。 「 」 、 ・ ヲ ァ ィ ゥ ェ ォ ャ ュ ョ ッ ー ア イ ウ エ オ カ キ ク ケ コ サ シ ス セ ソ タ チ ツ "
     "テ ト ナ "
     "ニ ヌ ネ ノ ハ ヒ フ ヘ ホ マ ミ ム メ モ ヤ ユ ヨ ラ リ ル レ ロ ワ ン ゛ ゜"},
    // Superscript and subscript digits
    {0x2070, "0 - - - 4 5 6 7 8 9 + - = ( ) n"},
    {0x2080, "0 1 2 3 4 5 6 7 8 9 + - = ( )"},
    // Ligatures
    {0xFB00, "ff fi fl ffi ffl st st"},
};

struct Spelling {
  char32_t code;
  const char* spelling;
};

constexpr Spelling kSpellings[] = {
    // Spaces and marks that nobody sees
    {0xA0, " "},
    {0xAD, ""},
    {0x2028, " "},
    {0x2029, " "},
    {0x202F, " "},
    {0x205F, " "},
    {0x2060, ""},
    {0xFEFF, ""},
    // Quotation marks and strokes
    {0x2018, "'"},
    {0x2019, "'"},
    {0x201A, ","},
    {0x201B, "'"},
    {0x201C, "\""},
    {0x201D, "\""},
    {0x201E, "\""},
    {0x201F, "\""},
    {0x2039, "<"},
    {0x203A, ">"},
    {0xAB, "≪"},
    {0xBB, "≫"},
    {0x2B9, "'"},
    {0x2BB, "'"},
    {0x2BC, "'"},
    {0x2BD, "'"},
    {0x2BE, "'"},
    {0x2BF, "'"},
    {0x2C8, "'"},
    {0x2D0, ":"},
    {0x2010, "-"},
    {0x2011, "-"},
    {0x2012, "-"},
    {0x2013, "-"},
    {0x2014, "―"},
    {0x2043, "-"},
    // Partners that other tables name in the code page's place
    {0x301C, "～"},
    {0x2212, "－"},
    {0x2016, "∥"},
    {0xA2, "￠"},
    {0xA3, "￡"},
    {0xAC, "￢"},
    {0xA6, "￤"},
    {0xA5, "￥"},
    {0xAF, "￣"},
    {0x203E, "￣"},
    {0xB5, "μ"},
    {0x2126, "Ω"},
    {0x2300, "φ"},
    {0x2205, "φ"},
    {0xB7, "・"},
    {0x2022, "・"},
    {0x2027, "・"},
    {0x2219, "・"},
    {0x22C5, "・"},
    {0x2044, "/"},
    {0x2215, "/"},
    {0x2217, "*"},
    {0x2236, ":"},
    {0x2264, "<="},
    {0x2265, ">="},
    {0x223C, "～"},
    {0x2DA, "°"},
    {0x2DC, "~"},
    // Signs spelled out
    {0xA1, "!"},
    {0xBF, "?"},
    {0xA9, "(c)"},
    {0xAE, "(R)"},
    {0x2122, "(TM)"},
    {0x2120, "(SM)"},
    {0x20AC, "EUR"},
    {0xAA, "a"},
    {0xBA, "o"},
    {0xB9, "1"},
    {0xB2, "2"},
    {0xB3, "3"},
    {0xBC, "1/4"},
    {0xBD, "1/2"},
    {0xBE, "3/4"},
    {0x2153, "1/3"},
    {0x2154, "2/3"},
    {0x2155, "1/5"},
    {0x2156, "2/5"},
    {0x2157, "3/5"},
    {0x2158, "4/5"},
    {0x2159, "1/6"},
    {0x215A, "5/6"},
    {0x215B, "1/8"},
    {0x215C, "3/8"},
    {0x215D, "5/8"},
    {0x215E, "7/8"},
    {0x259, "e"},
    {0x18F, "E"},
    {0x192, "f"},
    {0x456, "i"},
    {0x406, "I"},
    // Kanji whose other form the code page has
    {0x4FE0, "侠"},
    {0x4FF1, "倶"},
    {0x5167, "内"},
    {0x525D, "剥"},
    {0x5433, "呉"},
    {0x541E, "呑"},
    {0x543F, "告"},
    {0x555E, "唖"},
    {0x5653, "嘘"},
    {0x5699, "噛"},
    {0x56CA, "嚢"},
    {0x5861, "填"},
    {0x59F8, "妍"},
    {0x5C19, "尚"},
    {0x5C5B, "屏"},
    {0x5C62, "屡"},
    {0x5E77, "并"},
    {0x5FB5, "徴"},
    {0x623E, "戻"},
    {0x63F7, "挿"},
    {0x6451, "掴"},
    {0x6414, "掻"},
    {0x69EA, "概"},
    {0x6B65, "歩"},
    {0x6B77, "歴"},
    {0x6E34, "渇"},
    {0x6EAB, "温"},
    {0x6F51, "溌"},
    {0x7006, "涜"},
    {0x7130, "焔"},
    {0x7626, "痩"},
    {0x784F, "研"},
    {0x7A05, "税"},
    {0x7C1E, "箪"},
    {0x7D55, "絶"},
    {0x7E61, "繍"},
    {0x7E6B, "繋"},
    {0x840A, "莱"},
    {0x8523, "蒋"},
    {0x865B, "虚"},
    {0x87EC, "蝉"},
    {0x881F, "蝋"},
    {0x8EC0, "躯"},
    {0x91AC, "醤"},
    {0x91B1, "醗"},
    {0x9304, "録"},
    {0x934A, "錬"},
    {0x9830, "頬"},
    {0x985A, "顛"},
    {0x9A52, "騨"},
    {0x9DD7, "鴎"},
    {0x9E7C, "鹸"},
    {0x9EB4, "麹"},
    {0x9EB5, "麺"},
    {0x9EC3, "黄"},
    {0x20B9F, "叱"},
};

// The character that a voicing mark makes of the kana before it; 0 when there is none.
char32_t voiced(char32_t kana, bool half) {
  const char32_t hiragana = kana >= 0x30A1 && kana <= 0x30F6 ? kana - 0x60 : kana;
  const bool h = hiragana >= 0x306F && hiragana <= 0x307B && (hiragana - 0x306F) % 3 == 0;
  if (half) return h ? kana + 2 : 0;
  const bool kToS = hiragana >= 0x304B && hiragana <= 0x3061 && hiragana % 2 == 1;
  const bool t = hiragana == 0x3064 || hiragana == 0x3066 || hiragana == 0x3068;
  if (kana == 0x30A6) return 0x30F4;  // ウ, ヴ
  return kToS || t || h ? kana + 1 : 0;
}

bool isFraction(char32_t code) {
  return (code >= 0xBC && code <= 0xBE) || (code >= 0x2153 && code <= 0x215E);
}

bool isUnseen(char32_t code) {
  return (code >= 0x300 && code <= 0x36F) || (code >= 0x200B && code <= 0x200F);
}

// The code page as the platform reads it, turned round, and the spellings for what it lacks.
class Characters {
 public:
  Characters();

  // The code page's two bytes, 0 when it lacks the character.
  uint16_t twoBytes(char32_t code) const { return code < twoBytes_.size() ? twoBytes_[code] : 0; }
  // A spelling in Shift_JIS, null when there is none.
  const std::string* spelling(char32_t code) const {
    const auto at = spellings_.find(code);
    return at == spellings_.end() ? nullptr : &at->second;
  }

 private:
  void readCodePage();
  void addSpelling(char32_t code, std::string_view utf8);

  std::array<uint16_t, 0x10000> twoBytes_{};
  std::unordered_map<char32_t, std::string> spellings_;
};

// The rows of the standard first, then the vendor's; those that stand twice keep their first code.
void Characters::readCodePage() {
  std::vector<uint16_t> codes;
  const auto addRows = [&codes](unsigned first, unsigned last) {
    for (unsigned lead = first; lead <= last; ++lead) {
      for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
        if (trail != 0x7F) codes.push_back(static_cast<uint16_t>(lead << 8 | trail));
      }
    }
  };
  addRows(0x81, 0x9F);
  addRows(0xE0, 0xEA);
  addRows(0xFA, 0xFC);

  std::string sjis;
  for (uint16_t code : codes) {
    sjis += static_cast<char>(code >> 8);
    sjis += static_cast<char>(code & 0xFF);
    sjis += '\n';
  }
  const std::string utf8 = platform().encoding().fromSjisLossy(sjis);
  size_t at = 0;
  for (uint16_t code : codes) {
    const size_t end = utf8.find('\n', at);
    if (end == std::string::npos) return;
    size_t next = at;
    char32_t c = 0;
    const bool one = takeUtf8(utf8, &next, &c) && next == end && c != kReplacement;
    if (one && c < twoBytes_.size() && twoBytes_[c] == 0) twoBytes_[c] = code;
    at = end + 1;
  }
}

void Characters::addSpelling(char32_t code, std::string_view utf8) {
  std::string sjis;
  for (size_t at = 0; at < utf8.size();) {
    char32_t c = 0;
    takeUtf8(utf8, &at, &c);  // of this file, and well-formed
    if (c < 0x80) {
      sjis += static_cast<char>(c);
    } else {
      sjis += static_cast<char>(twoBytes(c) >> 8);
      sjis += static_cast<char>(twoBytes(c) & 0xFF);
    }
  }
  spellings_[code] = sjis;
}

Characters::Characters() {
  readCodePage();
  for (const Block& block : kBlocks) {
    char32_t code = block.first;
    std::string_view rest = block.spellings;
    for (;; ++code) {
      const size_t blank = rest.find(' ');
      const std::string_view spelling = rest.substr(0, blank);
      if (spelling != "-") addSpelling(code, spelling);
      if (blank == std::string_view::npos) break;
      rest.remove_prefix(blank + 1);
    }
  }
  for (char32_t space = 0x2000; space <= 0x200A; ++space) addSpelling(space, " ");
  addSpelling(0x207B, "-");  // "-" marks a gap in a block
  addSpelling(0x208B, "-");
  for (const Spelling& spelling : kSpellings) addSpelling(spelling.code, spelling.spelling);
}

const Characters& characters() {
  static const Characters instance;
  return instance;
}

void appendTwoBytes(std::string& out, uint16_t code) {
  out += static_cast<char>(code >> 8);
  out += static_cast<char>(code & 0xFF);
}

// Adds a voicing mark that stands apart from its kana; `last` is the character before it, already in `out`.
bool appendVoicing(std::string& out, char32_t last, bool half) {
  const char32_t joined = voiced(last, half);
  if (joined == 0) return false;
  out.resize(out.size() - 2);
  appendTwoBytes(out, characters().twoBytes(joined));
  return true;
}

bool appendSpelling(std::string& out, char32_t code) {
  const std::string* spelling = characters().spelling(code);
  if (spelling == nullptr) return false;
  const bool afterDigit = !out.empty() && out.back() >= '0' && out.back() <= '9';
  if (isFraction(code) && afterDigit) out += ' ';  // "1½" is not 11/2
  out += *spelling;
  return true;
}

// One character behind `last`; false when it can't be written.
bool appendCharacter(std::string& out, char32_t code, char32_t last) {
  if (code < 0x80) {
    out += code < 0x20 || code == 0x7F ? ' ' : static_cast<char>(code);
    return true;
  }
  const bool voicing = code == 0x3099 || code == 0xFF9E, half = code == 0x309A || code == 0xFF9F;
  if ((voicing || half) && appendVoicing(out, last, half)) return true;
  if (isUnseen(code) || (code >= 0x80 && code < 0xA0)) return true;
  if (characters().spelling(code) != nullptr) return appendSpelling(out, code);
  const uint16_t two = characters().twoBytes(code);
  if (two != 0) appendTwoBytes(out, two);
  return two != 0;
}

// The character that a half-width kana stands for, any other itself: what a voicing mark goes by.
char32_t fullWidth(char32_t code) {
  if (code < 0xFF66 || code > 0xFF9D) return code;
  static const std::u32string kFull =
      U"ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラ"
      U"リルレロワン";
  return kFull[code - 0xFF66];
}

bool isLead(uint8_t c) {
  return (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC);
}

// "≦" and "≧" enclose a pronunciation, which every reader drops.
constexpr std::string_view kOpenSound = "\x81\x85", kCloseSound = "\x81\x86";

// A pair that some reader takes for a key: the tags of entry text and those that only the output knows.
bool isKey(uint8_t hi, uint8_t lo) {
  uint16_t tag = 0;
  if (engine::IsTag(hi, lo, &tag)) return true;
  return hi == 0xF5 && (lo == 0xBC || lo == 0xC5 || lo == 0xC6 || lo == 0xC9 || lo == 0xCA || lo == 0xCB);
}

}  // namespace

std::optional<std::string> toShiftJis(std::string_view utf8, std::string* lacking) {
  std::string out;
  out.reserve(utf8.size());
  char32_t last = 0;
  for (size_t at = 0; at < utf8.size();) {
    char32_t code = 0;
    const bool broken = !takeUtf8(utf8, &at, &code);
    if (broken || !appendCharacter(out, code, last)) {
      if (lacking != nullptr) *lacking = broken ? "not UTF-8" : namedCharacter(code);
      return std::nullopt;
    }
    last = fullWidth(code);
  }
  return out;
}

std::optional<std::string> toEntryText(std::string_view utf8, std::string* lacking) {
  const std::optional<std::string> sjis = toShiftJis(utf8, lacking);
  if (!sjis) return std::nullopt;
  std::string out;
  out.reserve(sjis->size());
  for (size_t at = 0; at < sjis->size();) {
    const bool two = isLead(static_cast<uint8_t>((*sjis)[at])) && at + 1 < sjis->size();
    const std::string_view character = std::string_view(*sjis).substr(at, two ? 2 : 1);
    const bool parted =
        !out.empty() && isKey(static_cast<uint8_t>(out.back()), static_cast<uint8_t>(character[0]));
    if (parted) out += ' ';
    out += character == kOpenSound ? "<=" : character == kCloseSound ? ">=" : character;
    at += character.size();
  }
  return out;
}

bool looksTagged(std::string_view sjis) {
  for (size_t at = 0; at + 1 < sjis.size(); ++at) {
    if (isKey(static_cast<uint8_t>(sjis[at]), static_cast<uint8_t>(sjis[at + 1]))) return true;
  }
  return false;
}

std::string toUtf8(std::string_view sjis) {
  return platform().encoding().fromSjisLossy(sjis);
}

std::string namedCharacter(char32_t code) {
  char name[16];
  std::snprintf(name, sizeof name, "U+%04X ", static_cast<unsigned>(code));
  std::string out = name;
  appendUtf8(out, code);
  return out;
}

}  // namespace zavel::mkdict
