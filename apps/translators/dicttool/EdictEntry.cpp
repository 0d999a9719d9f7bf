// Tests: tests/translators/EdictEntryTest.cpp
#include "dicttool/EdictEntry.h"

#include <algorithm>
#include <iterator>

#include "dicttool/EdictCodes.h"
#include "dicttool/WordFold.h"

namespace zavel::dicttool {
namespace {

constexpr size_t kMostWords = 6;  // a longer gloss is an explanation
constexpr size_t kLongestKey = 200;
constexpr size_t kMainGlosses = 3;  // the later ones of an entry are senses among many
constexpr size_t kSeparateGlosses =
    4;  // whose words are looked at: "go" isn't what the 20th sense "go under" is about
enum Rank { kFirst = 0, kNext = 1, kLater = 2 };

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const size_t at = text.find(separator);
    parts.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

std::string_view trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

// "食べる;喰べる(iK)" as two words.
std::vector<std::string> wordsOf(std::string_view list) {
  std::vector<std::string> words;
  for (const std::string_view item : split(list, ';')) {
    const std::string_view word = trimmed(item.substr(0, item.find('(')));
    if (!word.empty()) words.emplace_back(word);
  }
  return words;
}

std::string joined(const std::vector<std::string>& parts, const char* between) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : between) + part;
  return text;
}

// Takes the first group in parentheses off a gloss that opens with one.
bool takeGroup(std::string_view* gloss, std::string_view* group) {
  const size_t close = gloss->find(')');
  if (!gloss->starts_with('(') || close == std::string_view::npos) return false;
  *group = gloss->substr(1, close - 1);
  gloss->remove_prefix(close + 1);
  *gloss = trimmed(*gloss);
  return true;
}

// "(n,vs) (1) cast" as "(noun, suru verb) (1) cast". The parts of speech of the gloss before are not said
// again.
std::string readable(std::string_view gloss, bool names, std::string* lastCodes) {
  std::string text;
  std::string_view rest = gloss, group;
  while (takeGroup(&rest, &group)) {
    const std::string codes = readableCodes(group, names);
    const bool repeated = !codes.empty() && codes == *lastCodes;
    if (!codes.empty()) *lastCodes = codes;
    if (!repeated) text += "(" + (codes.empty() ? std::string(group) : codes) + ") ";
  }
  text += rest;
  return std::string(trimmed(text));
}

// A gloss without what stands in parentheses.
std::string plain(std::string_view gloss) {
  std::string text;
  int depth = 0;
  for (const char byte : gloss) {
    if (byte == '(') ++depth;
    if (depth == 0) text += byte;
    if (byte == ')' && depth > 0) --depth;
  }
  std::string_view word = trimmed(text);
  for (const std::string_view front : {"to ", "a ", "an ", "the "}) {
    if (!word.starts_with(front) || word.size() == front.size()) continue;
    word = trimmed(word.substr(front.size()));
    break;
  }
  return tidyQuery(word);
}

bool saysNothing(std::string_view word) {
  static constexpr std::string_view kWords[] = {"a",   "an",  "and",  "as",  "at", "be",  "by",
                                                "etc", "for", "from", "in",  "is", "it",  "of",
                                                "on",  "or",  "that", "the", "to", "with"};
  return std::find(std::begin(kWords), std::end(kWords), word) != std::end(kWords);
}

bool isLetter(unsigned char byte) {
  return byte >= 0x80 || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z') || byte == '\'';
}

// Words of a gloss of several: the shorter the gloss, the more it is about the word.
std::vector<EdictKey> singleWords(const std::string& gloss, bool main) {
  std::vector<std::string> words;
  std::string word;
  for (const char byte : gloss + " ") {
    if (isLetter(static_cast<unsigned char>(byte))) {
      word += byte;
    } else if (!word.empty()) {
      words.push_back(std::move(word));
      word.clear();
    }
  }
  if (words.size() < 2 || words.size() > kMostWords) return {};
  const int rank = 2 * static_cast<int>(words.size()) - (main ? 1 : 0);
  std::vector<EdictKey> keys;
  for (std::string& one : words) {
    if (one.size() < 2 || saysNothing(foldWord(one, {}))) continue;
    keys.push_back({std::move(one), rank});
  }
  return keys;
}

// "Kyouto", "Oosaka", "Yuuko" as most write them: "Kyoto", "Osaka", "Yuko".
std::string withShortVowels(const std::string& name) {
  std::string text;
  for (const char letter : name) {
    const char last = text.empty() ? '\0' : text.back();
    const bool lengthens =
        (letter == 'u' && (last == 'o' || last == 'u')) || (letter == 'o' && (last == 'o' || last == 'O'));
    if (!lengthens) text += letter;
  }
  return text;
}

void addJapanese(std::vector<EdictKey>& keys, const std::string& word, int rank) {
  keys.push_back({word, rank});
  std::string usual = withUsualLetters(word);
  if (usual != word) keys.push_back({std::move(usual), rank});
}

}  // namespace

bool EdictEntry::parse(std::string_view line, EdictEntry* out) {
  *out = {};
  const size_t slash = line.find(" /");
  if (slash == std::string_view::npos) return false;
  std::string_view head = line.substr(0, slash);
  const size_t open = head.find(" [");
  if (open != std::string_view::npos) {
    if (!head.ends_with(']')) return false;
    out->readings = wordsOf(head.substr(open + 2, head.size() - open - 3));
    if (out->readings.empty()) return false;
    head = head.substr(0, open);
  }
  out->written = wordsOf(head);
  for (const std::string_view part : split(line.substr(slash + 2), '/')) {
    std::string_view gloss = trimmed(part);
    if (gloss.ends_with("(P)")) {
      gloss = trimmed(gloss.substr(0, gloss.size() - 3));
      out->common = true;
    }
    if (!gloss.empty() && !gloss.starts_with("EntL")) out->glosses.emplace_back(gloss);
  }
  return !out->written.empty() && !out->glosses.empty();
}

std::string EdictEntry::text(bool names) const {
  std::string text = joined(written, "; ");
  if (!readings.empty()) text += " [" + joined(readings, "; ") + "]";
  std::string lastCodes;
  std::string body;
  for (const std::string& gloss : glosses) {
    const std::string shown = readable(gloss, names, &lastCodes);
    if (!shown.empty()) body += (body.empty() ? "" : "; ") + shown;
  }
  return text + "\n" + body + "\n";
}

std::vector<EdictKey> EdictEntry::keys(bool names) const {
  std::vector<EdictKey> keys;
  for (const std::string& word : written) addJapanese(keys, word, kFirst);
  for (const std::string& word : readings) addJapanese(keys, word, kNext);
  for (size_t i = 0; i < glosses.size(); ++i) {
    const std::string whole = plain(glosses[i]);
    if (whole.empty()) continue;
    const bool main = i < kMainGlosses, explained = glosses[i].ends_with(')');
    const int rank = i == 0 ? kFirst : main ? kNext : kLater;
    keys.push_back({whole, rank, explained});
    const std::string shortened = names && !readings.empty() ? withShortVowels(whole) : whole;
    if (shortened != whole) keys.push_back({shortened, std::max<int>(rank, kNext), explained});
    if (i >= kSeparateGlosses) continue;
    for (EdictKey& key : singleWords(whole, main)) keys.push_back(std::move(key));
  }
  std::erase_if(keys, [](const EdictKey& key) { return key.word.size() > kLongestKey; });
  return keys;
}

}  // namespace zavel::dicttool
