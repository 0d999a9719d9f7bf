// Tests: tests/zavel/user/UserCommandTest.cpp
#include "user/UserView.h"

#include "PlacesInUse.h"
#include "Utf8.h"
#include "user/UserReach.h"

namespace zavel::host {
namespace {

void addExamples(const UserEntry& entry, const std::vector<UserExample>& examples, const std::string& indent,
                 std::string* text) {
  const bool english = entry.language == UserLanguage::kEnglish;
  for (const UserExample& example : examples) {
    *text += indent + (english ? example.english : example.japanese) + "  " +
             (english ? example.japanese : example.english) + "\n";
  }
}

}  // namespace

std::string entryText(const UserEntry& entry, size_t number) {
  const std::string lead = number > 0 ? std::to_string(number) + "  " : "";
  const std::string indent(lead.size() + 4, ' ');
  std::string text = lead + entry.title();
  if (entry.pos > 0) text += std::string("  [") + posName(entry.pos) + "]";
  text += "  " + entry.meaning + "\n";
  addExamples(entry, entry.examples, indent, &text);
  addExamples(entry, entry.sentences, indent, &text);
  return withoutControls(std::move(text));
}

std::vector<UserLanguage> languagesOf(const UserOptions& options) {
  const std::optional<UserLanguage> language = options.language();
  if (language) return {*language};
  return {UserLanguage::kEnglish, UserLanguage::kJapanese};
}

std::unique_ptr<UserStore> makeStore() {
  return std::make_unique<UserStore>(userPlace(), placesInUse().dictionary);
}

Failure badEntry(const std::string& why) {
  return {kExitUsage, "refused", why, "Nothing was stored. Change the text, then try again."};
}

void UserDamage::add(const Failure& more, const std::vector<LostWord>& lostToo) {
  if (!more) return;
  const Failure first = failure;
  failure = first && !isUnclear(first) ? first : more;
  failure.message = first ? first.message + "; " + more.message : more.message;
  lost.insert(lost.end(), lostToo.begin(), lostToo.end());
}

void writeDamage(JsonWriter& json, const UserDamage& damage) {
  if (!damage) return;
  json.key("damage").beginObject().member("code", damage.failure.code);
  json.member("message", damage.failure.message).member("hint", damage.failure.hint);
  json.key("lost").beginArray();
  for (const LostWord& word : damage.lost) {
    json.beginObject().member("lang", languageCode(word.language)).member("word", word.word);
    json.member("entries", static_cast<int64_t>(word.entries)).endObject();
  }
  json.endArray().endObject();
}

int reportDamage(const UserDamage& damage) {
  const int status = report(damage.failure, false);
  return isUnclear(damage.failure) ? kExitFound : status;
}

std::string inQuotes(std::string_view text) {
  std::string out = "\"";
  for (const char c : printable(text)) out += c == '\n' ? "\xEF\xBF\xBD" : std::string(1, c);
  return out + "\"";
}

std::string grouped(uintmax_t number) {
  std::string digits = std::to_string(number);
  for (size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

}  // namespace zavel::host
