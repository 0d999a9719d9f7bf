// The form in which the engine writes the text of a user entry, to the byte: what departs from it was changed
// since. docs/formats.md has the pictures.
#ifndef ZAVEL_USER_USERCHECKFORM_H
#define ZAVEL_USER_USERCHECKFORM_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "user/UserEntry.h"

namespace zavel::host {

struct EntryForm {
  std::string_view word;   // English headword or reading as the file has it, borrowed from the text
  std::string_view kanji;  // written form; empty: none
  size_t length = 0;       // bytes of the whole entry; 0 where any of it is not as the engine writes it
  size_t sound = 0;        // bytes that are an entry by themselves: without examples behind what is wrong
  bool tooSoon = false;    // the text ended inside it
};

// Of the entry that begins `text`.
EntryForm formOfEntry(std::string_view text, UserLanguage language);

// Whether the entry is filed where it is looked for: the key of one of its words is `key`, and the word has
// the characters of such words alone. `type`: English, kana or kanji, as the engine numbers indexes.
bool isFiledUnder(std::string_view key, std::string_view word, uint16_t type);

// Whether an entry begins here.
bool beginsEntry(std::string_view text);

}  // namespace zavel::host

#endif
