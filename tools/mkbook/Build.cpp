// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/Build.h"

#include <memory>
#include <new>
#include <stdexcept>

#include "mkbook/BookFolder.h"
#include "mkbook/Compiler.h"
#include "mkbook/DictdSource.h"
#include "mkbook/EdictSource.h"
#include "mkbook/Failure.h"
#include "mkbook/KanjidicSource.h"
#include "mkbook/TextSource.h"
#include "mkbook/VerifyBook.h"
#include "mkdict/JsonString.h"

namespace zavel::mkbook {
namespace {

using mkdict::jsonString;
using mkdict::Outcome;

std::unique_ptr<BookSource> openSource(const Options& options, mkdict::Progress& progress,
                                       mkdict::Summary* summary) {
  progress.stage("reading " + options.source);
  if (options.form == "edict") return std::make_unique<EdictSource>(options.source, summary);
  if (options.form == "text") return std::make_unique<TextSource>(options.source, summary);
  if (options.form == "kanjidic") return std::make_unique<KanjidicSource>(options.source, summary);
  return std::make_unique<DictdSource>(options.source, summary);
}

Outcome interrupted() {
  return {mkdict::kExitInterrupted, "interrupted", "interrupted; nothing was changed", "Run it again."};
}

Outcome compile(const Options& options, mkdict::Progress& progress, mkdict::Summary* summary) {
  BookFolder folder(options.target);
  const std::unique_ptr<BookSource> source = openSource(options, progress, summary);
  const Unifont font = Unifont::open(options.unifont);
  const BookIdentity identity{options.title.empty() ? source->title() : options.title,
                              options.number != 0 ? options.number : source->identity()};
  if (!compileBook(*source, identity, font, folder, progress, summary) || progress.cancelled())
    return interrupted();
  folder.putInPlace();
  return {};
}

Outcome verify(const Options& options, mkdict::Progress& progress, mkdict::Summary* summary,
               mkdict::Faults* faults) {
  mkdict::Summary ofSource;
  const std::unique_ptr<BookSource> source = openSource(options, progress, &ofSource);
  const Unifont font = Unifont::open(options.unifont);
  if (!verifyBook(*source, options.target, font, progress, summary, faults)) return interrupted();
  if (faults->total() == 0) return {};
  return {mkdict::kExitDamaged, "damaged_book",
          std::to_string(faults->total()) + (faults->total() == 1 ? " fault in " : " faults in ") +
              options.target,
          "Compile it again: mkbook " + options.form + " " + options.source + " " + options.target};
}

std::string member(const char* name, const std::string& value) {
  return jsonString(name) + ":" + value;
}

std::string faultsJson(const mkdict::Faults& faults) {
  std::string out;
  for (const mkdict::Fault& fault : faults.kept()) {
    out += std::string(out.empty() ? "" : ",") + "{" + member("entry", std::to_string(fault.offset)) + "," +
           member("message", jsonString(fault.message)) + "}";
  }
  return "[" + out + "]";
}

}  // namespace

Outcome build(const Options& options, mkdict::Progress& progress, mkdict::Summary* summary,
              mkdict::Faults* faults) {
  Outcome outcome;
  try {
    outcome =
        options.verify ? verify(options, progress, summary, faults) : compile(options, progress, summary);
  } catch (const Failure& failure) {
    outcome = {failure.status(), failure.code(), failure.what(), failure.hint()};
  } catch (const std::length_error& error) {
    outcome = {mkdict::kExitDamaged, "damaged_input", error.what(), "Is the source what it should be?"};
  } catch (const std::bad_alloc&) {
    outcome = {mkdict::kExitEnvironment, "no_memory", "not enough memory",
               "Close other programs, then try again."};
  }
  progress.finish();
  return outcome;
}

std::string reportText(const Options& options, const Outcome& outcome, const mkdict::Summary& summary,
                       const mkdict::Faults& faults) {
  std::string out;
  for (const mkdict::Fault& fault : faults.kept())
    out += "entry " + std::to_string(fault.offset) + ": " + fault.message + "\n";
  if (faults.total() > faults.kept().size())
    out += "and " + std::to_string(faults.total() - faults.kept().size()) + " more\n";
  if (options.quiet || outcome.status != mkdict::kExitDone) return out;
  return out + summary.text() +
         (options.verify ? options.target + " holds what its source says.\n"
                         : "Written to " + options.target + "\n");
}

std::string reportJson(const Options& options, const Outcome& outcome, const mkdict::Summary& summary,
                       const mkdict::Faults& faults) {
  const bool done = outcome.status == mkdict::kExitDone;
  const std::string status = done                 ? (options.verify ? "good" : "built")
                             : faults.total() > 0 ? "damaged"
                                                  : "error";
  std::string out = "{" + member("schema", "1") + "," + member("status", jsonString(status));
  if (status == "error") {
    return out + "," +
           member("error", "{" + member("code", jsonString(outcome.code)) + "," +
                               member("message", jsonString(outcome.message)) + "," +
                               member("hint", jsonString(outcome.hint)) + "}") +
           "}\n";
  }
  const std::string account = summary.json();
  out += "," + member("folder", jsonString(options.target)) + "," + account.substr(1, account.size() - 2);
  if (status == "damaged") {
    out += "," + member("fault_count", std::to_string(faults.total())) + "," +
           member("faults", faultsJson(faults));
  }
  return out + "}\n";
}

std::string reportErrors(const Outcome& outcome) {
  if (outcome.status == mkdict::kExitDone) return "";
  const std::string line = "mkbook: " + outcome.message + "\n";
  return outcome.status == mkdict::kExitInterrupted ? line : line + outcome.hint + "\n";
}

}  // namespace zavel::mkbook
