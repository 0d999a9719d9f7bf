// A book with every kind of region once, small enough to damage each of its bytes.
#ifndef TESTS_SUPPORT_SMALLBOOK_H
#define TESTS_SUPPORT_SMALLBOOK_H

#include <cstdint>
#include <map>
#include <string>

namespace zavel::test {

// A file of one block set, with matches where a byte repeats. Zeroes at the end need no codes.
std::string packed(std::string bytes);

// Its files by name; "BOOK" is the catalog. Words AB and CD in every index, a form of two fields, a picture
// of each kind, a sound, two fonts of one character.
std::map<std::string, std::string> smallBook();

// Tags for what it holds, and for a film.
std::string smallMonoTag();
std::string smallColorTag();
std::string smallSoundTag(uint32_t format);
std::string smallFilmTag();

}  // namespace zavel::test

#endif
