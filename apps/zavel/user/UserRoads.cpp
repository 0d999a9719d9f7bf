// Tests: tests/zavel/user/UserLookTest.cpp
#include "user/UserRoads.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "Deinflector.h"
#include "EnglishContractions.h"
#include "QueryText.h"
#include "WordBytes.h"
#include "engine/Beiei.h"
#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "foundation/ByteReader.h"
#include "user/EnglishBases.h"

namespace zavel::host {
namespace {

constexpr uint16_t kBasic = 1;  // the basic dictionaries

std::string takeBytes(Handle list, uint32_t size) {
  if (!list) return {};
  std::string bytes(static_cast<const char*>(GlobalLock(list)), size);
  GlobalFree(list);
  return bytes;
}

// The inflection table of an English word, as the dictionary has it or by rule.
std::vector<Form> formsOf(const std::string& word) {
  std::vector<Form> forms;
  uint32_t size = 0;
  Handle list = nullptr;
  if (GetKatuyo(word.c_str(), &size, &list) != engine::kOk) return forms;
  const std::string bytes = takeBytes(list, size);
  for (size_t at = 0; at + 3 <= bytes.size();) {
    const size_t length = readLE16(reinterpret_cast<const uint8_t*>(bytes.data()) + at);
    Form form{static_cast<uint8_t>(bytes[at + 2]), std::string(bytes.substr(at + 3, length).c_str()), {}};
    forms.push_back(std::move(form));
    at += 3 + length;
  }
  return forms;
}

// The headwords of the basic entries that answer an English word, each once.
std::vector<std::string> basicHeadwords(const std::string& word) {
  std::vector<std::string> headwords;
  std::string asked = word;  // a search may change it
  uint32_t size = 0;
  Handle list = nullptr;
  if (SerchImiE(asked.data(), nullptr, 0, &size, &list, kBasic) != engine::kOk) return headwords;
  const std::string bytes = takeBytes(list, size);
  for (size_t at = 0; at + 4 <= bytes.size();) {
    const size_t length = readLE32(reinterpret_cast<const uint8_t*>(bytes.data()) + at);
    const std::string headword = engine::GetMidasiNo(std::string_view(bytes).substr(at + 4, length)).word;
    const bool known = std::find(headwords.begin(), headwords.end(), headword) != headwords.end();
    if (!headword.empty() && !known) headwords.push_back(headword);
    at += 4 + length;
  }
  return headwords;
}

// The other words whose entries the basic dictionary gives for `word`: spellings where it has the word too.
void addBasicRoads(const std::string& word, std::vector<UserRoad>* roads) {
  const std::string key = englishKeyOf(word);
  const std::vector<std::string> headwords = basicHeadwords(word);
  const auto isOwn = [&key](const std::string& headword) { return englishKeyOf(headword) == key; };
  const bool any = std::any_of(headwords.begin(), headwords.end(), isOwn);
  for (const std::string& headword : headwords) {
    if (isOwn(headword)) continue;
    roads->push_back(
        {.word = headword, .match = any ? Match::kSpelling : Match::kDerived, .base = any ? word : headword});
  }
}

void addInflected(const InflectedFrom& base, std::vector<UserRoad>* roads) {
  roads->push_back({.word = base.base, .match = Match::kInflected, .inflected = base, .base = base.base});
}

std::string lowerCase(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return text;
}

// The ways in which an entry inflects. Of a phrase nobody knows.
unsigned paradigmsOfPos(const UserEntry& entry) {
  if (!entry.phrase.empty()) return kAllForms;
  switch (entry.pos) {
    case 1:
    case 2:
      return kNounForms;
    case 3:
    case 4:
      return kAdjectiveForms;
    case 5:
    case 6:
    case 7:
      return kVerbForms;
    default:
      return 0;
  }
}

// A word that the basic dictionary leads to a base by its ending, though the base's table lacks it.
void addOrigin(const std::string& word, const std::vector<Form>& forms, std::vector<UserRoad>* roads) {
  const auto isBase = [](const Form& form) { return form.code == 1 || form.code == 3 || form.code == 6; };
  const auto base = std::find_if(forms.begin(), forms.end(), isBase);
  if (base == forms.end() || englishKeyOf(base->form) == englishKeyOf(word)) return;
  if (!basicHeadwords(word).empty()) return;
  roads->push_back({.word = base->form, .match = Match::kInflected, .base = base->form});
  addBasicRoads(base->form, roads);
}

std::vector<UserRoad> basesOf(const std::string& word) {
  std::vector<UserRoad> roads;
  const std::vector<Form> forms = formsOf(word);
  for (const InflectedFrom& base : basesIn(forms, word)) {
    addInflected(base, &roads);
    addBasicRoads(base.base, &roads);
  }
  const bool told = !roads.empty();
  for (const InflectedFrom& base : regularBases(lowerCase(word))) addInflected(base, &roads);
  if (!told) addOrigin(word, forms, &roads);
  return roads;
}

}  // namespace

std::vector<std::string> UserRoad::via(const UserEntry& entry) const {
  if (inflected.ways.empty()) return reasons;
  std::vector<std::string> names = inflected.namesFor(paradigmsOfPos(entry));
  for (std::string& name : names) {
    for (const std::string& reason : reasons) name = reason + " of " + name;
  }
  return names;
}

std::vector<UserQuery> userQueries(const std::string& typed) {
  const std::string word = withSoundMarksJoined(typed);
  const std::string folded = foldedQuery(word);
  std::vector<UserQuery> queries{{guessLanguage(word), word}};
  if (folded != word && !folded.empty()) queries.push_back({guessLanguage(folded), folded});
  return queries;
}

std::vector<UserRoad> englishRoads(const std::string& word) {
  std::vector<UserRoad> roads;
  addBasicRoads(word, &roads);
  std::vector<UserRoad> bases = basesOf(word);
  std::move(bases.begin(), bases.end(), std::back_inserter(roads));
  return roads;
}

std::vector<UserRoad> contractionRoads(const std::string& word) {
  std::vector<UserRoad> roads;
  for (const Contraction& part : contractionsOf(word)) {
    roads.push_back(
        {.word = part.word, .match = Match::kInflected, .reasons = {part.reason}, .base = part.word});
    for (UserRoad& base : basesOf(part.word)) {
      if (base.match != Match::kInflected) continue;
      base.reasons = {part.reason};
      roads.push_back(std::move(base));
    }
  }
  return roads;
}

std::vector<UserRoad> japaneseRoads(const std::string& word, bool isWord) {
  std::vector<UserRoad> roads;
  for (BaseForm& base : baseFormsOf(word, isWord)) {
    roads.push_back({.word = base.word,
                     .match = Match::kInflected,
                     .reasons = std::move(base.reasons),
                     .base = base.word});
  }
  return roads;
}

}  // namespace zavel::host
