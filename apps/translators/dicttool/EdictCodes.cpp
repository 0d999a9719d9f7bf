// Tests: tests/translators/EdictEntryTest.cpp
#include "dicttool/EdictCodes.h"

#include <algorithm>
#include <map>

namespace zavel::dicttool {
namespace {

using Table = std::map<std::string_view, const char*>;

const Table& wordCodes() {
  static const Table table = {
      {"abbr", "abbreviation"},
      {"adj-f", "prenominal"},
      {"adj-i", "adjective"},
      {"adj-na", "na-adjective"},
      {"adj-no", "no-adjective"},
      {"adj-pn", "prenominal"},
      {"adj-t", "taru-adjective"},
      {"adv", "adverb"},
      {"adv-to", "to-adverb"},
      {"aux", "auxiliary"},
      {"aux-v", "auxiliary verb"},
      {"col", "colloquial"},
      {"comp", "computing"},
      {"conj", "conjunction"},
      {"ctr", "counter"},
      {"exp", "expression"},
      {"id", "idiom"},
      {"int", "interjection"},
      {"n", "noun"},
      {"n-adv", "adverbial noun"},
      {"n-pref", "noun prefix"},
      {"n-suf", "noun suffix"},
      {"n-t", "temporal noun"},
      {"num", "numeral"},
      {"pn", "pronoun"},
      {"pref", "prefix"},
      {"prt", "particle"},
      {"sl", "slang"},
      {"suf", "suffix"},
      {"uk", "usually written in kana"},
      {"v1", "ichidan verb"},
      {"v5aru", "godan verb"},
      {"v5b", "godan verb"},
      {"v5g", "godan verb"},
      {"v5k", "godan verb"},
      {"v5k-s", "godan verb"},
      {"v5m", "godan verb"},
      {"v5n", "godan verb"},
      {"v5r", "godan verb"},
      {"v5r-i", "godan verb"},
      {"v5s", "godan verb"},
      {"v5t", "godan verb"},
      {"v5u", "godan verb"},
      {"v5u-s", "godan verb"},
      {"vi", "intransitive"},
      {"vk", "kuru verb"},
      {"vs", "suru verb"},
      {"vs-i", "suru verb"},
      {"vs-s", "suru verb"},
      {"vt", "transitive"},
      {"vz", "zuru verb"},
  };
  return table;
}

const Table& nameCodes() {
  static const Table table = {
      {"c", "company"},         {"f", "female given name"}, {"g", "given name"}, {"h", "full name"},
      {"m", "male given name"}, {"o", "organization"},      {"p", "place"},      {"pr", "product"},
      {"s", "surname"},         {"st", "station"},          {"u", "name"},       {"wk", "work"},
  };
  return table;
}

}  // namespace

std::string readableCodes(std::string_view codes, bool names) {
  const Table& table = names ? nameCodes() : wordCodes();
  std::string text;
  while (!codes.empty()) {
    const size_t end = std::min(codes.find(','), codes.size());
    const auto at = table.find(codes.substr(0, end));
    if (at == table.end()) return "";
    text += (text.empty() ? "" : ", ") + std::string(at->second);
    codes.remove_prefix(std::min(end + 1, codes.size()));
  }
  return text;
}

}  // namespace zavel::dicttool
