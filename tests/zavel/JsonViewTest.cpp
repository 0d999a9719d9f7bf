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
      R"({"schema":1,"query":"goes","status":"found","origin":"go","entries":[{"headword":"go",)"
      R"("reading":null,"homograph":2,"stars":3,"match":"inflected","via":["third person singular"],)"
      R"("source":{"id":"builtin","name":"ZavelLex basic dictionary"},"senses":[{"pos":["v"],)"
      R"("glosses":["行く"],"note":"to move","examples":[{"source":"go home","target":"家に帰る"}]}]}],)"
      R"("suggestions":[],"rows":[]})");
}

TEST(ResultJson, NothingFoundIsADocumentToo) {
  LookResult result;
  result.query = result.origin = "gozzz";
  result.suggestions = {"goes"};
  EXPECT_EQ(
      resultJson(result, {}),
      R"({"schema":1,"query":"gozzz","status":"not_found","origin":null,"entries":[],"suggestions":["goes"],)"
      R"("rows":[]})");
}

TEST(ResultJson, ListAndFormsStandInThePlaceOfEntries) {
  LookResult result;
  result.query = result.origin = "go";
  result.headwords = {{"go [行く]", "go"}};
  result.forms = {{8, "went", "[動　詞：過去形]", "go"}};
  JsonParts list;
  list.entries = false;
  list.headwords = true;
  EXPECT_EQ(resultJson(result, list), R"({"schema":1,"query":"go","status":"found","origin":null,)"
                                      R"("headwords":[{"word":"go","line":"go [行く]"}],"suggestions":[]})");
  JsonParts forms;
  forms.entries = false;
  forms.forms = true;
  EXPECT_EQ(resultJson(result, forms),
            R"({"schema":1,"query":"go","status":"found","origin":null,)"
            R"("forms":[{"code":8,"form":"went","label":"[動　詞：過去形]","base":"go"}],"suggestions":[]})");
}

TEST(ResultJson, KeepsTheLimit) {
  LookResult result = goes();
  result.entries.push_back(result.entries[0]);
  JsonParts parts;
  parts.limit = 1;
  EXPECT_EQ(resultJson(result, parts), resultJson(goes(), {}));
}

}  // namespace
}  // namespace zavel::host
