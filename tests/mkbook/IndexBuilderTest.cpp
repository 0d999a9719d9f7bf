// Indexes: literal blocks, and searches by the reader compared with a plain model.
#include "mkbook/IndexBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <stdexcept>

#include "book/SDic.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using test::be32;
using test::IndexBlock;
using test::jis;
using test::place;
using test::TempFolder;

constexpr IndexFlags kFoldAll = {0, 0, 0, 0};

std::string blocksOf(IndexBuilder& builder, uint32_t first) {
  const TempFolder folder;
  builder.settle();
  RegionFile file(folder.file("R"), builder.blocks());
  builder.write(first, file);
  file.finish();
  Catalog catalog;
  catalog.records.push_back({0, first, first + builder.blocks() - 1, {}, "R"});
  folder.write("B", catalog.bytes());
  void* book = nullptr;
  EXPECT_EQ(SDicOpenDictionary(folder.file("B").c_str(), &book, nullptr, false, false), 0u);
  const _SDICADDRESS start = {first, 0};
  char* bytes = nullptr;
  std::string out;
  if (SDicReadData(book, &start, 2048 * builder.blocks(), &bytes) == 0)
    out.assign(bytes, 2048 * builder.blocks());
  std::free(bytes);
  SDicCloseDictionary(book);
  return out;
}

TEST(IndexBuilder, WritesOneLeaf) {
  IndexBuilder builder(0x60);
  EXPECT_TRUE(builder.add(jis("b"), {1, 8}, {1, 9}));
  EXPECT_TRUE(builder.add(jis("A"), {1, 2}, {1, 3}));
  EXPECT_TRUE(builder.add(jis("ab"), {2, 4}, {2, 5}));
  const std::string expected = IndexBlock(0xA0)
                                   .leaf(jis("a"), place(1, 2))
                                   .leaf(jis("ab"), place(2, 4))
                                   .leaf(jis("b"), place(1, 8))
                                   .bytes();
  EXPECT_EQ(blocksOf(builder, 5), expected);
}

TEST(IndexBuilder, AddsHeadwordsWhereTheKindHasThem) {
  for (const uint16_t kind : {0x71, 0x72, 0x91, 0x92}) {
    IndexBuilder builder(kind);
    builder.add(jis("ab"), {1, 2}, {3, 4});
    const std::string key = jis(kind < 0x80 ? "ba" : "ab");
    EXPECT_EQ(blocksOf(builder, 5), IndexBlock(0xA0).leaf(key, place(1, 2), place(3, 4)).bytes()) << kind;
  }
  for (const uint16_t kind : {0x30, 0x40, 0x60, 0x70, 0x90}) {
    IndexBuilder builder(kind);
    builder.add(jis("ab"), {1, 2}, {3, 4});
    const std::string key = jis(kind == 0x70 ? "ba" : "ab");
    EXPECT_EQ(blocksOf(builder, 5), IndexBlock(0xA0).leaf(key, place(1, 2)).bytes()) << kind;
  }
}

TEST(IndexBuilder, MakesAnEmptyIndex) {
  IndexBuilder builder(0x91);
  EXPECT_EQ(blocksOf(builder, 5), IndexBlock(0xA0).bytes());
}

// 26 records of 78 bytes to a leaf: a root with the leaves' last keys whole, the last one closed.
TEST(IndexBuilder, ClosesEachLevelAndCutsNoKey) {
  IndexBuilder builder(0x60);
  const std::string tail(35, 'z');
  std::string expectedRoot;
  for (int i = 0; i < 60; ++i) {
    const std::string word =
        std::string(1, static_cast<char>('a' + i / 26)) + static_cast<char>('a' + i % 26);
    builder.add(jis(word.substr(0, 1) + tail.substr(1) + word.substr(1)), {1, static_cast<uint32_t>(2 * i)},
                {});
  }
  const std::string blocks = blocksOf(builder, 9);
  ASSERT_EQ(blocks.size(), 4 * 2048u);
  const auto key = [&](char first, char last) { return jis(first + tail.substr(1) + last); };
  EXPECT_EQ(blocks.substr(0, 2048),
            IndexBlock(0x20, 72).inner(key('a', 'y'), 10).inner(key('b', 'x'), 11).closing(12).bytes());
  EXPECT_EQ(blocks.substr(2048, 4), (std::string{'\x80', '\0', '\0', '\x19'}));
  EXPECT_EQ(blocks.substr(3 * 2048, 4), (std::string{'\xA0', '\0', '\0', '\x0A'}));
}

TEST(IndexBuilder, LeavesOutWhatNoSearchCanAskFor) {
  IndexBuilder builder(0x60);
  EXPECT_FALSE(builder.add("", {1, 2}, {}));
  EXPECT_FALSE(builder.add(jis("!?!").substr(0, 2), {1, 2}, {}));
  EXPECT_FALSE(builder.add(jis("　"), {1, 2}, {}));
  EXPECT_FALSE(builder.add(jis("◆"), {1, 2}, {}));
  EXPECT_TRUE(builder.add(jis("◆a"), {1, 2}, {}));
  builder.settle();
  EXPECT_EQ(builder.size(), 1u);
}

TEST(IndexBuilder, FilesAKeyOfABodyOnce) {
  IndexBuilder builder(0x60);
  builder.add(jis("ice cream"), {1, 2}, {});
  builder.add(jis("Ice-Cream"), {1, 2}, {});
  builder.add(jis("icecream"), {1, 4}, {});
  builder.settle();
  EXPECT_EQ(builder.size(), 2u);
}

TEST(IndexBuilder, RefusesFlagsThatKeepSigns) {
  EXPECT_THROW(IndexBuilder(0x60, {0, 0x04, 0, 0}), std::invalid_argument);
}

TEST(Keys, AreWhatTheFlagsMakeOfThem) {
  EXPECT_EQ(IndexBuilder::keyOf(0x91, kPlainKeys, jis("Rock 'n' Roll!")), jis("rocknroll"));
  EXPECT_EQ(IndexBuilder::keyOf(0x91, kPlainKeys, jis("カーテン・ガ")), jis("かーてんが"));
  EXPECT_EQ(IndexBuilder::keyOf(0x91, kFoldAll, jis("カーテン・ガ")), jis("かあてんか"));
  EXPECT_EQ(IndexBuilder::keyOf(0x71, kPlainKeys, jis("カーテン")), jis("んてーか"));
  EXPECT_EQ(IndexBuilder::keyOf(0x91, kPlainKeys, "\xA1\x21"), "\xA1\x21");
  EXPECT_EQ(IndexBuilder::keyOf(0x91, kPlainKeys, jis(std::string(70, 'a') + "b")),
            jis(std::string(62, 'a')));
  EXPECT_EQ(IndexBuilder::keyOf(0x71, kPlainKeys, jis("b" + std::string(126, 'a') + "c")),
            jis("c" + std::string(126, 'a')));
}

// A book of indexes over the same words.
class Indexed {
 public:
  Indexed(const std::vector<std::string>& words, const std::vector<uint16_t>& kinds,
          const IndexFlags& flags) {
    Catalog catalog;
    RegionFile text(folder_.file("BODY"), 1);
    text.finish();
    catalog.records.push_back({0, 1, 1, {}, "BODY"});
    uint32_t first = 2;
    for (const uint16_t kind : kinds) {
      IndexBuilder builder(kind, flags);
      for (size_t i = 0; i < words.size(); ++i) builder.add(words[i], addressOf(i), addressOf(i));
      builder.settle();
      const std::string name = "R" + std::to_string(kind);
      RegionFile file(folder_.file(name), builder.blocks());
      builder.write(first, file);
      file.finish();
      catalog.records.push_back({kind, first, first + builder.blocks() - 1, flags, name});
      first += builder.blocks();
    }
    folder_.write("BOOK", catalog.bytes());
    EXPECT_EQ(SDicOpenDictionary(folder_.file("BOOK").c_str(), &book_, nullptr, false, false), 0u);
  }
  ~Indexed() { SDicCloseDictionary(book_); }
  Indexed(const Indexed&) = delete;
  Indexed& operator=(const Indexed&) = delete;

  static _SDICADDRESS addressOf(size_t word) {
    return {static_cast<uint32_t>(word / 1000 + 1), static_cast<uint32_t>(word % 1000 * 2)};
  }

  // Numbers of the words found.
  std::vector<size_t> search(const char* method, const std::string& key) {
    long count = -1, first = -1;
    const uint32_t code =
        SDicExecIndexSearch(book_, (jis(method) + key).c_str(), false, false, &count, &first);
    if (code != 0) ADD_FAILURE() << "code " << code;
    std::vector<size_t> found;
    for (long i = 0; i < count; ++i) {
      _SDICITEMADDRESS hit{};
      if (SDicGetSearchResult(book_, static_cast<unsigned long>(i), &hit) != 0) ADD_FAILURE() << "hit " << i;
      found.push_back((hit.body.block - 1) * 1000 + hit.body.offset / 2);
    }
    return found;
  }

 private:
  TempFolder folder_;
  void* book_ = nullptr;
};

// What every comparison takes for the same: no blanks and signs, small letters, hiragana.
std::string plain(const std::string& word) {
  std::string out;
  for (size_t i = 0; i < word.size(); i += 2) {
    unsigned code = static_cast<uint8_t>(word[i]) << 8 | static_cast<uint8_t>(word[i + 1]);
    if (code < 0x2330 && code != 0x213C) continue;
    if (code >= 0x2341 && code <= 0x235A) code += 32;
    if (code >> 8 == 0x25) code -= 0x100;
    out += test::be16(code);
  }
  return out;
}

// A query that ends in a blank, once signs are dropped, finds no shorter entry: hosts take off what stands at
// its ends and doesn't count.
std::string trimmed(std::string word) {
  const auto idle = [](const std::string& code) {
    return code == "\x21\x21" || code == "\x21\x26" || code == "\x21\x5D";
  };
  while (!word.empty() && idle(word.substr(0, 2))) word.erase(0, 2);
  while (!word.empty() && idle(word.substr(word.size() - 2))) word.resize(word.size() - 2);
  return word;
}

std::string turned(const std::string& word) {
  std::string out;
  for (size_t i = word.size(); i > 0; i -= 2) out += word.substr(i - 2, 2);
  return out;
}

std::vector<std::string> generated(size_t count) {
  const char* const kSyllables[] = {"an", "be", "cor", "di", "est",  "fa", "gra", " ",  "in", "-",
                                    "lo", "X",  "か",  "が", "きゃ", "ー", "ん",  "カ", "ッ", "漢",
                                    "字", "語", "１",  "・", "は",   "ぱ", "z",   "q"};
  std::mt19937 random(5);
  std::set<std::string> words;
  while (words.size() < count) {
    std::string word;
    const size_t parts = 1 + random() % 5 + (random() % 500 == 0 ? 25 : 0);
    const size_t from = random() % 2 * 12;
    for (size_t i = 0; i < parts; ++i)
      word += kSyllables[random() % 8 == 0 ? random() % 28 : from + random() % 14];
    if (!plain(jis(word)).empty()) words.insert(trimmed(jis(word)));
  }
  return {words.begin(), words.end()};
}

class Model {
 public:
  Model(const std::vector<std::string>& words, bool backward) {
    for (size_t i = 0; i < words.size(); ++i)
      keys_.emplace(backward ? turned(plain(words[i])) : plain(words[i]), i);
  }

  std::vector<size_t> exact(const std::string& key) const {
    return numbers(keys_.lower_bound(key), keys_.upper_bound(key));
  }
  std::vector<size_t> beginning(const std::string& key) const {
    return numbers(keys_.lower_bound(key), keys_.lower_bound(key + "\xFF"));
  }

 private:
  using Place = std::multimap<std::string, size_t>::const_iterator;
  static std::vector<size_t> numbers(Place from, Place to) {
    std::vector<size_t> out;
    for (; from != to; ++from) out.push_back(from->second);
    std::sort(out.begin(), out.end());
    return out;
  }

  std::multimap<std::string, size_t> keys_;
};

std::string shortened(const std::string& word, bool fromFront) {
  const size_t kept = std::max<size_t>(10, word.size() / 4 * 2 + 6);
  if (word.size() <= kept) return word;
  return trimmed(fromFront ? word.substr(0, kept) : word.substr(word.size() - kept));
}

// Numbers of words, ordered by what they are filed as: neighbours are asked for one after the other.
std::vector<size_t> ordered(const std::vector<std::string>& words, bool backward) {
  std::vector<std::pair<std::string, size_t>> keys;
  for (size_t i = 0; i < words.size(); ++i)
    keys.emplace_back(backward ? turned(plain(words[i])) : plain(words[i]), i);
  std::sort(keys.begin(), keys.end());
  std::vector<size_t> numbers;
  for (const auto& [key, number] : keys) numbers.push_back(number);
  return numbers;
}

// A search takes in 62 characters.
std::string searchable(const std::string& word) {
  return word.size() <= 124 ? word : trimmed(word.substr(word.size() - 124));
}

// Under the sanitizers, four times as slow, fewer will do.
#ifdef ZAVEL_SANITIZED
constexpr size_t kManyWords = 20000;
#else
constexpr size_t kManyWords = 100000;
#endif

// Every word, one by one, and of each tenth one a part.
TEST(ManyWords, AreFoundAsTheyAre) {
  const std::vector<std::string> words = generated(kManyWords);
  Indexed book(words, {0x60}, kPlainKeys);
  const Model model(words, false);
  for (const size_t i : ordered(words, false))
    ASSERT_EQ(book.search("◆", words[i]), model.exact(plain(words[i]))) << test::fromJis(words[i]);
}

TEST(ManyWords, AreFoundByTheirBeginnings) {
  const std::vector<std::string> words = generated(kManyWords);
  Indexed book(words, {0x91}, kPlainKeys);
  const Model model(words, false);
  size_t asked = 0;
  for (const size_t i : ordered(words, false)) {
    ASSERT_EQ(book.search("□", words[i]), model.beginning(plain(words[i]))) << test::fromJis(words[i]);
    const std::string part = shortened(words[i], true);
    if (++asked % 10 != 0 || plain(part).empty()) continue;
    ASSERT_EQ(book.search("□", part), model.beginning(plain(part))) << test::fromJis(part);
  }
}

TEST(ManyWords, AreFoundByTheirEnds) {
  const std::vector<std::string> words = generated(kManyWords);
  Indexed book(words, {0x71}, kPlainKeys);
  const Model model(words, true);
  size_t asked = 0;
  for (const size_t i : ordered(words, true)) {
    const std::string whole = searchable(words[i]), part = shortened(words[i], false);
    ASSERT_EQ(book.search("■", whole), model.beginning(turned(plain(whole)))) << test::fromJis(whole);
    if (++asked % 10 != 0 || plain(part).empty()) continue;
    ASSERT_EQ(book.search("■", part), model.beginning(turned(plain(part)))) << test::fromJis(part);
  }
}

// Half of the words by each.
TEST(ManyWords, AreFoundAsKeywordsAndInTexts) {
  const std::vector<std::string> words = generated(kManyWords);
  Indexed book(words, {0x80, 0x81}, kPlainKeys);
  const Model model(words, false);
  bool texts = false;
  for (const size_t i : ordered(words, false)) {
    texts = !texts;
    ASSERT_EQ(book.search(texts ? "△" : "▲", words[i]), model.exact(plain(words[i])))
        << test::fromJis(words[i]);
  }
}

// The kinds for kana and for letters, each asked by keys of its own sort.
TEST(IndexBuilder, FilesKanaAndLettersInKindsOfTheirOwn) {
  std::vector<std::string> kana, letters;
  for (const std::string& word : generated(20000)) {
    const std::string key = plain(word);
    if (std::all_of(key.begin(), key.end(),
                    [&, i = 0](char c) mutable { return i++ % 2 != 0 || c == '\x24'; }))
      kana.push_back(word);
    const bool latin = std::all_of(key.begin(), key.end(), [&, i = 0](char c) mutable {
      return i++ % 2 == 0 ? c == '\x23' : c > '\x40';
    });
    if (latin) letters.push_back(word);
  }
  ASSERT_GT(kana.size(), 200u);
  ASSERT_GT(letters.size(), 1000u);
  for (const bool isKana : {true, false}) {
    const std::vector<std::string>& words = isKana ? kana : letters;
    const std::vector<uint16_t> kinds =
        isKana ? std::vector<uint16_t>{0x30, 0x90, 0x70} : std::vector<uint16_t>{0x40, 0x92, 0x72};
    Indexed book(words, kinds, kPlainKeys);
    const Model forward(words, false), backward(words, true);
    for (const std::string& word : words) {
      ASSERT_EQ(book.search("◆", word), forward.exact(plain(word))) << test::fromJis(word);
      ASSERT_EQ(book.search("□", word), forward.beginning(plain(word))) << test::fromJis(word);
      ASSERT_EQ(book.search("■", word), backward.beginning(turned(plain(word)))) << test::fromJis(word);
    }
  }
}

// Other flags, other keys: all that one folds together is found by each spelling of it.
TEST(IndexBuilder, FollowsTheFlags) {
  const std::vector<std::string> words = {jis("カーテン"), jis("かあてん"), jis("かーでん"), jis("Cat"),
                                          jis("cut")};
  Indexed folded(words, {0x91}, kFoldAll);
  EXPECT_EQ(folded.search("◆", jis("ガーテン")), (std::vector<size_t>{0, 1, 2}));
  EXPECT_EQ(folded.search("◆", jis("CAT")), (std::vector<size_t>{3}));
  Indexed exact(words, {0x91}, kPlainKeys);
  EXPECT_EQ(exact.search("◆", jis("かーてん")), (std::vector<size_t>{0}));
  EXPECT_EQ(exact.search("◆", jis("かあてん")), (std::vector<size_t>{1}));
  EXPECT_EQ(exact.search("□", jis("c")), (std::vector<size_t>{3, 4}));
}

TEST(IndexBuilder, IsTheSameForTheSameWordsInAnyOrder) {
  std::vector<std::string> words = generated(3000);
  IndexBuilder one(0x91), other(0x91);
  for (size_t i = 0; i < words.size(); ++i) one.add(words[i], Indexed::addressOf(i), {});
  for (size_t i = words.size(); i > 0; --i) other.add(words[i - 1], Indexed::addressOf(i - 1), {});
  EXPECT_EQ(blocksOf(one, 2), blocksOf(other, 2));
}

}  // namespace
}  // namespace zavel::mkbook
