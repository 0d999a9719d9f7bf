// Reads a whole book back as a host does, and compares it with its source.
#ifndef MKBOOK_VERIFYBOOK_H
#define MKBOOK_VERIFYBOOK_H

#include <string>

#include "mkbook/BookSource.h"
#include "mkbook/Unifont.h"
#include "mkdict/Faults.h"
#include "mkdict/Progress.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

// Walks from entry to entry of the book in `folder` and compares each with the source's: headword, text,
// indents, emphasis and other styles, where references lead, pictures and sounds byte for byte; then asks for
// each word of each entry as it is typed, for its beginnings and its ends, which must lead to the entry,
// walks the menus, asks by each field of each form, and compares the glyphs of the book's own characters with
// the font's. What differs goes into *faults, with the entry's number for an offset. Throws Failure for a
// book that can't be opened. False when `progress` was cancelled.
bool verifyBook(const BookSource& source, const std::string& folder, const Unifont& font,
                mkdict::Progress& progress, mkdict::Summary* summary, mkdict::Faults* faults);

}  // namespace zavel::mkbook

#endif
