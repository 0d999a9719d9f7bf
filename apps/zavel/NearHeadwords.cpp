// Tests: tests/zavel/LookTest.cpp
#include "NearHeadwords.h"

#include <algorithm>

#include "WordBytes.h"
#include "engine/EngineStatus.h"
#include "engine/MidasiCheck.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestWord = 40;  // letters; nobody means a headword by a longer one

// Every word one slip away: two letters changed places, one too many, one too few, one replaced.
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

// Headwords without repetition, up to a limit.
class Gathered {
 public:
  explicit Gathered(size_t limit) : limit_(limit) {}
  bool full() const { return words_.size() >= limit_; }
  void add(const std::string& word) {
    if (!full() && std::find(words_.begin(), words_.end(), word) == words_.end()) words_.push_back(word);
  }
  std::vector<std::string> take() { return std::move(words_); }

 private:
  size_t limit_;
  std::vector<std::string> words_;
};

bool isHeadword(const std::string& key, EntrySource* source) {
  const std::vector<Headword> headwords = source->headwords(key, true);
  return std::any_of(headwords.begin(), headwords.end(),
                     [&key](const Headword& headword) { return englishKeyOf(headword.keyword) == key; });
}

// The headwords of the longest beginning of `word` that has any.
void addByBeginning(const std::string& word, bool english, size_t shortest, EntrySource* source,
                    Gathered* gathered) {
  for (size_t length = word.size(); length >= shortest && !gathered->full(); --length) {
    const std::vector<Headword> headwords = source->headwords(word.substr(0, length), english);
    for (const Headword& headword : headwords) gathered->add(headword.keyword);
    if (!headwords.empty()) return;
  }
}

}  // namespace

std::vector<std::string> nearHeadwords(const std::string& word, bool english, size_t limit,
                                       EntrySource* source) {
  Gathered gathered(limit);
  if (!english) {
    addByBeginning(word, false, 2, source, &gathered);
    return gathered.take();
  }
  const std::string key = englishKey(word);
  if (engine::ChkMidasiStrE(word.c_str()) != engine::kOk || key.size() > kLongestWord) return {};
  for (const std::string& near : oneSlipAway(key)) {
    if (gathered.full()) return gathered.take();
    if (near.size() >= 2 && near != key && isHeadword(near, source)) gathered.add(near);
  }
  // Below three letters the index lists only what is filed under exactly those letters.
  addByBeginning(key, true, 3, source, &gathered);
  return gathered.take();
}

}  // namespace zavel::host
