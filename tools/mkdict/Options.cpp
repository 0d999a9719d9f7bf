// Tests: tests/mkdict/OptionsTest.cpp.
#include "mkdict/Options.h"

#include <CLI/CLI.hpp>

#include "mkdict/ExitStatus.h"

namespace zavel::mkdict {
namespace {

constexpr const char* kAbout =
    "Compiles open dictionaries into the basic dictionary set of ZavelLex: English words from FreeDict and\n"
    "WordNet, Japanese words from EDICT.\n"
    "\n"
    "Examples:\n"
    "  mkdict ~/.local/share/zavel/dictionary      build from the Debian packages' files\n"
    "  mkdict --edict edict-2024 --json out        build from another EDICT, account as JSON\n"
    "  mkdict --verify ~/.local/share/zavel/dictionary\n";

constexpr const char* kExits =
    "Exit status: 0 done, 2 wrong usage, 3 an input missing or the disk refusing, 5 damaged data, 130 "
    "interrupted.\n";

}  // namespace

bool parseOptions(int argc, const char* const* argv, Options* options, std::ostream& out, std::ostream& err,
                  int* status) {
  CLI::App app(kAbout, "mkdict");
  app.footer(kExits);
  app.set_version_flag("-V,--version", "mkdict " ZAVEL_VERSION);
  // The last of several wins, so that a script can be given a default and a change of mind.
  app.option_defaults()->always_capture_default()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  CLI::Option* target =
      app.add_option("OUTDIR", options->target, "Folder for the set; made, or an older set in it replaced")
          ->type_name("DIR")
          ->multi_option_policy(CLI::MultiOptionPolicy::Throw)
          ->always_capture_default(false);
  CLI::Option* verify =
      app.add_option("--verify", options->verify, "Check the set in a folder instead of building one")
          ->type_name("DIR")
          ->always_capture_default(false);
  app.add_option("--edict", options->edict, "EDICT, in EUC-JP")->type_name("FILE");
  app.add_option("--freedict-index", options->english.freedictIndex, "Index of the FreeDict dictionary")
      ->type_name("FILE");
  app.add_option("--freedict-dict", options->english.freedictText, "Its text, plain or dictzip")
      ->type_name("FILE");
  app.add_option("--wordnet", options->english.wordnetFolder, "Folder of WordNet's files")->type_name("DIR");
  app.add_option("--progress", options->progress, "How to show progress")
      ->check(CLI::IsMember({"auto", "bar", "plain", "json", "none"}));
  app.add_flag("-j,--json", options->json, "Give the account as JSON");
  app.add_flag("-q,--quiet", options->quiet, "Say nothing but errors");
  target->excludes(verify);
  try {
    app.parse(argc, argv);
    if (options->target.empty() && options->verify.empty()) {
      throw CLI::RequiredError("OUTDIR (or --verify DIR)");
    }
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error, out, err);
    *status = code == 0 ? kExitDone : kExitUsage;
    return false;
  }
  return true;
}

}  // namespace zavel::mkdict
