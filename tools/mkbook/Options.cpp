// Tests: tests/mkbook/OptionsTest.cpp
#include "mkbook/Options.h"

#include <CLI/CLI.hpp>

#include "mkdict/ExitStatus.h"

namespace zavel::mkbook {
namespace {

constexpr const char* kAbout =
    "Compiles open dictionaries into electronic books of ZavelLex.\n"
    "\n"
    "Examples:\n"
    "  mkbook dictd /usr/share/dictd/wn.index ~/books/wordnet    any dictionary in dictd form\n"
    "  mkbook edict /usr/share/edict/edict ~/books/edict         Japanese words with readings\n"
    "  mkbook kanjidic /usr/share/edict/kanjidic ~/books/kanji   kanji by reading and meaning\n"
    "  mkbook text garden.txt ~/books/garden                     a book of your own, see mkbook-text(5)\n"
    "  mkbook dictd my.index out --title \"My words\" --json       own title, account as JSON\n"
    "  mkbook dictd my.index out --verify                        compare a book with its source\n";

constexpr const char* kExits =
    "The index of a dictionary in dictd form names it; its text stands beside it as .dict or .dict.dz.\n"
    "\n"
    "Exit status: 0 done, 2 wrong usage, 3 an input missing or the disk refusing, 5 damaged data or a book "
    "that\n"
    "differs from its source, 130 interrupted.\n";

void addCommon(CLI::App& app, Options* options) {
  app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  app.add_option("FORM", options->form, "Form of the source: dictd, edict, kanjidic or text")
      ->required()
      ->check(CLI::IsMember({"dictd", "edict", "kanjidic", "text"}));
  app.add_option("SOURCE", options->source, "The source's file; of dictd its index")
      ->required()
      ->type_name("FILE");
  app.add_option("OUTDIR", options->target, "Folder for the book; made, or an older book in it replaced")
      ->required()
      ->type_name("DIR");
  app.add_option("--title", options->title, "Title in place of the source's own")->type_name("TEXT");
  app.add_option("--id", options->number, "Identity of the book, 1 to 4294967295; else made from the title")
      ->check(CLI::Range(uint32_t{1}, UINT32_MAX))
      ->type_name("NUMBER");
  app.add_option("--unifont", options->unifont,
                 "Font for characters outside JIS X 0208, in GNU Unifont's .hex form")
      ->always_capture_default()
      ->type_name("FILE");
  app.add_flag("--verify", options->verify,
               "Compare the book in OUTDIR with its source instead of making it");
  app.add_option("--progress", options->progress, "How to show progress")
      ->always_capture_default()
      ->check(CLI::IsMember({"auto", "bar", "plain", "json", "none"}));
  app.add_flag("-j,--json", options->json, "Give the account as JSON");
  app.add_flag("-q,--quiet", options->quiet, "Say nothing but errors");
}

}  // namespace

bool parseOptions(int argc, const char* const* argv, Options* options, std::ostream& out, std::ostream& err,
                  int* status) {
  CLI::App app(kAbout, "mkbook");
  app.footer(kExits);
  app.set_version_flag("-V,--version", "mkbook " ZAVEL_VERSION);
  addCommon(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error, out, err);
    *status = code == 0 ? mkdict::kExitDone : mkdict::kExitUsage;
    return false;
  }
  return true;
}

}  // namespace zavel::mkbook
