// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "Answerer.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <optional>

#include "Interrupt.h"
#include "JsonView.h"
#include "Pager.h"
#include "PlainView.h"
#include "QueryText.h"
#include "Terminal.h"
#include "Utf8.h"
#include "WordBytes.h"

namespace zavel::host {
namespace {

using Strings = std::vector<std::string>;

constexpr size_t kDefaultSuggestions = 5;
constexpr size_t kLongestEcho = 60;  // bytes of a query in a message

// A query as a message shows it, on one line.
std::string echo(std::string_view query) {
  std::string start(query.substr(0, kLongestEcho));
  std::replace(start.begin(), start.end(), '\n', ' ');
  if (query.size() <= kLongestEcho) return printable(start);
  // Not half a character at the end.
  while (!start.empty() && (start.back() & 0xC0) == 0x80) start.pop_back();
  if (!start.empty() && (start.back() & 0x80) != 0) start.pop_back();
  return printable(start) + "...";
}

// More than any word can have, whatever they are: each takes a byte or two.
bool hasTooManyCharacters(std::string_view word) {
  constexpr std::ptrdiff_t kMostCharacters = 255;
  return std::count_if(word.begin(), word.end(), [](char c) { return (c & 0xC0) != 0x80; }) > kMostCharacters;
}

// "the character 😀", "the characters 😀한".
std::string charactersNamed(const std::string& characters) {
  char32_t first = 0;
  const bool one = decodeUtf8(characters, &first) == characters.size();
  return std::string(one ? "the character " : "the characters ") + echo(characters);
}

Failure noSuchRow(size_t row, size_t count) {
  const std::string number = std::to_string(count);
  return {kExitNothing, "no_row",
          "there is no row " + std::to_string(row) + ": the result list " +
              (count == 0 ? "is empty" : "has " + number + (count == 1 ? " row" : " rows")),
          count == 0 ? "Leave out --row to see near headwords." : "Choose a row from 1 to " + number + "."};
}

// Whether some dictionary could not be searched at all.
bool hasFailedWhole(const LookResult& result) {
  return std::any_of(result.failures.begin(), result.failures.end(),
                     [](const auto& failure) { return failure.second.code != kDamagedPart; });
}

// One line, with what to do about it.
std::string inOneLine(const Failure& failure) {
  return failure.message + ". " + failure.hint;
}

}  // namespace

Answerer::Answerer(const LookOptions& options, Host& host, bool batch, const UserWords& own,
                   const Failure& lost)
    : options_(options),
      host_(host),
      own_(own),
      lost_(lost),
      dictionaries_(lost ? nullptr : host.dictionaries()),
      batch_(batch) {
  if (!lost) look_.emplace(host.manager());
  kinds_ = dictionaries_ ? dictionaries_->kinds() : std::vector<RowKind>{RowKind::kBilingual};
  if (host.lostTranslation()) kinds_.push_back(RowKind::kTranslation);
  if (dictionaries_) dictionaries_->setMode(options.mode);
  text_.colour = useColor(STDOUT_FILENO, options.colour);
  text_.width = terminalWidth(STDOUT_FILENO);
  text_.limit = static_cast<size_t>(options.limit);
  const bool forReading = !batch && !options.json && !options.plain && !options.noPager;
  if (forReading && text_.width > 0) rows_ = terminalRows(STDOUT_FILENO);
}

void Answerer::answer(std::string_view query, bool tooLong) {
  std::string blanks(query);
  std::replace(blanks.begin(), blanks.end(), '\t', ' ');
  const std::string_view word = withoutOuterBlanks(blanks);
  LookResult result;
  Failure failure;
  if (tooLong || hasTooManyCharacters(word)) {
    failure = wordTooLong();
  } else if (!isUtf8(word)) {
    failure = {kExitUsage, "not_text", "the word is not UTF-8 text", "Write it in UTF-8."};
  } else {
    look(word, &result, &failure);
  }
  // Who asked twice to end wants no more answers.
  if (interrupted()) return;
  if (failure) {
    refuse(word, failure);
  } else {
    show(result);
  }
  ++answered_;
}

// Headword lists and inflection tables are the bilingual dictionary's own, whatever else is searched.
void Answerer::look(std::string_view word, LookResult* result, Failure* failure) {
  const LookRequest asked = request(word);
  const bool everywhere = asked.wantEntries;
  const bool bilingual = std::find(kinds_.begin(), kinds_.end(), RowKind::kBilingual) != kinds_.end();
  result->query = result->origin = asked.word;
  if (look_ && (!everywhere || bilingual)) look_->run(asked, result, failure);
  const bool isWord = !word.empty() && word.find('\0') == std::string_view::npos;
  if (lost_ && isWord) result->failures[RowKind::kBilingual] = lost_;
  addOwn(result, failure);
  if (!everywhere) complain(*result);
  if (*failure || !everywhere || !isWord) return;
  result->kinds = kinds_;
  if (dictionaries_) askDictionaries(result);
  if (host_.lostTranslation()) result->failures[RowKind::kTranslation] = host_.lostTranslation();
  complain(*result);
  *failure = rowFailure(*result);
}

// Where the dictionary is damaged, entries of the user's own still answer.
void Answerer::addOwn(LookResult* result, Failure* failure) {
  if (options_.forms || options_.row > 0) return;
  const bool damaged = failure->code == kDamagedDictionary;
  if (*failure && !damaged) return;
  if (options_.list) {
    own_.addHeadwords(result);
  } else {
    own_.addEntries(options_.mode, result);
  }
  if (!damaged || (result->entries.empty() && result->headwords.empty())) return;
  result->failures[RowKind::kBilingual] = *failure;
  *failure = {};
}

// The word as it was typed, sound marks joined, then in the characters of headwords. Of a word with
// characters that Shift_JIS lacks the rest alone would be asked for, and another word would answer.
void Answerer::askDictionaries(LookResult* result) {
  std::optional<size_t> row;
  if (options_.row > 0) row = static_cast<size_t>(options_.row) - 1;
  const std::string typed = withSoundMarksJoined(result->query);
  const std::string folded = foldedQuery(result->query);
  const bool same = folded == typed || folded.empty();
  result->translationUnasked = true;
  for (const std::string& word : same ? Strings{typed} : Strings{typed, folded}) {
    if (!wordBytes(word)) {
      if (word == folded) result->unknown = unknownCharacters(word);
      continue;
    }
    dictionaries_->ask(word, row, result);
    if (interrupted()) return;
    if (result->rows.empty() && !hasFailedWhole(*result)) continue;
    if (result->entries.empty() && result->origin == result->query) result->origin = word;
    return;
  }
}

// Once for many words that fail alike, and not while all is ending.
void Answerer::complain(const LookResult& result) {
  if (interrupted()) return;
  for (const auto& [kind, failure] : result.failures) {
    const bool dictionary = kind == RowKind::kBilingual;
    if (failure.code == kDamagedPart) continue;  // the helper program has named the part
    if (!dictionary && dictionaries_ && dictionaries_->helperToldWhy()) continue;
    if (failure.message != complained_) warn(dictionary ? inOneLine(failure) : failure.message);
    complained_ = failure.message;
  }
}

Failure Answerer::rowFailure(const LookResult& result) const {
  if (options_.row == 0) return {};
  if (!dictionaries_) {
    return {kExitEnvironment, "no_folder",
            "there is no result list: no folder for temporary files can be made",
            "Set TMPDIR to a folder that you can write to."};
  }
  const size_t row = static_cast<size_t>(options_.row);
  return row > result.rows.size() ? noSuchRow(row, result.rows.size()) : Failure();
}

void Answerer::finish() {
  if (held_.empty()) return;
  if (needsPager(held_, rows_)) {
    showPaged(held_);
  } else {
    std::fwrite(held_.data(), 1, held_.size(), stdout);
  }
  held_.clear();
}

int Answerer::status() const {
  if (failed_ > 0) return answered_ == 1 ? lastFailure_ : kExitPartly;
  return found_ > 0 ? kExitFound : kExitNothing;
}

// The row that is asked for; null without one. A blank word, which is asked nowhere, has none.
const Row* Answerer::rowAsked(const LookResult& result) const {
  const size_t row = static_cast<size_t>(options_.row);
  return row > 0 && row <= result.rows.size() ? &result.rows[row - 1] : nullptr;
}

LookRequest Answerer::request(std::string_view word) const {
  LookRequest request;
  request.word = word;
  request.mode = options_.mode;
  request.wantForms = options_.forms;
  request.wantEntries = !options_.list && !options_.forms;
  request.wantText = !options_.json && !options_.plain;
  request.wantSenses = !request.wantText;
  request.wantHeadwords =
      options_.list || (request.wantEntries && !batch_ && !options_.json && !options_.plain);
  const long standard = batch_ ? 0 : static_cast<long>(kDefaultSuggestions);
  request.suggestions = static_cast<size_t>(options_.suggest >= 0 ? options_.suggest : standard);
  return request;
}

void Answerer::refuse(std::string_view word, const Failure& failure) {
  ++failed_;
  lastFailure_ = failure.status;
  if (options_.json) return write(failureJson(failure) + "\n");
  std::fflush(stdout);
  std::fprintf(stderr, "zavel: \"%s\": %s\n%s\n", echo(word).c_str(), failure.message.c_str(),
               failure.hint.c_str());
}

void Answerer::show(const LookResult& result) {
  const bool found = options_.list      ? !result.headwords.empty()
                     : options_.forms   ? !result.forms.empty()
                     : rowAsked(result) ? !rowAsked(result)->text.empty()
                                        : result.found();
  if (found) {
    ++found_;
  } else if (!result.failures.empty() || result.ownFailure) {
    ++failed_;  // whether the word is there is not known
    lastFailure_ =
        result.failures.empty() ? result.ownFailure.status : result.failures.begin()->second.status;
  }
  if (options_.json) {
    write(json(result) + "\n");
  } else if (found) {
    if (answered_ > 0 && !options_.plain) write("\n");
    write(text(result));
  } else if (!result.query.empty()) {
    tellNotFound(result);
  } else if (batch_) {
    write("\n");
  } else {
    tellNotFound(result);
  }
}

std::string Answerer::json(const LookResult& result) const {
  JsonParts parts;
  parts.entries = !options_.list && !options_.forms;
  parts.headwords = options_.list;
  parts.forms = options_.forms;
  parts.limit = static_cast<size_t>(options_.limit);
  parts.row = static_cast<size_t>(options_.row);
  return resultJson(result, parts);
}

std::string Answerer::text(const LookResult& result) const {
  if (options_.list) {
    return options_.plain ? plainHeadwords(result, text_.limit) : headwordText(result, text_);
  }
  if (options_.forms) return options_.plain ? plainForms(result) : formsText(result, text_);
  if (options_.row > 0 && !options_.plain) {
    return rowText(result, static_cast<size_t>(options_.row) - 1, text_);
  }
  return options_.plain ? plainEntries(result, text_.limit) : answerText(result, text_);
}

std::string Answerer::whatIsMissing(const LookResult& result) const {
  if (options_.forms) return "no inflection table for";
  if (options_.list) return "no headword begins with";
  if (!result.lacksPart && !rowAsked(result)) return "no entry for";
  const std::string part = options_.mode == Mode::kPhrase    ? "no phrases"
                           : options_.mode == Mode::kExample ? "no examples"
                                                             : "no translations";
  const std::string where = rowAsked(result) ? "row " + std::to_string(options_.row) : "the entries";
  return part + " in " + where + " for";
}

void Answerer::tellNotFound(const LookResult& result) {
  std::fflush(stdout);
  std::string line = whatIsMissing(result) + " \"" + echo(result.query) + "\"";
  // What else was tried, where that is more than signs taken off.
  const bool otherwise =
      result.origin != result.query && result.query.find(result.origin) == std::string::npos;
  if (otherwise && result.unknown.empty()) line += " or \"" + echo(result.origin) + "\"";
  if (!result.unknown.empty()) line += ": no dictionary here knows " + charactersNamed(result.unknown);
  std::fprintf(stderr, "zavel: %s\n", line.c_str());
  if (rowAsked(result)) return;
  const size_t count = options_.limit > 0
                           ? std::min(result.suggestions.size(), static_cast<size_t>(options_.limit))
                           : result.suggestions.size();
  std::string near;
  for (size_t i = 0; i < count; ++i) near += (near.empty() ? "" : ", ") + result.suggestions[i];
  if (!near.empty()) std::fprintf(stderr, "Near headwords: %s\n", near.c_str());
}

void Answerer::write(const std::string& text) {
  if (rows_ > 0) {
    held_ += text;
    return;
  }
  std::fwrite(text.data(), 1, text.size(), stdout);
  // A program that waits for each answer must get it; one that sends all its words first needn't pay.
  if (batch_ && (options_.json || options_.plain)) std::fflush(stdout);
}

}  // namespace zavel::host
