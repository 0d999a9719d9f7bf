// Tests: tests/zavel/book/BookCommandTest.cpp
#include "book/BookCommandLine.h"

namespace zavel::host {
namespace {

using AddCommon = std::function<void(CLI::App*)>;

void addBookName(CLI::App* command, BookOptions& o) {
  command->add_option("book", o.book, "Its name in the list, or the path of its folder or catalog")
      ->type_name("BOOK")
      ->required();
}

void addDescriptions(CLI::App* book, BookOptions& o, const AddCommon& addCommon) {
  CLI::App* list = book->add_subcommand("list", "List the books");
  CLI::Option* plain = list->add_flag("--plain", o.plain, "One book per line, fields separated by tabs");
  addCommon(list);
  plain->excludes(list->get_option("--json"));
  CLI::App* info = book->add_subcommand("info", "Show what a book has and can be asked for");
  addBookName(info, o);
  addCommon(info);
}

}  // namespace

void addBook(CLI::App& app, BookOptions& options, const AddCommon& addCommon) {
  CLI::App* book = app.add_subcommand("book", "Electronic books");
  book->require_subcommand(1);
  addDescriptions(book, options, addCommon);
}

int runBook(const std::string& command, const BookOptions& options) {
  static const std::map<std::string, int (*)(const BookOptions&)> kCommands = {{"book list", runBookList},
                                                                               {"book info", runBookInfo}};
  return kCommands.at(command)(options);
}

const std::map<std::string, const char*>& bookExamples() {
  static const std::map<std::string, const char*> kExamples = {
      {"book", "  zavel book list\n  zavel book info wordnet\n"},
      {"book list", "  zavel book list\n  zavel book list --plain | cut -f1\n"},
      {"book info", "  zavel book info wordnet\n  zavel book info ~/books/kanjidic --json\n"},
  };
  return kExamples;
}

}  // namespace zavel::host
