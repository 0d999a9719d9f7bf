// The parameter file that tells the English to Japanese helper programs which dictionaries to use.
#ifndef CONFIG_ZPFILE_H
#define CONFIG_ZPFILE_H

#include <cstdint>

namespace zavel {

// Writes the file to `gDictPath` for the style at place `style` in the list of `gStylePath`: a place, not an
// ID. docs/formats.md tells the file. False, after the log line "Error [PATH]", when the style file can't be
// read or has no such style with an "EJ" map (its path), or when the file can't be written (its path); what
// stood there before then stays.
bool saveZP(int32_t style);

}  // namespace zavel

#endif
