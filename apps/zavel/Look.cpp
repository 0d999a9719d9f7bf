// A word is asked for as it was typed, and, if that gives nothing, in the characters that headwords are made
// of. Each language has a road of its own.
// Tests: tests/zavel/LookTest.cpp
#include "Look.h"

#include "EnglishRoad.h"
#include "JapaneseRoad.h"
#include "NearHeadwords.h"
#include "QueryText.h"
#include "WordBytes.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestWord = 255;  // bytes, the manager's own limit

bool isEmpty(const LookResult& result) {
  return result.entries.empty() && result.headwords.empty() && result.forms.empty();
}

// Whether there is no answer to what was asked for. Further headwords are none.
bool lacksAnswer(const LookRequest& request, const LookResult& result) {
  if (request.wantEntries) return result.entries.empty() && !result.lacksPart;
  return isEmpty(result);
}

}  // namespace

Failure wordTooLong() {
  return {kExitUsage, "too_long", "the word is too long: at most 255 bytes in Shift_JIS",
          "Look up a part of it."};
}

const char* matchName(Match match) {
  switch (match) {
    case Match::kExact:
      return "exact";
    case Match::kInflected:
      return "inflected";
    case Match::kDerived:
      return "derived";
    case Match::kSpelling:
      return "spelling";
    case Match::kNear:
      return "near";
  }
  return "";
}

const char* kindName(RowKind kind) {
  return kind == RowKind::kBilingual ? "bilingual" : "translation";
}

bool Look::run(const LookRequest& request, LookResult* result, Failure* failure) {
  result->query = request.word;
  result->origin = request.word;
  // The engine would take what stands ahead of a NUL for the whole word.
  if (request.word.empty() || request.word.find('\0') != std::string::npos) return true;
  source_.fill(request);
  if (!ask(request, request.word, result, failure)) return false;
  if (!lacksAnswer(request, *result)) return true;
  const std::string folded = foldedQuery(request.word);
  std::string asked = request.word;
  if (folded != request.word && !folded.empty()) {
    asked = folded;
    *result = {};
    result->query = request.word;
    result->origin = folded;
    if (!ask(request, folded, result, failure)) return false;
  }
  if (!lacksAnswer(request, *result)) return true;
  const std::optional<std::string> word = wordBytes(asked);
  if (!word) {
    suggestForKnownPart(asked, request.suggestions, result);
    return true;
  }
  if (source_.isDamagedAt(*word, result->english)) {
    *failure = {kExitDamaged, kDamagedDictionary, "the dictionary is damaged where this word stands",
                "Run: zavel dict verify, then zavel dict build"};
    return false;
  }
  if (request.suggestions > 0) {
    result->suggestions = nearHeadwords(*word, result->english, request.suggestions, &source_);
  }
  return true;
}

// What is left of a word without the characters that no headword here holds is no answer, but it may be what
// is meant.
void Look::suggestForKnownPart(const std::string& asked, size_t most, LookResult* result) {
  result->unknown = unknownCharacters(asked);
  const std::string known = foldedQuery(withoutUnknownCharacters(asked));
  const std::optional<std::string> word = wordBytes(known);
  if (most == 0 || !word || word->empty() || word->size() > kLongestWord) return;
  result->english = isEnglishWord(*word);
  result->suggestions = nearHeadwords(*word, result->english, most, &source_);
  if (!source_.has(*word, result->english)) return;
  std::erase(result->suggestions, known);
  result->suggestions.insert(result->suggestions.begin(), known);
  if (result->suggestions.size() > most) result->suggestions.pop_back();
}

bool Look::ask(const LookRequest& request, const std::string& asked, LookResult* result, Failure* failure) {
  const std::optional<std::string> word = wordBytes(asked);
  // A character that the dictionary's encoding lacks stands in no headword.
  if (!word || word->empty()) return true;
  if (word->size() > kLongestWord) {
    *failure = wordTooLong();
    return false;
  }
  result->english = isEnglishWord(*word);
  if (result->english) {
    EnglishRoad(source_, request).run(*word, result);
  } else {
    JapaneseRoad(source_, request).run(*word, result);
  }
  return true;
}

}  // namespace zavel::host
