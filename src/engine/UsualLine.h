// The line of an English entry of the usual shape, as nearly all entries are: stars, homograph number, ASCII
// headword, pronunciation, part of speech, meaning, each where it is expected and none with a mark that needs
// a second look. BuildIndexLine builds it too, at twice the cost.
#ifndef ENGINE_USUALLINE_H
#define ENGINE_USUALLINE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace zavel::engine {

// The line that BuildIndexLine builds of the entry that begins `text` (type 1, capped at `cap` bytes of
// headword), where the entry has the usual shape and `text` holds its first meaning line whole. False: not
// so, and *line is as it was.
bool BuildUsualLine(std::string_view text, size_t cap, std::string* line);

}  // namespace zavel::engine

#endif
