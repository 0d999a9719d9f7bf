// A file in EDICT form as a dictionary in dictd form.
#ifndef DICTTOOL_EDICTCONVERSION_H
#define DICTTOOL_EDICTCONVERSION_H

#include <csignal>
#include <cstddef>
#include <string>

#include "dicttool/Failure.h"

namespace zavel::dicttool {

struct ConversionAccount {
  std::string indexPath;
  size_t entries = 0;
  size_t words = 0;    // lines of the index
  size_t leftOut = 0;  // lines of another form or encoding
};

// Reads the file at `source`, in EUC-JP or UTF-8, and writes `target`.index and `target`.dict, in which an
// entry is found by its Japanese forms and by the words of its glosses. An ending ".index" or ".dict" of
// `target` is taken off; its folder is made. `stop` (borrowed; may be null): not 0 ends it. A failure leaves
// what stood there, unless the disk fails between the two files: then there is no index.
Failure convertEdict(const std::string& source, std::string target, const volatile std::sig_atomic_t* stop,
                     ConversionAccount* account);

}  // namespace zavel::dicttool

#endif
