// The road: the word in bytes; its dictionary form; the headwords that begin with it; then its entries.
// Whole entries come in one search, so that entries of the other spelling, which the engine appends, come
// with them; a part of the entries comes row by row, because a filtered entry no longer holds its headword.
// Tests: tests/zavel/LookTest.cpp
#include "Look.h"

#include <algorithm>
#include <map>
#include <set>

#include "EntryText.h"
#include "engine/ChangeMidasi.h"
#include "engine/MidasiCheck.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestWord = 255;  // bytes, the manager's own limit

const TextEncoding& encoding() {
  return platform().encoding();
}

std::string toUtf8(const std::string& sjis) {
  return encoding().fromSjisLossy(sjis);
}

bool isLead(char c) {
  const unsigned char byte = static_cast<unsigned char>(c);
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

std::string keyE(const std::string& word) {
  return engine::ChangeMidasiStrE(word);
}

// Both keys of a Japanese word that may be given in kana or with kanji. Empty where it has none.
std::string keyJ(const std::string& word) {
  std::string key;
  return engine::ChangeMidasiStrJ(word, true, &key) == engine::kOk ? key : std::string();
}

const char* formName(int code) {
  static constexpr const char* kNames[] = {"",
                                           "singular",
                                           "plural",
                                           "positive",
                                           "comparative",
                                           "superlative",
                                           "present",
                                           "third person singular",
                                           "past",
                                           "past participle",
                                           "present participle"};
  return code >= 1 && code <= 10 ? kNames[code] : "";
}

std::string withoutNul(std::string text) {
  text.resize(std::min(text.size(), text.find('\0')));
  return text;
}

uint32_t headwordColour(const MirellDictionaryManager& manager) {
  const auto& c = manager.indexColor;
  return (static_cast<uint32_t>(c.red >> 8) << 16) | (static_cast<uint32_t>(c.green >> 8) << 8) |
         static_cast<uint32_t>(c.blue >> 8);
}

// Homograph numbers are told only where a word has more than one entry.
void dropLoneHomographs(std::vector<Entry>* entries) {
  std::map<std::string, int> seen;
  for (const Entry& entry : *entries) ++seen[entry.headword];
  for (Entry& entry : *entries) {
    if (seen[entry.headword] < 2 && entry.homograph < 2) entry.homograph = 0;
  }
}

}  // namespace

const char* matchName(Match match) {
  switch (match) {
    case Match::kExact:
      return "exact";
    case Match::kInflected:
      return "inflected";
    case Match::kDerived:
      return "derived";
    case Match::kSpelling:
      return "spelling";
  }
  return "";
}

bool Look::run(const LookRequest& request, LookResult* result, Failure* failure) {
  result->query = request.word;
  result->origin = request.word;
  if (request.word.empty()) return true;
  const std::optional<SjisBytes> bytes = encoding().toSjisStrict(request.word);
  // A character that the dictionary's encoding lacks stands in no headword.
  if (!bytes) return true;
  const std::string& word = bytes->bytes();
  if (word.size() > kLongestWord) {
    *failure = {kExitPartly, "too_long", "the word is too long: at most 255 bytes in Shift_JIS", ""};
    return false;
  }
  result->english = !isLead(word[0]);
  if (result->english) {
    lookEnglish(request, word, result);
  } else {
    lookJapanese(request, word, result);
  }
  return true;
}

void Look::lookEnglish(const LookRequest& request, const std::string& word, LookResult* result) {
  const std::string origin = manager_.GetOrigin(word);
  result->origin = toUtf8(origin);
  std::vector<std::string> lines;
  if (request.wantHeadwords && manager_.GetMidashiE(origin)) result->headwords = takeHeadwords(&lines);
  if (request.wantForms) takeForms(word, result);
  if (request.wantEntries) {
    if (request.mode == Mode::kAll) {
      fetchWhole(origin, true, result);
    } else {
      fetchRows(origin, true, request.mode, result);
    }
    explainEnglish(word, result);
  }
  const bool nothing = result->entries.empty() && (request.wantEntries || result->headwords.empty());
  if (nothing && request.suggestions > 0) suggestEnglish(word, request.suggestions, result);
}

void Look::lookJapanese(const LookRequest& request, const std::string& word, LookResult* result) {
  if (request.wantHeadwords && manager_.GetMidashiJ(word)) {
    std::vector<std::string> lines;
    result->headwords = takeHeadwords(&lines);
  }
  if (request.wantEntries) {
    if (request.mode == Mode::kAll) {
      fetchWhole(word, false, result);
    } else {
      fetchRows(word, false, request.mode, result);
    }
  }
  const bool nothing = result->entries.empty() && (request.wantEntries || result->headwords.empty());
  if (nothing && request.suggestions > 0) suggestJapanese(word, request.suggestions, result);
}

std::vector<Headword> Look::takeHeadwords(std::vector<std::string>* lines) {
  std::vector<Headword> headwords;
  const uint32_t count = manager_.CountMidashiData();
  for (uint32_t i = 0; i < count; ++i) {
    std::string line = withoutNul(manager_.GetMidashiData(i));
    const std::string keyword = withoutNul(manager_.ExtractKeywordFromMidashiData(line));
    headwords.push_back({toUtf8(line), toUtf8(keyword)});
    lines->push_back(std::move(line));
  }
  return headwords;
}

void Look::fetchWhole(const std::string& word, bool english, LookResult* result) {
  const bool found = english ? manager_.NewGetImiE(word, static_cast<uint8_t>(Mode::kAll), "")
                             : manager_.NewGetImiJ(word, static_cast<uint8_t>(Mode::kAll), "");
  if (!found) return;
  takeEntries(result);
  dropLoneHomographs(&result->entries);
}

// The result of the last meaning search, split into entries and put behind those that are there.
void Look::takeEntries(LookResult* result) {
  std::vector<Entry> entries =
      entriesFromLayout(manager_.GetImiData(), manager_.styleRuns, headwordColour(manager_), encoding());
  std::vector<std::vector<Sense>> senses = sensesFromLabels(toUtf8(manager_.GetDebugResult()));
  for (size_t i = 0; i < entries.size() && i < senses.size(); ++i) entries[i].senses = std::move(senses[i]);
  std::move(entries.begin(), entries.end(), std::back_inserter(result->entries));
}

void Look::fetchRows(const std::string& word, bool english, Mode mode, LookResult* result) {
  std::vector<std::string> lines;
  const bool listed = english ? manager_.GetMidashiE(word) : manager_.GetMidashiJ(word);
  if (listed) takeHeadwords(&lines);
  const std::string key = english ? keyE(word) : keyJ(word);
  std::set<std::string> done;
  for (const std::string& line : lines) {
    const std::string keyword = withoutNul(manager_.ExtractKeywordFromMidashiData(line));
    if ((english ? keyE(keyword) : keyJ(keyword)) != key || !done.insert(line).second) continue;
    const uint8_t filter = static_cast<uint8_t>(mode);
    const bool found =
        english ? manager_.NewGetImiE(keyword, filter, line) : manager_.NewGetImiJ(keyword, filter, line);
    if (!found) continue;
    const size_t before = result->entries.size();
    takeEntries(result);
    for (size_t i = before; i < result->entries.size(); ++i) result->entries[i].headword = toUtf8(keyword);
  }
}

// Tells of each entry why it answers: by the word itself, by its base form, by derivation, or because the
// dictionary names it as another spelling.
void Look::explainEnglish(const std::string& word, LookResult* result) {
  const std::string origin = keyE(encoding().toSjisLossy(result->origin).bytes());
  const bool inflected = origin != keyE(word);
  std::vector<std::string> via;
  if (inflected) {
    if (result->forms.empty()) takeForms(word, result);
    for (const Form& form : result->forms) {
      const std::string key = keyE(encoding().toSjisLossy(form.form).bytes());
      if (key == keyE(word)) via.push_back(formName(form.code));
    }
  }
  bool own = false;
  const auto keyOf = [](const Entry& entry) { return keyE(encoding().toSjisLossy(entry.headword).bytes()); };
  for (const Entry& entry : result->entries) own = own || keyOf(entry) == origin;
  for (Entry& entry : result->entries) {
    if (keyOf(entry) == origin) {
      entry.match = inflected ? Match::kInflected : Match::kExact;
      entry.via = via;
    } else {
      entry.match = own ? Match::kSpelling : Match::kDerived;
    }
  }
}

void Look::takeForms(const std::string& word, LookResult* result) {
  result->forms.clear();
  if (!manager_.GetInflection(word)) return;
  for (const Inflection& inflection : manager_.inflectionList) {
    std::string label = toUtf8(inflection.label);
    if (!label.empty() && label[0] == ' ') label.erase(0, 1);
    result->forms.push_back({static_cast<int>(inflection.code), toUtf8(inflection.form), label});
  }
}

bool Look::isHeadword(const std::string& word) {
  if (!manager_.GetMidashiE(word)) return false;
  const std::string key = keyE(word);
  for (uint32_t i = 0; i < manager_.CountMidashiData(); ++i) {
    if (keyE(withoutNul(manager_.ExtractKeywordFromMidashiData(withoutNul(manager_.GetMidashiData(i))))) ==
        key) {
      return true;
    }
  }
  return false;
}

namespace {

// Every word one slip away: a letter dropped, two changed places, one replaced, one too few.
std::vector<std::string> oneSlipAway(const std::string& word) {
  std::vector<std::string> words;
  for (size_t i = 0; i + 1 < word.size(); ++i) {
    std::string w = word;
    std::swap(w[i], w[i + 1]);
    words.push_back(w);
  }
  for (size_t i = 0; i < word.size(); ++i) words.push_back(word.substr(0, i) + word.substr(i + 1));
  for (size_t i = 0; i <= word.size(); ++i) {
    for (char c = 'a'; c <= 'z'; ++c) {
      words.push_back(word.substr(0, i) + c + word.substr(i));
      if (i < word.size()) words.push_back(word.substr(0, i) + c + word.substr(i + 1));
    }
  }
  return words;
}

void addSuggestion(const std::string& word, size_t limit, LookResult* result) {
  std::vector<std::string>& list = result->suggestions;
  if (list.size() < limit && std::find(list.begin(), list.end(), word) == list.end()) list.push_back(word);
}

}  // namespace

void Look::suggestEnglish(const std::string& word, size_t limit, LookResult* result) {
  const std::string key = keyE(word);
  if (engine::ChkMidasiStrE(word.c_str()) != engine::kOk || key.size() > 40) return;
  for (const std::string& near : oneSlipAway(key)) {
    if (result->suggestions.size() >= limit) return;
    if (near.size() >= 2 && near != key && isHeadword(near)) addSuggestion(near, limit, result);
  }
  // Below three letters the index lists only what is filed under exactly those letters.
  for (size_t length = key.size(); length >= 3 && result->suggestions.size() < limit; --length) {
    if (!manager_.GetMidashiE(key.substr(0, length))) continue;
    std::vector<std::string> lines;
    for (const Headword& headword : takeHeadwords(&lines)) addSuggestion(headword.keyword, limit, result);
    return;
  }
}

void Look::suggestJapanese(const std::string& word, size_t limit, LookResult* result) {
  for (size_t length = word.size(); length >= 2 && result->suggestions.size() < limit; --length) {
    if (!manager_.GetMidashiJ(word.substr(0, length))) continue;
    std::vector<std::string> lines;
    for (const Headword& headword : takeHeadwords(&lines)) addSuggestion(headword.keyword, limit, result);
    return;
  }
}

}  // namespace zavel::host
