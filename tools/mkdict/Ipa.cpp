// Tests: tests/mkdict/PronunciationTest.cpp.
#include "mkdict/Ipa.h"

#include "mkdict/Utf8.h"

namespace zavel::mkdict {

std::u32string ipaCodes(std::string_view ipa) {
  return decodeUtf8(ipa).value_or(std::u32string());
}

bool isIpaVowel(char32_t code) {
  return std::u32string_view(U"aeiouyæɑɒɔəɘɛɜɝɚɐɪɨʊʉʌɵøœäɯɤ").find(code) != std::u32string_view::npos;
}

IpaSyllables ipaSyllables(std::u32string_view ipa) {
  IpaSyllables found;
  bool inside = false;
  for (size_t i = 0; i < ipa.size(); ++i) {
    const bool syllabic = ipa[i] == U'\u0329' || ipa[i] == U'\u030D';  // the mark of a syllabic consonant
    if (syllabic || (isIpaVowel(ipa[i]) && !inside)) {
      ++found.count;
      found.lastBegin = i;
    }
    // Length, glides and their marks belong to the vowel before them.
    inside = isIpaVowel(ipa[i]) || (inside && (ipa[i] == U'ː' || ipa[i] == U'\u032F' || ipa[i] == U'\u0303'));
  }
  return found;
}

size_t ipaEnd(std::u32string_view ipa) {
  size_t end = ipa.size();
  const auto passed = [](char32_t code) {
    return code == U'ː' || code == U')' || code == U'.' || code == U'ˑ' || (code >= 0x300 && code <= 0x36F) ||
           (code >= 0x2B0 && code <= 0x2FF);
  };
  while (end > 0 && passed(ipa[end - 1])) --end;
  return end;
}

bool ipaLastStressed(std::u32string_view ipa) {
  const size_t stress = ipa.rfind(U'ˈ');
  // No vowel but the last one may stand behind the mark.
  return ipaSyllables(ipa).count == 1 ||
         (stress != std::u32string_view::npos && ipaSyllables(ipa.substr(stress)).count == 1);
}

}  // namespace zavel::mkdict
