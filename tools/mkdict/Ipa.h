// Questions about a pronunciation in the international phonetic alphabet.
#ifndef MKDICT_IPA_H
#define MKDICT_IPA_H

#include <cstddef>
#include <string>
#include <string_view>

namespace zavel::mkdict {

// The characters of a pronunciation; none when it is not UTF-8.
std::u32string ipaCodes(std::string_view ipa);

bool isIpaVowel(char32_t code);

// The last vowel's place and the number of syllables. A run of vowels is one syllable.
struct IpaSyllables {
  unsigned count = 0;
  size_t lastBegin = 0;
};
IpaSyllables ipaSyllables(std::u32string_view ipa);

// One past the last sound that counts: length marks, brackets and diacritics are passed over.
size_t ipaEnd(std::u32string_view ipa);

// True when the primary stress lies on the last syllable, as in any word of one.
bool ipaLastStressed(std::u32string_view ipa);

}  // namespace zavel::mkdict

#endif
