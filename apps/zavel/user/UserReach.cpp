// Tests: tests/zavel/user/UserStampTest.cpp
#include "user/UserReach.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "user/UserCheckForm.h"
#include "user/UserStatus.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr size_t kMostNamed = 5;
constexpr size_t kWindow = size_t{4} * kMaxEntry;

// Each once, in the order of the file.
std::vector<std::string> wordsOf(const std::string& entries, UserLanguage language,
                                 const std::vector<uint32_t>& offsets) {
  std::vector<std::string> words;
  std::unordered_set<std::string> known;
  WindowFile file(entries, kWindow);
  for (const uint32_t offset : offsets) {
    std::string word = textOfStored(std::string(formOfEntry(file.at(offset, kMaxEntry), language).word));
    if (known.insert(word).second) words.push_back(std::move(word));
  }
  return words;
}

std::string named(const std::vector<std::string>& words) {
  std::string text;
  for (size_t i = 0; i < std::min(words.size(), kMostNamed); ++i)
    text += (i > 0 ? ", \"" : "\"") + words[i] + "\"";
  if (words.size() > kMostNamed) text += " and " + std::to_string(words.size() - kMostNamed) + " others";
  return text;
}

// What is wrong with the first index, behind its name.
std::string wrongWays(const UserReach& reach) {
  const size_t lost = reach.unreached.size(), back = reach.revived.size();
  std::string text;
  if (lost > 0) {
    text = " doesn't lead to " +
           (lost == 1 ? "an entry that is" : std::to_string(lost) + " entries that are") +
           " there: " + named(reach.words);
  }
  if (back > 0) {
    text += std::string(lost > 0 ? ", and" : "") + " leads to " +
            (back == 1 ? "an entry that was" : std::to_string(back) + " entries that were") +
            " deleted: " + named(reach.revivedWords);
  }
  return text;
}

}  // namespace

std::vector<uint32_t> entriesIn(const std::string& entries, UserLanguage language, const FileRanges& ranges,
                                const std::function<bool(uint64_t)>& isKnown) {
  std::vector<uint32_t> found;
  WindowFile file(entries, kWindow);
  for (const FileRange& range : ranges) {
    for (uint64_t at = range.from; at < range.to;) {
      const size_t length = formOfEntry(file.at(at, kMaxEntry), language).length;
      if (length > 0 && !isKnown(at)) found.push_back(static_cast<uint32_t>(at));
      at += std::max<size_t>(length, 1);
      const std::string_view rest = file.at(at, kMaxEntry);
      if (rest.empty()) break;
      at += std::min(FindEntryTag(rest, 0), rest.size());
    }
  }
  return found;
}

UserReach UserReach::of(const UserPlace& place, UserLanguage language, const UserCheck& files,
                        const UserMarker& marker) {
  UserReach reach;
  const UserStamp stamp = UserStamp::read(place, language);
  const std::string entries = place.file(userFiles(language).back());
  if (!stamp.known) return reach;
  reach.stamped = stamp.fits(place, language);
  if (stamp.isOf(files.indexHash(), WindowFile(entries).size())) {
    reach.otherTexts = !reach.stamped;
    return reach;
  }
  const uint64_t stored = reach.stamped ? stamp.entriesEnd : 0;
  const uint64_t begun = marker.work == UserMarker::kChanging ? marker.entriesEnd : UINT64_MAX;
  FileRanges gaps = files.gaps();
  for (FileRange& gap : gaps) gap.to = std::min(gap.to, std::max(begun, stored));
  const auto isDead = [&](uint64_t entry) { return reach.stamped && stamp.isDead(entry); };
  reach.unreached = entriesIn(entries, language, gaps, isDead);
  reach.words = wordsOf(entries, language, reach.unreached);
  std::copy_if(files.entries().begin(), files.entries().end(), std::back_inserter(reach.revived), isDead);
  reach.revivedWords = wordsOf(entries, language, reach.revived);
  return reach;
}

Failure unclearEntries(UserLanguage language, const std::string& folder, const UserReach& reach) {
  const std::string name =
      "my" + (reach.otherTexts ? userFiles(language).back() : userFiles(language).front());
  const std::string what = reach.otherTexts ? " holds other texts than were left in it" : wrongWays(reach);
  return {
      kExitDamaged, kUnclear,
      entriesOf(language) + " in " + folder + " are not as they were left: " + name + what +
          "; it may be older than the other files, or damaged, or another program " +
          (reach.otherTexts ? "changed" : "deleted") + " entries",
      "Put a copy of that folder in its place; or save all there is (zavel user export FILE), run \"zavel "
      "user arrange --accept\" and import what is missing then (zavel user import FILE)."};
}

bool isUnclear(const Failure& failure) {
  return failure.code == kUnclear;
}

}  // namespace zavel::host
