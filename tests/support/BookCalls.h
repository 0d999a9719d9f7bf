// Everything that a host can ask of a book, for books that are damaged: what is asked doesn't depend on what
// they answer. Aborts where an answer contradicts itself.
#ifndef TESTS_SUPPORT_BOOKCALLS_H
#define TESTS_SUPPORT_BOOKCALLS_H

#include <cstdint>
#include <string>

#include "book/SDic.h"

namespace zavel::test {

class BookCalls {
 public:
  // Every operation on the book at `path`. Result: how many succeeded.
  int useAll(const char* path);

  // The same by groups, on an open book.
  void search(void* book);
  void search(void* book, const std::string& query);
  void texts(void* book, const _SDICADDRESS& at);
  void menus(void* book);
  void multi(void* book);
  void gaiji(void* book);
  void plain(void* book);
  // A tag, as a host has it that cut it out of a text.
  void media(void* book, const std::string& tag);

 private:
  void take(uint32_t code, char*& out);
  // A tag as a body or headword has it: at least 64 zeroes stand behind the text.
  void onTag(void* book, const char* tag);
  void freeBoth(uint32_t code, char** name, char** data);

  int codes_ = 0;
};

}  // namespace zavel::test

#endif
