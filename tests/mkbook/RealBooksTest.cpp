// What the books of WordNet and KANJIDIC answer. The numbers were counted in the sources with other means: in
// the index of WordNet by letters and digits alone, in KANJIDIC by its codes.
#include <gtest/gtest.h>

#include <cstdlib>

#include "book/SDic.h"
#include "support/BookWriter.h"

namespace zavel {
namespace {

using test::jis;

class Book {
 public:
  explicit Book(const char* folder) {
    EXPECT_EQ(
        SDicOpenDictionary((std::string(folder) + "/BOOK.CAT").c_str(), &handle_, nullptr, false, false), 0u);
  }
  ~Book() { SDicCloseDictionary(handle_); }
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;

  long count(const std::string& query) const {
    long count = -1, first = 0;
    return SDicExecIndexSearch(handle_, jis(query).c_str(), false, false, &count, &first) == 0 ? count : -1;
  }
  // Headwords of the hits, half and full width as they are typed.
  std::string find(const std::string& query) const {
    std::string out;
    const long hits = count(query);
    for (long i = 0; i < hits; ++i) {
      _SDICITEMADDRESS hit{};
      EXPECT_EQ(SDicGetSearchResult(handle_, static_cast<unsigned long>(i), &hit), 0u);
      out += (out.empty() ? "" : ",") + headword(hit.headword);
    }
    return out;
  }
  uint32_t methods() const {
    uint32_t methods = 0;
    EXPECT_EQ(SDicGetAvailableMethods(handle_, &methods), 0u);
    return methods;
  }

 private:
  std::string headword(const _SDICADDRESS& at) const {
    char* text = nullptr;
    uint16_t length = 0;
    EXPECT_EQ(SDicGetHeadword(handle_, &at, &text, &length, false), 0u);
    std::string characters;
    for (size_t i = 0; i + 2 <= length; i += 2)
      if (text[i] != 0x1F && text[i] != 0) characters.append(text + i, 2);
    std::free(text);
    return test::fromJis(characters);
  }

  void* handle_ = nullptr;
};

TEST(WordNetBook, FindsWordsByEachMethod) {
  const Book book(WORDNET_BOOK);
  EXPECT_EQ(book.methods(), 0x867u);
  EXPECT_EQ(book.find("◆dog"), "ｄｏｇ");
  EXPECT_EQ(book.count("□dog"), 90);
  EXPECT_EQ(book.count("■dog"), 79);
  EXPECT_EQ(book.count("□zyg"), 26);
  EXPECT_EQ(book.count("□interna"), 81);
  EXPECT_EQ(book.find("■interna"), "ｏｔｉｔｉｓ　ｉｎｔｅｒｎａ");
  EXPECT_EQ(book.find("□photosyn"), "ｐｈｏｔｏｓｙｎｔｈｅｓｉｓ,ｐｈｏｔｏｓｙｎｔｈｅｔｉｃ");
  EXPECT_EQ(book.find("▲quantum◇▲leap"), "ｑｕａｎｔｕｍ　ｌｅａｐ");
  EXPECT_EQ(book.count("◆zzz"), 0);
}

TEST(KanjiBook, FindsKanjiByItsForm) {
  const Book book(KANJI_BOOK);
  EXPECT_EQ(book.methods(), 0x8E7u);
  EXPECT_EQ(book.find("▽０▼１1"), "一,乙,丶,丿,亅");
  EXPECT_EQ(book.find("▽０▼１3◇▼２1"), "下,口,三,山,子,女,小,上,千,川,大,土,夕");
  EXPECT_EQ(book.count("▽０▼２1"), 80);
  EXPECT_EQ(book.find("◆dog"), "狗,犬");
  EXPECT_EQ(book.count("▲tree"), 68);
}

}  // namespace
}  // namespace zavel
