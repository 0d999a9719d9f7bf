// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "CommandLine.h"

#include <algorithm>
#include <string_view>

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

template <typename Kind>
bool is(const CLI::ParseError& error) {
  return dynamic_cast<const Kind*>(&error) != nullptr;
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

// The first option of several letters that the command doesn't have: its value may have taken the place of
// another word, which is then what the parser has left over first. Empty when there is none.
std::string unknownOption(CLI::App& app, const CommandLine& line) {
  CLI::App& command = *commandOf(app, line);
  for (size_t i = 0; i < line.rest.size() && line.rest[i] != "--"; ++i) {
    const std::string& word = line.rest[i];
    if (!word.starts_with("--")) continue;
    const std::string name = word.substr(0, word.find('='));
    if (!command.get_option_no_throw(name) && !app.get_option_no_throw(name)) return name;
    i += takesValue(command, word) ? 1 : 0;
  }
  return {};
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

std::string usageMessage(CLI::App& app, const CommandLine& line, const CLI::ParseError& error) {
  const std::string said = error.what();
  const auto ahead = [&said](std::string_view rest) { return said.substr(0, said.find(rest)); };
  const auto behind = [&said](std::string_view start) {
    const size_t at = said.find(start);
    return at == std::string::npos ? said : said.substr(at + start.size());
  };
  if (is<CLI::ExtrasError>(error)) {
    const std::string option = unknownOption(app, line);
    if (!option.empty()) return "there is no option " + option;
    const std::string extra = behind(": ");
    return extra.starts_with('-') ? "there is no option " + extra : "there is no place for: " + extra;
  }
  if (is<CLI::RequiredError>(error)) {
    return said.starts_with("A subcommand") ? "the command is missing"
                                            : "the " + ahead(" is required") + " is missing";
  }
  if (is<CLI::ExcludesError>(error))
    return ahead(" excludes ") + " and " + behind(" excludes ") + " exclude each other";
  if (is<CLI::ArgumentMismatch>(error)) {
    return ahead(": ") + (said.ends_with(" missing") ? ": its value is missing" : " is given more than once");
  }
  constexpr std::string_view kNotIn = " not in {";
  if (!is<CLI::ValidationError>(error) || said.find(kNotIn) == std::string::npos) return said;
  std::string choices = behind(kNotIn);
  choices = choices.substr(0, choices.rfind('}'));
  for (size_t at = 0; (at = choices.find(',', at)) != std::string::npos; at += 2) choices.insert(at + 1, " ");
  const std::string option = ahead(": "), value = ahead(kNotIn).substr(option.size() + 2);
  return option + ": \"" + value + "\" is none of " + choices;
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
