// A rank by reading and one by written form are sums of this shape:
//
//   class of the line alone, 0 to 5, times 100     common, other, rare; in each kana and kanji
//   8 times the rarity of its kanji                0 to 7, 2 more for a word's other spelling
//   lack of weight                                 fewer senses; by written form also fewer uses
//
// Tests: tests/mkdict/JapaneseRanksTest.cpp.
#include "mkdict/JapaneseRanks.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <string_view>
#include <unordered_map>

#include "engine/Shim.h"
#include "mkdict/EdictLabels.h"
#include "mkdict/EntryCheck.h"
#include "mkdict/ReadingUses.h"

namespace zavel::mkdict {
namespace {

// Classes of a line alone.
constexpr uint32_t kCommon = 0, kOther = 2, kRare = 4, kSecond = 1;

constexpr uint32_t kPerClass = 100;
constexpr uint32_t kRarityWeight = 8;   // a kanji half as common weighs as much as eight senses
constexpr uint32_t kOtherSpelling = 2;  // in rarity; 8 * (7 + 2) + 27 stays below 100
constexpr uint32_t kSensesOfCommonWord = 10;
constexpr uint32_t kSensesCounted = 20;
constexpr uint32_t kMostWeight = 27;  // of uses and senses

bool isRareSense(const EdictSense& sense) {
  return anyCode(sense.remarks, isRareRemark);
}

bool isRare(const EdictLine& line, bool kana) {
  // Marks on the kanji say nothing about a word that is written in kana.
  const auto rareSpelling = [kana](const std::string& code) {
    return isRareRemark(code) && (!kana || code == "ok" || code == "ik");
  };
  return std::any_of(line.spelling.begin(), line.spelling.end(), rareSpelling) ||
         std::all_of(line.senses.begin(), line.senses.end(), isRareSense);
}

uint32_t classOf(const EdictLine& line, bool kana) {
  // EDICT has no way to mark a common word that stands under outdated kanji only, as する does; but only
  // common words have so many senses.
  if (line.common || line.senses.size() >= kSensesOfCommonWord) return kCommon;
  return isRare(line, kana) ? kRare : kOther;
}

// Calls `use` with the code of each kanji in the written form, if the word has one. The reader's own test.
template <class Use>
void forKanjiOf(const JapaneseEntry& entry, Use use) {
  const std::string_view written = EntryCheck::kanji(entry.text);
  if (written.data() == EntryCheck::kana(entry.text).data()) return;  // in kana alone
  for (size_t at = 0; at + 1 < written.size(); at += 2) {
    const unsigned code = static_cast<uint8_t>(written[at]) << 8 | static_cast<uint8_t>(written[at + 1]);
    if (engine::_ismbcl1(code) || engine::_ismbcl2(code)) use(code);
  }
}

// 0 for a kanji that a hundred or more common words use, one more for each halving, 7 for none at all.
uint32_t rarityOf(uint32_t uses) {
  uint32_t rarity = 0;
  for (uint32_t limit = 64; uses < limit && rarity < 7; limit /= 2) ++rarity;
  return rarity;
}

// Twice the logarithm of uses times senses.
uint32_t weightOf(const WordFrequency& word, uint32_t uses) {
  if (word.partOfWord) return 0;
  const uint64_t product = (uint64_t{uses} + 1) * word.senses;
  return std::min(kMostWeight, static_cast<uint32_t>(std::bit_width(product * product)) - 1);
}

class Ranking {
 public:
  Ranking(const std::vector<WordFrequency>& frequencies, std::vector<JapaneseEntry>& entries)
      : frequencies_(frequencies), entries_(entries) {}

  void run();

 private:
  void takeStock();
  uint32_t rarityOfKanji(size_t i) const;

  const std::vector<WordFrequency>& frequencies_;
  std::vector<JapaneseEntry>& entries_;
  std::vector<uint32_t> kanjiUses_ = std::vector<uint32_t>(0x10000, 0);  // in common words, by code
  std::vector<size_t> words_;                  // by entry: the same for all spellings of a word
  std::unordered_map<size_t, uint32_t> best_;  // by word: of its spellings
};

// The spellings of one word share reading and meaning.
size_t wordOf(const JapaneseEntry& entry) {
  const std::string_view text = entry.text;
  const std::hash<std::string_view> hash;
  return hash(entry.kana) * 31 + hash(text.substr(text.find('\n')));
}

void Ranking::takeStock() {
  words_.reserve(entries_.size());
  for (size_t i = 0; i < entries_.size(); ++i) {
    const uint32_t rank = frequencies_[i].byReading;
    words_.push_back(wordOf(entries_[i]));
    const auto [known, isNew] = best_.try_emplace(words_[i], rank);
    if (!isNew) known->second = std::min(known->second, rank);
    // Without a reading: 人人 beside 人々, whose kanji are counted there.
    if (rank >= kOther * kPerClass || entries_[i].kana.empty()) continue;
    forKanjiOf(entries_[i], [this](unsigned kanji) { ++kanjiUses_[kanji]; });
  }
}

uint32_t Ranking::rarityOfKanji(size_t i) const {
  uint32_t rarity = 0;
  forKanjiOf(entries_[i], [&](unsigned kanji) { rarity = std::max(rarity, rarityOf(kanjiUses_[kanji])); });
  const bool otherSpelling = frequencies_[i].byReading > best_.at(words_[i]);
  return rarity + (otherSpelling ? kOtherSpelling : 0);
}

void Ranking::run() {
  std::vector<bool> heard;
  for (const WordFrequency& word : frequencies_) heard.push_back(!word.saying);
  const std::vector<uint32_t> uses = usesByThemselves(entries_, heard);
  takeStock();
  for (size_t i = 0; i < entries_.size(); ++i) {
    const uint32_t rarity = kRarityWeight * rarityOfKanji(i);
    entries_[i].rank = frequencies_[i].byReading + rarity;
    entries_[i].kanjiRank =
        frequencies_[i].byWritten + rarity + kMostWeight - weightOf(frequencies_[i], uses[i]);
  }
}

}  // namespace

WordFrequency WordFrequency::of(const EdictLine& line) {
  // One in kana alone, or one that its first sense says to be written so, is what a query in kana means.
  const EdictSense& first = line.senses.front();
  const bool kana = line.written.empty() || hasCode(first.remarks, "uk");
  const auto isSaying = [](const EdictSense& sense) {
    return hasCode(sense.remarks, "proverb") || hasCode(sense.remarks, "id") || isRareSense(sense);
  };
  WordFrequency word;
  word.senses = static_cast<uint32_t>(std::min<size_t>(line.senses.size(), kSensesCounted));
  word.partOfWord = !first.pos.empty() && std::all_of(first.pos.begin(), first.pos.end(), isPartOfWord);
  word.saying = std::any_of(line.senses.begin(), line.senses.end(), isSaying);
  word.byReading = kPerClass * (classOf(line, kana) + (kana ? 0 : kSecond)) + kSensesCounted - word.senses;
  word.byWritten = kPerClass * (classOf(line, false) + (kana || word.partOfWord ? kSecond : 0));
  return word;
}

void WordFrequency::join(const WordFrequency& line) {
  byReading = std::min(byReading, line.byReading);
  byWritten = std::min(byWritten, line.byWritten);
  senses = std::min(senses + line.senses, kSensesCounted);
  partOfWord = partOfWord && line.partOfWord;
  saying = saying && line.saying;
}

void setRanks(const std::vector<WordFrequency>& frequencies, std::vector<JapaneseEntry>* entries) {
  Ranking(frequencies, *entries).run();
}

}  // namespace zavel::mkdict
