// The forms of an English word, as they are right: regular spelling where no source says otherwise, the
// exception lists of WordNet, which name the base of a form but not which form it is, and small tables of
// what neither tells.
#ifndef MKDICT_INFLECTION_H
#define MKDICT_INFLECTION_H

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "mkdict/Attested.h"
#include "mkdict/Pronunciation.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

using Forms = std::vector<std::string>;  // several where usage is divided; no repeats

struct VerbForms {
  Forms present;  // beside the base form itself: none but for "be"
  Forms third, past, participle, progressive;
};

struct Comparison {
  enum class Kind { kEndings, kMore, kNone };
  Kind kind = Kind::kNone;
  Forms comparative, superlative;  // of kEndings
};

class Inflection {
 public:
  // Both are borrowed and must be complete.
  Inflection(const WordNet& wordNet, const Attested& attested);

  // Plurals of a noun, empty for one that has none ("physics", "scissors").
  Forms plurals(std::string_view noun, const Sounds& sounds) const;

  VerbForms verb(std::string_view verb, const Sounds& sounds) const;

  // How an adjective compares. kNone for one that says "of a ..." in all its senses ("dental").
  Comparison comparison(std::string_view adjective, const Sounds& sounds) const;

  // Irregular comparison of an adverb: "well", "far". Empty lists for all others.
  Comparison adverbComparison(std::string_view adverb) const;

  // A past form of a verb that has no others, as "can" and "could"; empty for other words.
  static std::string_view modalPast(std::string_view verb);

  // Irregular forms that the exception lists give of a base.
  const Forms& listed(WordNet::Pos pos, std::string_view base) const;

  // True for an irregular form of some word: "broken", "children", "better".
  bool isListedForm(WordNet::Pos pos, std::string_view form) const;

  // True for what is a comparative or superlative already: "better", "older", "upper".
  bool isCompared(std::string_view word) const;

  // True for a verb that WordNet's texts use or that is irregular.
  bool isKnownVerb(std::string_view verb) const;

  // True for a verb with a present and perhaps a past form and nothing else: "must", "can".
  static bool isDefective(std::string_view verb);
  // True for a form of a verb, or a defective verb, that is no regular verb besides: "clung", "shall", but
  // neither "found" nor "can".
  bool isMereForm(std::string_view verb) const;

 private:
  bool doubles(std::string_view verb, const Forms& exceptions) const;
  bool doublesOnly(std::string_view verb, const Sounds& sounds) const;
  void regularPast(std::string_view verb, const Sounds& sounds, bool doubled, VerbForms* forms) const;
  void irregularPast(std::string_view verb, const Forms& irregular, bool doubled, VerbForms* forms) const;
  bool isMan(std::string_view noun) const;
  bool isParticiple(const std::string& word) const;

  const WordNet& wordNet_;
  const Attested& attested_;
  std::array<std::unordered_map<std::string, Forms>, WordNet::kPosCount> byBase_;
  std::array<std::unordered_set<std::string>, WordNet::kPosCount> forms_;
  std::unordered_set<std::string> plurals_;  // irregular ones
};

}  // namespace zavel::mkdict

#endif
