// `zavel book search`. Tests: tests/zavel/book/BookSearchTest.cpp
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "Interrupt.h"
#include "QueryReader.h"
#include "book/BookOptions.h"
#include "book/BookSearcher.h"

namespace zavel::host {
namespace {

constexpr const char* kStandardInput = "-";

bool ended() {
  return interrupted() || std::ferror(stdout) != 0;
}

// False when standard input could not be read.
bool answerStandardInput(bool nul, BookSearcher* searcher) {
  if (isTerminal(STDIN_FILENO)) std::fputs("Reading words, one per line. Press Ctrl-D to end.\n", stderr);
  QueryReader reader(nul);
  std::string query;
  bool tooLong = false;
  while (!ended() && reader.next(&query, &tooLong)) searcher->answer(query, tooLong);
  return ended() || !std::ferror(stdin);
}

}  // namespace

int runBookSearch(const BookOptions& options) {
  const bool batch = options.words.empty() || std::find(options.words.begin(), options.words.end(),
                                                        kStandardInput) != options.words.end();
  watchInterrupts();
  BookSearcher searcher(options, batch);
  if (const Failure failure = searcher.open()) return report(failure, options.json);
  const std::vector<std::string> asked =
      options.words.empty() ? std::vector<std::string>{kStandardInput} : options.words;
  for (const std::string& word : asked) {
    if (ended()) break;
    if (word != kStandardInput) {
      searcher.answer(word, false);
    } else if (!answerStandardInput(options.nul, &searcher)) {
      return report({kExitEnvironment, "input", "standard input can't be read",
                     "Give the words on the command line, or use a file that can be read."},
                    options.json);
    }
  }
  searcher.finish();
  if (interrupted() == SIGINT) warn("interrupted");
  return interrupted() ? interruptedStatus() : searcher.status();
}

}  // namespace zavel::host
