// Matches of one and two bytes are found in tables, longer ones in chains. The text of books is two bytes a
// character, of which the first is mostly the same, so that places that share three bytes are many: chains
// of four and of six bytes keep the search for long matches short. Tests:
// tests/mkbook/BlockSetEncoderTest.cpp
#include "mkbook/BlockSetEncoder.h"

#include <algorithm>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"

namespace zavel::mkbook {
namespace {

using book::kCode;
using book::kLongestMatch;
using book::kSet;
using book::kSetHeader;
using book::kWindow;

// Of the fill bytes ahead of a set a match can use no more than its own length: one that begins further
// ahead is the same as one that begins here.
constexpr int kStart = static_cast<int>(kLongestMatch);
constexpr int kReach = static_cast<int>(kWindow);
constexpr unsigned kSlotBits = 14;

size_t pairAt(const uint8_t* bytes) {
  return static_cast<size_t>(bytes[0]) << 8 | bytes[1];
}

size_t sameBytes(const uint8_t* one, const uint8_t* other, size_t limit) {
  size_t same = 0;
  while (same < limit && one[same] == other[same]) ++same;
  return same;
}

void appendCode(std::string* out, size_t distance, size_t length, uint8_t literal) {
  *out += static_cast<char>(distance >> 4);
  *out += static_cast<char>((distance & 15) << 4 | length);
  *out += static_cast<char>(literal);
}

}  // namespace

void BlockSetEncoder::Chain::clear(size_t places) {
  head_.assign(size_t{1} << kSlotBits, kNone);
  previous_.resize(places);
}

size_t BlockSetEncoder::Chain::slot(const uint8_t* bytes) const {
  uint64_t value = 0;
  for (size_t i = 0; i < length_; ++i) value = value << 8 | bytes[i];
  return static_cast<size_t>((value * 0x9E3779B97F4A7C15u) >> (64 - kSlotBits));
}

void BlockSetEncoder::Chain::add(const uint8_t* bytes, int place) {
  int& head = head_[slot(bytes)];
  previous_[static_cast<size_t>(place)] = head;
  head = place;
}

BlockSetEncoder::BlockSetEncoder() : two_(0x10000), three_(3), four_(4), six_(6) {}

// Behind the set stand bytes that the tables may look at, and no match may.
void BlockSetEncoder::load(std::string_view bytes) {
  const size_t size = std::min(bytes.size(), kSet);
  work_.assign(static_cast<size_t>(kStart) + size + six_.length(), 0);
  std::copy_n(bytes.begin(), size, work_.begin() + kStart);
  if (size > 0) std::fill_n(work_.begin(), kStart, work_[static_cast<size_t>(kStart)]);
  end_ = kStart + static_cast<int>(size);
  added_ = 0;
  one_.fill(kNone);
  std::fill(two_.begin(), two_.end(), kNone);
  for (Chain* const chain : {&three_, &four_, &six_}) chain->clear(work_.size());
}

void BlockSetEncoder::addUpTo(int place) {
  for (; added_ < place; ++added_) {
    const uint8_t* const bytes = work_.data() + added_;
    one_[bytes[0]] = added_;
    two_[pairAt(bytes)] = added_;
    for (Chain* const chain : {&three_, &four_, &six_}) chain->add(bytes, added_);
  }
}

bool BlockSetEncoder::inReach(int candidate, int place) const {
  return candidate != kNone && place - candidate <= kReach;
}

// The longest match in `chain`, if it is longer than *best; one of `enough` bytes ends the search.
void BlockSetEncoder::search(const Chain& chain, int place, size_t enough, Match* best) const {
  const uint8_t* const here = work_.data() + place;
  for (int at = chain.latest(here); inReach(at, place) && best->length < enough; at = chain.before(at)) {
    if (work_[static_cast<size_t>(at) + best->length] != here[best->length]) continue;
    const size_t length = sameBytes(work_.data() + at, here, enough);
    if (length > best->length) *best = {length, at};
  }
}

// Places that share less than a chain's bytes can't be longer than the next shorter chain or table tells.
BlockSetEncoder::Match BlockSetEncoder::longest(int place, size_t limit) const {
  const uint8_t* const here = work_.data() + place;
  Match best;
  if (limit >= six_.length()) search(six_, place, limit, &best);
  if (best.length < 6 && limit >= four_.length()) search(four_, place, std::min<size_t>(limit, 5), &best);
  if (best.length < 4 && limit >= three_.length()) search(three_, place, 3, &best);
  if (best.length < 2 && limit >= 2 && inReach(two_[pairAt(here)], place)) best = {2, two_[pairAt(here)]};
  if (best.length < 1 && limit >= 1 && inReach(one_[here[0]], place)) best = {1, one_[here[0]]};
  return best;
}

std::string BlockSetEncoder::encode(std::string_view bytes) {
  load(bytes);
  std::string codes;
  for (int place = kStart; place < end_;) {
    addUpTo(place);
    // The last byte is always the code's own.
    const Match match =
        longest(place, std::min<size_t>(kLongestMatch, static_cast<size_t>(end_ - place) - 1));
    const size_t back = static_cast<size_t>(place - match.place);
    appendCode(&codes, match.length == 0 ? 0 : kWindow - back, match.length,
               work_[static_cast<size_t>(place) + match.length]);
    place += static_cast<int>(match.length) + 1;
  }
  std::string out;
  out.reserve(kSetHeader + codes.size());
  appendBE32(out, static_cast<uint32_t>(codes.size() / kCode));
  out += static_cast<char>(work_[0]);
  return out + codes;
}

}  // namespace zavel::mkbook
