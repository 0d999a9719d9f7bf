// Damage of every file at every place, in the process itself: what is read afterwards is complete, or the
// damage is told with every entry that is lost, and nothing is written.
#include <algorithm>
#include <map>
#include <random>

#include "engine/ChangeMidasi.h"
#include "user/UserSalvage.h"
#include "user/UserTable.h"
#include "user/UserText.h"
#include "zavel/user/UserSetFixture.h"

namespace zavel::host {
namespace {

constexpr size_t kPage = 4096;
using Files = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;

class UserDamageSweep : public UserSetTest {
 protected:
  void SetUp() override {
    std::mt19937 random(11);
    std::vector<UserEntry> words, kana;
    for (int i = 0; i < 260; ++i) {
      std::string word, reading, written;
      for (unsigned length = 1 + random() % 7; word.size() < length;)
        word += static_cast<char>('a' + random() % 26);
      words.push_back(english(word, "意味" + std::to_string(i)));
      if (i % 3 == 0) words.back().examples = {{"An example of it.", "例文。"}, {"Another.", "もう一つ。"}};
      if (i % 7 == 0) words.back().pos = 0, words.back().phrase = "by " + word;
      for (unsigned length = 1 + random() % 4; reading.size() < 3 * length;)
        reading += std::string("\xE3\x81") + static_cast<char>(0x82 + 2 * (random() % 5));
      for (unsigned length = 1 + random() % 3; written.size() < 3 * length;)
        written += kKanji.substr(3 * (random() % (kKanji.size() / 3)), 3);
      kana.push_back(japanese(reading, i % 4 == 0 ? "" : written));
      kana.back().meaning += std::to_string(i);
      if (i % 5 == 0) kana.back().examples = {{"example", "例"}};
      if (i % 6 == 0) kana.back().sentences = {{"A sentence.", "文。"}, {"Two.", "二つ。"}};
    }
    ASSERT_EQ(add(std::vector<UserEntry>(words.begin(), words.begin() + kOlder)), "");
    ASSERT_EQ(add(std::vector<UserEntry>(kana.begin(), kana.begin() + kOlder)), "");
    for (const char* name : {"myej.idx", "mykna.idx", "mykji.idx"}) older_[name] = bytes(name);
    ASSERT_EQ(add(std::vector<UserEntry>(words.begin() + kOlder, words.end())), "");
    ASSERT_EQ(add(std::vector<UserEntry>(kana.begin() + kOlder, kana.end())), "");
    for (const std::string& name : names()) {
      if (name != ".lock") whole_[name] = bytes(name);
    }
    for (const UserLanguage language : {kE, kJ}) {
      std::vector<UserEntry> entries;
      ASSERT_EQ(read(language, &entries).code, "");
      ASSERT_EQ(entries.size(), 260u);
      all_[language] = lines(entries);
    }
  }

  static UserLanguage languageOfFile(const std::string& name) { return name.starts_with("myej") ? kE : kJ; }

  Failure read(UserLanguage language, std::vector<UserEntry>* entries) const {
    UserStore open = store();
    return open.readAll(open.open(language, UserAccess::kRead), entries);
  }

  static Lines lines(const std::vector<UserEntry>& entries) {
    Lines found;
    for (const UserEntry& entry : entries) found.push_back(tableLine(entry));
    std::sort(found.begin(), found.end());
    return found;
  }

  // In small letters, as it is filed.
  static std::string wordOf(const std::string& line) {
    return engine::ChangeMidasiStrE(line.substr(3, line.find('\t', 3) - 3));
  }

  static Lines wordsOf(const Lines& lines) {
    Lines words;
    for (const std::string& line : lines) words.push_back(wordOf(line));
    std::sort(words.begin(), words.end());
    return words;
  }

  // Whether the salvage names the word of an entry, or the beginning of words that it is one of.
  static bool isNamed(const std::string& word, const std::vector<LostWord>& lost) {
    return std::any_of(lost.begin(), lost.end(), [&](const LostWord& one) {
      const std::string& name = one.word;
      return name == word || (name.ends_with("...") && word.starts_with(name.substr(0, name.size() - 3)));
    });
  }

  // What is read of the files as they stand. `texts`: characters of texts may be others, which is told, too.
  void expectAllOrTold(const std::string& name, const std::string& how, bool texts) {
    const UserLanguage language = languageOfFile(name);
    const std::string damaged = bytes(name);
    std::vector<UserEntry> entries;
    const Failure failure = read(language, &entries);
    Lines found = lines(entries), missing;
    if (!failure) {
      EXPECT_EQ(found, all_[language]) << name << how;
    } else {
      EXPECT_EQ(failure.status, kExitDamaged) << name << how << failure.message;
      const UserPlace files = place();
      const SalvagedEntries saved =
          salvageEntries(language, [&](const std::string& file) { return files.file(file); });
      std::set_difference(all_[language].begin(), all_[language].end(), found.begin(), found.end(),
                          std::back_inserter(missing));
      for (const std::string& line : missing) {
        const bool otherText = texts && std::any_of(found.begin(), found.end(), [&](const std::string& one) {
                                 return wordOf(one) == wordOf(line);
                               });
        EXPECT_TRUE(otherText || saved.gaps || isNamed(wordOf(line), saved.lost))
            << name << how << ": " << line << failure.message;
      }
      if (failure.code == "unclear_user_dictionary") {
        const Lines& all = all_[language];
        EXPECT_EQ(texts ? wordsOf(found) : found, texts ? wordsOf(all) : all) << name << how;
      }
      EXPECT_EQ(add({language == kE ? english("new") : japanese("あたらしい")}), failure.code);
    }
    EXPECT_EQ(bytes(name), damaged);
  }

  void zero(const std::string& name, size_t from, size_t length) {
    std::string changed = whole_[name];
    length = std::min(length, changed.size() - from);
    changed.replace(from, length, std::string(length, '\0'));
    put(name, changed);
    expectAllOrTold(name, " zeroed from " + std::to_string(from) + ", " + std::to_string(length), false);
    put(name, whole_[name]);
  }

  const std::string kKanji = "犬猫鳥魚馬牛山川木林森火水土金月日人口目手足";
  static constexpr int kOlder = 200;  // entries that the older indexes lead to
  Files whole_, older_;
  std::map<UserLanguage, Lines> all_;
};

TEST_F(UserDamageSweep, ZeroedPages) {
  for (const auto& [name, content] : whole_) {
    for (size_t from = 0; from < content.size(); from += kPage) zero(name, from, kPage);
  }
}

TEST_F(UserDamageSweep, ZeroedRangesInEveryPage) {
  std::mt19937 random(12);
  for (const auto& [name, content] : whole_) {
    for (size_t page = 0; page < content.size(); page += kPage) {
      for (const size_t length : {16, 64, 512, 1500}) {
        const size_t from = page + random() % kPage;
        if (from < content.size()) zero(name, from, length);
      }
    }
  }
}

TEST_F(UserDamageSweep, SingleBytes) {
  std::mt19937 random(13);
  for (const auto& [name, content] : whole_) {
    for (int i = 0; i < 150; ++i) {
      const size_t at = random() % content.size();
      std::string changed = content;
      changed[at] = static_cast<char>(changed[at] ^ (1 << random() % 8));
      put(name, changed);
      expectAllOrTold(name, " changed at " + std::to_string(at), true);
      put(name, content);
    }
  }
}

TEST_F(UserDamageSweep, OlderIndexes) {
  for (const auto& [name, content] : older_) {
    put(name, content);
    expectAllOrTold(name, " is older", false);
    put(name, whole_[name]);
  }
  put("mykna.idx", older_["mykna.idx"]);
  put("mykji.idx", older_["mykji.idx"]);
  expectAllOrTold("mykna.idx", " and mykji.idx are older", false);
}

// Four bytes, which leave an index that is one.
TEST_F(UserDamageSweep, LostOffsetsOfBlocks) {
  const std::pair<const char*, uint16_t> indexes[] = {{"myej.idx", 1}, {"mykna.idx", 2}, {"mykji.idx", 3}};
  for (const auto& [name, type] : indexes) {
    const UserIndex index(file(name), type);
    const size_t rows = index.rows().size();
    ASSERT_TRUE(index.sound()) << name;
    ASSERT_GT(rows, 20u) << name;
    for (size_t i = 0; i < rows; i += rows / 40 + 1) {
      const uint32_t block = index.rows()[i].block;
      const std::string offset = {static_cast<char>(block), static_cast<char>(block >> 8),
                                  static_cast<char>(block >> 16), static_cast<char>(block >> 24)};
      const size_t at = whole_[name].rfind(offset);
      std::string changed = whole_[name];
      put(name, changed.replace(at, 4, 4, '\0'));
      ASSERT_TRUE(UserIndex(file(name), type).sound()) << name << at;
      expectAllOrTold(name, " lost an offset at " + std::to_string(at), false);
      std::vector<UserEntry> entries;
      EXPECT_NE(read(languageOfFile(name), &entries).code, "") << name << at;
    }
    put(name, whole_[name]);
  }
}

}  // namespace
}  // namespace zavel::host
