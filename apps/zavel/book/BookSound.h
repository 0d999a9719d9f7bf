// Sounds of a book, heard.
#ifndef ZAVEL_BOOK_BOOKSOUND_H
#define ZAVEL_BOOK_BOOKSOUND_H

#include "Failure.h"
#include "book/BookMedia.h"
#include "book/OpenBook.h"

namespace zavel::host {

// Plays the sound and returns when it is over.
Failure playSound(const OpenBook& book, const BookMedium& sound);

}  // namespace zavel::host

#endif
