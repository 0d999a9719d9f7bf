// Block sets: what was packed comes back by the reader's decoder, and no encoder needs fewer codes.
#include "mkbook/BlockSetEncoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "book/BlockSet.h"
#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "support/BookWriter.h"

namespace zavel::mkbook {
namespace {

using test::blockSet;
using test::code;

std::string decoded(const std::string& set, size_t size) {
  std::string out(book::kSet, '?');
  const auto* const bytes = reinterpret_cast<const uint8_t*>(set.data());
  EXPECT_EQ(set.size(), 5 + 3 * size_t{readBE32(bytes)});
  book::decodeBlockSet(reinterpret_cast<uint8_t*>(out.data()), bytes + 5, readBE32(bytes), bytes[4]);
  out.resize(size);
  return out;
}

// The fewest codes by trying, at each place, every earlier one and every length.
size_t fewestCodes(const std::string& bytes) {
  if (bytes.empty()) return 0;
  const std::string work = std::string(4080, bytes[0]) + bytes;
  std::vector<size_t> needed(bytes.size() + 1, bytes.size());
  needed[0] = 0;
  for (size_t at = 0; at < bytes.size(); ++at) {
    size_t longest = 0;
    for (size_t back = 1; back <= 4080; ++back) {
      size_t length = 0;
      while (length < 15 && at + length + 1 < bytes.size() &&
             work[4080 + at + length - back] == work[4080 + at + length])
        ++length;
      longest = std::max(longest, length);
    }
    for (size_t taken = 0; taken <= longest; ++taken)
      needed[at + taken + 1] = std::min(needed[at + taken + 1], needed[at] + 1);
  }
  return needed[bytes.size()];
}

void expectBest(const std::string& bytes) {
  const std::string set = BlockSetEncoder().encode(bytes);
  EXPECT_EQ(decoded(set, bytes.size()), bytes);
  EXPECT_EQ((set.size() - 5) / 3, fewestCodes(bytes));
}

TEST(BlockSetEncoder, WritesLiteralsAndMatches) {
  // The first a stands in the window already; "ababa" begins two ahead of itself.
  EXPECT_EQ(BlockSetEncoder().encode("abababac"), blockSet('a', code(4079, 1, 'b') + code(4078, 5, 'c')));
}

TEST(BlockSetEncoder, BeginsWithWhatFillsTheWindow) {
  EXPECT_EQ(BlockSetEncoder().encode(std::string(16, 'x')), blockSet('x', code(4079, 15, 'x')));
  EXPECT_EQ(BlockSetEncoder().encode("x"), blockSet('x', code(0, 0, 'x')));
}

TEST(BlockSetEncoder, TakesMatchesOfOneByte) {
  EXPECT_EQ(BlockSetEncoder().encode("abcbd"),
            blockSet('a', code(4079, 1, 'b') + code(0, 0, 'c') + code(4078, 1, 'd')));
}

TEST(BlockSetEncoder, TakesNothingForNothing) {
  EXPECT_EQ(BlockSetEncoder().encode(""), std::string(5, '\0'));
}

// The last byte in reach is 4080 back, distance 0; one further is out of reach.
TEST(BlockSetEncoder, ReachesBackOverTheWholeWindow) {
  std::mt19937 random(7);
  for (const size_t way : {size_t{4079}, size_t{4080}, size_t{4081}}) {
    std::string bytes = "abcdefgh";
    while (bytes.size() < way) bytes += static_cast<char>('0' + random() % 8);
    bytes += "abcdefgh!";
    const std::string set = BlockSetEncoder().encode(bytes);
    EXPECT_EQ(decoded(set, bytes.size()), bytes);
    const auto* const last = reinterpret_cast<const uint8_t*>(set.data() + set.size() - 3);
    const bool found = (last[1] & 15) >= 7 && (last[0] << 4 | last[1] >> 4) == 4080 - static_cast<int>(way);
    EXPECT_EQ(found, way <= 4080) << way;
  }
}

TEST(BlockSetEncoder, FillsAWholeSet) {
  std::string bytes;
  std::mt19937 random(1);
  while (bytes.size() < book::kSet) bytes += static_cast<char>(random() % 256);
  EXPECT_EQ(decoded(BlockSetEncoder().encode(bytes), bytes.size()), bytes);
  EXPECT_EQ(BlockSetEncoder().encode(bytes + "more"), BlockSetEncoder().encode(bytes));
}

TEST(BlockSetEncoder, NeedsTheFewestCodesForRandomBytes) {
  std::mt19937 random(2);
  for (const unsigned letters : {1u, 2u, 3u, 8u, 60u, 256u}) {
    for (const size_t size : {size_t{1}, size_t{2}, size_t{17}, size_t{400}}) {
      std::string bytes;
      while (bytes.size() < size) bytes += static_cast<char>(random() % letters);
      expectBest(bytes);
    }
  }
}

TEST(BlockSetEncoder, NeedsTheFewestCodesWhereTheWindowEnds) {
  std::mt19937 random(4);
  std::string bytes;
  while (bytes.size() < 4600) bytes += static_cast<char>('a' + random() % 5);
  expectBest(bytes);
}

TEST(BlockSetEncoder, NeedsTheFewestCodesForText) {
  const char* const words[] = {"the ",      "dictionary ", "of ", "words ", "and ",
                               "meanings ", "か",          "な",  "漢字"};
  std::mt19937 random(3);
  std::string text;
  while (text.size() < 4000) text += words[random() % std::size(words)];
  expectBest(test::jis(text));
  expectBest(text);
}

// One encoder for many sets: nothing of the set before stays.
TEST(BlockSetEncoder, ForgetsTheSetBefore) {
  BlockSetEncoder encoder;
  encoder.encode(std::string(3000, 'q') + "some text that is gone");
  EXPECT_EQ(encoder.encode("some text that stays"), BlockSetEncoder().encode("some text that stays"));
}

}  // namespace
}  // namespace zavel::mkbook
