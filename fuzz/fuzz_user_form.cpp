// First byte even: an English form, odd: a Japanese one. What is read is written as a form and read again.
// The lines are then set as single fields.
#include "EngineCalls.h"
#include "Input.h"
#include "UserRoundTrip.h"
#include "user/UserForm.h"

namespace {

using namespace zavel;
using namespace zavel::host;

UserEntry readBack(const UserEntry& entry) {
  UserEntry read;
  return readForm(formOf(entry), entry.language, &read).empty() ? read : UserEntry{};
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  for (size_t end = 0; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1)) {
    lines.emplace_back(text.substr(0, end));
  }
  lines.emplace_back(text);
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  fuzz::Input input(data, size);
  const UserLanguage language = input.byte() % 2 == 0 ? UserLanguage::kEnglish : UserLanguage::kJapanese;
  const std::string text = input.rest();
  UserEntry entry;
  if (readForm(text, language, &entry).empty()) {
    fuzz::demand(entry.language == language, "a form has the language that is asked for");
    fuzz::demandSettledRoundTrip(entry, readBack);
  }
  const bool english = language == UserLanguage::kEnglish;
  entry = {.language = language, .word = english ? "bank" : "いぬ", .meaning = "x"};
  if (setFields(linesOf(text), &entry).empty()) fuzz::demandSettledRoundTrip(entry, readBack);
  return 0;
}
