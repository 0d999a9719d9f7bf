#include "JsonView.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

LookResult goes() {
  Entry entry;
  entry.headword = "go";
  entry.homograph = 2;
  entry.stars = 3;
  entry.match = Match::kInflected;
  entry.via = {"third person singular"};
  entry.senses = {{{"v"}, "1", {"行く"}, "to move", {{"go home", "家に帰る"}}}};
  LookResult result;
  result.query = "goes";
  result.origin = "go";
  result.entries = {entry};
  return result;
}

TEST(ResultJson, HasEveryDocumentedKeyInItsOrder) {
  EXPECT_EQ(
      resultJson(goes(), {}),
      R"({"schema":1,"query":"goes","status":"found","origin":"go","unknown":null,"entries":[{"headword":"go",)"
      R"("reading":null,"homograph":2,"stars":3,"match":"inflected","via":["third person singular"],)"
      R"("source":{"id":"builtin","name":"Standard dictionary"},"senses":[{"pos":["v"],)"
      R"("glosses":["行く"],"note":"to move","examples":[{"source":"go home","target":"家に帰る"}]}]}],)"
      R"("suggestions":[],"rows":[],"dictionaries":[]})");
}

TEST(ResultJson, NothingFoundIsADocumentToo) {
  LookResult result;
  result.query = result.origin = "gozzz";
  result.suggestions = {"goes"};
  EXPECT_EQ(resultJson(result, {}),
            R"({"schema":1,"query":"gozzz","status":"not_found","origin":null,"unknown":null,"entries":[],)"
            R"("suggestions":["goes"],"rows":[],"dictionaries":[]})");
}

TEST(ResultJson, ListAndFormsStandInThePlaceOfEntries) {
  LookResult result;
  result.query = result.origin = "go";
  result.headwords = {{"go [行く]", "go"}};
  result.forms = {{8, "went", "[動　詞：過去形]", "go"}};
  JsonParts list;
  list.entries = false;
  list.headwords = true;
  EXPECT_EQ(resultJson(result, list),
            R"({"schema":1,"query":"go","status":"found","origin":null,"unknown":null,)"
            R"("headwords":[{"word":"go","line":"go [行く]"}],"suggestions":[]})");
  JsonParts forms;
  forms.entries = false;
  forms.forms = true;
  EXPECT_EQ(resultJson(result, forms),
            R"({"schema":1,"query":"go","status":"found","origin":null,"unknown":null,)"
            R"("forms":[{"code":8,"form":"went","label":"[動　詞：過去形]","base":"go"}],"suggestions":[]})");
}

TEST(ResultJson, KeepsTheLimit) {
  LookResult result = goes();
  result.entries.push_back(result.entries[0]);
  JsonParts parts;
  parts.limit = 1;
  EXPECT_EQ(resultJson(result, parts), resultJson(goes(), {}));
}

LookResult withRows() {
  LookResult result;
  result.query = result.origin = "R&D";
  result.kinds = {RowKind::kBilingual, RowKind::kTranslation};
  result.rows = {{RowKind::kBilingual, "one", false, "", {}},
                 {RowKind::kBilingual, "two", false, "", {}},
                 {RowKind::kBilingual, "three", true, "text", {}},
                 {RowKind::kTranslation, "R&D", false, "★a\n    rd\n    RD", {}, "RD"}};
  return result;
}

std::string rowsOf(const std::string& json) {
  const size_t begin = json.find("\"rows\"");
  return json.substr(begin, json.find(",\"dictionaries\"") - begin);
}

TEST(ResultJson, TheLimitLeavesTheShownRowAndTheTranslationDictionarys) {
  JsonParts parts;
  parts.limit = 1;
  EXPECT_EQ(
      rowsOf(resultJson(withRows(), parts)),
      R"("rows":[{"number":1,"type":"bilingual","dictionary":"Standard dictionary","title":"one",)"
      R"("shown":false,"looked_up":null,"text":null},{"number":3,"type":"bilingual",)"
      R"("dictionary":"Standard dictionary","title":"three","shown":true,"looked_up":null,"text":"text"},)"
      R"({"number":4,"type":"translation","dictionary":"Translation dictionary","title":"R&D",)"
      R"("shown":false,"looked_up":"RD","text":"★a\n    rd"}])");
}

TEST(ResultJson, TellsHowEachDictionaryFared) {
  LookResult result = withRows();
  const auto dictionaries = [&result] {
    const std::string json = resultJson(result, {});
    return json.substr(json.find("\"dictionaries\""));
  };
  EXPECT_EQ(dictionaries(),
            R"("dictionaries":[{"type":"bilingual","name":"Standard dictionary","status":"not_found",)"
            R"("error":null},{"type":"translation","name":"Translation dictionary","status":"found",)"
            R"("error":null}]})");
  result.kinds = {RowKind::kTranslation};
  result.rows.clear();
  result.translationUnasked = true;
  EXPECT_EQ(dictionaries(),
            R"("dictionaries":[{"type":"translation","name":"Translation dictionary","status":"not_asked",)"
            R"("error":null}]})");
  result.failures[RowKind::kTranslation] = {kExitEnvironment, "code", "message", "hint"};
  EXPECT_EQ(dictionaries(),
            R"("dictionaries":[{"type":"translation","name":"Translation dictionary","status":"failed",)"
            R"("error":{"code":"code","message":"message","hint":"hint"}}]})");
}

TEST(ResultJson, TheRowThatIsAskedForDecidesWhetherThereIsAnAnswer) {
  const auto status = [](size_t row) {
    JsonParts parts;
    parts.row = row;
    const std::string json = resultJson(withRows(), parts);
    return json.find("\"status\":\"found\",\"origin\"") != std::string::npos;
  };
  EXPECT_TRUE(status(0));
  EXPECT_FALSE(status(2));  // without the part that --mode asks for
  EXPECT_TRUE(status(3));
}

}  // namespace
}  // namespace zavel::host
