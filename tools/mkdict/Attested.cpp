// Tests: tests/mkdict/AttestedTest.cpp.
#include "mkdict/Attested.h"

namespace zavel::mkdict {
namespace {

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
// A word with one of these or with a byte of a longer character in it is no plain word.
bool joins(char c) {
  return c == '-' || c == '\'' || (static_cast<unsigned char>(c) & 0x80) != 0;
}

}  // namespace

void Attested::read(std::string_view text) {
  std::string word;
  for (size_t at = 0; at < text.size();) {
    if (!isLetter(text[at]) && !joins(text[at])) {
      ++at;
      continue;
    }
    const size_t begin = at;
    bool plain = true;
    for (; at < text.size() && (isLetter(text[at]) || joins(text[at])); ++at) {
      plain = plain && isLetter(text[at]);
    }
    if (!plain) continue;
    word.assign(text.substr(begin, at - begin));
    if (word[0] <= 'Z') word[0] = static_cast<char>(word[0] - 'A' + 'a');
    ++words_[word];
  }
}

uint32_t Attested::count(std::string_view word) const {
  const auto found = words_.find(std::string(word));
  return found == words_.end() ? 0 : found->second;
}

}  // namespace zavel::mkdict
