// Tests: tests/mkdict/FreeDictTest.cpp.
#include "mkdict/FreeDict.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "mkdict/Trimmed.h"
#include "mkdict/Utf8.h"

namespace zavel::mkdict {
namespace {

constexpr std::array<std::pair<std::string_view, PartOfSpeech>, 18> kLabels = {{
    {"n", PartOfSpeech::kNoun},
    {"pn", PartOfSpeech::kProperNoun},
    {"v", PartOfSpeech::kVerb},
    {"adj", PartOfSpeech::kAdjective},
    {"adv", PartOfSpeech::kAdverb},
    {"preposition", PartOfSpeech::kPreposition},
    {"postposition", PartOfSpeech::kPreposition},
    {"pronoun", PartOfSpeech::kPronoun},
    {"conjunction", PartOfSpeech::kConjunction},
    {"interjection", PartOfSpeech::kInterjection},
    {"numeral", PartOfSpeech::kNumeral},
    {"determiner", PartOfSpeech::kDeterminer},
    {"article", PartOfSpeech::kArticle},
    {"particle", PartOfSpeech::kParticle},
    {"phraseologicalUnit", PartOfSpeech::kIdiom},
    {"idiom", PartOfSpeech::kIdiom},
    {"proverb", PartOfSpeech::kProverb},
    {"symbol", PartOfSpeech::kSymbol},
}};

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// The number in "12. rest", which *rest then receives; 0 for another line.
unsigned numberAhead(std::string_view line, std::string_view* rest) {
  unsigned number = 0;
  const auto [end, problem] = std::from_chars(line.data(), line.data() + line.size(), number);
  const std::string_view behind = line.substr(static_cast<size_t>(end - line.data()));
  if (problem != std::errc() || !behind.starts_with('.')) return 0;
  if (behind.size() > 1 && behind[1] != ' ') return 0;
  *rest = behind.substr(std::min<size_t>(2, behind.size()));
  return number;
}

// Takes the pronunciations off: "//a// /[b]/". Those in "[ ]", the sounds of one speaker, count only where
// there are no others.
std::vector<std::string> readPronunciations(std::string_view text) {
  std::vector<std::string> sounds, narrow;
  text = trimmed(text);
  while (text.starts_with('/')) {
    const std::string_view stroke = text.starts_with("//") ? "//" : "/";
    const size_t end = text.find(stroke, stroke.size());
    if (end == std::string_view::npos) break;
    std::string_view sound = text.substr(stroke.size(), end - stroke.size());
    const bool bracketed = sound.starts_with('[') && sound.ends_with(']');
    if (bracketed) sound = sound.substr(1, sound.size() - 2);
    if (!sound.empty()) (bracketed ? narrow : sounds).emplace_back(sound);
    text = trimmed(text.substr(end + stroke.size()));
  }
  return sounds.empty() ? narrow : sounds;
}

// False for an affix.
bool readHeadLine(std::string_view line, EnglishWord* word) {
  line = trimmed(line);
  word->pos = PartOfSpeech::kNone;
  const size_t open = line.rfind(" <");
  std::string_view label;
  if (open != std::string_view::npos && line.ends_with('>')) {
    label = line.substr(open + 2, line.size() - open - 3);
    line = line.substr(0, open);
  }
  const size_t stroke = std::min(line.find(" /"), line.size());
  word->word = std::string(trimmed(line.substr(0, stroke)));
  word->ipa = readPronunciations(line.substr(stroke));
  const auto* known =
      std::find_if(kLabels.begin(), kLabels.end(), [&](const auto& entry) { return entry.first == label; });
  if (known != kLabels.end()) word->pos = known->second;
  return label != "prefix" && label != "suffix" && label != "affix" && label != "infix";
}

// Translations stand between ", ", but not inside brackets.
std::vector<std::string_view> splitTranslations(std::string_view line) {
  std::vector<std::string_view> parts;
  constexpr std::string_view kWideOpen = "（", kWideClose = "）";
  int depth = 0;
  size_t begin = 0;
  for (size_t at = 0; at < line.size(); ++at) {
    const std::string_view rest = line.substr(at);
    if (rest.starts_with('(') || rest.starts_with(kWideOpen)) ++depth;
    if (rest.starts_with(')') || rest.starts_with(kWideClose)) depth = std::max(0, depth - 1);
    if (depth > 0 || rest[0] != ',') continue;
    parts.push_back(line.substr(begin, at - begin));
    begin = at + 1;
  }
  parts.push_back(line.substr(begin));
  return parts;
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
}

// Takes off what is left of wiki text: "[[w:Moby-Dick|The Whale]]" as "The Whale", braces without a template.
void dropWikiMarks(std::string& text) {
  for (size_t open = text.find("[["); open != std::string::npos; open = text.find("[[", open)) {
    const size_t close = text.find("]]", open), bar = text.find('|', open);
    if (close != std::string::npos) text.erase(close, 2);
    text.erase(open, bar < close ? bar + 1 - open : 2);
  }
  replaceAll(text, " }}", "");
  replaceAll(text, "}}", "");
}

// Bracket pairs of any width become "( )"; a bracket without its partner falls.
std::u32string balanceBrackets(const std::u32string& text) {
  std::u32string out;
  std::vector<size_t> open;
  for (const char32_t code : text) {
    if (code == U'(' || code == U'（') {
      open.push_back(out.size());
      out += U'(';
    } else if (code == U')' || code == U'）') {
      if (open.empty()) continue;
      open.pop_back();
      out += U')';
    } else {
      out += code;
    }
  }
  for (; !open.empty(); open.pop_back()) out.erase(open.back(), 1);
  return out;
}

bool isPureKana(std::u32string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char32_t code) { return isHiragana(code) || isKatakana(code) || code == U' '; });
}

// True for what a bracket holds beside a translation: its reading, alone or with the romanised form, or
// numbers of senses elsewhere. "(する)" and "(の)" belong to the word.
bool isReading(std::u32string_view inside, std::u32string_view before) {
  const size_t comma = inside.find(U',');
  if (std::any_of(inside.begin(), inside.end(), [](char32_t c) { return c >= U'a' && c <= U'z'; }))
    return true;
  if (std::all_of(inside.begin(), inside.end(), [](char32_t c) { return c < 0x80; })) return true;
  const bool afterKanji = std::any_of(before.begin(), before.end(), isKanji);
  return afterKanji && isPureKana(inside.substr(0, comma)) && inside.substr(0, comma).size() >= 3;
}

// Drops brackets that hold readings; nested ones go with them.
std::u32string withoutReadings(const std::u32string& text) {
  std::u32string out;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] == U'(') {
      size_t end = at;
      int depth = 0;
      do {
        depth += text[end] == U'(' ? 1 : text[end] == U')' ? -1 : 0;
      } while (depth > 0 && ++end < text.size());
      if (end < text.size() && isReading(std::u32string_view(text).substr(at + 1, end - at - 1), out)) {
        at = end;
        continue;
      }
    }
    out += text[at];
  }
  return out;
}

// Blanks inside Japanese: katakana words are joined by "・", all else closes up.
std::u32string closeBlanks(const std::u32string& text) {
  std::u32string out;
  for (size_t at = 0; at < text.size(); ++at) {
    const bool blank = text[at] == U' ' || text[at] == U'　';
    if (!blank || out.empty() || at + 1 >= text.size()) {
      if (!blank) out += text[at];
      continue;
    }
    const char32_t before = out.back(), after = text[at + 1];
    if (isKatakana(before) && isKatakana(after)) {
      out += U'・';
    } else if (!isJapanese(before) && !isJapanese(after) && before != U'・' && after != U' ') {
      out += U' ';
    }
  }
  return out;
}

bool isMiddleDot(char32_t code) {
  return code == U'·' || code == U'･' || code == U'•' || code == U'‧';
}

// Japanese, or what Japanese writes in Latin letters: "ATM", "LGBT", "3K", "101".
bool readsAsJapanese(std::u32string_view text) {
  if (std::any_of(text.begin(), text.end(), isJapanese)) return true;
  return std::any_of(text.begin(), text.end(), [](char32_t code) {
    return (code >= U'A' && code <= U'Z') || (code >= U'0' && code <= U'9') || code == U'〇' ||
           code >= 0x3000;
  });
}

// "10−24" and "1036" were powers of ten once; their height is lost.
bool isBrokenPower(std::u32string_view text) {
  if (!text.starts_with(U"10") || text.size() < 4 || text.size() > 6 || text[2] == U'0') return false;
  return std::all_of(text.begin(), text.end(), [](char32_t code) {
    return (code >= U'0' && code <= U'9') || code == U'−' || code == U'-';
  });
}

}  // namespace

std::optional<std::string> FreeDict::cleanTranslation(std::string_view translation) {
  std::string plain(trimmed(translation));
  replaceAll(plain, "[[", "");
  replaceAll(plain, "]]", "");
  replaceAll(plain, "...", "…");
  if (plain.starts_with("}}")) plain.replace(0, 2, "～");  // its object, a template once
  std::optional<std::u32string> codes = decodeUtf8(plain);
  if (!codes) return std::nullopt;
  for (char32_t& code : *codes) {
    if (isMiddleDot(code)) code = U'・';
    if (code == U'[') code = U'(';
    if (code == U']') code = U')';
  }
  std::u32string text = closeBlanks(withoutReadings(balanceBrackets(*codes)));
  while (!text.empty() && (text.front() == U'.' || text.front() == U' ')) text.erase(0, 1);
  while (!text.empty() && (text.back() == U' ' || text.back() == U'　')) text.pop_back();
  if (text.size() > 1 && text.back() == U'.' && isJapanese(text[text.size() - 2])) text.pop_back();
  if (!readsAsJapanese(text) || isBrokenPower(text)) return std::nullopt;
  return encodeUtf8(text);
}

std::string FreeDict::cleanNote(std::string_view note) {
  std::string text(trimmed(note));
  // Braces stand where the source lost a name: nothing is left of "transliteration of }}".
  if (text.ends_with(" of }}")) return {};
  dropWikiMarks(text);
  if (text.starts_with('(') && text.find(')') == text.size() - 1) text = text.substr(1, text.size() - 2);
  for (char& c : text) {
    if (c == '(') c = '[';
    if (c == ')') c = ']';
    if (static_cast<unsigned char>(c) < 0x20) c = ' ';
  }
  return text;
}

FreeDict::Fault FreeDict::read(std::string_view entry, EnglishWord* word, std::vector<std::string>* dropped) {
  const std::vector<std::string_view> lines = linesOf(entry);
  *word = {};
  if (lines.empty()) return Fault::kNoWord;
  const bool affix = !readHeadLine(lines[0], word);
  // The source files words that it has no page name for, "C#", under a title of its own making.
  const bool title = word->word.starts_with("00-database") || word->word.starts_with("Unsupported titles/");
  if (word->word.empty() || title) return Fault::kNoWord;
  if (affix) return Fault::kAffix;

  unsigned expected = 0;  // number of the sense being read; 0 in an entry without numbers
  for (size_t i = 1; i < lines.size(); ++i) {
    std::string_view rest = lines[i];
    const unsigned number = numberAhead(lines[i], &rest);
    const bool opens = i == 1 || (expected > 0 && number == expected + 1);
    if (!opens) {
      std::string_view text = lines[i];
      if (numberAhead(trimmed(lines[i]), &text) > 0 && text.empty()) continue;
      if (word->senses.empty()) continue;
      std::string note = cleanNote(lines[i]);
      if (!note.empty()) word->senses.back().notes.push_back(std::move(note));
      continue;
    }
    if (number > 0 && (i > 1 || number == 1)) {
      expected = number;
    } else {
      rest = lines[i];
    }
    if (rest.ends_with(" 2.")) rest.remove_suffix(3);
    EnglishSense& sense = word->senses.emplace_back();
    for (const std::string_view part : splitTranslations(rest)) {
      std::optional<std::string> clean = cleanTranslation(part);
      if (!clean) {
        if (dropped != nullptr && !trimmed(part).empty()) dropped->emplace_back(trimmed(part));
      } else if (std::find(sense.translations.begin(), sense.translations.end(), *clean) ==
                 sense.translations.end()) {
        sense.translations.push_back(std::move(*clean));
      }
    }
  }
  std::erase_if(word->senses, [](const EnglishSense& sense) { return sense.translations.empty(); });
  return word->senses.empty() ? Fault::kNoTranslation : Fault::kNone;
}

}  // namespace zavel::mkdict
