// Tests: tests/zavel/book/BookCommandTest.cpp
#include "book/BookCommandLine.h"

#include "NumberOption.h"

namespace zavel::host {
namespace {

using AddCommon = std::function<void(CLI::App*)>;

CLI::Option* oneOf(CLI::Option* option, const char* name, const std::vector<std::string>& choices) {
  return option->type_name(name)->check(CLI::IsMember(choices).description(""));
}

void addBookName(CLI::App* command, BookOptions& o) {
  command->add_option("book", o.book, "Its name in the list, or the path of its folder or catalog")
      ->type_name("BOOK")
      ->required();
}

CLI::Option* addPlace(CLI::App* command, BookOptions& o, const char* what, const char* name) {
  return command->add_option("place", o.place, what)->type_name(name);
}

void addReading(CLI::App* command, BookOptions& o) {
  oneOf(command->add_option("--color", o.colourWhen, "When to colour: auto, always or never"), "WHEN",
        {"auto", "always", "never"});
}

void addPaged(CLI::App* command, BookOptions& o) {
  addReading(command, o);
  command->add_flag("--no-pager", o.noPager, "Don't show long answers through a pager");
}

void addLimit(CLI::App* command, BookOptions& o, const char* what) {
  command->add_option("-n,--limit", o.limit, what)->type_name("N")->check(numberFrom(1, 1000000));
}

void addOutput(CLI::App* command, BookOptions& o) {
  addReading(command, o);
  command->add_option("-o,--output", o.output, "Write it to this file; - is standard output")
      ->type_name("FILE")
      ->check(CLI::Validator(
          [](const std::string& file) { return file.empty() ? "the file is missing" : std::string(); }, ""));
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

void addSearch(CLI::App* book, BookOptions& o, const AddCommon& addCommon) {
  CLI::App* search = book->add_subcommand("search", "Find entries by words");
  search->add_option("words", o.words, "Words; none or - reads them from standard input, one per line")
      ->type_name("WORD");
  oneOf(search->add_option("--method", o.method, "How: exact, forward, backward, keyword or cross"), "METHOD",
        {"exact", "forward", "backward", "keyword", "cross"});
  search->add_flag("--query", o.query, "Each word is a query: \"dog and (cat or tooth*)\"");
  search->add_option("-d,--dict", o.books, "Search in this book only; may be given often")
      ->type_name("BOOK")
      ->allow_extra_args(false);
  addLimit(search, o, "At most N entries of each book");
  CLI::Option* plain = search->add_flag("--plain", o.plain, "One entry per line, fields separated by tabs");
  search->add_flag("-0,--null", o.nul, "Words on standard input end in NUL");
  addPaged(search, o);
  addCommon(search);
  plain->excludes(search->get_option("--json"));
}

void addEntries(CLI::App* book, BookOptions& o, const AddCommon& addCommon) {
  const struct {
    const char* name;
    const char* what;
    const char* place;
    const char* limit;
  } commands[] = {{"show", "Show entries", "Where an entry stands, as in 39:10, or a word",
                   "At most N entries of a word"},
                  {"next", "Show the entry behind another", "The other: where it stands, or its word",
                   "The next N entries"},
                  {"prev", "Show the entry ahead of another", "The other: where it stands, or its word",
                   "The N entries ahead"}};
  for (const auto& one : commands) {
    CLI::App* command = book->add_subcommand(one.name, one.what);
    addBookName(command, o);
    addPlace(command, o, one.place, "PLACE|WORD")->required();
    addLimit(command, o, one.limit);
    command->add_flag("--raw", o.raw, "The words of the text as they are, in hexadecimal digits");
    addPaged(command, o);
    addCommon(command);
  }
  CLI::App* menu = book->add_subcommand("menu", "Show a menu");
  addBookName(menu, o);
  addPlace(menu, o, "Where a menu stands, as in 39:10; the first one without this", "PLACE");
  menu->add_flag("--pictures", o.pictures, "The menu of pictures, where there is one of words, too");
  addPaged(menu, o);
  addCommon(menu);
}

void addForms(CLI::App* book, BookOptions& o, const AddCommon& addCommon) {
  CLI::App* multi = book->add_subcommand("multi", "Show the forms of a book, or search by one");
  addBookName(multi, o);
  multi->add_option("form", o.form, "Its number or name; shows its choices")->type_name("FORM");
  multi->add_option("fields", o.fields, "A field's number or label and what it must have; all must fit")
      ->type_name("FIELD=VALUE");
  addLimit(multi, o, "At most N entries");
  CLI::Option* plain = multi->add_flag("--plain", o.plain, "One entry per line, fields separated by tabs");
  addPaged(multi, o);
  addCommon(multi);
  plain->excludes(multi->get_option("--json"));
}

void addMedia(CLI::App* book, BookOptions& o, const AddCommon& addCommon) {
  CLI::App* gaiji = book->add_subcommand("gaiji", "List or show the book's own characters");
  addBookName(gaiji, o);
  gaiji->add_option("character", o.character, "Its code, as in A121, or the character")->type_name("CODE");
  gaiji->add_flag("--half", o.half, "The code is that of a half-width character");
  addOutput(gaiji, o);
  gaiji->add_flag("--no-pager", o.noPager, "Don't show long answers through a pager");
  addCommon(gaiji);
  for (const auto& [name, what] : {std::pair("picture", "Show or save a picture"),
                                   std::pair("sound", "Describe, play or save a sound")}) {
    CLI::App* command = book->add_subcommand(name, what);
    addBookName(command, o);
    addPlace(command, o, "Where it stands, as `show` prints it, or its entry or a word", "PLACE|WORD")
        ->required();
    addOutput(command, o);
    addCommon(command);
  }
  book->get_subcommand("sound")->add_flag("--play", o.play, "Play it, and wait until it is over");
  CLI::App* icon = book->add_subcommand("icon", "Show or save the icon of a book");
  addBookName(icon, o);
  icon->add_flag("--small", o.small, "The small one");
  addOutput(icon, o);
  addCommon(icon);
}

void addBuild(CLI::App* book, BookBuildOptions& o, const AddCommon& addCommon) {
  CLI::App* build =
      book->add_subcommand("build", "Make books from dictionaries that the distribution packages");
  build->add_option("names", o.names, "Which; none: WordNet and KANJIDIC, as far as they are installed")
      ->type_name("NAME");
  build->add_flag("--all", o.all, "Of every dictionary that is installed");
  build->add_flag("--list", o.list, "List what books can be made from");
  build->add_option("--form", o.form, "Form of a source of one's own: dictd, edict, kanjidic or text")
      ->type_name("FORM")
      ->check(CLI::IsMember({"dictd", "edict", "kanjidic", "text"}).description(""));
  build->add_option("--source", o.source, "Its file; of dictd the index")->type_name("FILE");
  build->add_option("--title", o.title, "Title in place of the source's own")->type_name("TEXT");
  build->add_flag("--if-missing", o.ifMissing, "Make only what is missing or can't be opened");
  build->add_flag("--verify", o.verify, "Compare the book with its source instead of making it");
  build->add_flag("-q,--quiet", o.quiet, "No summary");
  build->add_option("--progress", o.progress, "How to show progress: auto, bar, plain, json or none")
      ->type_name("HOW")
      ->check(CLI::IsMember({"auto", "bar", "plain", "json", "none"}).description(""));
  addCommon(build);
}

}  // namespace

void addBook(CLI::App& app, BookOptions& options, const AddCommon& addCommon) {
  CLI::App* book = app.add_subcommand("book", "Electronic books");
  book->require_subcommand(1);
  addSearch(book, options, addCommon);
  addEntries(book, options, addCommon);
  addForms(book, options, addCommon);
  addMedia(book, options, addCommon);
  addBuild(book, options.build, addCommon);
  addDescriptions(book, options, addCommon);
}

int runBook(const std::string& command, const BookOptions& options) {
  static const std::map<std::string, int (*)(const BookOptions&)> kCommands = {
      {"book build", runBookBuild},   {"book list", runBookList},       {"book info", runBookInfo},
      {"book search", runBookSearch}, {"book show", runBookShow},       {"book next", runBookNext},
      {"book prev", runBookPrev},     {"book menu", runBookMenu},       {"book multi", runBookMulti},
      {"book gaiji", runBookGaiji},   {"book picture", runBookPicture}, {"book sound", runBookSound},
      {"book icon", runBookIcon}};
  return kCommands.at(command)(options);
}

const std::map<std::string, const char*>& bookExamples() {
  static const std::map<std::string, const char*> kExamples = {
      {"book",
       "  zavel book build\n"
       "  zavel book search dog\n"
       "  zavel book show wordnet dog\n"
       "  zavel book multi kanjidic 1 strokes=4\n"},
      {"book build",
       "  zavel book build\n"
       "  zavel book build gcide --if-missing\n"
       "  zavel book build mine --form dictd --source ~/words.index\n"
       "  zavel book build --list\n"},
      {"book list", "  zavel book list\n  zavel book list --plain | cut -f1\n"},
      {"book info", "  zavel book info wordnet\n  zavel book info ~/books/kanjidic --json\n"},
      {"book search",
       "  zavel book search dog 犬\n"
       "  zavel book search --method forward -d wordnet -n 20 inter\n"
       "  zavel book search --query \"dog* and (*house or *fight)\"\n"
       "  zavel book search --json < words.txt > found.ndjson\n"},
      {"book show",
       "  zavel book show wordnet dog\n"
       "  zavel book show wordnet 8723:1170\n"
       "  zavel book show kanjidic 犬 --json\n"},
      {"book next", "  zavel book next wordnet dog\n  zavel book next wordnet 8723:1170 -n 5\n"},
      {"book prev", "  zavel book prev wordnet dog\n  zavel book prev wordnet 8723:1170 -n 5\n"},
      {"book menu", "  zavel book menu atlas\n  zavel book menu atlas 2:54\n"},
      {"book multi",
       "  zavel book multi kanjidic\n"
       "  zavel book multi kanjidic 1\n"
       "  zavel book multi kanjidic 1 strokes=4 meaning=dog\n"},
      {"book gaiji",
       "  zavel book gaiji edict\n"
       "  zavel book gaiji edict --half A121\n"
       "  zavel book gaiji edict é -o e.png\n"},
      {"book picture", "  zavel book picture atlas 12:300\n  zavel book picture atlas 12:300 -o map.bmp\n"},
      {"book sound", "  zavel book sound birds wren --play\n  zavel book sound birds wren -o wren.wav\n"},
      {"book icon", "  zavel book icon wordnet\n  zavel book icon wordnet --small -o icon.png\n"},
  };
  return kExamples;
}

const std::map<std::string, const char*>& bookNotes() {
  static const std::map<std::string, const char*> kNotes = {
      {"book search",
       "\nWithout --method words are looked for whole; for one that isn't there, headwords that begin so "
       "are\n"
       "named. With --query words may be combined by \"and\" and \"or\", from left to right, and grouped in\n"
       "parentheses; dog* is a beginning, *dog an end, \"rock and roll\" one word. The signs ◆ □ ■ △ ▲ ahead "
       "of a\n"
       "word mean exact, forward, backward, cross and keyword; ◇ │ ⊂ ⊃ mean and, or, and a group.\n"},
  };
  return kNotes;
}

}  // namespace zavel::host
