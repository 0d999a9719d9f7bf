// Tests: tests/zavel/book/BookFailureTest.cpp
#include "book/BookFailure.h"

#include <algorithm>
#include <cstring>

#include "Utf8.h"
#include "book/BookStatus.h"

namespace zavel::host {
namespace {

constexpr const char* kRebuild = "Make it again from its source, or put back a copy that is whole.";

// %b stands for the book's name in quotes, %w for what was under way.
struct Row {
  uint32_t status;
  ExitStatus exit;
  const char* code;
  const char* message;
  const char* hint;
};

constexpr Row kRows[] = {
    {book::kOutOfMemory, kExitEnvironment, "no_memory", "there is not memory enough for %w in the book %b",
     "End other programs, then try again."},
    {book::kInvalidArgument, kExitNothing, "nothing_there", "the book %b has nothing at this place",
     "Take places from what search, show and menu print."},
    {book::kInvalidAddress, kExitNothing, "nothing_there", "the book %b has nothing at this place",
     "Take places from what search, show and menu print."},
    {book::kNoFurtherEntry, kExitNothing, "no_further_entry", "there is no further entry in the book %b",
     "Go the other way: zavel book prev and zavel book next."},
    {book::kUnsupportedMedia, kExitEnvironment, "unknown_form",
     "%w in the book %b is of a form not known here",
     "Only the program that the book was made for can show it."},
    {book::kNotAvailable, kExitNothing, "not_available", "the book %b can't be asked that way",
     "See what it can be asked for: zavel book info"},
    {book::kNoInformation, kExitNothing, "not_available", "the book %b doesn't have that",
     "See what it has: zavel book info"},
    {book::kKnownReadFault, kExitDamaged, kDamagedBook, "%w is missing in the book %b since it was published",
     "Other sounds of the book are not concerned."},
};

constexpr Row kOther = {book::kBroken, kExitDamaged, kDamagedBook,
                        "%w failed: the book %b is damaged where this stands", kRebuild};

std::string filled(std::string_view text, const std::string& name, const std::string& what) {
  std::string sentence;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      sentence += text[at];
    } else {
      sentence += text[++at] == 'b' ? quoted(name) : what;
    }
  }
  return sentence;
}

}  // namespace

Failure bookFailure(uint32_t code, const std::string& name, const std::string& what) {
  if (code == book::kDone) return {};
  const Row* row =
      std::find_if(std::begin(kRows), std::end(kRows), [code](const Row& one) { return one.status == code; });
  if (row == std::end(kRows)) row = &kOther;
  return {row->exit, row->code, filled(row->message, name, what), row->hint};
}

Failure openFailure(uint32_t code, const std::string& name, const std::string& catalog) {
  constexpr uint32_t kMostErrors = 4096;  // system error numbers are far below, the engine's own far above
  const uint32_t error = code & ~book::kSystemError;
  if (code == book::kOutOfMemory || code == book::kReadFailed) {
    return bookFailure(book::kOutOfMemory, name, "opening");
  }
  if (code == book::kBroken) {
    return {kExitDamaged, kDamagedBook, "the book " + quoted(name) + " is damaged: its catalog ends too soon",
            kRebuild};
  }
  if (code == book::kNoHonbun) {
    return {kExitDamaged, kDamagedBook,
            "the book " + quoted(name) + " is damaged: the file of its text is missing, or no file is named",
            kRebuild};
  }
  if (error >= kMostErrors) return bookFailure(code, name, "opening");
  return {kExitEnvironment, "unreadable_book",
          "the book " + quoted(name) + " can't be read: " + std::strerror(static_cast<int>(error)),
          "See who may read it: ls -l " + printable(catalog)};
}

Failure noCatalog(const std::string& name, const std::string& catalog) {
  return {kExitDamaged, kDamagedBook,
          "the book " + quoted(name) + " is damaged or none: " + printable(catalog) + " is no catalog",
          kRebuild};
}

Failure lackingFiles(const std::string& name, const std::vector<std::string>& files) {
  std::string names;
  for (const std::string& file : files) names += (names.empty() ? "" : ", ") + printable(file);
  return {kExitDamaged, kDamagedBook,
          "the book " + quoted(name) + " is damaged: its " +
              (files.size() == 1 ? "file " + names + " is missing or empty"
                                 : "files " + names + " are missing or empty"),
          kRebuild};
}

Failure lacking(const std::string& name, const std::string& what) {
  return {kExitNothing, "not_available", "the book " + quoted(name) + " has no " + what,
          "See what it has: zavel book info " + printable(name)};
}

void writeError(JsonWriter& json, const Failure& failure) {
  if (!failure) {
    json.null();
    return;
  }
  json.beginObject().member("code", failure.code).member("message", failure.message);
  json.member("hint", failure.hint).endObject();
}

std::string quoted(const std::string& name) {
  return "\"" + printable(name) + "\"";
}

}  // namespace zavel::host
