// Tests: tests/translators/DicttoolProgramTest.cpp
#include "dicttool/ToolOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "dicttool/Failure.h"

namespace zavel::dicttool {
namespace {

constexpr const char* kAbout =
    "Looks a word up in dictd dictionaries for another program: reads the word from the source file, writes "
    "the\n"
    "answer to the result file.\n"
    "\n"
    "Examples:\n"
    "  printf cat >word; zavel-dicttool -e word -r answer.plist -w\n"
    "  zavel-dicttool -d ZP.plist -i ZavelStyle.plist -s 0 -e word -r answer.plist -w\n"
    "  zavel-dicttool --convert /usr/share/edict/compdic "
    "~/.local/share/zavel/dictionaries/translation/compdic\n";

constexpr const char* kExits =
    "Exit status: 0 done, whether the word was found or not; 2 wrong usage; 3 a file is missing or can't be\n"
    "written, or there is no dictionary; 5 damaged data; 130 interrupted. See zavel-dicttool(1) for more.\n";

void describe(CLI::App& app, ToolOptions* options) {
  app.footer(kExits);
  app.set_version_flag("-V,--version", "zavel-dicttool " ZAVEL_VERSION);
  CLI::Option* parameters =
      app.add_option("-d", options->parameterFile, "Parameter file that names the dictionaries to search")
          ->type_name("FILE");
  app.add_flag("-m", options->medical, "Search only the dictionaries of the configuration")
      ->excludes(parameters);
  app.add_option("-i", options->styleFile, "Style file that names technical and user dictionaries")
      ->type_name("FILE");
  app.add_option("-s", options->styleNumber, "Position of the style in that file, counted from 0")
      ->type_name("NUMBER");
  app.add_option("-e", options->source, "Source file with the word, in Shift_JIS")->type_name("FILE");
  app.add_option("-r", options->result, "Result file to write, a property list")->type_name("FILE");
  app.add_flag("-w", options->word, "Look up a word");
  app.add_option("--convert", options->conversion,
                 "Make TARGET.index and TARGET.dict from a file in EDICT format")
      ->expected(2)
      ->type_name("SOURCE TARGET");
  app.add_option("--verify", options->verify, "Check TARGET.index and TARGET.dict made by --convert")
      ->type_name("TARGET");
}

void check(const ToolOptions& options) {
  const bool files = !options.source.empty() || !options.result.empty() || options.word;
  const bool converts = !options.conversion.empty(), verifies = !options.verify.empty();
  if (converts || verifies) {
    const std::string name = converts ? "--convert" : "--verify";
    if (converts && verifies) throw CLI::ValidationError("--convert and --verify can't be combined");
    if (files) throw CLI::ValidationError(name + " can't be combined with -e, -r or -w");
    return;
  }
  if (options.source.empty()) throw CLI::ValidationError("-e FILE is required");
  if (options.result.empty()) throw CLI::ValidationError("-r FILE is required");
}

}  // namespace

std::optional<ToolOptions> ToolOptions::parse(int argc, const char* const* argv, std::ostream& out,
                                              std::ostream& err, int* status) {
  ToolOptions options;
  CLI::App app(kAbout, "zavel-dicttool");
  describe(app, &options);
  try {
    app.parse(argc, argv);
    check(options);
    return options;
  } catch (const CLI::Success& asked) {
    *status = app.exit(asked, out, err);
  } catch (const CLI::ParseError& error) {
    std::string what = error.what();
    std::replace(what.begin(), what.end(), '\n', ' ');
    err << "zavel-dicttool: " << what << "; see zavel-dicttool --help\n";
    *status = kExitUsage;
  }
  return std::nullopt;
}

}  // namespace zavel::dicttool
