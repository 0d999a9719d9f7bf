// English by rule: spelling decides, and where it can't, the last phonetic bytes do. What the rules get
// wrong is for the conjugation dictionary to put right.
// Tests: tests/engine/KatuyoKatatiTest.cpp.
#include "engine/KatuyoKatati.h"

#include <algorithm>

#include "engine/KatuyoDic.h"
#include "engine/KatuyoForms.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

using Forms = std::vector<KatuyoForm>;

constexpr std::string_view kHinsiTag = "\xF5\xD3";
constexpr size_t kMaxLabel = 4;  // bytes, two characters

constexpr std::string_view kMeisi = "\x96\xBC";        // 名
constexpr std::string_view kKeiyo = "\x8C\x60";        // 形
constexpr std::string_view kDousi = "\x93\xAE";        // 動
constexpr std::string_view kCountable = "\x82\x62";    // Ｃ
constexpr std::string_view kRemark = "\x81\x73";       // 《
constexpr std::string_view kSwung = "\x81\x60";        // ～, stands for the headword
constexpr std::string_view kHatuonOpen = "\x81\x85";   // ≦
constexpr std::string_view kHatuonClose = "\x81\x86";  // ≧
constexpr std::string_view kNoComparison = "\x94\xE4\x8A\x72\x82\xC8\x82\xB5";  // 比較なし

// Remarks on a verb that nobody inflects: old, poetic, rare, literary.
constexpr std::string_view kUnusedRemarks[] = {"\x8C\xC3", "\x8E\x8D", "\x82\xDC\x82\xEA", "\x95\xB6"};

bool IsLead(char c) {
  return _ismbblead(static_cast<uint8_t>(c)) != 0;
}
bool IsAlpha(char c) {
  return _isalpha(static_cast<uint8_t>(c));
}
bool IsVowel(char c) {
  return std::string_view("aiueo").find(c) != std::string_view::npos;
}

char Last(std::string_view word) {
  return word.empty() ? '\0' : word.back();
}

// Ends in "y" after something that is no vowel; a "y" alone doesn't count.
bool EndsInHardY(std::string_view word) {
  return word.size() > 1 && word.back() == 'y' && !IsVowel(word[word.size() - 2]);
}

void Add(std::string text, uint16_t hinnum, Forms* forms) {
  forms->push_back({hinnum, std::move(text)});
}

// The characters between "[" at `open` and the next "]", double-byte ones only and at most two. *after
// is the position behind it all.
std::string TakeLabel(std::string_view line, size_t open, size_t* after) {
  std::string label;
  size_t i = open + 1;
  while (i < line.size() && line[i] != ']' && label.size() < kMaxLabel) {
    const size_t length = IsLead(line[i]) ? 2 : 1;
    if (length == 2) label.append(line.substr(i, length));
    i = std::min(i + length, line.size());
  }
  *after = i < line.size() && line[i] == ']' ? i + 1 : i;
  return label;
}

// Position of the next "[" that opens a part of speech, behind a "-"; npos if there is none.
size_t FindHinsi(std::string_view line, size_t from) {
  const size_t at = line.find("-[", from);
  return at == line.npos ? at : at + 1;
}

// The text between "[" at `open` and "]", whatever it is.
std::string_view LabelText(std::string_view line, size_t open) {
  const std::string_view rest = line.substr(open + 1);
  return rest.substr(0, rest.find(']'));
}

bool IsCountable(std::string_view line) {
  line = line.substr(0, FindHinsi(line, 0));
  for (size_t at = line.find('['); at != line.npos; at = line.find('[', at + 1)) {
    // The second half of some characters looks like "[".
    const bool trail = at > 0 && IsLead(line[at - 1]);
    if (!trail && LabelText(line, at) == kCountable) return true;
  }
  return false;
}

bool IsUnused(std::string_view line) {
  for (size_t at = line.find(kRemark); at != line.npos; at = line.find(kRemark, at + 1)) {
    const std::string_view remark = line.substr(at + kRemark.size());
    for (const std::string_view unused : kUnusedRemarks) {
      if (remark.substr(0, unused.size()) == unused) return true;
    }
  }
  return false;
}

// The ending of past and past participle.
KatuyoSuffix PastSuffix(std::string_view word) {
  if (word.size() == 1) return {0, "ed"};
  if (Last(word) == 'e') return {0, "d"};
  if (EndsInHardY(word)) return {-1, "ied"};
  return {0, "ed"};  // kept: a last consonant is never doubled, see docs/quirks.md
}

KatuyoSuffix ProgressiveSuffix(const DicOneMidasiInfo& info) {
  const std::string_view sound = info.pronunciation;
  const bool sounded = sound.ends_with('e') || sound.ends_with("A\xC5");
  const bool drops = info.MidaInfo.size() > 1 && Last(info.MidaInfo) == 'e' && !sounded;
  return {drops ? -1 : 0, "ing"};  // kept: a last consonant is never doubled, see docs/quirks.md
}

// What "(...)" behind the label of an adjective says of its comparison.
struct Comparison {
  std::string forms[2];  // letters and "-" of the comparative and of the superlative
  std::string all;       // the whole content
  bool swung = false;    // a ～ stood in it
};

// Reads "more～, most～" and the like.
class ComparisonReader {
 public:
  Comparison Read(std::string_view content) {
    comparison_.all = content;
    comparison_.swung = content.find(kSwung) != content.npos;
    for (size_t i = 0; i < content.size() && form_ < 2; ++i) {
      if (!IsLead(content[i])) {
        Byte(content[i]);
      } else {
        Character(content.substr(i, 2));
        ++i;
      }
    }
    return std::move(comparison_);
  }

 private:
  void Character(std::string_view character) {
    if (character == kHatuonOpen) suspended_ = true;
    if (character == kHatuonClose) suspended_ = false;
  }

  void Byte(char c) {
    if (suspended_) return;
    if (c == ',' || c == ';') {
      ++form_;
    } else if (c == '/') {
      form_ = 2;
    } else if (IsAlpha(c) || c == '-') {
      comparison_.forms[form_] += c;
    }
  }

  Comparison comparison_;
  int form_ = 0;            // 2: collecting has ended
  bool suspended_ = false;  // inside a pronunciation
};

Comparison ReadComparison(std::string_view line) {
  const size_t open = line.find('(');
  if (open == line.npos) return Comparison();
  const std::string_view rest = line.substr(open + 1);
  return ComparisonReader().Read(rest.substr(0, rest.find(')')));
}

// Comparative and superlative by a word in front.
void AddCompared(const DicOneMidasiInfo& info, std::string_view more, std::string_view most, Forms* forms) {
  Add(std::string(more) + " " + info.MidaInfo, kHinnumComparative, forms);
  Add(std::string(most) + " " + info.MidaInfo, kHinnumSuperlative, forms);
}

// Comparative and superlative by ending.
void AddEnded(const DicOneMidasiInfo& info, Forms* forms) {
  const char last = Last(info.MidaInfo);
  const int delta = last == 'y' ? -1 : 0;  // kept: also after a vowel, see docs/quirks.md
  const std::string_view more = last == 'e' ? "r" : last == 'y' ? "ier" : "er";
  const std::string_view most = last == 'e' ? "st" : last == 'y' ? "iest" : "est";
  MakeNewConjugete(info, {delta, more}, kHinnumComparative, forms);
  MakeNewConjugete(info, {delta, most}, kHinnumSuperlative, forms);
}

}  // namespace

void SetConjugeteInfo(const DicOneMidasiInfo& info, uint8_t SetIrregularFlg, Forms* forms) {
  if (info.MidaInfo.empty()) return;
  uint8_t seen = 0;
  const std::string_view text = info.text;
  for (size_t tag = text.find(kHinsiTag); tag != text.npos; tag = text.find(kHinsiTag, tag + 1)) {
    std::string_view line = text.substr(tag + kHinsiTag.size());
    line = line.substr(0, line.find('\n'));
    for (size_t open = FindHinsi(line, 0); open != line.npos;) {
      size_t after = 0;
      const uint8_t hinsi = GetHinsiInfo(TakeLabel(line, open, &after), &seen);
      if ((hinsi & SetIrregularFlg) == 0) SetConjugete(info, hinsi, line.substr(after), forms);
      open = FindHinsi(line, after);
    }
  }
}

uint8_t GetHinsiInfo(std::string_view label, uint8_t* seen) {
  uint8_t hinsi = 0;
  if (label == kMeisi) hinsi = kHinsiMeisi;
  if (label == kKeiyo) hinsi = kHinsiKeiyo;
  if (label == kDousi) hinsi = kHinsiDousi;
  if ((hinsi & *seen) != 0) return 0;
  *seen |= hinsi;
  return hinsi;
}

void SetConjugete(const DicOneMidasiInfo& info, uint8_t hinsi, std::string_view line, Forms* forms) {
  if (hinsi == kHinsiMeisi) SetMeisi(info, line, forms);
  if (hinsi == kHinsiKeiyo) SetKeiyoFukusi(info, line, forms);
  if (hinsi == kHinsiDousi) SetDousi(info, line, forms);
}

void SetMeisi(const DicOneMidasiInfo& info, std::string_view line, Forms* forms) {
  Add(info.MidaInfo, kHinnumSingular, forms);
  if (IsCountable(line)) MakeNewConjugete(info, CheckES(info), kHinnumPlural, forms);
}

void SetDousi(const DicOneMidasiInfo& info, std::string_view line, Forms* forms) {
  if (IsUnused(line)) return;
  const KatuyoSuffix past = PastSuffix(info.MidaInfo);
  Add(info.MidaInfo, kHinnumPresent, forms);
  MakeNewConjugete(info, CheckES(info), kHinnumThirdPerson, forms);
  MakeNewConjugete(info, past, kHinnumPast, forms);
  MakeNewConjugete(info, past, kHinnumPastParticiple, forms);
  MakeNewConjugete(info, ProgressiveSuffix(info), kHinnumProgressive, forms);
}

void SetKeiyoFukusi(const DicOneMidasiInfo& info, std::string_view line, Forms* forms) {
  const Comparison comparison = ReadComparison(line);
  if (comparison.all.find(kNoComparison) != comparison.all.npos) return;
  const bool byMore = comparison.forms[0] == "more" && comparison.swung;
  // kept: a starred headword has no forms at all, the positive included, see docs/quirks.md.
  if (!byMore && info.star) return;
  Add(info.MidaInfo, kHinnumPositive, forms);
  if (byMore) {
    AddCompared(info, "more", comparison.forms[1], forms);
  } else if (info.markCount > 0) {
    AddCompared(info, "more", "most", forms);
  } else {
    AddEnded(info, forms);
  }
}

KatuyoSuffix CheckES(const DicOneMidasiInfo& info) {
  const char last = Last(info.MidaInfo);
  if (last == 'e') return {0, "s"};
  if (last == 's' || last == 'x') return {0, "es"};
  if (last == 'y') return EndsInHardY(info.MidaInfo) ? KatuyoSuffix{-1, "ies"} : KatuyoSuffix{0, "s"};
  const std::string_view sound = info.pronunciation;
  if (sound.size() > 1) {
    const bool hisses = sound.ends_with('z') || sound.ends_with("A\xD8") || sound.ends_with("A\xD9") ||
                        sound.ends_with("?\xE9");
    if (hisses) return {0, "es"};
  }
  return {0, "s"};
}

void MakeNewConjugete(const DicOneMidasiInfo& info, KatuyoSuffix suffix, uint16_t hinnum, Forms* forms) {
  std::string text = info.MidaInfo;
  if (suffix.suffix.starts_with('-')) {
    text.clear();
    const size_t last = info.syllables.rfind('\xA5');
    for (const char c : info.syllables.substr(0, last == std::string::npos ? 0 : last)) {
      if (c != '\xA5') text += c;
    }
    suffix.suffix.remove_prefix(1);
  } else {
    for (int i = suffix.delta; i < 0 && !text.empty(); ++i) text.pop_back();
  }
  text += suffix.suffix;
  Add(std::move(text), hinnum, forms);
}

void OutputKatuyo(const Forms& forms, uint8_t SetIrregularFlg, std::string* records) {
  const bool alone = records->empty();
  for (const KatuyoForm& form : forms) {
    const uint8_t formCode = ConvHinnum(form.hinnum);
    const uint8_t hinsi = HinsiOfForm(formCode);
    if (!alone && (hinsi & SetIrregularFlg) != 0) continue;
    AppendKatuyo(formCode, form.text, records);
    if (IsLastForm(formCode)) SetIrregularFlg |= hinsi;
  }
}

}  // namespace zavel::engine
