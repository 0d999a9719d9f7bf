// The line that a headword list shows for an entry, built from the entry's bytes.
#ifndef ENGINE_INDEXLINE_H
#define ENGINE_INDEXLINE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zavel::engine {

enum class LineResult {
  kLine,       // *line is complete
  kNoEntry,    // no entry tag on the first line of `text`
  kNeedsMore,  // `text` ended before the line was settled and is not `whole`
};

// Builds the line of the entry that begins `text`, without a NUL: "run [走る]" (type 1), "くだもの [果物]"
// (type 2), "果物 [くだもの]" (type 3). Bytes of `text` from the next entry on are not looked at.
//   whole  nothing follows `text`
//   cap    the headword ends at this many bytes, and a line that reaches it stays without gloss or brackets
LineResult BuildIndexLine(std::string_view text, bool whole, uint16_t type, size_t cap, std::string* line);

// Turns a Japanese line into its final form. The part before the byte 0xA5 and the part after it change
// into "before [after]" (type 2) or "after [before]" (type 3). Without a 0xA5, or with a "〈" ahead of it,
// each "〈" becomes " [" and the first "〉" becomes "]" and ends the line.
void InformMidasiJ(std::string* line, uint16_t type);

}  // namespace zavel::engine

#endif
