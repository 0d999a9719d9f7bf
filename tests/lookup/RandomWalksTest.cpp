// The quick walks against the slow ones, over every short sequence of a few pieces and over long random
// texts rich in keys, halves of keys, CRs, escapes and brackets.
#include <gtest/gtest.h>

#include <random>

#include "lookup/ByteText.h"
#include "lookup/LayoutPass.h"
#include "lookup/LookupTesting.h"
#include "lookup/SlowWalks.h"
#include "lookup/StylePass.h"

namespace zavel::test {
namespace {

std::string hex(const std::string& text) {
  static const char* const digits = "0123456789ABCDEF";
  std::string out;
  for (const char c : text) {
    out += digits[static_cast<unsigned char>(c) >> 4];
    out += digits[static_cast<unsigned char>(c) & 15];
    out += ' ';
  }
  return out;
}

void expectSameWalks(const std::string& text) {
  SCOPED_TRACE(hex(text));
  BareManager manager;
  ASSERT_EQ(hex(manager.ConvertMetaKey(text, 0)), hex(slowConvertMetaKey(text, 0)));
  ASSERT_EQ(hex(manager.ConvertMetaKey(text, 1)), hex(slowConvertMetaKey(text, 1)));
  ASSERT_EQ(hex(LayoutPass(text).run()), hex(slowLayout(text)));

  const ScrpSTElement plain = plainRun(0);
  std::vector<ScrpSTElement> quickRuns, slowRuns;
  ASSERT_EQ(hex(StylePass(text, plain, kRed, kBlue).run(quickRuns)),
            hex(slowStyles(text, plain, kRed, kBlue, &slowRuns)));
  ASSERT_EQ(quickRuns, slowRuns);

  if (text.empty()) return;
  ASSERT_EQ(hex(manager.OutputResult(text)),
            hex(slowStyles(slowLayout(slowPrepare(text)), plain, kRed, kBlue, &slowRuns)));
  ASSERT_EQ(manager.styleRuns, slowRuns);
}

void expectSameLayout(const std::string& text) {
  ASSERT_EQ(hex(LayoutPass(text).run()), hex(slowLayout(text))) << hex(text);
}

void expectSameStyles(const std::string& text) {
  std::vector<ScrpSTElement> quickRuns, slowRuns;
  ASSERT_EQ(hex(StylePass(text, plainRun(0), kRed, kBlue).run(quickRuns)),
            hex(slowStyles(text, plainRun(0), kRed, kBlue, &slowRuns)))
      << hex(text);
  ASSERT_EQ(quickRuns, slowRuns) << hex(text);
}

void expectSameCuts(const std::string& text) {
  SCOPED_TRACE(hex(text));
  for (const auto& [start, end] : {std::pair("(", ")"), std::pair("\x81\x85", "\x81\x86"),
                                   std::pair("ab", "ba"), std::pair("|", "|"), std::pair("a", "(b)")}) {
    std::string quick = text;
    removeRanges(quick, start, end);
    ASSERT_EQ(hex(quick), hex(slowRemoveRanges(text, start, end))) << start << " " << end;
  }
  for (const auto& [from, to] :
       {std::pair("\x81\x5B", "\xB0"), std::pair("  ", " "), std::pair(" ", ""), std::pair("ab", ""),
        std::pair("aba", "b"), std::pair("ba", "ab"), std::pair("[\x95\x5C]", ""), std::pair("a", "bc")}) {
    std::string quick = text;
    replaceAll(quick, from, to);
    ASSERT_EQ(hex(quick), hex(slowReplace(text, from, to))) << from << " " << to;
  }
}

std::vector<std::string> keyPieces() {
  std::vector<std::string> pieces = {"\xF4",
                                     "\xF5",
                                     "\x0D",
                                     "\x1B",
                                     ")",
                                     "(",
                                     "1",
                                     "2",
                                     "A",
                                     "a",
                                     " ",
                                     "\x81",
                                     "\x40",
                                     "\x81\x40",
                                     "\xD1",
                                     "\xB1",
                                     "\x82\xB3\x82\xB5\x8A\x47",
                                     "\x81\x74",
                                     ".",
                                     "[",
                                     "\x95\x5C",
                                     "]"};
  for (const int key :
       {0xF4A4, 0xF4B5, 0xF4D0, 0xF5A7, 0xF5B1, 0xF5B6, 0xF5B7, 0xF5B8, 0xF5B9, 0xF5BC, 0xF5BD, 0xF5C1,
        0xF5C2, 0xF5C5, 0xF5C6, 0xF5C9, 0xF5CA, 0xF5CB, 0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D5,
        0xF5D6, 0xF5D7, 0xF5D8, 0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7, 0xF5E8, 0xF5E9}) {
    pieces.push_back(tag(static_cast<uint16_t>(key)));
  }
  return pieces;
}

std::string randomText(std::mt19937& random, const std::vector<std::string>& pieces, size_t count) {
  std::string text;
  for (size_t i = 0; i < count; ++i) text += pieces[random() % pieces.size()];
  return text;
}

// Calls `check` with every sequence of up to `depth` of the pieces.
template <typename Check>
void everySequence(const std::vector<std::string>& pieces, int depth, const std::string& front,
                   const Check& check) {
  check(front);
  if (depth == 0 || testing::Test::HasFatalFailure()) return;
  for (const std::string& piece : pieces) everySequence(pieces, depth - 1, front + piece, check);
}

TEST(RandomWalks, EveryPairOfPiecesIsWalkedAsDefined) {
  everySequence(keyPieces(), 2, "", [](const std::string& text) { expectSameWalks(text); });
}

TEST(RandomWalks, EveryShortSequenceOfTheKeysThatMoveThingsIsLaidOutAsDefined) {
  const std::vector<std::string> pieces = {tag(0xF5A7), tag(0xF5C6), tag(0xF5D4), tag(0xF5D3),
                                           "\x0D",      "\x81\x40",  ")",         "\x1B"};
  everySequence(pieces, 5, "", expectSameLayout);
}

TEST(RandomWalks, EveryShortSequenceOfHalfSpacesIsLaidOutAsDefined) {
  const std::vector<std::string> pieces = {tag(0xF5A7), tag(0xF5C6), "\x0D", "\x81", "\x40", ")"};
  everySequence(pieces, 6, "", expectSameLayout);
}

TEST(RandomWalks, LongTextsOfHalfSpacesAreLaidOutAsDefined) {
  std::mt19937 random(20010909);
  const std::vector<std::string> pieces = {tag(0xF5A7), tag(0xF5C6), "\x0D", "\x81", "\x40", ")", "x"};
  for (int i = 0; i < 30000 && !HasFatalFailure(); ++i) {
    expectSameLayout(randomText(random, pieces, 8 + random() % 10));
  }
}

TEST(RandomWalks, EveryShortSequenceOfStyleKeysIsStyledAsDefined) {
  const std::vector<std::string> pieces = {tag(0xF5B1), tag(0xF5B9), tag(0xF5C1), tag(0xF5C9),
                                           tag(0xF5D1), "\x0D",      "a",         "\xF5"};
  everySequence(pieces, 5, "", expectSameStyles);
}

TEST(RandomWalks, LongTextsAreWalkedAsDefined) {
  std::mt19937 random(20050401);
  const std::vector<std::string> pieces = keyPieces();
  for (int i = 0; i < 4000 && !HasFatalFailure(); ++i) {
    expectSameWalks(randomText(random, pieces, random() % 60));
  }
}

TEST(RandomWalks, EveryShortSequenceIsCutAsDefined) {
  const std::vector<std::string> pieces = {"a", "b", "(", ")", "\x81", "\x85", "\x86", "|"};
  everySequence(pieces, 5, "", [](const std::string& text) { expectSameCuts(text); });
}

TEST(RandomWalks, LongTextsAreCutAsDefined) {
  std::mt19937 random(19991231);
  const std::vector<std::string> pieces = {"a",    "b",    "(",    ")", "\x81\x85", "\x81\x86", "\x81", "|",
                                           "\x85", "\x86", "\x5B", " ", "[",        "\x95\x5C", "]"};
  for (int i = 0; i < 4000 && !HasFatalFailure(); ++i) {
    expectSameCuts(randomText(random, pieces, random() % 60));
  }
}

}  // namespace
}  // namespace zavel::test
