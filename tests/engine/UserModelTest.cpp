// User sets against a plain model: random adds, overwrites, deletes and searches, with arranging and
// reopening in between. Few words, so that keys collide, blocks grow and kanji share rows.
#include <algorithm>
#include <map>
#include <random>

#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using test::sjis;

constexpr size_t kMostOfShortKey = 50;  // a search for a key that is shorter than its prefix gives no more

class UserModelTest : public RamDicTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  unsigned Roll(unsigned sides) { return static_cast<unsigned>(random_() % sides); }
  template <size_t N>
  std::string Pick(const char* const (&texts)[N]) {
    return texts[Roll(N)];
  }
  Pairs RandomPairs() {
    Pairs pairs(Roll(3));
    for (auto& pair : pairs)
      pair = {"eng " + std::to_string(Roll(1000)), "日本" + std::to_string(Roll(1000))};
    return pairs;
  }
  void ReopenOrArrange(uint16_t (*arrange)()) {
    if (Roll(2) == 0) {
      ASSERT_EQ(arrange(), 1);
    } else {
      Reopen();
    }
  }

  std::mt19937 random_{GetParam()};
};

// --- English ---

// A key as the model makes it: small letters alone.
std::string KeyE(const std::string& word) {
  std::string key;
  for (const char c : word) {
    if (c == '&') key += "and";
    if (c >= 'A' && c <= 'Z') key += static_cast<char>(c - 'A' + 'a');
    if (c >= 'a' && c <= 'z') key += c;
  }
  return key;
}

class UserModelETest : public UserModelTest {
 protected:
  // By key, entries of one key in the order in which they were added.
  std::map<std::string, std::vector<EntryE>> model_;

  std::string RandomWord() {
    return Pick({"c", "ca", "cat", "Cat", "CAT'", "dog", "c-at", "R&D"}) +
           Pick({"", "", "s", "S", "-s", "ty", " walk", "alog", "alogue", "&"});
  }
  EntryE RandomEntry(const std::string& word) {
    EntryE entry{.word = word, .imi = "意味 " + std::to_string(Roll(100000)), .youreis = RandomPairs()};
    if (Roll(3) == 0) {
      entry.kind = 2;
      entry.hinsi = 0;
      entry.phrase = "phrase " + std::to_string(Roll(1000));
    } else {
      entry.hinsi = static_cast<uint16_t>(1 + Roll(9));
    }
    return entry;
  }
  // The entries of a word that a search can reach; the search agrees with the model.
  std::vector<FoundE> Search(const std::string& word) {
    const std::string key = KeyE(word);
    std::vector<EntryE> expected = model_.contains(key) ? model_[key] : std::vector<EntryE>();
    if (key.size() < 3 && expected.size() > kMostOfShortKey) expected.resize(kMostOfShortKey);
    std::vector<FoundE> found = FindE(word);
    EXPECT_EQ(found.size(), expected.size()) << word;
    for (size_t i = 0; i < std::min(found.size(), expected.size()); ++i) {
      EXPECT_TRUE(found[i].entry == expected[i]) << word << " " << i;
    }
    return found;
  }
  void AddOne() {
    const EntryE entry = RandomEntry(RandomWord());
    ASSERT_EQ(Add(entry), 1);
    model_[KeyE(entry.word)].push_back(entry);
  }
  void OverwriteOne() {
    const std::string word = RandomWord();
    auto found = Search(word);
    if (found.empty()) return;
    const size_t row = Roll(static_cast<unsigned>(found.size()));
    const EntryE entry = RandomEntry(word);
    ASSERT_EQ(Add(entry, &found[row].sikibetu), 1);
    ASSERT_EQ(Add(entry, &found[row].sikibetu), 18) << "it names what was there before";
    model_[KeyE(word)][row] = entry;
  }
  void DeleteOne() {
    const std::string word = RandomWord();
    auto found = Search(word);
    if (found.empty()) return;
    const size_t row = Roll(static_cast<unsigned>(found.size()));
    ASSERT_EQ(DelUserDicE(&found[row].sikibetu), 1);
    ASSERT_EQ(DelUserDicE(&found[row].sikibetu), 18);
    auto& entries = model_[KeyE(word)];
    entries.erase(entries.begin() + static_cast<ptrdiff_t>(row));
  }
  void CompareLists() {
    std::vector<std::string> expected;
    for (const auto& [key, entries] : model_) {
      for (const EntryE& entry : entries) expected.push_back(entry.word);
    }
    std::sort(expected.begin(), expected.end());
    expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
    std::vector<std::string> listed = ListE();
    std::sort(listed.begin(), listed.end());
    EXPECT_EQ(listed, expected);
  }
  void Step() {
    const unsigned step = Roll(100);
    if (step < 45) return AddOne();
    if (step < 60) return OverwriteOne();
    if (step < 85) return DeleteOne();
    if (step < 97) return static_cast<void>(Search(RandomWord()));
    if (step < 98) return CompareLists();
    if (step < 99) ReopenOrArrange(ArrangeUserDicE);
  }
};

TEST_P(UserModelETest, TwoThousandStepsAgreeWithTheModel) {
  for (int step = 0; step < 2000; ++step) {
    Step();
    if (HasFailure()) FAIL() << "step " << step;
  }
  ASSERT_EQ(ArrangeUserDicE(), 1);
  Reopen();
  for (const auto& [key, entries] : model_) Search(key);
  CompareLists();
}

INSTANTIATE_TEST_SUITE_P(Seeds, UserModelETest, ::testing::Values(1u, 2u, 3u));

// --- Japanese ---

// The words of the test with their keys, by hand.
struct Reading {
  const char* kana;
  const char* key;
};
constexpr Reading kReadings[] = {
    {"ね", "ね"},         {"ねこ", "ねこ"}, {"ネコ", "ねこ"}, {"ねーこ", "ねこ"}, {"ねこか", "ねこか"},
    {"ネコカ", "ねこか"}, {"ヴァ", "うぁ"}, {"うぁ", "うぁ"}, {"いぬ", "いぬ"},   {"いぬごや", "いぬごや"}};
constexpr Reading kForms[] = {{"", ""},         {"", ""},         {"猫", "猫"},         {"猫屋", "猫屋"},
                              {"猫ヤ", "猫や"}, {"猫や", "猫や"}, {"猫屋敷", "猫屋敷"}, {"犬小屋", "犬小屋"},
                              {"犬", "犬"},     {"鬱猫", "鬱猫"}};

class UserModelJTest : public UserModelTest {
 protected:
  struct Stored {
    EntryJ entry;
    std::string form;  // key of the written form, empty for none
  };
  std::map<std::string, std::vector<Stored>> model_;  // by key of the reading

  const Reading& RandomReading() { return kReadings[Roll(std::size(kReadings))]; }
  EntryJ RandomEntry(const std::string& kana, const std::string& kanji) {
    return {.kana = kana,
            .kanji = kanji,
            .imi = "meaning " + std::to_string(Roll(100000)),
            .kureis = RandomPairs(),
            .bunreis = RandomPairs()};
  }
  std::vector<FoundJ> Search(const Reading& reading) {
    const auto& expected = model_[reading.key];
    std::vector<FoundJ> found = FindJ(reading.kana);
    const bool isShort = std::string(reading.key) == "ね";
    EXPECT_EQ(found.size(), isShort ? std::min(expected.size(), kMostOfShortKey) : expected.size())
        << reading.kana;
    for (size_t i = 0; i < std::min(found.size(), expected.size()); ++i) {
      EXPECT_TRUE(found[i].entry == expected[i].entry) << reading.kana << " " << i;
      EXPECT_EQ(found[i].kanji.pos1 == 0xFFFF, expected[i].form.empty()) << reading.kana << " " << i;
    }
    return found;
  }
  void AddOne() {
    const Reading& reading = RandomReading();
    const Reading& form = kForms[Roll(std::size(kForms))];
    const EntryJ entry = RandomEntry(reading.kana, form.kana);
    ASSERT_EQ(Add(entry), 1);
    model_[reading.key].push_back({entry, form.key});
  }
  // Another entry with the same keys in the place of a random one.
  void OverwriteOne() {
    const Reading& reading = RandomReading();
    auto found = Search(reading);
    if (found.empty()) return;
    const size_t row = Roll(static_cast<unsigned>(found.size()));
    Stored& stored = model_[reading.key][row];
    EntryJ entry = RandomEntry(reading.kana, stored.entry.kanji);
    if (stored.form == "猫や") entry.kanji = Roll(2) ? "猫や" : "猫ヤ";
    ASSERT_EQ(Add(entry, &found[row].kana, &found[row].kanji), 1);
    ASSERT_EQ(Add(entry, &found[row].kana, &found[row].kanji), 18);
    stored.entry = entry;
  }
  void DeleteOne() {
    const Reading& reading = RandomReading();
    auto found = Search(reading);
    if (found.empty()) return;
    const size_t row = Roll(static_cast<unsigned>(found.size()));
    ASSERT_EQ(DelUserDicJ(&found[row].kana, &found[row].kanji), 1);
    ASSERT_EQ(DelUserDicJ(&found[row].kana, &found[row].kanji), 18);
    auto& entries = model_[reading.key];
    entries.erase(entries.begin() + static_cast<ptrdiff_t>(row));
  }
  // The entries behind a written form, as text, in the order of their text.
  void SearchForm() {
    const Reading& form = kForms[2 + Roll(std::size(kForms) - 2)];
    size_t expected = 0;
    for (const auto& [key, entries] : model_) {
      for (const Stored& stored : entries) expected += stored.form == form.key;
    }
    const bool isShort = std::string(form.key).size() == 3;  // one kanji
    if (isShort) expected = std::min(expected, kMostOfShortKey);
    uint32_t size = 0;
    Handle list = nullptr;
    std::string word = sjis(form.kana);
    ASSERT_EQ(SerchImiJ(word.data(), nullptr, 0, &size, &list, 2), 1);
    const auto entries = test::takeEntries(list, size);
    EXPECT_EQ(entries.size(), expected) << form.kana;
    for (const std::string& entry : entries)
      EXPECT_TRUE(IsStored(test::utf8(entry.substr(2)), form.key)) << entry;
  }
  // True when the text, without its first tag, is that of an entry with this form.
  bool IsStored(const std::string& text, const std::string& form) {
    for (const auto& [key, entries] : model_) {
      for (const Stored& stored : entries) {
        const std::string head = stored.entry.kana + "\x1B" + stored.entry.kanji + "\n";
        const std::string imi = stored.entry.imi + "\n";
        if (stored.form == form && text.starts_with(head) && text.find(imi) != std::string::npos) return true;
      }
    }
    return false;
  }
  void CompareLists() {
    std::vector<std::string> expected;
    for (const auto& [key, entries] : model_) {
      for (const Stored& stored : entries) expected.push_back(stored.entry.kana);
    }
    std::sort(expected.begin(), expected.end());
    expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
    std::vector<std::string> listed = ListJ();
    std::sort(listed.begin(), listed.end());
    EXPECT_EQ(listed, expected);
  }
  void Step() {
    const unsigned step = Roll(100);
    if (step < 45) return AddOne();
    if (step < 57) return OverwriteOne();
    if (step < 83) return DeleteOne();
    if (step < 90) return static_cast<void>(Search(RandomReading()));
    if (step < 97) return SearchForm();
    if (step < 98) return CompareLists();
    if (step < 99) ReopenOrArrange(ArrangeUserDicJ);
  }
};

TEST_P(UserModelJTest, FifteenHundredStepsAgreeWithTheModel) {
  for (int step = 0; step < 1500; ++step) {
    Step();
    if (HasFailure()) FAIL() << "step " << step;
  }
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  Reopen();
  for (const Reading& reading : kReadings) Search(reading);
  for (int i = 0; i < 30; ++i) SearchForm();
  CompareLists();
}

INSTANTIATE_TEST_SUITE_P(Seeds, UserModelJTest, ::testing::Values(1u, 2u));

}  // namespace
}  // namespace zavel::engine
