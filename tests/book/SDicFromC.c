/* What a host in C sees of the book engine: the header, the records and the calls. */
#include <stddef.h>
#include <stdlib.h>

#include "book/SDic.h"

size_t itemAddressSizeInC(void) {
  return sizeof(_SDICITEMADDRESS);
}
size_t itemBodyOffsetInC(void) {
  return offsetof(_SDICITEMADDRESS, body);
}

/* The first byte of the first hit's headword in the book at `path`; -1 on a failure. */
int headwordInC(const char* path, const char* query) {
  void* book = NULL;
  long count = 0, first = 0;
  _SDICITEMADDRESS hit;
  char* text = NULL;
  uint16_t length = 0;
  int byte = -1;
  if (SDicOpenDictionary(path, &book, NULL, false, false) != 0) return -1;
  if (SDicExecIndexSearch(book, query, false, false, &count, &first) == 0 &&
      SDicGetSearchResult(book, (unsigned long)first, &hit) == 0 &&
      SDicGetHeadword(book, &hit.headword, &text, &length, true) == 0) {
    byte = (unsigned char)text[0];
    free(text);
  }
  return SDicCloseDictionary(book) == 0 ? byte : -1;
}
