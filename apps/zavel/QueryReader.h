// Queries from standard input, one a line or one up to each NUL.
#ifndef ZAVEL_QUERYREADER_H
#define ZAVEL_QUERYREADER_H

#include <string>

namespace zavel::host {

class QueryReader {
 public:
  // `nul`: queries end in NUL instead of 0x0A.
  explicit QueryReader(bool nul) : end_(nul ? '\0' : '\n') {}

  // False at the end of input, and when it can't be read. `tooLong` tells that the query is longer than any
  // word can be; `query` then holds its start, and the rest of it was passed over.
  bool next(std::string* query, bool* tooLong);

 private:
  int end_;
};

}  // namespace zavel::host

#endif
