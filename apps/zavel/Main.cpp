// The command line of `zavel`: one subcommand, its options, its exit status.
// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "DictCommand.h"
#include "DictInfo.h"
#include "ExitStatus.h"
#include "Failure.h"
#include "Help.h"
#include "InfoCommands.h"
#include "LookCommand.h"
#include "NumberOption.h"
#include "Places.h"
#include "PrefsCommand.h"
#include "Terminal.h"
#include "Utf8.h"
#include "Version.h"
#include "book/BookCommandLine.h"
#include "user/UserCommandLine.h"

namespace zavel::host {
namespace {

struct Arguments {
  LookOptions look;
  DictBuildOptions build;
  PrefsDictOptions prefs;
  UserOptions user;
  BookOptions book;
  std::string mode = "all";
  std::string colour = "auto";
  std::string root;
  bool json = false;
};

const std::map<std::string, Mode> kModes = {
    {"all", Mode::kAll}, {"pos", Mode::kPos}, {"phrase", Mode::kPhrase}, {"example", Mode::kExample}};
const std::map<std::string, ColorChoice> kColours = {
    {"auto", ColorChoice::kAuto}, {"always", ColorChoice::kAlways}, {"never", ColorChoice::kNever}};

CLI::Option* oneOf(CLI::Option* option, const char* name, const std::vector<std::string>& choices) {
  return option->type_name(name)->check(CLI::IsMember(choices).description(""));
}

CLI::Option* between(CLI::Option* option, long least, long most) {
  return option->type_name("N")->check(numberFrom(least, most));
}

// What every command takes.
void addCommon(CLI::App* command, Arguments& a) {
  command->add_flag("-j,--json", a.json, "Answer in JSON");
  command->add_option("--root", a.root, "Keep all files below this folder; overrides ZAVEL_ROOT")
      ->type_name("DIR")
      ->check(CLI::Validator(
          [](const std::string& folder) { return folder.empty() ? "the folder is missing" : std::string(); },
          ""));
}

void addLook(CLI::App& app, Arguments& a) {
  CLI::App* look = app.add_subcommand("look", "Look words up");
  look->add_option("words", a.look.words, "Words; none or - reads them from standard input, one per line")
      ->type_name("WORD");
  oneOf(look->add_option("--mode", a.mode, "Which part of the entries: all, pos, phrase or example"), "PART",
        {"all", "pos", "phrase", "example"});
  CLI::Option* list = look->add_flag("-l,--list", a.look.list, "Only the headwords that begin with the word");
  CLI::Option* forms = look->add_flag("--forms", a.look.forms, "Only the inflection table")->excludes(list);
  CLI::Option* plain =
      look->add_flag("--plain", a.look.plain, "One record per line, fields separated by tabs");
  between(look->add_option("-n,--limit", a.look.limit,
                           "At most N headwords, suggestions, or entries of each dictionary"),
          1, 1000000);
  between(look->add_option("--suggest", a.look.suggest, "At most N near headwords for a word not found"), 0,
          50);
  CLI::Option* row = look->add_option("--row", a.look.row, "Show row N of the result list, counted from 1");
  between(row, 1, 1000000)->excludes(list)->excludes(forms)->excludes(plain);
  look->add_flag("-0,--null", a.look.nul, "Words on standard input end in NUL");
  oneOf(look->add_option("--color", a.colour, "When to colour: auto, always or never"), "WHEN",
        {"auto", "always", "never"});
  look->add_flag("--no-pager", a.look.noPager, "Don't show long answers through a pager");
  addCommon(look, a);
  plain->excludes(look->get_option("--json"));
}

void addDict(CLI::App& app, Arguments& a) {
  CLI::App* dict = app.add_subcommand("dict", "Make, check and describe the dictionary");
  dict->require_subcommand(1);
  CLI::App* build = dict->add_subcommand("build", "Compile the dictionary from the distribution's open data");
  build->add_flag("--if-missing", a.build.ifMissing, "Make only what is missing or damaged");
  build->add_flag("-q,--quiet", a.build.quiet, "No summary");
  oneOf(build->add_option("--progress", a.build.progress,
                          "How to show progress: auto, bar, plain, json or none"),
        "HOW", {"auto", "bar", "plain", "json", "none"});
  addCommon(build, a);
  addCommon(dict->add_subcommand("verify", "Check that every word leads to its entry"), a);
  addCommon(dict->add_subcommand("info", "Show where it is and how large it is"), a);
}

void addPrefs(CLI::App& app, Arguments& a) {
  CLI::App* prefs = app.add_subcommand("prefs", "Show and change preferences");
  prefs->require_subcommand(1);
  CLI::App* dict = prefs->add_subcommand("dict", "Which dictionaries are searched, and in which order");
  dict->require_subcommand(1);
  addCommon(dict->add_subcommand("list", "List the dictionaries in search order"), a);
  const auto addChange = [&](const char* name, const char* what) {
    CLI::App* command = dict->add_subcommand(name, what);
    command->add_option("dictionary", a.prefs.dictionary, "Its number, name or type in the list")
        ->type_name("DICTIONARY")
        ->required();
    addCommon(command, a);
    return command;
  };
  addChange("enable", "Switch a dictionary on");
  addChange("disable", "Switch a dictionary off");
  addChange("move", "Move a dictionary to another place in the list")
      ->add_option("position", a.prefs.position, "Its new place, counted from 1")
      ->type_name("POSITION")
      ->check(numberFrom(1, 1000000))
      ->required();
}

// `zavel help`, `zavel help dict build`.
int runHelp(CLI::App& app, const std::vector<std::string>& words) {
  const CommandLine line = readCommandLine(app, words);
  const bool itself = line.commands.empty() && line.unknown == "help";
  if (!line.unknown.empty() && !itself) return report(unknownCommand(app, line), false);
  return printHelp(app, line.commands);
}

// A look-up without words on a terminal would wait silently for words to be typed.
bool wouldWait(const LookOptions& options) {
  return options.words.empty() && isTerminal(STDIN_FILENO);
}

int dispatch(CLI::App& app, const std::vector<std::string>& commands, Arguments& a) {
  if (!a.root.empty()) setenv("ZAVEL_ROOT", std::filesystem::absolute(a.root).c_str(), 1);
  const std::string command = joined(commands);
  if (command == "about") return runAbout(a.json);
  if (const Failure failure = relativePlace()) return report(failure, a.json);
  if (command == "look") {
    a.look.mode = kModes.at(a.mode);
    a.look.colour = kColours.at(a.colour);
    a.look.json = a.json;
    if (!wouldWait(a.look)) return runLook(a.look);
    printHelp(app, commands);
    return kExitUsage;
  }
  a.build.json = a.prefs.json = a.user.json = a.book.json = a.json;
  if (commands[0] == "user") return runUser(command, a.user);
  if (command == "book search" && a.book.words.empty() && isTerminal(STDIN_FILENO)) {
    printHelp(app, commands);
    return kExitUsage;
  }
  if (commands[0] == "book") return runBook(command, a.book);
  if (command == "dict build") return runDictBuild(a.build);
  if (command == "dict verify") return runDictVerify(a.json);
  if (command == "dict info") return runDictInfo(a.json);
  if (command == "prefs dict list") return runPrefsDictList(a.prefs);
  if (command == "prefs dict enable") return runPrefsDictEnable(a.prefs, true);
  if (command == "prefs dict disable") return runPrefsDictEnable(a.prefs, false);
  if (command == "prefs dict move") return runPrefsDictMove(a.prefs);
  return runPaths(a.json);
}

Failure wrongUsage(const std::vector<std::string>& commands, const std::string& message) {
  const std::string command = commands.empty() ? "zavel" : "zavel " + joined(commands);
  std::string line = printable(message);
  std::replace(line.begin(), line.end(), '\n', ' ');
  return {kExitUsage, "usage", line, "Run: " + command + " --help"};
}

// What may be meant for a word.
Failure strayOption(const std::vector<std::string>& commands, const std::string& word) {
  const std::string shown = printable(word);
  return {kExitUsage, "usage", "there is no option \"" + shown + "\"",
          "If it is a word, put it behind -- and all options: zavel " + joined(commands) + " -- " + shown};
}

int run(const std::vector<std::string>& words) {
  CLI::App app{"English and Japanese dictionary", "zavel"};
  Arguments arguments;
  app.set_version_flag("-V,--version", std::string("zavel ") + kVersion);
  addLook(app, arguments);
  // A look-up is short enough to feel what the options of the others cost.
  if (words.empty() || words[0] != "look") {
    addDict(app, arguments);
    addPrefs(app, arguments);
    const auto common = [&arguments](CLI::App* command) { addCommon(command, arguments); };
    addUser(app, arguments.user, common);
    addBook(app, arguments.book, common);
    addCommon(app.add_subcommand("paths", "Print the folders in use"), arguments);
    addCommon(app.add_subcommand("about", "Version, sources and licences"), arguments);
  }
  app.require_subcommand(0, 1);  // so that a word like "dict" behind `look` is a word

  if (!words.empty() && words[0] == "help") return runHelp(app, {words.begin() + 1, words.end()});
  const CommandLine line = readCommandLine(app, words);
  if (line.help) return printHelp(app, line.commands);
  if (!line.unknown.empty()) return report(unknownCommand(app, line), line.json);
  // CLI11 takes the words from last to first.
  std::vector<std::string> reversed(line.rest.rbegin(), line.rest.rend());
  reversed.insert(reversed.end(), line.commands.rbegin(), line.commands.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::CallForHelp&) {  // among short options, as in -jh
    return printHelp(app, line.commands);
  } catch (const CLI::CallForVersion& version) {
    std::printf("%s\n", version.what());
    return kExitFound;
  } catch (const CLI::ParseError& error) {
    const std::string stray = strayWord(app, line);
    if (!stray.empty() && !line.commands.empty()) return report(strayOption(line.commands, stray), line.json);
    return report(wrongUsage(line.commands, usageMessage(app, line, error)), line.json);
  }
  if (line.commands.empty() && !line.rest.empty()) {
    return report(wrongUsage({}, "the command is missing"), line.json);
  }
  if (line.commands.empty()) return printHelp(app, {});
  return dispatch(app, line.commands, arguments);
}

// A stream that the caller has closed must not be handed to the next file that is opened. Reading or writing
// it still fails.
void keepStandardStreams() {
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(fd, F_GETFD) < 0) open("/dev/null", fd == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

// Nobody may take a cut answer for a whole one.
int checkOutput(int status) {
  if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return status;
  return report({kExitEnvironment, "output", "the output can't be written",
                 "Check that the disk isn't full and that standard output is open."},
                false);
}

}  // namespace
}  // namespace zavel::host

int main(int argc, char** argv) {
  using namespace zavel::host;
  keepStandardStreams();
  return checkOutput(run({argv + 1, argv + argc}));
}
