// Tests: tests/zavel/user/UserCommandTest.cpp
#include "user/UserPrompt.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

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

std::vector<StoredEntry> askWhich(const std::vector<StoredEntry>& found, bool manyAllowed, Failure* failure) {
  for (size_t i = 0; i < found.size(); ++i) std::fputs(entryText(found[i].entry, i + 1).c_str(), stderr);
  const std::string answer =
      ask(manyAllowed ? "Which one (a for all, Enter for none)? " : "Which one (Enter for none)? ");
  if (manyAllowed && (answer == "a" || answer == "all")) return found;
  const size_t number = std::strtoul(answer.c_str(), nullptr, 10);
  if (number >= 1 && number <= found.size()) return {found[number - 1]};
  *failure = {kExitNothing, "none_chosen", "nothing was changed", "Run it again to choose."};
  return {};
}

}  // namespace

bool canAsk(const UserOptions& options) {
  return !options.noInput && !options.json && isTerminal(STDIN_FILENO) && isTerminal(STDERR_FILENO);
}

std::string ask(const std::string& question) {
  std::fflush(stdout);
  std::fputs(question.c_str(), stderr);
  std::string line;
  for (int c = std::getchar(); c != EOF && c != '\n'; c = std::getchar()) line += static_cast<char>(c);
  return line;
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
