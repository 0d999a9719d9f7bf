// Tests: tests/mkdict/BuildTest.cpp.
#include "mkdict/Build.h"

#include <new>
#include <stdexcept>

#include "foundation/Storage.h"
#include "mkdict/BasicSet.h"
#include "mkdict/EdictReader.h"
#include "mkdict/EnglishSide.h"
#include "mkdict/SetWriter.h"
#include "mkdict/Verify.h"

namespace zavel::mkdict {
namespace {

Outcome failed(int status, const char* code, const std::string& message, const std::string& hint) {
  return {status, code, message, hint};
}

Outcome interrupted() {
  return failed(kExitInterrupted, "interrupted", "interrupted; nothing was changed", "Run it again.");
}

// One file that a build reads, and where it comes from.
struct Input {
  std::string path;
  const char* package;
  const char* option;
};

std::vector<Input> inputsOf(const Options& options) {
  std::vector<Input> inputs = {
      {options.edict, "edict", "--edict"},
      {options.english.freedictIndex, "dict-freedict-eng-jpn", "--freedict-index"},
      {options.english.freedictText, "dict-freedict-eng-jpn", "--freedict-dict"},
  };
  for (const char* file : {"data.noun", "data.verb", "data.adj", "data.adv", "noun.exc", "verb.exc",
                           "adj.exc", "adv.exc", "cntlist.rev"}) {
    inputs.push_back({options.english.wordnetFolder + "/" + file, "wordnet-base", "--wordnet"});
  }
  return inputs;
}

Outcome checkInputs(const Options& options) {
  for (const Input& input : inputsOf(options)) {
    if (!storage().exists(input.path) || storage().isFolder(input.path)) {
      return failed(kExitEnvironment, "missing_input", input.path + " is missing",
                    std::string("Install the Debian package ") + input.package + ", or name the place with " +
                        input.option + ".");
    }
    if (storage().open(input.path, OpenMode::kRead) == nullptr) {
      return failed(kExitEnvironment, "unreadable_input", input.path + " can't be read",
                    std::string("Make it readable, or name the place of another with ") + input.option + ".");
    }
  }
  return {};
}

Outcome damagedInput(const std::string& error) {
  return failed(kExitDamaged, "damaged_input", error, "Install its package again, or name another file.");
}

Outcome writeFailed(const SetWriter& writer, const std::string& error) {
  const auto hint = [&writer]() -> std::string {
    switch (writer.left()) {
      case SetWriter::Left::kNewSet:
        return "The new dictionary stands there whole, but may not outlast a power cut.";
      case SetWriter::Left::kAside:
        return "What stood there before is now " + writer.aside() + "; the next run puts it back.";
      case SetWriter::Left::kAsItWas:
        break;
    }
    return "What stood there before is unchanged. Make room on the disk, or make the folder writable, and try again.";
  };
  return failed(kExitEnvironment, "write_failed", error, hint());
}

class Run {
 public:
  Run(const Options& options, Progress& progress)
      : options_(options), progress_(progress), writer_(options.target) {}

  Outcome run();
  Summary takeSummary() { return std::move(compilation_.summary); }

 private:
  Outcome read();
  Outcome write();

  const Options& options_;
  Progress& progress_;
  SetWriter writer_;
  Compilation compilation_;
};

Outcome Run::read() {
  EnglishSide english;
  std::string error;
  if (!english.open(options_.english, progress_, &error))
    return error.empty() ? interrupted() : damagedInput(error);
  const auto toEnglish = [&english](const EdictLine& line) { english.takeEdict(line); };
  switch (EdictReader::read(options_.edict, &compilation_, progress_, &error, toEnglish)) {
    case SourceFault::kCancelled:
      return interrupted();
    case SourceFault::kMissing:
    case SourceFault::kDamaged:
      return damagedInput(error);
    case SourceFault::kNone:
      break;
  }
  return english.compile(compilation_, progress_) ? Outcome() : interrupted();
}

Outcome Run::write() {
  std::vector<SetFile> files = makeBasicSet(compilation_, progress_);
  if (files.empty()) return interrupted();
  files.push_back({SetWriter::kSources, sourcesText(compilation_.sources)});
  std::string error;
  if (writer_.write(files, progress_, &error)) return {};
  if (error.empty()) return interrupted();
  return writeFailed(writer_, error);
}

Outcome Run::run() {
  std::string error;
  if (!writer_.prepare(&error)) {
    return failed(kExitEnvironment, "bad_target", error,
                  "Name an empty folder, a new one, or one with a set.");
  }
  if (!writer_.start(&error)) return writeFailed(writer_, error);
  for (const auto step : {&Run::read, &Run::write}) {
    if (const Outcome outcome = (this->*step)(); outcome.status != kExitDone) return outcome;
  }
  return {};
}

}  // namespace

Outcome build(const Options& options, Progress& progress, Summary* summary) {
  try {
    if (const Outcome outcome = checkInputs(options); outcome.status != kExitDone) return outcome;
    Run run(options, progress);
    const Outcome outcome = run.run();
    *summary = run.takeSummary();
    progress.finish();
    return outcome;
  } catch (const std::length_error& error) {
    progress.finish();
    return failed(kExitDamaged, "damaged_input", error.what(), "Is the source what it should be?");
  } catch (const std::bad_alloc&) {
    progress.finish();
    return failed(kExitEnvironment, "no_memory", "not enough memory",
                  "Close other programs, then try again.");
  }
}

Outcome verify(const Options& options, Progress& progress, Summary* summary, Faults* faults) {
  const Verdict verdict = verifySet(options.verify, progress, summary, faults);
  progress.finish();
  switch (verdict) {
    case Verdict::kGood:
      break;
    case Verdict::kNoFolder:
      return failed(kExitEnvironment, "no_dictionary", options.verify + " is no folder",
                    "Name the folder of a set.");
    case Verdict::kCancelled:
      return interrupted();
    case Verdict::kDamaged:
      return failed(kExitDamaged, "damaged_set",
                    std::to_string(faults->total()) + (faults->total() == 1 ? " fault in " : " faults in ") +
                        options.verify,
                    "Build it anew: mkdict " + options.verify);
  }
  return {};
}

}  // namespace zavel::mkdict
