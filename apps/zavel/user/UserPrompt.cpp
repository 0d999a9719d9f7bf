// Tests: tests/zavel/user/UserCommandTest.cpp
#include "user/UserPrompt.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "Terminal.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

Failure noSuchNumber(size_t count) {
  const std::string least =
      count == 1 ? "there is one entry" : "there are " + std::to_string(count) + " entries";
  return {kExitUsage, "no_such_number", least + " of this word",
          "Give --number from 1 to " + std::to_string(count) + "."};
}

Failure several(size_t count, bool manyAllowed) {
  return {kExitUsage, "several_entries", "there are " + std::to_string(count) + " entries of this word",
          manyAllowed ? "Say which: --number N, or --all." : "Say which: --number N."};
}

// A whole number from 1 to `most`, else 0.
size_t numberIn(const std::string& answer, size_t most) {
  size_t number = 0;
  const char* const end = answer.data() + answer.size();
  const auto [stop, error] = std::from_chars(answer.data(), end, number);
  return error == std::errc() && stop == end && number <= most ? number : 0;
}

}  // namespace

bool canAsk(const UserOptions& options) {
  return !options.noInput && !options.json && isTerminal(STDIN_FILENO) && isTerminal(STDERR_FILENO);
}

std::optional<std::string> askLine(const std::string& question) {
  std::fflush(stdout);
  std::fputs(question.c_str(), stderr);
  std::string line;
  int c = std::getchar();
  for (; c != EOF && c != '\n'; c = std::getchar()) line += static_cast<char>(c);
  if (c == EOF) std::fputs("\n", stderr);  // what comes next is no part of the question
  if (c == EOF && line.empty()) return std::nullopt;
  constexpr const char* kBlanks = " \t\r";
  line.erase(line.find_last_not_of(kBlanks) + 1);
  return line.erase(0, std::min(line.find_first_not_of(kBlanks), line.size()));
}

std::string ask(const std::string& question) {
  return askLine(question).value_or("");
}

std::vector<StoredEntry> askWhich(const std::vector<StoredEntry>& found, bool manyAllowed, Failure* failure) {
  for (size_t i = 0; i < found.size(); ++i) std::fputs(entryText(found[i].entry, i + 1).c_str(), stderr);
  const char* question =
      manyAllowed ? "Which one (a for all, Enter for none)? " : "Which one (Enter for none)? ";
  for (;;) {
    const std::string answer = ask(question);
    if (answer.empty()) break;
    if (manyAllowed && (answer == "a" || answer == "all")) return found;
    if (const size_t number = numberIn(answer, found.size()); number > 0) return {found[number - 1]};
    std::fprintf(stderr, "%s is no number from 1 to %zu\n", inQuotes(answer).c_str(), found.size());
  }
  *failure = {kExitNothing, "none_chosen", "nothing was changed", "Run it again to choose."};
  return {};
}

std::vector<StoredEntry> choose(const UserOptions& options, const std::vector<StoredEntry>& found,
                                bool manyAllowed, Failure* failure) {
  const size_t number = static_cast<size_t>(options.number);
  if (number > found.size()) {
    *failure = noSuchNumber(found.size());
    return {};
  }
  if (number > 0) return {found[number - 1]};
  if (found.size() == 1 || (manyAllowed && options.all)) return found;
  if (canAsk(options) && !options.yes) return askWhich(found, manyAllowed, failure);
  *failure = several(found.size(), manyAllowed);
  return {};
}

}  // namespace zavel::host
