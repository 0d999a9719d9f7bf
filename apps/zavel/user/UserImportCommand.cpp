// `zavel user import`. Tests: tests/zavel/user/UserExchangeTest.cpp
#include <unistd.h>

#include <cstdio>

#include "Interrupt.h"
#include "JsonWriter.h"
#include "Terminal.h"
#include "Utf8.h"
#include "user/UserImport.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestInput = size_t{512} << 20;

bool readInput(const std::string& file, std::string* text) {
  std::FILE* in = file == "-" ? stdin : std::fopen(file.c_str(), "rb");
  if (!in) return false;
  if (in == stdin && isTerminal(STDIN_FILENO))
    std::fprintf(stderr, "Reading entries from the terminal; Ctrl-D ends them\n");
  char piece[65536];
  // What ends a terminal's input once would be waited for again.
  while (text->size() <= kLongestInput && !std::feof(in) && !std::ferror(in) && !interrupted()) {
    text->append(piece, std::fread(piece, 1, sizeof piece, in));
  }
  const bool whole = !std::ferror(in) && text->size() <= kLongestInput;
  if (in != stdin) std::fclose(in);
  return whole;
}

Failure notRead(const std::string& file) {
  return {kExitEnvironment, "input", (file == "-" ? "standard input" : "the file " + file) + " can't be read",
          "Give a file that can be read, of at most 512 MB."};
}

std::string fileName(const UserOptions& options) {
  return options.file == "-" ? "standard input" : options.file;
}

std::string whereIs(const UserOptions& options, const ImportItem& item, bool byLine) {
  return fileName(options) + (byLine ? ":" : ": entry ") + std::to_string(item.line);
}

void tellRefused(const UserOptions& options, const std::vector<ImportItem>& items, bool byLine) {
  for (const ImportItem& item : items) {
    if (item.wrong.empty()) continue;
    const std::string line = whereIs(options, item, byLine) + ": " + printable(item.wrong);
    std::fprintf(stderr, "%s\n", line.c_str());
  }
}

std::string summary(const ImportCounts& counts) {
  std::string text = grouped(counts.added) + (counts.added == 1 ? " entry added" : " entries added");
  if (counts.replaced > 0) text += ", " + grouped(counts.replaced) + " replaced";
  if (counts.present > 0) text += ", " + grouped(counts.present) + " there already";
  if (counts.skipped > 0) text += ", " + grouped(counts.skipped) + " skipped";
  if (counts.refused > 0) text += ", " + grouped(counts.refused) + " refused";
  return text + "\n";
}

// What went in, and what was refused, is told beside a failure, too.
std::string summaryJson(const ImportCounts& counts, const std::vector<ImportItem>& items, const char* status,
                        const Failure& failure, const std::string& damage) {
  JsonWriter json;
  const auto number = [&json](const char* key, size_t value) {
    json.member(key, static_cast<int64_t>(value));
  };
  json.beginObject().member("schema", 1).member("status", status);
  number("added", counts.added);
  number("replaced", counts.replaced);
  number("present", counts.present);
  number("skipped", counts.skipped);
  json.key("refused").beginArray();
  for (const ImportItem& item : items) {
    if (item.wrong.empty()) continue;
    json.beginObject()
        .member("line", static_cast<int64_t>(item.line))
        .member("reason", item.wrong)
        .endObject();
  }
  json.endArray();
  if (!damage.empty()) json.member("damaged_export", damage);
  if (failure) {
    json.key("error").beginObject().member("code", failure.code).member("message", failure.message);
    json.member("hint", failure.hint).endObject();
  }
  json.endObject();
  return json.text() + "\n";
}

int statusOf(const ImportCounts& counts) {
  const size_t good = counts.added + counts.replaced + counts.present + counts.skipped;
  if (counts.refused > 0) return good > 0 ? kExitPartly : kExitUsage;
  return counts.added + counts.replaced > 0 ? kExitFound : kExitNothing;
}

}  // namespace

int runUserImport(const UserOptions& options) {
  watchInterrupts();
  std::string text;
  const bool read = readInput(options.file, &text);
  if (interrupted()) {
    warn("interrupted; nothing was added");
    return interruptedStatus();
  }
  if (!read) return report(notRead(options.file), options.json);
  std::vector<ImportItem> items;
  bool byLine = true;
  const std::optional<UserLanguage> language = options.language();
  std::string damage;
  if (Failure failure = readImport(text, language ? &*language : nullptr, &items, &byLine, &damage)) {
    return report(failure, options.json);
  }
  Failure failure;
  ImportCounts counts;
  {
    UserImport import(options, &items);  // its progress line is gone ahead of what is said below
    failure = import.run();
    counts = import.counts();
  }
  if (!damage.empty()) warn(fileName(options) + " was exported with a warning: " + printable(damage));
  tellRefused(options, items, byLine);
  const bool whole = !failure && !interrupted();
  const char* status = failure ? "error" : !whole ? "interrupted" : counts.refused > 0 ? "partly" : "done";
  if (options.json) {
    std::fputs(summaryJson(counts, items, status, failure, damage).c_str(), stdout);
  } else if (!failure || counts.added + counts.replaced > 0) {
    std::fputs(summary(counts).c_str(), stdout);
  }
  if (failure) return report(failure, false);
  if (interrupted()) {
    std::fflush(stdout);
    std::fprintf(stderr, "zavel: interrupted; what was added is stored\n");
    return interruptedStatus();
  }
  return statusOf(counts);
}

}  // namespace zavel::host
