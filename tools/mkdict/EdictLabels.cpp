// Tests: tests/mkdict/EdictTest.cpp.
#include "mkdict/EdictLabels.h"

#include <algorithm>
#include <unordered_map>

namespace zavel::mkdict {
namespace {

using Table = std::unordered_map<std::string_view, const char*>;

const Table& posLabels() {
  static const Table table = {
      // Nouns and what stands like them
      {"n", "[名]"},
      {"n-adv", "[名副]"},
      {"n-pr", "[固名]"},
      {"n-pref", "[接頭]"},
      {"n-suf", "[接尾]"},
      {"n-t", "[時名]"},
      {"pn", "[代]"},
      {"num", "[数]"},
      {"ctr", "[助数]"},
      // Adjectives and adverbs
      {"adj-i", "[形]"},
      {"adj-ix", "[形]"},
      {"adj-na", "[形動]"},
      {"adj-no", "[の形]"},
      {"adj-pn", "[連体]"},
      {"adj-t", "[形動タル]"},
      {"adj-f", "[連体]"},
      {"adj-ku", "[形ク]"},
      {"adj-shiku", "[形シク]"},
      {"adj-nari", "[形動ナリ]"},
      {"adj-kari", "[形カリ]"},
      {"adj", "[形]"},
      {"adv", "[副]"},
      {"adv-to", "[副ト]"},
      // Verbs of today
      {"v1", "[動一段]"},
      {"v1-s", "[動一段]"},
      {"v5aru", "[動ラ五]"},
      {"v5b", "[動バ五]"},
      {"v5g", "[動ガ五]"},
      {"v5k", "[動カ五]"},
      {"v5k-s", "[動カ五]"},
      {"v5m", "[動マ五]"},
      {"v5n", "[動ナ五]"},
      {"v5r", "[動ラ五]"},
      {"v5r-i", "[動ラ五]"},
      {"v5s", "[動サ五]"},
      {"v5t", "[動タ五]"},
      {"v5u", "[動ワ五]"},
      {"v5u-s", "[動ワ五]"},
      {"v5uru", "[動ラ五]"},
      {"vk", "[動カ変]"},
      {"vs", "[サ変]"},
      {"vs-i", "[動サ変]"},
      {"vs-s", "[動サ変]"},
      {"vs-c", "[動サ四]"},
      {"vz", "[動ザ変]"},
      {"vi", "[自]"},
      {"vt", "[他]"},
      {"iv", "[動]"},
      {"v-unspec", "[動]"},
      // Verbs of old
      {"vn", "[動ナ変]"},
      {"vr", "[動ラ変]"},
      {"v4b", "[動バ四]"},
      {"v4g", "[動ガ四]"},
      {"v4h", "[動ハ四]"},
      {"v4k", "[動カ四]"},
      {"v4m", "[動マ四]"},
      {"v4n", "[動ナ四]"},
      {"v4r", "[動ラ四]"},
      {"v4s", "[動サ四]"},
      {"v4t", "[動タ四]"},
      {"v2a-s", "[動ア下二]"},
      {"v2b-k", "[動バ上二]"},
      {"v2b-s", "[動バ下二]"},
      {"v2d-k", "[動ダ上二]"},
      {"v2d-s", "[動ダ下二]"},
      {"v2g-k", "[動ガ上二]"},
      {"v2g-s", "[動ガ下二]"},
      {"v2h-k", "[動ハ上二]"},
      {"v2h-s", "[動ハ下二]"},
      {"v2k-k", "[動カ上二]"},
      {"v2k-s", "[動カ下二]"},
      {"v2m-k", "[動マ上二]"},
      {"v2m-s", "[動マ下二]"},
      {"v2n-s", "[動ナ下二]"},
      {"v2r-k", "[動ラ上二]"},
      {"v2r-s", "[動ラ下二]"},
      {"v2s-s", "[動サ下二]"},
      {"v2t-k", "[動タ上二]"},
      {"v2t-s", "[動タ下二]"},
      {"v2w-s", "[動ワ下二]"},
      {"v2y-k", "[動ヤ上二]"},
      {"v2y-s", "[動ヤ下二]"},
      {"v2z-s", "[動ザ下二]"},
      // The rest
      {"aux", "[補助]"},
      {"aux-v", "[助動]"},
      {"aux-adj", "[補形]"},
      {"conj", "[接]"},
      {"cop", "[助動]"},
      {"cop-da", "[助動]"},
      {"exp", "[句]"},
      {"int", "[感]"},
      {"pref", "[接頭]"},
      {"prt", "[助]"},
      {"suf", "[接尾]"},
      {"unc", ""},
  };
  return table;
}

const Table& spellingRemarks() {
  static const Table table = {
      {"ateji", "kanji used for their sound"},
      {"gikun", "reading by meaning"},
      {"iK", "irregular kanji"},
      {"ik", "irregular kana"},
      {"io", "irregular okurigana"},
      {"oK", "outdated kanji"},
      {"ok", "outdated reading"},
      {"rK", "rare kanji"},
  };
  return table;
}

const Table& remarks() {
  static const Table table = {
      // Use
      {"uk", "usually kana"},
      {"uK", "usually kanji"},
      {"arch", "archaic"},
      {"obs", "obsolete"},
      {"obsc", "obscure"},
      {"dated", "dated"},
      {"rare", "rare"},
      {"hist", "historical"},
      {"abbr", "abbr."},
      {"col", "colloquial"},
      {"sl", "slang"},
      {"net-sl", "net slang"},
      {"m-sl", "manga slang"},
      {"vulg", "vulgar"},
      {"X", "vulgar"},
      {"derog", "derogatory"},
      {"sens", "sensitive"},
      {"joc", "humorous"},
      {"fam", "familiar"},
      {"hon", "honorific"},
      {"hum", "humble"},
      {"pol", "polite"},
      {"fem", "female speech"},
      {"male", "male speech"},
      {"male-sl", "male slang"},
      {"chn", "children's speech"},
      {"litf", "literary"},
      {"poet", "poetic"},
      {"proverb", "proverb"},
      {"id", "idiom"},
      {"quote", "quotation"},
      {"yoji", "four-character idiom"},
      {"on-mim", "onomatopoeia"},
      {"tradem", "trademark"},
      {"euph", "euphemism"},
      // Field
      {"agric", "agriculture"},
      {"anat", "anatomy"},
      {"archeol", "archaeology"},
      {"archit", "architecture"},
      {"art", "art"},
      {"astron", "astronomy"},
      {"baseb", "baseball"},
      {"biochem", "biochemistry"},
      {"biol", "biology"},
      {"bot", "botany"},
      {"Buddh", "Buddhism"},
      {"bus", "business"},
      {"chem", "chemistry"},
      {"Christn", "Christianity"},
      {"comp", "computing"},
      {"dent", "dentistry"},
      {"econ", "economics"},
      {"elec", "electricity"},
      {"embryo", "embryology"},
      {"engr", "engineering"},
      {"ent", "entomology"},
      {"finc", "finance"},
      {"fish", "fishing"},
      {"food", "cooking"},
      {"gardn", "gardening"},
      {"genet", "genetics"},
      {"geogr", "geography"},
      {"geol", "geology"},
      {"geom", "geometry"},
      {"golf", "golf"},
      {"gramm", "grammar"},
      {"grmyth", "Greek mythology"},
      {"hanaf", "hanafuda"},
      {"horse", "horse racing"},
      {"law", "law"},
      {"ling", "linguistics"},
      {"logic", "logic"},
      {"MA", "martial arts"},
      {"mahj", "mahjong"},
      {"math", "mathematics"},
      {"mech", "mechanics"},
      {"med", "medicine"},
      {"met", "meteorology"},
      {"mil", "military"},
      {"music", "music"},
      {"ornith", "ornithology"},
      {"paleo", "palaeontology"},
      {"pathol", "pathology"},
      {"pharm", "pharmacy"},
      {"phil", "philosophy"},
      {"photo", "photography"},
      {"physics", "physics"},
      {"physiol", "physiology"},
      {"print", "printing"},
      {"psych", "psychology"},
      {"Shinto", "Shinto"},
      {"shogi", "shogi"},
      {"sports", "sports"},
      {"stat", "statistics"},
      {"sumo", "sumo"},
      {"telec", "telecommunications"},
      {"vidg", "video games"},
      {"zool", "zoology"},
  };
  return table;
}

const Table& languages() {
  static const Table table = {
      {"afr", "Afrikaans"},
      {"ain", "Ainu"},
      {"alg", "Algonquin"},
      {"amh", "Amharic"},
      {"ara", "Arabic"},
      {"arn", "Mapudungun"},
      {"bnt", "Bantu"},
      {"bre", "Breton"},
      {"bul", "Bulgarian"},
      {"bur", "Burmese"},
      {"chi", "Chinese"},
      {"chn", "Chinook"},
      {"cze", "Czech"},
      {"dan", "Danish"},
      {"dut", "Dutch"},
      {"eng", "English"},
      {"epo", "Esperanto"},
      {"est", "Estonian"},
      {"fil", "Filipino"},
      {"fin", "Finnish"},
      {"fre", "French"},
      {"geo", "Georgian"},
      {"ger", "German"},
      {"glg", "Galician"},
      {"grc", "Old Greek"},
      {"gre", "Greek"},
      {"haw", "Hawaiian"},
      {"heb", "Hebrew"},
      {"hin", "Hindi"},
      {"hun", "Hungarian"},
      {"ice", "Icelandic"},
      {"ind", "Indonesian"},
      {"ita", "Italian"},
      {"khm", "Khmer"},
      {"kor", "Korean"},
      {"kur", "Kurdish"},
      {"lat", "Latin"},
      {"mal", "Malayalam"},
      {"mao", "Maori"},
      {"may", "Malay"},
      {"mnc", "Manchu"},
      {"mon", "Mongolian"},
      {"nor", "Norwegian"},
      {"per", "Persian"},
      {"pol", "Polish"},
      {"por", "Portuguese"},
      {"rum", "Romanian"},
      {"rus", "Russian"},
      {"san", "Sanskrit"},
      {"scr", "Croatian"},
      {"slv", "Slovenian"},
      {"som", "Somali"},
      {"spa", "Spanish"},
      {"swa", "Swahili"},
      {"swe", "Swedish"},
      {"tah", "Tahitian"},
      {"tam", "Tamil"},
      {"tha", "Thai"},
      {"tib", "Tibetan"},
      {"tur", "Turkish"},
      {"urd", "Urdu"},
      {"vie", "Vietnamese"},
      {"yid", "Yiddish"},
      {"wasei", "made in Japan"},
      // Dialects
      {"bra", "Brazil"},
      {"hob", "Hokkaido dialect"},
      {"ksb", "Kansai dialect"},
      {"ktb", "Kanto dialect"},
      {"kyb", "Kyoto dialect"},
      {"kyu", "Kyushu dialect"},
      {"nab", "Nagano dialect"},
      {"osb", "Osaka dialect"},
      {"rkb", "Ryukyu dialect"},
      {"thb", "Tohoku dialect"},
      {"tsb", "Tosa dialect"},
      {"tsug", "Tsugaru dialect"},
  };
  return table;
}

const char* find(const Table& table, std::string_view code) {
  const auto at = table.find(code);
  return at == table.end() ? nullptr : at->second;
}

}  // namespace

const char* posLabel(std::string_view code) {
  return find(posLabels(), code);
}

const char* remark(std::string_view code) {
  const char* spelling = find(spellingRemarks(), code);
  return spelling != nullptr ? spelling : find(remarks(), code);
}

bool isSpellingRemark(std::string_view code) {
  return find(spellingRemarks(), code) != nullptr;
}

bool isRareRemark(std::string_view code) {
  for (const char* rare : {"arch", "obs", "obsc", "rare", "iK", "ik", "io", "oK", "ok", "rK"}) {
    if (code == rare) return true;
  }
  return false;
}

bool isPartOfWord(std::string_view code) {
  return code == "suf" || code == "pref" || code == "n-suf" || code == "n-pref" || code == "ctr";
}

const char* language(std::string_view code) {
  return find(languages(), code);
}

bool hasCode(const std::vector<std::string>& codes, std::string_view code) {
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

bool anyCode(const std::vector<std::string>& codes, bool (*test)(std::string_view)) {
  return std::any_of(codes.begin(), codes.end(), [test](const std::string& code) { return test(code); });
}

}  // namespace zavel::mkdict
