// Tests: tests/zavel/user/UserStoreTest.cpp, UserLookTest.cpp
#include "user/FiledWord.h"

#include <utility>

#include "QueryText.h"

namespace zavel::host {
namespace {

constexpr const char* kWordMark = "spelled";
constexpr const char* kKanjiMark = "written";

void file(const char* mark, std::string* text, std::vector<UserExample>* sentences) {
  std::string filed = wordAsFiled(*text);
  if (filed == *text) return;
  sentences->push_back({mark, std::move(*text)});
  *text = std::move(filed);
}

// A sentence of that name that spells another word is one of the user's.
void takeSpelling(const char* mark, std::string* text, std::vector<UserExample>* sentences) {
  if (sentences->empty()) return;
  const UserExample& last = sentences->back();
  if (last.english != mark || last.japanese == *text || wordAsFiled(last.japanese) != *text) return;
  *text = last.japanese;
  sentences->pop_back();
}

}  // namespace

UserEntry asFiled(const UserEntry& entry) {
  UserEntry filed = entry;
  if (entry.language == UserLanguage::kEnglish) return filed;
  file(kWordMark, &filed.word, &filed.sentences);
  file(kKanjiMark, &filed.kanji, &filed.sentences);
  return filed;
}

void takeSpellings(UserEntry* filed) {
  takeSpelling(kKanjiMark, &filed->kanji, &filed->sentences);
  takeSpelling(kWordMark, &filed->word, &filed->sentences);
}

}  // namespace zavel::host
