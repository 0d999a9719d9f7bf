// The English side of the basic set: entries, derived words and irregular forms, out of FreeDict, WordNet
// and the glosses of EDICT.
#ifndef MKDICT_ENGLISHSIDE_H
#define MKDICT_ENGLISHSIDE_H

#include <memory>
#include <string>

#include "mkdict/Compilation.h"
#include "mkdict/EdictLine.h"
#include "mkdict/Progress.h"

namespace zavel::mkdict {

struct EnglishSources {
  std::string freedictIndex = "/usr/share/dictd/freedict-eng-jpn.index";
  std::string freedictText = "/usr/share/dictd/freedict-eng-jpn.dict.dz";
  std::string wordnetFolder = "/usr/share/wordnet";
};

// open(), then takeEdict() for each line of EDICT in its order, then compile(), each once.
class EnglishSide {
 public:
  EnglishSide();
  ~EnglishSide();
  EnglishSide(const EnglishSide&) = delete;
  EnglishSide& operator=(const EnglishSide&) = delete;

  // Reads WordNet and FreeDict. False with a sentence in *error when a file is missing or damaged, or when
  // the work was cancelled: *error is then empty.
  bool open(const EnglishSources& sources, Progress& progress, std::string* error);

  // Turns a line's short glosses into candidates for translations, and keeps what they attest.
  void takeEdict(const EdictLine& line);

  // Fills compilation.english, derived and katu, adds the sources and the figures of this side. False when
  // cancelled.
  bool compile(Compilation& compilation, Progress& progress);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace zavel::mkdict

#endif
