// Sectioned text files: a section's name in square brackets on a line of its own, lines "key=value" below it.
// Lines that begin with "#" and empty lines mean nothing. Bytes are taken as they are, in whatever encoding.
//
// Blanks around lines, keys and values don't count, and names are compared without regard to the case of
// ASCII letters. A line of over 511 bytes is read as several lines, and a NUL ends its line. Files of over
// kLargestIniFile bytes are refused with EFBIG.
//
// Results are error numbers of the platform's C library: 0 for success, 22 for a bad argument (a null or
// empty key or path, no buffer, no value).
#ifndef FOUNDATION_INIFILE_H
#define FOUNDATION_INIFILE_H

#include <cstddef>
#include <string>

namespace zavel::foundation {

constexpr int kIniBadArgument = 22;
constexpr int kIniNotFound = 1;
constexpr size_t kLargestIniFile = 16u << 20;

// What is left to read of a file, and where the line read last stands in it.
struct IniText {
  std::string content;
  size_t position = 0;   // of the next byte to read
  size_t lineStart = 0;  // of the line that ReadLine gave last, its blanks and its line end included
  bool ended = false;    // ReadLine found no further line, and left its buffer as it was
};

// The next line that is neither empty nor a comment, trimmed, into `buffer` of `size` bytes: cut to size - 1
// and ended by NUL. Always 0; `file->ended` tells of the end.
int ReadLine(char* buffer, size_t size, IniText* file);

// The value of `key` in `section` of the file at `path`, or `defaultValue` (may be null), into `buffer` of
// `bufferSize` bytes, cut to what fits with its NUL. 0; kIniNotFound when neither is there; the error number
// when the file can't be read.
//
// A null or empty `section` means the lines ahead of the first section. Where a section stands twice, the
// first counts; likewise for keys.
int ECGetString(const char* section, const char* key, const char* defaultValue, char* buffer,
                size_t bufferSize, const char* path);

// The value as a number, by the rules of atoi. Whatever fails, the result is `defaultValue`.
long ECGetLong(const char* section, const char* key, long defaultValue, const char* path);

// Writes the value in place of the key's line, else at the end of the section, else at the end of the file
// under a new section line. A missing file is made; when it can't be, the result is the error number. A file
// that is there is replaced in one step; when that fails it stays as it was, and the result is 0 all the same
// (kept: docs/quirks.md). A last line without line end is
// joined by what is written behind it, and "CURPOS:" with the file's old length is printed to standard
// output (both kept: docs/quirks.md).
int ECSetString(const char* section, const char* key, const char* value, const char* path);
int ECSetLong(const char* section, const char* key, long value, const char* path);

// The sections' names in the order of the file, each ended by NUL, with one further NUL at the end, into
// `*out`, which the caller frees with free(). Null when there are none.
int ECEnumSections(const char* path, char** out);

}  // namespace zavel::foundation

#endif
