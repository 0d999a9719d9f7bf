// Tests: tests/zavel/zavel-test.sh
#include "LookCommand.h"

#include <unistd.h>

#include <string_view>

#include "Failure.h"
#include "Host.h"
#include "JsonView.h"
#include "Look.h"
#include "TextView.h"
#include "Utf8.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestLine =
    64 * 1024;  // of a query on standard input; the rest of a longer one is skipped
constexpr size_t kDefaultSuggestions = 5;
constexpr size_t kLongestEcho = 60;  // of a refused query in a message

std::string_view trimmed(std::string_view text) {
  const auto ink = [](char c) { return static_cast<unsigned char>(c) > 0x20; };
  while (!text.empty() && !ink(text.front())) text.remove_prefix(1);
  while (!text.empty() && !ink(text.back())) text.remove_suffix(1);
  return text;
}

// Queries from standard input, one a line or one up to each NUL.
class QueryReader {
 public:
  explicit QueryReader(bool nul) : end_(nul ? '\0' : '\n') {}

  // False at the end. `tooLong` tells that the line did not fit and `query` holds its start.
  bool next(std::string* query, bool* tooLong) {
    query->clear();
    *tooLong = false;
    int c = getc_unlocked(stdin);
    if (c == EOF) return false;
    for (; c != EOF && c != end_; c = getc_unlocked(stdin)) {
      if (query->size() < kLongestLine) {
        query->push_back(static_cast<char>(c));
      } else {
        *tooLong = true;
      }
    }
    return true;
  }

 private:
  int end_;
};

// Answers queries one after the other and counts how they went.
class Answerer {
 public:
  Answerer(const LookOptions& options, MirellDictionaryManager& manager, bool batch)
      : options_(options), look_(manager), batch_(batch) {
    text_.colour = useColor(STDOUT_FILENO, options.colour);
    text_.width = terminalWidth(STDOUT_FILENO);
    text_.limit = static_cast<size_t>(options.limit);
  }

  void answer(std::string_view query, bool tooLong) {
    const std::string_view word = trimmed(query);
    LookResult result;
    Failure failure;
    if (tooLong) {
      failure = {kExitPartly, "too_long", "the word is too long: at most 255 bytes in Shift_JIS", ""};
    } else if (!isUtf8(word)) {
      failure = {kExitPartly, "not_text", "the word is not UTF-8 text", ""};
    } else {
      look_.run(request(word), &result, &failure);
    }
    if (failure) {
      refuse(word, failure);
    } else {
      show(result);
    }
    ++answered_;
  }

  int status() const {
    if (failed_ > 0) return kExitPartly;
    return found_ > 0 ? kExitFound : kExitNothing;
  }

 private:
  LookRequest request(std::string_view word) const {
    LookRequest request;
    request.word = word;
    request.mode = options_.mode;
    request.wantForms = options_.forms;
    request.wantEntries = !options_.list && !options_.forms;
    request.wantHeadwords = options_.list || (request.wantEntries && !batch_ && !options_.json);
    const long standard = batch_ ? 0 : static_cast<long>(kDefaultSuggestions);
    request.suggestions = static_cast<size_t>(options_.suggest >= 0 ? options_.suggest : standard);
    return request;
  }

  void refuse(std::string_view word, const Failure& failure) {
    ++failed_;
    if (options_.json) {
      write(failureJson(failure) + "\n");
      return;
    }
    std::string echo = repairUtf8(word.substr(0, kLongestEcho));
    if (word.size() > kLongestEcho) echo += "...";
    std::fflush(stdout);
    std::fprintf(stderr, "zavel: \"%s\": %s\n", echo.c_str(), failure.message.c_str());
  }

  void show(const LookResult& result) {
    const bool found = options_.list    ? !result.headwords.empty()
                       : options_.forms ? !result.forms.empty()
                                        : result.found();
    if (found) ++found_;
    if (options_.json) {
      JsonParts parts;
      parts.entries = !options_.list && !options_.forms;
      parts.headwords = options_.list;
      parts.forms = options_.forms;
      parts.limit = static_cast<size_t>(options_.limit);
      write(resultJson(result, parts) + "\n");
    } else if (found) {
      if (answered_ > 0) write("\n");
      write(options_.list    ? headwordText(result, text_)
            : options_.forms ? formsText(result, text_)
                             : answerText(result, text_));
    } else if (!result.query.empty()) {
      tellNotFound(result);
    } else if (batch_) {
      write("\n");
    }
  }

  void tellNotFound(const LookResult& result) {
    std::fflush(stdout);
    const char* what = options_.forms  ? "no inflection table"
                       : options_.list ? "no headword begins with"
                                       : "no entry";
    if (options_.list) {
      std::fprintf(stderr, "zavel: %s \"%s\"\n", what, result.query.c_str());
    } else {
      std::fprintf(stderr, "zavel: %s for \"%s\"\n", what, result.query.c_str());
    }
    if (result.suggestions.empty()) return;
    std::string near;
    for (const std::string& word : result.suggestions) near += (near.empty() ? "" : ", ") + word;
    std::fprintf(stderr, "Near headwords: %s\n", near.c_str());
  }

  void write(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    // A program that waits for each answer must get it; one that sends all its words first needn't pay.
    if (batch_ && options_.json) std::fflush(stdout);
  }

  const LookOptions& options_;
  Look look_;
  TextLook text_;
  bool batch_;
  size_t answered_ = 0, found_ = 0, failed_ = 0;
};

bool readsStandardInput(const LookOptions& options) {
  return options.words.empty() || (options.words.size() == 1 && options.words[0] == "-");
}

}  // namespace

int runLook(const LookOptions& options) {
  const bool batch = readsStandardInput(options);
  Host host;
  const Failure failure = host.open();
  if (failure) {
    if (options.json) std::printf("%s\n", failureJson(failure).c_str());
    return report(failure);
  }
  Answerer answerer(options, host.manager(), batch);
  if (batch) {
    QueryReader reader(options.nul);
    std::string query;
    bool tooLong = false;
    while (reader.next(&query, &tooLong)) answerer.answer(query, tooLong);
  } else {
    for (const std::string& word : options.words) answerer.answer(word, false);
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
    return report({kExitEnvironment, "output", "the output can't be written", "Is the disk full?"});
  }
  return answerer.status();
}

}  // namespace zavel::host
