// All rows of an index that a word is filed under, in an open session. The engine's own searches end at the
// fiftieth of a word that is shorter than its prefix. Words as the dictionary has them, in Shift_JIS; each
// function answers with the engine's status.
#ifndef ZAVEL_USER_USERROWS_H
#define ZAVEL_USER_USERROWS_H

#include <cstdint>
#include <string>
#include <vector>

#include "user/UserRecords.h"

namespace zavel::host {

// The entries filed under the letters or the kana of `word`, as `count` serial entries behind each other.
uint16_t serialEntriesOf(UserLanguage language, const std::string& word, std::string* list, uint16_t* count);

// The readings of all entries whose written form is filed as `written`: one for each of their keys, in
// the order of bytes.
uint16_t readingsOf(const std::string& written, std::vector<std::string>* readings);

// Where a stored entry stands now: each change moves its neighbours. 18 for one that is gone.
uint16_t findPlace(StoredEntry* stored);

}  // namespace zavel::host

#endif
