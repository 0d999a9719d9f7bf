// Tests: tests/zavel/user/UserStampTest.cpp
#include "user/UserStamp.h"

#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <system_error>

#include "engine/DicFormat.h"
#include "foundation/Storage.h"
#include "user/UserIndex.h"

namespace zavel::host {
namespace {

constexpr size_t kLongest = size_t{64} << 20;
constexpr size_t kPiece = size_t{1} << 20;
constexpr const char* kHead = "stamp 1 %" PRIx64 " %" PRIx64 " %" PRIx64 " %zu\n";
constexpr const char* kRange = "%" PRIx64 "-%" PRIx64 "\n";
constexpr const char* kSeal = "sealed %016" PRIx64 "\n";
constexpr size_t kSealSize = sizeof "sealed 0123456789abcdef\n" - 1;

// Eight bytes at a time: files of entries have megabytes, and this is done at each change.
uint64_t hashOn(uint64_t hash, std::string_view bytes) {
  constexpr uint64_t kFactor = 0x9E3779B97F4A7C15;
  for (size_t at = 0; at < bytes.size(); at += sizeof(uint64_t)) {
    uint64_t word = 0;
    std::memcpy(&word, bytes.data() + at, std::min(sizeof word, bytes.size() - at));
    hash = (hash ^ word) * kFactor;
    hash ^= hash >> 29;
  }
  return hash;
}

// Of the first `length` bytes; false where there are not so many, or they can't be read.
bool hashOfFile(const std::string& path, uint64_t length, uint64_t* hash) {
  WindowFile file(path, kPiece);
  if (!file.open() || file.size() < length) return false;
  *hash = length;
  for (uint64_t at = 0; at < length; at += kPiece) {
    const auto piece = static_cast<size_t>(std::min<uint64_t>(kPiece, length - at));
    const std::string_view bytes = file.at(at, piece);
    if (bytes.size() < piece) return false;
    *hash = hashOn(*hash, bytes);
  }
  return true;
}

std::string entriesFile(const UserPlace& place, UserLanguage language) {
  return place.file(userFiles(language).back());
}

template <typename... Values>
std::string line(const char* form, Values... values) {
  char text[128];
  std::snprintf(text, sizeof text, form, values...);
  return text;
}

// Takes a line as kRange writes it off the text. There may be tens of thousands, and sscanf() measures all
// that is left each time.
bool takeRange(std::string_view* text, FileRange* range) {
  const char* const end = text->data() + text->size();
  const std::from_chars_result from = std::from_chars(text->data(), end, range->from, 16);
  if (from.ec != std::errc() || from.ptr == end || *from.ptr != '-') return false;
  const std::from_chars_result to = std::from_chars(from.ptr + 1, end, range->to, 16);
  if (to.ec != std::errc() || to.ptr == end || *to.ptr != '\n') return false;
  text->remove_prefix(static_cast<size_t>(to.ptr + 1 - text->data()));
  return true;
}

}  // namespace

UserStamp UserStamp::of(const UserPlace& place, UserLanguage language, FileRanges dead) {
  UserStamp stamp;
  const std::string entries = entriesFile(place, language);
  const UserIndex index(place.file(userFiles(language).front()),
                        language == UserLanguage::kEnglish ? engine::kTypeE : engine::kTypeKana);
  stamp.indexHash = index.hash();
  const WindowFile file(entries);
  stamp.entriesEnd = file.size();
  stamp.known = index.sound() && file.open() && hashOfFile(entries, stamp.entriesEnd, &stamp.entriesHash);
  stamp.dead = std::move(dead);
  std::erase_if(stamp.dead, [&stamp](const FileRange& range) { return range.from >= stamp.entriesEnd; });
  for (FileRange& range : stamp.dead) range.to = std::min(range.to, stamp.entriesEnd);
  return stamp;
}

UserStamp UserStamp::read(const UserPlace& place, UserLanguage language) {
  UserStamp stamp;
  std::string text;
  const std::string path = place.stamp(language);
  if (!storage().exists(path) || !readWholeFile(path, kLongest, &text) || text.size() < kSealSize) return {};
  const std::string_view sealed = std::string_view(text).substr(0, text.size() - kSealSize);
  if (text.substr(sealed.size()) != line(kSeal, hashOn(sealed.size(), sealed))) return {};
  size_t count = 0;
  if (std::sscanf(text.c_str(), kHead, &stamp.entriesEnd, &stamp.entriesHash, &stamp.indexHash, &count) != 4)
    return {};
  std::string_view rest = sealed.substr(sealed.find('\n') + 1);
  for (size_t i = 0; i < count; ++i) {
    FileRange range;
    if (!takeRange(&rest, &range)) return {};
    stamp.dead.push_back(range);
  }
  stamp.known = true;
  return stamp;
}

bool UserStamp::write(const UserPlace& place, UserLanguage language) const {
  if (!known) return false;
  std::string text = line(kHead, entriesEnd, entriesHash, indexHash, dead.size());
  for (const FileRange& range : dead) text += line(kRange, range.from, range.to);
  text += line(kSeal, hashOn(text.size(), text));
  return writeFileAtomically(place.stamp(language), text);
}

bool UserStamp::remove(const UserPlace& place, UserLanguage language) {
  const std::string path = place.stamp(language);
  return !storage().exists(path) || (storage().remove(path) && storage().syncFolder(place.folder()));
}

bool UserStamp::fits(const UserPlace& place, UserLanguage language) const {
  uint64_t hash = 0;
  return known && hashOfFile(entriesFile(place, language), entriesEnd, &hash) && hash == entriesHash;
}

bool UserStamp::isDead(uint64_t entry) const {
  const auto behind = std::upper_bound(dead.begin(), dead.end(), entry,
                                       [](uint64_t at, const FileRange& range) { return at < range.from; });
  return behind != dead.begin() && entry < (behind - 1)->to;
}

}  // namespace zavel::host
