// Takes the manager's texts apart: the laid-out text with its style runs into entries for the eye, the
// labelled text into senses for programs.
#ifndef ZAVEL_ENTRYTEXT_H
#define ZAVEL_ENTRYTEXT_H

#include <string>
#include <vector>

#include "LookResult.h"
#include "lookup/ScrpSTElement.h"
#include "platform/TextEncoding.h"

namespace zavel::host {

// Splits laid-out text (Shift_JIS with CR line ends) at its headwords and fills text, spans, headword,
// homograph number and stars of each entry. Text without a headword gives one entry without one.
// `headwordColour` (0xRRGGBB) is the colour that the runs give to headwords. Without `whole` the text ends
// with its first line.
std::vector<Entry> entriesFromLayout(const std::string& text, const std::vector<ScrpSTElement>& runs,
                                     uint32_t headwordColour, const TextEncoding& encoding,
                                     bool whole = true);

// Reads senses from labelled text (UTF-8, CR line ends), one list for each headword label; text ahead of
// the first label counts as one entry.
std::vector<std::vector<Sense>> sensesFromLabels(const std::string& labelled);

}  // namespace zavel::host

#endif
