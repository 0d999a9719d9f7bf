// The command line of `zavel`: one subcommand, its options, its exit status.
// Tests: tests/zavel/zavel-test.sh
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "DictCommand.h"
#include "ExitStatus.h"
#include "InfoCommands.h"
#include "LookCommand.h"
#include "Version.h"

namespace zavel::host {
namespace {

constexpr const char* kShortHelp =
    "zavel - English and Japanese dictionary\n"
    "\n"
    "  zavel look goes            look a word up (English, kana or kanji)\n"
    "  zavel look --list inter    headwords that begin so\n"
    "  zavel look --forms stop    inflection table\n"
    "  zavel look --json 行く     for programs; words may come on standard input\n"
    "  zavel dict build           make the dictionary from open data\n"
    "  zavel dict verify | info   check it, describe it\n"
    "  zavel paths | about        folders in use; version, sources and licences\n"
    "\n"
    "`zavel help COMMAND` and `man zavel` tell more.\n";

// What each help begins with.
const char* examplesOf(const std::string& command) {
  if (command == "look") {
    return "Examples:\n"
           "  zavel look goes\n"
           "  zavel look 行く いく イク\n"
           "  zavel look --forms stop\n"
           "  zavel look --list inter\n"
           "  zavel look --json --mode pos better\n"
           "  zavel look --json < words.txt > entries.ndjson\n\n";
  }
  if (command == "dict") {
    return "Examples:\n"
           "  zavel dict build\n"
           "  zavel dict verify\n"
           "  zavel dict info --json\n\n";
  }
  return "";
}

struct Arguments {
  LookOptions look;
  DictBuildOptions build;
  std::string mode = "all";
  std::string colour = "auto";
  bool json = false;  // of every command but look and build
};

const std::map<std::string, Mode> kModes = {
    {"all", Mode::kAll}, {"pos", Mode::kPos}, {"phrase", Mode::kPhrase}, {"example", Mode::kExample}};
const std::map<std::string, ColorChoice> kColours = {
    {"auto", ColorChoice::kAuto}, {"always", ColorChoice::kAlways}, {"never", ColorChoice::kNever}};

void addLook(CLI::App& app, Arguments& a) {
  CLI::App* look = app.add_subcommand("look", "Look words up");
  look->add_option("words", a.look.words, "Words; none or - reads them from standard input, one a line");
  look->add_option("--mode", a.mode, "all, pos, phrase or example: which part of the entries")
      ->check(CLI::IsMember({"all", "pos", "phrase", "example"}));
  CLI::Option* list = look->add_flag("-l,--list", a.look.list, "Only the headwords that begin with the word");
  look->add_flag("--forms", a.look.forms, "Only the inflection table")->excludes(list);
  look->add_flag("-j,--json", a.look.json, "JSON; for several words one document a line");
  look->add_option("-n,--limit", a.look.limit, "At most so many entries or headwords")
      ->check(CLI::Range(1L, 1000000L));
  look->add_option("--suggest", a.look.suggest, "At most so many near headwords for a word not found")
      ->check(CLI::Range(0L, 50L));
  look->add_flag("-0,--null", a.look.nul, "Words on standard input end in NUL");
  look->add_option("--color", a.colour, "auto, always or never")
      ->check(CLI::IsMember({"auto", "always", "never"}));
}

void addDict(CLI::App& app, Arguments& a) {
  CLI::App* dict = app.add_subcommand("dict", "Make, check and describe the dictionary");
  dict->require_subcommand(1);
  CLI::App* build = dict->add_subcommand("build", "Compile the dictionary from the distribution's open data");
  build->add_flag("--if-missing", a.build.ifMissing, "Do nothing if there is one");
  build->add_flag("-q,--quiet", a.build.quiet, "No summary");
  build->add_flag("-j,--json", a.build.json, "The summary as JSON");
  build->add_option("--progress", a.build.progress, "auto, bar, plain, json or none")
      ->check(CLI::IsMember({"auto", "bar", "plain", "json", "none"}));
  dict->add_subcommand("verify", "Walk every row of every index to its entry")
      ->add_flag("-j,--json", a.json, "JSON");
  dict->add_subcommand("info", "Where it stands and how large it is")->add_flag("-j,--json", a.json, "JSON");
}

// The nearest of the known commands, or nothing.
std::string didYouMean(const std::string& word) {
  for (const char* command : {"look", "dict", "paths", "about", "help"}) {
    const std::string known = command;
    std::string a = known, b = word;
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    const bool prefix = word.size() >= 2 && (known.starts_with(word) || word.starts_with(known));
    const bool oneOff = word.size() == known.size() &&
                        std::inner_product(word.begin(), word.end(), known.begin(), size_t{0}, std::plus<>(),
                                           [](char x, char y) { return x == y ? size_t{1} : size_t{0}; }) +
                                1 ==
                            known.size();
    if (prefix || oneOff || a == b) return known;
  }
  return {};
}

int unknownCommand(const std::string& word) {
  std::fprintf(stderr, "zavel: there is no command \"%s\"\n", word.c_str());
  const std::string near = didYouMean(word);
  if (near.empty()) {
    std::fprintf(stderr, "To look a word up: zavel look %s\n", word.c_str());
  } else {
    std::fprintf(stderr, "Did you mean: zavel %s\n", near.c_str());
  }
  return kExitUsage;
}

CLI::App* subcommand(CLI::App& app, const std::string& name) {
  for (CLI::App* known : app.get_subcommands([](CLI::App*) { return true; })) {
    if (known->get_name() == name) return known;
  }
  return nullptr;
}

int printHelp(CLI::App& app, std::vector<std::string> commands) {
  CLI::App* shown = &app;
  std::string first, path;
  for (const std::string& command : commands) {
    CLI::App* next = subcommand(*shown, command);
    if (!next) return unknownCommand(command);
    if (first.empty()) first = command;
    path += (path.empty() ? "" : " ") + shown->get_name();
    shown = next;
  }
  if (shown == &app) {
    std::fputs(kShortHelp, stdout);
  } else {
    std::printf("%s%s", examplesOf(first), shown->help(path).c_str());
  }
  return kExitFound;
}

// The subcommands chosen so far, outermost first.
std::vector<std::string> chosen(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* at = &app; !at->get_subcommands().empty();) {
    at = at->get_subcommands().front();
    names.push_back(at->get_name());
  }
  return names;
}

int dispatch(const std::vector<std::string>& commands, Arguments& a) {
  const std::string first = commands.empty() ? "" : commands[0];
  if (first == "look") {
    a.look.mode = kModes.at(a.mode);
    a.look.colour = kColours.at(a.colour);
    return runLook(a.look);
  }
  if (first == "dict" && commands[1] == "build") return runDictBuild(a.build);
  if (first == "dict" && commands[1] == "verify") return runDictVerify(a.json);
  if (first == "dict" && commands[1] == "info") return runDictInfo(a.json);
  if (first == "paths") return runPaths(a.json);
  if (first == "about") return runAbout(a.json);
  std::fputs(kShortHelp, stdout);
  return kExitFound;
}

int parseAndRun(int argc, char** argv) {
  CLI::App app{"English and Japanese dictionary", "zavel"};
  Arguments arguments;
  app.set_version_flag("-V,--version", std::string("zavel ") + kVersion);
  addLook(app, arguments);
  addDict(app, arguments);
  app.add_subcommand("paths", "Print the folders in use")->add_flag("-j,--json", arguments.json, "JSON");
  app.add_subcommand("about", "Version, sources and licences")->add_flag("-j,--json", arguments.json, "JSON");
  app.require_subcommand(0, 1);

  const std::vector<std::string> words(argv + 1, argv + argc);
  if (!words.empty() && words[0] == "help") return printHelp(app, {words.begin() + 1, words.end()});
  if (!words.empty() && !words[0].empty() && words[0][0] != '-' && !subcommand(app, words[0])) {
    return unknownCommand(words[0]);
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return printHelp(app, chosen(app));
  } catch (const CLI::CallForVersion& version) {
    std::printf("%s\n", version.what());
    return kExitFound;
  } catch (const CLI::ParseError& error) {
    std::fprintf(stderr, "zavel: %s\n", error.what());
    std::string command = "zavel";
    for (const std::string& name : chosen(app)) command += " " + name;
    std::fprintf(stderr, "Run: %s --help\n", command.c_str());
    return kExitUsage;
  }
  return dispatch(chosen(app), arguments);
}

}  // namespace
}  // namespace zavel::host

int main(int argc, char** argv) {
  return zavel::host::parseAndRun(argc, argv);
}
