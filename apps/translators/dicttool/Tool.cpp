// Tests: tests/translators/DicttoolProgramTest.cpp
#include "dicttool/Tool.h"

#include <optional>

#include "dicttool/ConvertedCheck.h"
#include "dicttool/EdictConversion.h"
#include "dicttool/Failure.h"
#include "dicttool/ToolOptions.h"
#include "dicttool/WordLookup.h"

namespace zavel::dicttool {
namespace {

Failure convert(const ToolOptions& options, std::ostream& out, const volatile std::sig_atomic_t* stop) {
  ConversionAccount account;
  const Failure failure = convertEdict(options.conversion[0], options.conversion[1], stop, &account);
  if (failure) return failure;
  out << account.indexPath << ": " << account.entries << " entries under " << account.words << " words";
  if (account.leftOut > 0) out << ", " << account.leftOut << " lines left out";
  out << "\n";
  return {};
}

Failure verify(const std::string& base, std::ostream& out) {
  size_t words = 0;
  const Failure failure = checkConverted(base, &words);
  if (!failure) out << base << ": " << words << " words lead to their entries\n";
  return failure;
}

Failure work(const ToolOptions& options, std::ostream& out, std::ostream& err,
             const volatile std::sig_atomic_t* stop) {
  if (!options.conversion.empty()) return convert(options, out, stop);
  if (!options.verify.empty()) return verify(options.verify, out);
  if (!options.word) return {kExitEnvironment, "sentences can't be translated yet; add -w to look up a word"};
  return lookUpWord(options, DictionaryPlaces::standard(), err);
}

}  // namespace

int runTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
            const volatile std::sig_atomic_t* stop) {
  int status = kExitDone;
  const std::optional<ToolOptions> options = ToolOptions::parse(argc, argv, out, err, &status);
  if (!options) return status;
  const Failure failure = work(*options, out, err, stop);
  if (failure) err << "zavel-dicttool: " << failure.message << "\n";
  return failure.status;
}

}  // namespace zavel::dicttool
