// The road: the word in bytes; its dictionary form; the headwords that begin with it; then its entries.
// Entries come whole and in one search, so that those of the other spelling, which the engine appends, come
// with them. A part of the entries is cut out of the whole ones: a search that is given a filter answers
// without the headwords, and the reader would not see which entry a part belongs to.
// Tests: tests/zavel/LookTest.cpp
#include "Look.h"

#include <algorithm>
#include <map>

#include "EntryText.h"
#include "Utf8.h"
#include "engine/ChangeMidasi.h"
#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/ImiFilter.h"
#include "engine/MidasiCheck.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestWord = 255;  // bytes, the manager's own limit

const TextEncoding& encoding() {
  return platform().encoding();
}

// UTF-8 for the eye, lines ended by 0x0A.
std::string toUtf8(std::string sjis) {
  std::replace(sjis.begin(), sjis.end(), '\r', '\n');
  return withoutControls(encoding().fromSjisLossy(sjis));
}

bool isLead(char c) {
  const unsigned char byte = static_cast<unsigned char>(c);
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

std::string keyE(const std::string& word) {
  return engine::ChangeMidasiStrE(word);
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

// The headword line of one entry's tagged text, and the sections that `mode` asks for. Empty when the entry
// has none of them.
std::string partOf(const std::string& entry, bool english, Mode mode) {
  std::string part = entry;
  const uint8_t filter = static_cast<uint8_t>(mode);
  if (english) {
    engine::ImiFilter(filter, &part);
  } else {
    engine::ImiFilterJ(filter, &part);
  }
  if (part.empty()) return part;
  const size_t headEnd = entry.find('\r');
  const std::string head = headEnd == std::string::npos ? std::string() : entry.substr(0, headEnd + 1);
  return head + part + '\r';
}

// A status that no sound dictionary gives for a word.
bool tellsDamage(uint16_t status) {
  return status != engine::kOk && status != engine::kBadArgument && status != engine::kNoMemory;
}

}  // namespace

Failure wordTooLong() {
  return {kExitUsage, "too_long", "the word is too long: at most 255 bytes in Shift_JIS",
          "Ask for a part of it."};
}

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

bool Look::run(const LookRequest& request, LookResult* result, Failure* failure) {
  result->query = request.word;
  result->origin = request.word;
  if (request.word.empty()) return true;
  const std::optional<SjisBytes> bytes = encoding().toSjisStrict(request.word);
  // A character that the dictionary's encoding lacks stands in no headword, and the engine would take what
  // stands ahead of a NUL for the whole word.
  if (!bytes || request.word.find('\0') != std::string::npos) return true;
  const std::string& word = bytes->bytes();
  if (word.size() > kLongestWord) {
    *failure = wordTooLong();
    return false;
  }
  result->english = !isLead(word[0]);
  if (result->english) {
    lookEnglish(request, word, result);
  } else {
    lookJapanese(request, word, result);
  }
  if (result->entries.empty() && result->headwords.empty() && result->forms.empty() &&
      isDamagedAt(word, result->english)) {
    *failure = {kExitDamaged, "damaged_dictionary", "the dictionary is damaged where this word stands",
                "Run: zavel dict verify, then zavel dict build"};
    return false;
  }
  return true;
}

// The manager answers "nothing" both for a word that is not there and for one that can't be read; the engine
// tells them apart.
bool Look::isDamagedAt(const std::string& word, bool english) {
  const auto failed = [&](auto search) {
    std::string asked = word;  // a search may change it
    uint32_t size = 0;
    Handle list = nullptr;
    const uint16_t status = search(asked.data(), &size, &list);
    if (list) GlobalFree(list);
    return tellsDamage(status);
  };
  const auto entries = [&](char* asked, uint32_t* size, Handle* list) {
    return (english ? SerchImiE : SerchImiJ)(asked, nullptr, 0, size, list, 1);
  };
  const auto headwords = [&](char* asked, uint32_t* size, Handle* list) {
    return english ? SerchMidasiE(asked, 0, size, list, 1) : SerchMidasiJ(asked, size, list, 1);
  };
  const auto forms = [](char* asked, uint32_t* size, Handle* list) { return GetKatuyo(asked, size, list); };
  return failed(entries) || failed(headwords) || (english && failed(forms));
}

void Look::lookEnglish(const LookRequest& request, const std::string& word, LookResult* result) {
  const std::string origin = manager_.GetOrigin(word);
  result->origin = toUtf8(origin);
  if (request.wantHeadwords && manager_.GetMidashiE(origin)) result->headwords = takeHeadwords();
  if (request.wantForms) takeForms(word, result);
  if (request.wantEntries) {
    fetch(origin, true, request.mode, result);
    explainEnglish(word, result);
  }
  const bool nothing =
      result->entries.empty() && !result->lacksPart && (request.wantEntries || result->headwords.empty());
  if (nothing && request.suggestions > 0) suggestEnglish(word, request.suggestions, result);
}

void Look::lookJapanese(const LookRequest& request, const std::string& word, LookResult* result) {
  if (request.wantHeadwords && manager_.GetMidashiJ(word)) result->headwords = takeHeadwords();
  if (request.wantEntries) fetch(word, false, request.mode, result);
  const bool nothing =
      result->entries.empty() && !result->lacksPart && (request.wantEntries || result->headwords.empty());
  if (nothing && request.suggestions > 0) suggestJapanese(word, request.suggestions, result);
}

std::vector<Headword> Look::takeHeadwords() {
  std::vector<Headword> headwords;
  const uint32_t count = manager_.CountMidashiData();
  for (uint32_t i = 0; i < count; ++i) {
    const std::string line = withoutNul(manager_.GetMidashiData(i));
    const std::string keyword = withoutNul(manager_.ExtractKeywordFromMidashiData(line));
    headwords.push_back({toUtf8(line), toUtf8(keyword)});
  }
  return headwords;
}

void Look::fetch(const std::string& word, bool english, Mode mode, LookResult* result) {
  if (mode != Mode::kAll) return fetchPart(word, english, mode, result);
  const bool found = english ? manager_.NewGetImiE(word, 0, "") : manager_.NewGetImiJ(word, 0, "");
  if (!found) return;
  result->entries = takeEntries(manager_.GetDebugResult());
  dropLoneHomographs(&result->entries);
}

// The manager's last layout as entries; `labelled` is the labelled form of the same text.
std::vector<Entry> Look::takeEntries(const std::string& labelled) {
  std::vector<Entry> entries =
      entriesFromLayout(manager_.GetImiData(), manager_.styleRuns, headwordColour(manager_), encoding());
  std::vector<std::vector<Sense>> senses = sensesFromLabels(toUtf8(labelled));
  for (size_t i = 0; i < entries.size() && i < senses.size(); ++i) entries[i].senses = std::move(senses[i]);
  return entries;
}

// Both languages take the list road here, which keeps the entries apart.
void Look::fetchPart(const std::string& word, bool english, Mode mode, LookResult* result) {
  const bool found = english ? manager_.NewGetImiE(word, 0, "") : manager_.GetImiJ(word, 0, "");
  if (!found) return;
  std::vector<Entry> whole = takeEntries(manager_.GetDebugResult());
  dropLoneHomographs(&whole);
  std::string text;
  std::vector<int> homographs;
  for (size_t i = 0; i < manager_.meaningList.size(); ++i) {
    const std::string part = partOf(manager_.meaningList[i], english, mode);
    if (part.empty()) continue;
    text += part;
    homographs.push_back(i < whole.size() ? whole[i].homograph : 0);
  }
  result->lacksPart = text.empty();
  if (text.empty()) return;
  const std::string shown = manager_.OutputResult(text);
  manager_.OutputResultFile(manager_.outputSpec, shown);
  result->entries = takeEntries(manager_.ConvertMetaKey(text, 1));
  for (size_t i = 0; i < result->entries.size() && i < homographs.size(); ++i) {
    result->entries[i].homograph = homographs[i];  // numbered among all entries, not among those with a part
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
    for (const Headword& headword : takeHeadwords()) addSuggestion(headword.keyword, limit, result);
    return;
  }
}

void Look::suggestJapanese(const std::string& word, size_t limit, LookResult* result) {
  for (size_t length = word.size(); length >= 2 && result->suggestions.size() < limit; --length) {
    if (!manager_.GetMidashiJ(word.substr(0, length))) continue;
    for (const Headword& headword : takeHeadwords()) addSuggestion(headword.keyword, limit, result);
    return;
  }
}

}  // namespace zavel::host
