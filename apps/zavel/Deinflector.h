// From an inflected Japanese word to the dictionary forms that it may come from.
//
// The endings of Japanese verbs and adjectives are regular and few, so a table of them undoes one after the
// other. What comes out is a guess at the spelling; whether there is such a word, and whether it inflects in
// the way that the guess needs, is for the dictionary to say.
#ifndef ZAVEL_DEINFLECTOR_H
#define ZAVEL_DEINFLECTOR_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

// How a word inflects.
enum class Inflects : uint8_t {
  kIchidan,    // 食べる
  kGodan,      // 行く
  kAdjective,  // 美しい
  kKuru,       // 来る
  kSuru,       // 愛する, する
  kWithSuru,   // 勉強: a noun that する makes a verb of
  kNa,         // 静か: an adjective that な and だ follow
};

struct BaseForm {
  std::string word;  // UTF-8: "食べる"
  Inflects inflects;
  std::vector<std::string> reasons;  // from the last ending to the first: "past", "negative"
};

// The dictionary forms that `word` (UTF-8) may come from, those of fewer endings first; of one word and kind
// the first only. No chain holds a reason twice. Empty when no ending fits.
//   "行った"   行く past, godan; 行う past, godan; ...
// With `plain` set only by endings that can't well belong to another dictionary form: those that make forms
// which look like other words (potential 読める, imperative 行け, 美しさ, 静かに) stay out at the start of a
// chain.
std::vector<BaseForm> baseFormsOf(std::string_view word, bool plain);

// Whether a word that the dictionary files under `labels` (動カ五, 形, サ変, ...) inflects as `base` needs.
bool inflectsSo(const BaseForm& base, const std::vector<std::string>& labels);

}  // namespace zavel::host

#endif
