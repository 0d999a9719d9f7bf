// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "LookCommand.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "Answerer.h"
#include "Failure.h"
#include "Host.h"
#include "Interrupt.h"
#include "QueryReader.h"

namespace zavel::host {
namespace {

constexpr std::string_view kStandardInput = "-";

// Whoever reads the answers is gone, or the disk is full: no use in going on.
bool outputFailed() {
  return std::ferror(stdout) != 0;
}

// False when standard input could not be read.
bool answerStandardInput(bool nul, Answerer* answerer) {
  if (isTerminal(STDIN_FILENO)) std::fputs("Reading words, one per line. Press Ctrl-D to end.\n", stderr);
  QueryReader reader(nul);
  std::string query;
  bool tooLong = false;
  while (!outputFailed() && reader.next(&query, &tooLong)) answerer->answer(query, tooLong);
  return interrupted() || outputFailed() || !std::ferror(stdin);
}

// Headword lists and inflection tables are had whatever the list says.
Failure nothingOn(const LookOptions& options, const Dictionaries* dictionaries) {
  if (options.list || options.forms || !dictionaries || !dictionaries->kinds().empty()) return {};
  return {kExitEnvironment, "nothing_on", "no dictionary is switched on",
          "Run: zavel prefs dict enable bilingual"};
}

// Without the dictionary the user's own entries can still be shown.
bool isOfDictionary(const Failure& failure) {
  return failure.code == "no_dictionary" || failure.code == "unreadable_dictionary" ||
         failure.code == kDamagedDictionary;
}

}  // namespace

int runLook(const LookOptions& options) {
  const bool batch = options.words.empty() || std::find(options.words.begin(), options.words.end(),
                                                        kStandardInput) != options.words.end();
  watchInterrupts();
  // Ahead of the host, which has the engine from then on.
  UserWords own;
  if (options.list) {
    own.readHeadwords(batch ? std::vector<std::string>() : options.words);
  } else if (batch) {
    own.readAll();
  } else if (!options.forms && options.row == 0) {
    own.readFor(options.words);
  }
  Host host;
  const Failure lost = host.open();
  if (lost && !(own.any() && isOfDictionary(lost))) return report(lost, options.json);
  if (!own.any()) {
    if (const Failure failure = nothingOn(options, host.dictionaries())) return report(failure, options.json);
  }
  Answerer answerer(options, host, batch, own, lost);
  const std::vector<std::string> asked =
      options.words.empty() ? std::vector<std::string>{"-"} : options.words;
  for (const std::string& word : asked) {
    if (interrupted() || outputFailed()) break;
    if (word != kStandardInput) {
      answerer.answer(word, false);
    } else if (!answerStandardInput(options.nul, &answerer)) {
      return report({kExitEnvironment, "input", "standard input can't be read",
                     "Give the words on the command line, or use a file that can be read."},
                    options.json);
    }
  }
  answerer.finish();
  if (interrupted() == SIGINT) warn("interrupted");
  return interrupted() ? interruptedStatus() : answerer.status();
}

}  // namespace zavel::host
