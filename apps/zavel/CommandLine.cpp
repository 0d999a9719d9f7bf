// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "CommandLine.h"

#include <algorithm>

#include "Nearest.h"
#include "Utf8.h"

namespace zavel::host {
namespace {

// Whether `word` is an option of `app` or of a command below it that takes the next word as its value.
bool takesValue(CLI::App& app, const std::string& word) {
  if (word.find('=') != std::string::npos) return false;
  const CLI::Option* option = app.get_option_no_throw(word);
  if (option && option->get_items_expected_max() > 0 && option->get_positional() == false) return true;
  for (CLI::App* below : app.get_subcommands([](CLI::App*) { return true; })) {
    if (takesValue(*below, word)) return true;
  }
  return false;
}

bool isHelp(const std::string& word) {
  return word == "-h" || word == "--help";
}

CLI::App* commandOf(CLI::App& app, const CommandLine& line) {
  CLI::App* at = &app;
  for (const std::string& command : line.commands) at = subcommand(*at, command);
  return at;
}

// Whether the letters behind a "-" are options of `command`, up to one that takes what is left as its value.
bool areOptions(CLI::App& command, const std::string& word) {
  for (size_t i = 1; i < word.size(); ++i) {
    const CLI::Option* option = command.get_option_no_throw(std::string("-") + word[i]);
    if (!option) return false;
    if (option->get_items_expected_max() > 0) return true;
  }
  return true;
}

}  // namespace

CLI::App* subcommand(CLI::App& app, const std::string& name) {
  for (CLI::App* known : app.get_subcommands([](CLI::App*) { return true; })) {
    if (known->get_name() == name) return known;
  }
  return nullptr;
}

CommandLine readCommandLine(CLI::App& app, const std::vector<std::string>& words) {
  CommandLine line;
  const auto optionsEnd = std::find(words.begin(), words.end(), "--");
  line.help = std::any_of(words.begin(), optionsEnd, isHelp);
  line.json = std::any_of(words.begin(), optionsEnd,
                          [](const std::string& word) { return word == "-j" || word == "--json"; });
  CLI::App* at = &app;
  size_t i = 0;
  for (; i < words.size() && words[i] != "--"; ++i) {
    const std::string& word = words[i];
    const bool deepest = at != &app && at->get_subcommands([](CLI::App*) { return true; }).empty();
    if (deepest) break;
    if (word.size() > 1 && word[0] == '-') {
      line.rest.push_back(word);
      if (takesValue(app, word) && i + 1 < words.size()) line.rest.push_back(words[++i]);
      continue;
    }
    CLI::App* next = subcommand(*at, word);
    if (!next) {
      line.unknown = word;
      break;
    }
    line.commands.push_back(word);
    at = next;
  }
  line.rest.insert(line.rest.end(), words.begin() + static_cast<std::ptrdiff_t>(i), words.end());
  return line;
}

std::string joined(const std::vector<std::string>& words) {
  std::string out;
  for (const std::string& word : words) out += (out.empty() ? "" : " ") + word;
  return out;
}

std::string strayWord(CLI::App& app, const CommandLine& line) {
  CLI::App& command = *commandOf(app, line);
  for (size_t i = 0; i < line.rest.size() && line.rest[i] != "--"; ++i) {
    const std::string& word = line.rest[i];
    if (word.size() < 2 || word[0] != '-') continue;
    if (word[1] != '-' && !areOptions(command, word)) return word;
    if (word[1] == '-' || word.size() == 2) i += takesValue(command, word) ? 1 : 0;
  }
  return {};
}

Failure unknownCommand(CLI::App& app, const CommandLine& line) {
  CLI::App* at = commandOf(app, line);
  std::vector<std::string> known;
  for (CLI::App* below : at->get_subcommands([](CLI::App*) { return true; }))
    known.push_back(below->get_name());
  if (at == &app) known.push_back("help");
  const std::string path = "zavel" + (line.commands.empty() ? "" : " " + joined(line.commands));
  const std::string near = nearest(line.unknown, known);
  const std::string word = printable(line.unknown);
  std::string hint = "Run: " + path + " --help";
  if (!near.empty()) {
    hint = "Did you mean: " + path + " " + near;
  } else if (at == &app) {
    hint = "To look a word up: zavel look " + word;
  }
  return {
      kExitUsage, "usage",
      "there is no command \"" + joined({line.commands}) + (line.commands.empty() ? "" : " ") + word + "\"",
      hint};
}

}  // namespace zavel::host
