// Reads EDICT whole: EUC-JP text, one word a line.
#ifndef MKDICT_EDICTREADER_H
#define MKDICT_EDICTREADER_H

#include <functional>
#include <string>

#include "mkdict/Compilation.h"
#include "mkdict/EdictLine.h"
#include "mkdict/Progress.h"

namespace zavel::mkdict {

// What stands in the way of reading a source.
enum class SourceFault { kNone, kMissing, kDamaged, kCancelled };

class EdictReader {
 public:
  // Fills compilation->japanese, its source and its summary. A line that is no EDICT line is counted and
  // passed over; kDamaged when fewer lines than nine in ten are sound, or there is none at all, so that a
  // file of another kind is not taken for a dictionary, and when the last line breaks off, as in a file that
  // is cut short. *error then says what is wrong, after kMissing too. `onLine` (if not empty) sees every
  // sound line.
  static SourceFault read(const std::string& path, Compilation* compilation, Progress& progress,
                          std::string* error, const std::function<void(const EdictLine&)>& onLine = {});
};

}  // namespace zavel::mkdict

#endif
