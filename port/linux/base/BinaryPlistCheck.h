// The door in front of the library's reader of binary property lists.
#ifndef PORT_LINUX_BASE_BINARYPLISTCHECK_H
#define PORT_LINUX_BASE_BINARYPLISTCHECK_H

#include <string_view>

namespace zavel {

// True when `bytes` is a binary property list ("bplist00") that the library reads rightly and in bounded
// memory: every object inside the file, no list that holds itself, no deeper than the limit, and no larger
// than the limits after each shared object has been copied to every place that names it. Its text, integers
// and dates must be such as an XML list can hold. Sets, null and references of keyed archives are refused.
bool isSafeBinaryPlist(std::string_view bytes);

}  // namespace zavel

#endif
