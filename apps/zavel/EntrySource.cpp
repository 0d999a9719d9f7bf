// Tests: tests/zavel/LookTest.cpp
#include "EntrySource.h"

#include <algorithm>
#include <map>

#include "EntryText.h"
#include "WordBytes.h"
#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/ImiFilter.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

constexpr size_t kMostHeadwords = 50;  // as many as one search gives
constexpr uint16_t kBasic = 1;         // the basic dictionaries

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

std::vector<std::string> labelsOf(const std::vector<Sense>& senses) {
  std::vector<std::string> labels;
  for (const Sense& sense : senses) {
    for (const std::string& label : sense.labels) {
      if (std::find(labels.begin(), labels.end(), label) == labels.end()) labels.push_back(label);
    }
  }
  return labels;
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

// The beginnings that stand in the index for one that is too short for it: the word itself, then the word
// and each letter, and with one letter each pair of letters.
std::vector<std::string> longerBeginnings(const std::string& word, bool english) {
  std::vector<std::string> out{word};
  if (!english) {
    // Hiragana ぁ to ん; the search takes katakana for the same.
    if (word.size() == 2) {
      for (unsigned char c = 0x9F; c <= 0xF1; ++c) out.push_back(word + '\x82' + static_cast<char>(c));
    }
    return out;
  }
  const std::string key = englishKey(word);
  if (key.empty() || key.size() > 2) return out;
  for (char second = 'a'; second <= 'z'; ++second) {
    out.push_back(key + second);
    if (key.size() == 2) continue;
    for (char third = 'a'; third <= 'z'; ++third) out.push_back(key + second + third);
  }
  return out;
}

}  // namespace

Fetched EntrySource::fetch(const std::string& word, bool english, Mode mode, bool labels) {
  if (mode != Mode::kAll) return fetchPart(word, english, mode);
  Fetched fetched;
  const bool found = english ? manager_.NewGetImiE(word, 0, "") : manager_.NewGetImiJ(word, 0, "");
  if (!found) return fetched;
  fetched.entries = takeEntries(manager_.debugResult, labels);
  dropLoneHomographs(&fetched.entries);
  return fetched;
}

// The manager's last layout as entries; `labelled` is the labelled form of the same text.
std::vector<Entry> EntrySource::takeEntries(const std::string& labelled, bool labels) {
  const TextEncoding& encoding = platform().encoding();
  std::vector<Entry> entries =
      entriesFromLayout(manager_.GetImiData(), manager_.styleRuns, headwordColour(manager_), encoding, text_);
  if (!senses_ && !labels) return entries;
  std::vector<std::vector<Sense>> senses = sensesFromLabels(shownText(labelled));
  for (size_t i = 0; i < entries.size() && i < senses.size(); ++i) {
    entries[i].labels = labelsOf(senses[i]);
    entries[i].senses = std::move(senses[i]);
  }
  return entries;
}

// Both languages take the list road here, which keeps the entries apart.
Fetched EntrySource::fetchPart(const std::string& word, bool english, Mode mode) {
  Fetched fetched;
  const bool found = english ? manager_.NewGetImiE(word, 0, "") : manager_.GetImiJ(word, 0, "");
  if (!found) return fetched;
  std::vector<Entry> whole = takeEntries(manager_.debugResult, true);
  dropLoneHomographs(&whole);
  std::string text;
  std::vector<size_t> kept;
  for (size_t i = 0; i < manager_.meaningList.size(); ++i) {
    const std::string part = partOf(manager_.meaningList[i], english, mode);
    if (part.empty()) continue;
    text += part;
    kept.push_back(i);
  }
  fetched.lacksPart = text.empty();
  if (text.empty()) return fetched;
  const std::string shown = manager_.OutputResult(text);
  manager_.OutputResultFile(manager_.outputSpec, shown);
  fetched.entries = takeEntries(manager_.ConvertMetaKey(text, 1), false);
  for (size_t i = 0; i < fetched.entries.size() && i < kept.size(); ++i) {
    if (kept[i] >= whole.size()) continue;
    // Numbered among all entries, not among those with a part; a part may lack the parts of speech.
    fetched.entries[i].homograph = whole[kept[i]].homograph;
    fetched.entries[i].labels = std::move(whole[kept[i]].labels);
  }
  return fetched;
}

bool EntrySource::has(const std::string& word, bool english) {
  std::string asked = word;  // a search may change it
  uint32_t size = 0;
  Handle list = nullptr;
  const uint16_t status = (english ? SerchImiE : SerchImiJ)(asked.data(), nullptr, 0, &size, &list, kBasic);
  if (list) GlobalFree(list);
  return status == engine::kOk && size > 0;
}

std::vector<Headword> EntrySource::headwords(const std::string& word, bool english) {
  std::vector<Headword> headwords;
  takeHeadwords(word, english, &headwords);
  return headwords;
}

std::vector<Headword> EntrySource::allHeadwords(const std::string& word, bool english) {
  std::vector<Headword> headwords;
  for (const std::string& beginning : longerBeginnings(word, english)) {
    if (headwords.size() >= kMostHeadwords) break;
    takeHeadwords(beginning, english, &headwords);
  }
  if (headwords.size() > kMostHeadwords) headwords.resize(kMostHeadwords);
  return headwords;
}

void EntrySource::takeHeadwords(const std::string& word, bool english, std::vector<Headword>* headwords) {
  if (!(english ? manager_.GetMidashiE(word) : manager_.GetMidashiJ(word))) return;
  const uint32_t count = manager_.CountMidashiData();
  for (uint32_t i = 0; i < count; ++i) {
    const std::string line = withoutNul(manager_.GetMidashiData(i));
    const std::string keyword = withoutNul(manager_.ExtractKeywordFromMidashiData(line));
    headwords->push_back({shownText(line), shownText(keyword)});
  }
}

std::vector<Form> EntrySource::forms(const std::string& word, bool labels) {
  std::vector<Form> forms;
  if (!manager_.GetInflection(word)) return forms;
  for (const Inflection& inflection : manager_.inflectionList) {
    std::string label = labels ? shownText(inflection.label) : std::string();
    if (!label.empty() && label[0] == ' ') label.erase(0, 1);
    forms.push_back({static_cast<int>(inflection.code), shownText(inflection.form), label, ""});
  }
  return forms;
}

bool EntrySource::isDamagedAt(const std::string& word, bool english) {
  const auto failed = [&](auto search) {
    std::string asked = word;  // a search may change it
    uint32_t size = 0;
    Handle list = nullptr;
    const uint16_t status = search(asked.data(), &size, &list);
    if (list) GlobalFree(list);
    return tellsDamage(status);
  };
  const auto entries = [&](char* asked, uint32_t* size, Handle* list) {
    return (english ? SerchImiE : SerchImiJ)(asked, nullptr, 0, size, list, kBasic);
  };
  const auto headwords = [&](char* asked, uint32_t* size, Handle* list) {
    return english ? SerchMidasiE(asked, 0, size, list, kBasic) : SerchMidasiJ(asked, size, list, kBasic);
  };
  const auto forms = [](char* asked, uint32_t* size, Handle* list) { return GetKatuyo(asked, size, list); };
  return failed(entries) || failed(headwords) || (english && failed(forms));
}

}  // namespace zavel::host
