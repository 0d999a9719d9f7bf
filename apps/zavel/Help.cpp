// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "Help.h"

#include <cstdio>
#include <map>

#include "CommandLine.h"
#include "ExitStatus.h"
#include "book/BookCommandLine.h"
#include "user/UserCommandLine.h"

namespace zavel::host {
namespace {

// Ten lines, for who types the name alone.
constexpr const char* kShortHelp =
    "zavel - English and Japanese dictionary\n"
    "\n"
    "  zavel look goes            look a word up (English, kana or kanji)\n"
    "  zavel look --list inter    headwords that begin with it; --forms: inflection table; --json: for "
    "programs\n"
    "  zavel dict build           make the dictionary from open data; also: verify, info\n"
    "  zavel user add bank 銀行   your own entries; also: edit, find, list, delete, import, export\n"
    "  zavel book search dog      electronic books; also: show, list, info, multi, menu, picture, sound\n"
    "  zavel prefs | paths | about   which dictionaries are searched; folders in use; version and licences\n"
    "\n"
    "See `zavel help COMMAND` and `man zavel` for more.\n";

// What each help ends with.
const std::map<std::string, const char*> kNotes = {
    {"look",
     "\nWords are matched whole: wildcards (? and *) and Japanese in Latin letters (romaji) are not "
     "supported.\n"
     "Put two hyphens before a word that begins with one: zavel look -- -able\n"},
    {"prefs dict",
     "\nThe standard dictionary (type: bilingual) is the one that `zavel dict build` compiles. The "
     "translation\n"
     "dictionary (type: translation) adds proper nouns and technical terms. It is off at first because it "
     "starts\n"
     "a program for each word. To switch it on: zavel prefs dict enable translation\n"},
};

// What each help begins with.
const std::map<std::string, const char*> kExamples = {
    {"look",
     "  zavel look goes\n"
     "  zavel look 行く いく イク\n"
     "  zavel look --forms stop\n"
     "  zavel look --list inter\n"
     "  zavel look --json --mode pos better\n"
     "  zavel look --json < words.txt > entries.ndjson\n"},
    {"dict", "  zavel dict build\n  zavel dict verify\n  zavel dict info --json\n"},
    {"dict build", "  zavel dict build\n  zavel dict build --if-missing --quiet\n"},
    {"dict verify", "  zavel dict verify\n"},
    {"dict info", "  zavel dict info\n  zavel dict info --json\n"},
    {"prefs", "  zavel prefs dict list\n  zavel prefs dict enable translation\n"},
    {"prefs dict",
     "  zavel prefs dict list\n"
     "  zavel prefs dict enable translation\n"
     "  zavel prefs dict move translation 1\n"},
    {"prefs dict list", "  zavel prefs dict list\n  zavel prefs dict list --json\n"},
    {"prefs dict enable", "  zavel prefs dict enable translation\n  zavel prefs dict enable 2\n"},
    {"prefs dict disable", "  zavel prefs dict disable translation\n  zavel prefs dict disable 2\n"},
    {"prefs dict move", "  zavel prefs dict move translation 1\n  zavel prefs dict move 2 1\n"},
    {"paths", "  zavel paths\n  zavel --root /tmp/try paths --json\n"},
    {"about", "  zavel about\n  zavel about --json\n"},
};

}  // namespace

int printHelp(CLI::App& app, const std::vector<std::string>& commands) {
  if (commands.empty()) {
    std::fputs(kShortHelp, stdout);
    return kExitFound;
  }
  CLI::App* shown = &app;
  std::string parent;
  for (const std::string& command : commands) {
    parent += (parent.empty() ? "" : " ") + shown->get_name();
    shown = subcommand(*shown, command);
  }
  const auto examples = kExamples.find(joined(commands));
  const auto own = userExamples().find(joined(commands));
  if (own != userExamples().end()) std::printf("Examples:\n%s\n", own->second);
  const auto ofBooks = bookExamples().find(joined(commands));
  if (ofBooks != bookExamples().end()) std::printf("Examples:\n%s\n", ofBooks->second);
  if (examples != kExamples.end()) std::printf("Examples:\n%s\n", examples->second);
  std::fputs(shown->help(parent).c_str(), stdout);
  const auto notes = kNotes.find(joined(commands));
  if (notes != kNotes.end()) std::fputs(notes->second, stdout);
  const auto noteOfBooks = bookNotes().find(joined(commands));
  if (noteOfBooks != bookNotes().end()) std::fputs(noteOfBooks->second, stdout);
  return kExitFound;
}

}  // namespace zavel::host
