// Tests: tests/zavel/user/UserCommandTest.cpp
#include "user/UserCommandLine.h"

#include "NumberOption.h"

namespace zavel::host {
namespace {

CLI::Option* oneOf(CLI::Option* option, const char* name, const std::vector<std::string>& choices) {
  return option->type_name(name)->check(CLI::IsMember(choices).description(""));
}

void addLanguage(CLI::App* command, UserOptions& o, const char* what) {
  oneOf(command->add_option("--lang", o.lang, what), "LANG", {"en", "ja"});
}

constexpr const char* kGuessed = "Dictionary of the word: en or ja; guessed from it without this";
constexpr const char* kBoth = "One dictionary only: en or ja";

CLI::Option* addWord(CLI::App* command, UserOptions& o, const char* what) {
  return command->add_option("word", o.word, what)->type_name("WORD")->required();
}

void addNumber(CLI::App* command, UserOptions& o) {
  command->add_option("--number", o.number, "Which of its entries, as `find` counts them")
      ->type_name("N")
      ->check(numberFrom(1, 1000000));
}

void addAdd(CLI::App* user, UserOptions& o, const std::function<void(CLI::App*)>& addCommon) {
  CLI::App* add = user->add_subcommand("add", "Add an entry");
  addWord(add, o, "The word: English, kana, or kanji with --reading");
  add->add_option("meaning", o.meaning, "Its meaning in the other language")
      ->type_name("MEANING")
      ->required();
  addLanguage(add, o, kGuessed);
  add->add_option("--pos", o.pos, "Part of speech of an English word: noun, verb, adjective, ...")
      ->type_name("POS");
  add->add_option("--phrase", o.phrase, "The meaning is that of this phrase")->type_name("TEXT");
  add->add_option("--kanji", o.kanji, "Written form of a word in kana")->type_name("KANJI");
  add->add_option("--reading", o.reading, "Reading of a word in kanji")->type_name("KANA");
  add->add_option("--example", o.examples, "An example, ENGLISH=JAPANESE; may be given often")
      ->type_name("EXAMPLE")
      ->allow_extra_args(false);
  add->add_option("--sentence", o.sentences, "An example sentence of a Japanese word, likewise")
      ->type_name("EXAMPLE")
      ->allow_extra_args(false);
  add->add_flag("-f,--force", o.force, "Add it also if the same entry is there already");
  addCommon(add);
}

void addEdit(CLI::App* user, UserOptions& o, const std::function<void(CLI::App*)>& addCommon) {
  CLI::App* edit = user->add_subcommand("edit", "Change an entry in $VISUAL or $EDITOR");
  addWord(edit, o, "The word whose entry to change");
  addLanguage(edit, o, kGuessed);
  addNumber(edit, o);
  edit->add_option("--set", o.settings, "Set FIELD=TEXT without an editor; may be given often")
      ->type_name("FIELD=TEXT")
      ->allow_extra_args(false);
  edit->add_flag("--no-input", o.noInput, "Never ask");
  addCommon(edit);
}

void addSearches(CLI::App* user, UserOptions& o, const std::function<void(CLI::App*)>& addCommon) {
  CLI::App* find = user->add_subcommand("find", "Show the entries of a word, numbered");
  addWord(find, o, "The word: English, kana or kanji");
  addLanguage(find, o, kGuessed);
  addCommon(find);
  CLI::App* list = user->add_subcommand("list", "List your words, one a line");
  list->add_option("beginning", o.filter, "Only words that begin so")->type_name("BEGINNING");
  addLanguage(list, o, kBoth);
  addCommon(list);
}

void addChanges(CLI::App* user, UserOptions& o, const std::function<void(CLI::App*)>& addCommon) {
  CLI::App* remove = user->add_subcommand("delete", "Delete entries of a word");
  addWord(remove, o, "The word: English, kana or kanji");
  addLanguage(remove, o, kGuessed);
  addNumber(remove, o);
  remove->add_flag("--all", o.all, "All of its entries")->excludes(remove->get_option("--number"));
  remove->add_flag("-y,--yes", o.yes, "Don't ask");
  remove->add_flag("--no-input", o.noInput, "Never ask");
  addCommon(remove);
  CLI::App* arrange = user->add_subcommand("arrange", "Make the files as small as they can be");
  addLanguage(arrange, o, kBoth);
  arrange->add_flag("--accept", o.accept, "Take entries as they stand that are not as they were left");
  addCommon(arrange);
}

void addExchange(CLI::App* user, UserOptions& o, const std::function<void(CLI::App*)>& addCommon) {
  CLI::App* import = user->add_subcommand("import", "Add the entries of a file");
  import->add_option("file", o.file, "A table or JSON; none or - reads standard input")->type_name("FILE");
  addLanguage(import, o, "Dictionary of entries that don't tell: en or ja");
  CLI::Option* replace = import->add_flag("--replace", o.replace, "Replace your entry of the same word");
  import->add_flag("--skip-existing", o.skipExisting, "Leave out words that you have an entry of")
      ->excludes(replace);
  import->add_flag("-f,--force", o.force, "Add also what is there already");
  oneOf(import->add_option("--progress", o.progress, "How to show it: auto, bar, plain, json or none"), "HOW",
        {"auto", "bar", "plain", "json", "none"});
  addCommon(import);
  CLI::App* write = user->add_subcommand("export", "Write all entries to a file");
  write->add_option("file", o.file, "Where to; none or - is standard output")->type_name("FILE");
  addLanguage(write, o, kBoth);
  oneOf(write->add_option("--format", o.format, "tsv, json, or jsonl for an object a line"), "FORMAT",
        {"tsv", "json", "jsonl"});
  addCommon(write);
}

}  // namespace

void addUser(CLI::App& app, UserOptions& options, const std::function<void(CLI::App*)>& addCommon) {
  CLI::App* user = app.add_subcommand("user", "Your own entries");
  user->require_subcommand(1);
  addAdd(user, options, addCommon);
  addEdit(user, options, addCommon);
  addSearches(user, options, addCommon);
  addChanges(user, options, addCommon);
  addExchange(user, options, addCommon);
}

int runUser(const std::string& command, const UserOptions& options) {
  static const std::map<std::string, int (*)(const UserOptions&)> kCommands = {
      {"user add", runUserAdd},       {"user edit", runUserEdit},     {"user find", runUserFind},
      {"user list", runUserList},     {"user delete", runUserDelete}, {"user arrange", runUserArrange},
      {"user import", runUserImport}, {"user export", runUserExport}};
  return kCommands.at(command)(options);
}

const std::map<std::string, const char*>& userExamples() {
  static const std::map<std::string, const char*> kExamples = {
      {"user",
       "  zavel user add bank 銀行\n"
       "  zavel user add 犬 dog --reading いぬ\n"
       "  zavel user list\n"
       "  zavel user export words.tsv\n"},
      {"user add",
       "  zavel user add bank 銀行 --example \"a bank account=銀行口座\"\n"
       "  zavel user add run 走る --pos intransitive\n"
       "  zavel user add bank 当てにする --phrase \"bank on\"\n"
       "  zavel user add いぬ dog --kanji 犬\n"
       "  zavel user add 犬 dog --reading いぬ --sentence \"I have a dog.=私は犬を飼っている。\"\n"},
      {"user edit",
       "  zavel user edit bank\n"
       "  zavel user edit bank --number 2\n"
       "  zavel user edit 犬 --set meaning=hound\n"},
      {"user find", "  zavel user find bank\n  zavel user find --json 犬\n"},
      {"user list", "  zavel user list\n  zavel user list ban\n  zavel user list --lang ja --json\n"},
      {"user delete",
       "  zavel user delete bank\n  zavel user delete bank --number 2\n  zavel user delete 犬 --all --yes\n"},
      {"user arrange", "  zavel user arrange\n  zavel user arrange --lang en\n"},
      {"user import",
       "  zavel user import words.tsv\n"
       "  zavel user import --replace words.json\n"
       "  zavel user export | ssh other zavel user import --skip-existing\n"},
      {"user export",
       "  zavel user export words.tsv\n  zavel user export --format json > words.json\n  zavel user export "
       "--lang ja | cut -f2,6\n"},
  };
  return kExamples;
}

}  // namespace zavel::host
