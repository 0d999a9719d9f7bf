// Bytes that a caller of the exported interface gets and frees with free().
#ifndef BOOK_OUTBUFFER_H
#define BOOK_OUTBUFFER_H

#include <cstddef>
#include <string_view>

namespace zavel::book {

// Zero bytes behind each buffer: a tag that the end of a text cuts off is read no further.
inline constexpr size_t kSlack = 64;

// `size` bytes of 0 and kSlack more. Null when memory ran out.
char* allocateOut(size_t size);

// A copy of `bytes`. Null when memory ran out.
char* copyOut(std::string_view bytes);

}  // namespace zavel::book

#endif
