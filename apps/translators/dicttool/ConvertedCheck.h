// Looks through a dictionary that a conversion has made.
#ifndef DICTTOOL_CONVERTEDCHECK_H
#define DICTTOOL_CONVERTEDCHECK_H

#include <cstddef>
#include <string>

#include "dicttool/Failure.h"

namespace zavel::dicttool {

// Reads `base`.index and `base`.dict as a whole: every line of the index stands in its order and leads to an
// entry of the text, from its beginning to its end, and the text is UTF-8. *words is then the number of
// lines. The failure names the first fault, with file and byte. An ending ".index" or ".dict" of `base` is
// taken off.
Failure checkConverted(std::string base, size_t* words);

}  // namespace zavel::dicttool

#endif
