// The icons in a book's catalog file.
#ifndef BOOK_DICICON_H
#define BOOK_DICICON_H

namespace zavel::book {

// The large icon (32 x 32) or the small one (16 x 15) of the catalog at `path`, as a 4-bit bitmap file of
// sixteen fixed colours, allocated with malloc(). Null when it can't be made: errno tells why, and is 0 for a
// file that is no book.
char* GFnGetDicIconBitmap(const char* path, bool large);

}  // namespace zavel::book

#endif
