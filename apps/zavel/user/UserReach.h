// Whether a dictionary whose files belong together still leads to everything that was stored: with an older
// first index in the place of the present one, or with offsets in it lost, entries look just like deleted
// ones. A stamp tells which of them were. It also tells an older file of entries from the present one, where
// both have the same size and their entries the same places.
#ifndef ZAVEL_USER_USERREACH_H
#define ZAVEL_USER_USERREACH_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Failure.h"
#include "user/UserCheck.h"
#include "user/UserMarker.h"
#include "user/UserStamp.h"

namespace zavel::host {

struct UserReach {
  // Offsets of whole entries that nothing leads to, though this program didn't delete them.
  std::vector<uint32_t> unreached;
  std::vector<std::string> words;  // theirs
  // Offsets of entries that something leads to, though they were deleted.
  std::vector<uint32_t> revived;
  std::vector<std::string> revivedWords;
  bool stamped = false;  // a stamp is there that fits the files
  // The file of entries is of the size that the stamp has, and so is the first index the one of the stamp;
  // but the bytes are others.
  bool otherTexts = false;

  bool clear() const { return unreached.empty() && revived.empty() && !otherTexts; }

  // `files`: whole, looked at in full. Of a change that broke off, what it added and nothing leads to doesn't
  // count.
  static UserReach of(const UserPlace& place, UserLanguage language, const UserCheck& files,
                      const UserMarker& marker);
};

// Offsets of the whole entries in parts of a file of entries, but those that are known.
std::vector<uint32_t> entriesIn(const std::string& entries, UserLanguage language, const FileRanges& ranges,
                                const std::function<bool(uint64_t)>& isKnown);

inline constexpr char kUnclear[] = "unclear_user_dictionary";

// The failure of what isn't clear. Its status is that of damage: nothing may be changed.
Failure unclearEntries(UserLanguage language, const std::string& folder, const UserReach& reach);
bool isUnclear(const Failure& failure);

}  // namespace zavel::host

#endif
