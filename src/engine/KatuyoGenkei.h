// The way back from an inflected word to its base form (genkei): suffix rules give guesses, and the first
// guess with an entry of a fitting part of speech in ej.dic is the base.
#ifndef ENGINE_KATUYOGENKEI_H
#define ENGINE_KATUYOGENKEI_H

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/EngineStatus.h"

namespace zavel::engine {

// A stage is the number of a suffix rule; stage 0 tries the word as it stands.
inline constexpr uint16_t kLastStage = 17;
inline constexpr uint16_t kNoStage = 18;  // no rule is left

// The next guess at the base form of `word`, trying the rules from number `stage` on; case is ignored.
// On a hit: *base is the guess, *nextStage the number of the rule that hit, and the parts of speech that
// its suffix allows are added to *mask. With no rule left: false, *nextStage kNoStage, the rest untouched.
bool GetOriginalForm(std::string_view word, std::string* base, uint16_t stage, uint16_t* nextStage,
                     uint8_t* mask);

// True if the text holds "-[名]", "-[形]" or "-[動]": an entry with something to inflect.
bool LookForDousi(std::string_view text);

// Which of the three it holds, as far as `mask` asks: bits kHinsiMeisi, kHinsiKeiyo, kHinsiDousi.
uint8_t DscvHinsi(std::string_view text, uint8_t mask);

// What a base form search came to.
enum class Genkei {
  kFound,    // the base's entries are at hand
  kNone,     // no base; irregular forms may still stand
  kNothing,  // there is nothing to give, irregular forms included
};

// Searches the base form of `key`. `irregular`: the conjugation dictionary knows the word. With
// Genkei::kFound *text holds the base's entries as one: the first whole, later ones without their entry
// tag. Status: 1; 17; 20; 21; 257.
Status SerchGenkei(const std::string& key, bool irregular, Genkei* result, std::string* text);

}  // namespace zavel::engine

#endif
