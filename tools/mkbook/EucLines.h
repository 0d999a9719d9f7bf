// The lines of a text file in EUC-JP.
#ifndef MKBOOK_EUCLINES_H
#define MKBOOK_EUCLINES_H

#include <functional>
#include <string>
#include <string_view>

namespace zavel::mkbook {

// Calls `onLine` with each line that isn't empty, in UTF-8; with an empty one in the place of what isn't
// EUC-JP. Throws Failure, with `hint`, for a file that can't be read or whose last line breaks off.
void readEucLines(const std::string& path, const std::string& hint,
                  const std::function<void(std::string_view)>& onLine);

// Throws Failure unless nine lines in ten are sound, so that a file of another kind isn't taken for a
// dictionary.
void demandSoundLines(const std::string& path, const char* form, size_t sound, size_t unsound);

}  // namespace zavel::mkbook

#endif
