// Sounds of a book, heard.
#ifndef ZAVEL_BOOK_BOOKSOUND_H
#define ZAVEL_BOOK_BOOKSOUND_H

#include "Failure.h"
#include "book/BookMedia.h"
#include "book/ShelvedBook.h"

namespace zavel::host {

// Plays the sound and returns when it is over.
Failure playSound(const ShelvedBook& book, const BookMedium& sound);

}  // namespace zavel::host

#endif
