// Hand-made books as a host sees them: the example of data/example-book, and the one of the manual page as it
// stands there.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "book/SDic.h"
#include "mkbook/BookFolder.h"
#include "mkbook/Build.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

namespace fs = std::filesystem;
using test::be16;
using test::jis;

const std::string kExample = ZAVEL_PROJECT_FOLDER "/data/example-book";

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in.good()) << path;
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

class ExampleBook : public testing::Test {
 protected:
  void SetUp() override {
    folder_.write("font.hex", "00E9:" + std::string(32, '3') + "\n");
    options_.form = "text";
    options_.source = kExample + "/garden.txt";
    options_.target = folder_.file("book");
    options_.unifont = folder_.file("font.hex");
    options_.progress = "none";
  }
  void TearDown() override { SDicCloseDictionary(book_); }

  mkdict::Outcome run(bool verify = false) {
    summary_ = {};
    faults_ = {};
    options_.verify = verify;
    return build(options_, progress_, &summary_, &faults_);
  }
  void open() {
    ASSERT_EQ(run().status, 0);
    ASSERT_EQ(SDicOpenDictionary(folder_.file("book/BOOK.CAT").c_str(), &book_, nullptr, false, false), 0u);
  }

  // The headwords of the hits.
  std::string find(const std::string& query) {
    long count = 0, first = 0;
    const uint32_t code = SDicExecIndexSearch(book_, jis(query).c_str(), false, false, &count, &first);
    if (code != 0) return std::to_string(code);
    std::string out;
    for (long i = 0; i < count; ++i) {
      _SDICITEMADDRESS hit{};
      EXPECT_EQ(SDicGetSearchResult(book_, static_cast<unsigned long>(i), &hit), 0u);
      char* text = nullptr;
      uint16_t length = 0;
      EXPECT_EQ(SDicGetHeadword(book_, &hit.headword, &text, &length, false), 0u);
      out += (out.empty() ? "" : " ") + test::fromJis({text, length - 2u});
      std::free(text);
      found_ = hit.body;
    }
    return out;
  }
  std::string body(const std::string& word) {
    EXPECT_NE(find("◆" + word), "");
    char* bytes = nullptr;
    uint32_t length = 0;
    EXPECT_EQ(SDicGetBodyData(book_, &found_, &bytes, &length), 0u);
    const std::string out(bytes, length + 64);
    std::free(bytes);
    return out;
  }
  static std::string plain(std::string_view text) {
    std::string out;
    for (size_t i = 0; i + 2 <= text.size(); i += 2)
      if (text[i] != 0x1F) out += text.substr(i, 2);
    return test::fromJis(out);
  }
  // What the engine gives for the tag that begins with `tag` in a text: "name|data".
  std::string medium(const std::string& text, uint16_t tag) {
    const size_t at = text.find(be16(tag));
    if (at == std::string::npos) return "no tag";
    char *name = nullptr, *data = nullptr;
    uint16_t nameLength = 0;
    uint32_t length = 0;
    const auto get = tag == 0x1F4A ? SDicGetStreamData : SDicGetPictureData;
    if (const uint32_t code = get(book_, text.data() + at, &name, &nameLength, &data, &length); code != 0)
      return std::to_string(code);
    const std::string out = plain({name, nameLength}) + "|" + std::string(data, length);
    std::free(name);
    std::free(data);
    return out;
  }

  test::TempFolder folder_;
  Options options_;
  mkdict::Progress progress_;
  mkdict::Summary summary_;
  mkdict::Faults faults_;
  void* book_ = nullptr;
  _SDICADDRESS found_{};
};

TEST_F(ExampleBook, HoldsWhatItsSourceSays) {
  ASSERT_EQ(run().status, 0);
  EXPECT_EQ(summary_.valueOf("entries"), 8u);
  EXPECT_EQ(summary_.valueOf("menus"), 5u);
  EXPECT_EQ(summary_.valueOf("pictures"), 4u);
  EXPECT_EQ(summary_.valueOf("sounds"), 1u);
  EXPECT_EQ(summary_.valueOf("fields of search forms"), 4u);
  EXPECT_NE(summary_.text().find("written as plain text: menthol (line 110)\n"), std::string::npos);
  EXPECT_EQ(run(true).status, 0);
  EXPECT_EQ(faults_.total(), 0u);
  EXPECT_EQ(summary_.valueOf("menus walked"), 5u);
  EXPECT_EQ(summary_.valueOf("pictures and sounds compared"), 5u);
  EXPECT_EQ(summary_.valueOf("values of fields asked for"), 13u);
}

TEST_F(ExampleBook, SaysWhatItIs) {
  open();
  EXPECT_STREQ(SDicGetDicName(book_), "A Small Garden \x8F\xAC\x82\xB3\x82\xC8\x92\xEB");
  EXPECT_EQ(SDicGetDicID(book_), 1196573284u);
  EXPECT_EQ(SDicGetPublisherVersion(book_), 2);
  char* info = nullptr;
  uint32_t length = 0;
  ASSERT_EQ(SDicGetPublisherInfo(book_, &info, &length), 0u);
  EXPECT_STREQ(info, "Example book of ZavelLex, Apache License 2.0");
  std::free(info);
  uint32_t methods = 0;
  EXPECT_EQ(SDicGetAvailableMethods(book_, &methods), 0u);
  EXPECT_EQ(methods, 0xBE7u);  // exact, forward, backward, cross, keyword, multi, menu, colour menu, word
}

TEST_F(ExampleBook, IsFoundByItsWords) {
  open();
  EXPECT_EQ(find("◆林檎"), find("◆りんご"));
  EXPECT_EQ(find("◆apple tree"), find("◆りんご"));
  EXPECT_EQ(find("◆ミント"), "薄荷【はっか・ミント】");
  EXPECT_EQ(find("◆ladybug"), "天道虫【てんとうむし】");
  EXPECT_EQ(find("▲red"), "天道虫【てんとうむし】");
  EXPECT_EQ(find("△animal"), "天道虫【てんとうむし】");
}

TEST_F(ExampleBook, HasStylesKeywordsAndReferences) {
  open();
  const std::string apple = body("apple");
  EXPECT_NE(apple.find(be16(0x1F41) + be16(0x0200) + be16(0x1F04) + jis("Malus domestica") + be16(0x1F05) +
                       be16(0x1F61)),
            std::string::npos);
  EXPECT_NE(apple.find(jis("H") + be16(0x1F05) + be16(0x1F06) + be16(0x1F04) + jis("2") + be16(0x1F05) +
                       be16(0x1F07)),
            std::string::npos);
  EXPECT_NE(apple.find(be16(0x1F0E) + be16(0x1F04) + jis("4") + be16(0x1F05) + be16(0x1F0F)),
            std::string::npos);
  EXPECT_NE(apple.find(be16(0x1F12) + be16(0x1F04) + jis("spring") + be16(0x1F05) + be16(0x1F13)),
            std::string::npos);
  const std::string path = body("path");
  find("◆庭");
  EXPECT_NE(path.find(be16(0x1F42) + be16(0x0100) + jis("庭【にわ】") + be16(0x1F62) +
                      test::bcd(found_.block, 4) + test::bcd(found_.offset, 2)),
            std::string::npos);
}

TEST_F(ExampleBook, HasPicturesAndASound) {
  open();
  EXPECT_TRUE(medium(body("apple"), 0x1F4D) == "Ａｎ　ａｐｐｌｅ|" + contentOf(kExample + "/apple.jpg"));
  EXPECT_TRUE(medium(body("ladybird"), 0x1F4D) ==
              "Ｆｒｏｍ　ａｂｏｖｅ|" + contentOf(kExample + "/ladybird.bmp"));
  EXPECT_TRUE(medium(body("wind chime"), 0x1F4A) == "Ｈｅａｒ　ｉｔ|" + contentOf(kExample + "/bell.wav"));
  // 48 x 32 dots in rows of 8 bytes, white 0; the stalk is dark from the left edge to the leaf in row 16.
  const std::string leaf = medium(body("mint"), 0x1F44).substr(std::string("Ａ　ｌｅａｆ|").size());
  ASSERT_EQ(leaf.size(), 62u + 8 * 32);
  EXPECT_EQ(leaf.substr(54, 8), std::string("\xFF\xFF\xFF\0\0\0\0\0", 8));
  EXPECT_EQ(leaf[62 + (31 - 16) * 8], '\xFF');
  EXPECT_EQ(leaf[62], 0);
  // 96 x 64 dots of seven colours, four bits each.
  const std::string plan = medium(body("garden"), 0x1F4D)
                               .substr(std::string("Ｔｈｅ　ｇａｒｄｅｎ　ｆｒｏｍ　ａｂｏｖｅ|").size());
  EXPECT_EQ(plan.substr(0, 2), "BM");
  EXPECT_EQ(plan.substr(18, 8), std::string("\x60\0\0\0\x40\0\0\0", 8));
  EXPECT_EQ(plan.substr(28, 2), std::string("\4\0", 2));
  EXPECT_EQ(plan.substr(54, 4), std::string("\x32\x50\x6E\0", 4));  // its fence: 110, 80, 50
}

TEST_F(ExampleBook, HasMenus) {
  open();
  char* bytes = nullptr;
  uint32_t length = 0;
  bool more = true;
  ASSERT_EQ(SDicGetMenuData(book_, nullptr, &bytes, &length, &more), 0u);
  const std::string menu(bytes, length);
  std::free(bytes);
  EXPECT_FALSE(more);
  EXPECT_TRUE(menu.ends_with(be16(0x1F03)));
  const size_t item = menu.find(be16(0x1F43) + be16(0x1F04) + jis("Plants") + be16(0x1F05) + be16(0x1F63));
  ASSERT_NE(item, std::string::npos);
  // The menu that it leads to.
  const std::string place = menu.substr(item + 20, 6);
  const _SDICADDRESS at = {GFn_BCD2DWORD(reinterpret_cast<const uint8_t*>(place.data()), 4),
                           GFn_BCD2DWORD(reinterpret_cast<const uint8_t*>(place.data()) + 4, 2)};
  more = true;
  ASSERT_EQ(SDicGetMenuData(book_, &at, &bytes, &length, &more), 0u);
  EXPECT_FALSE(more);
  EXPECT_NE(test::fromJis({bytes, length}).find("林檎"), std::string::npos);
  std::free(bytes);
  ASSERT_EQ(SDicGetColorMenuData(book_, nullptr, &bytes, &length), 0u);
  EXPECT_EQ(std::string(bytes, 4), be16(0x1F4C) + be16(0));
  EXPECT_NE(std::string(bytes, length).find(be16(0x1F4D)), std::string::npos);
  std::free(bytes);
}

TEST_F(ExampleBook, IsSearchedByItsForms) {
  open();
  uint16_t forms = 0;
  EXPECT_EQ(SDicGetMultiSearchCount(book_, &forms), 0u);
  EXPECT_EQ(forms, 2);
  char* name = nullptr;
  ASSERT_EQ(SDicGetMultiSearchName(book_, 0, &name), 0u);
  EXPECT_STREQ(name, "\xC4\xED\xA4\xC7\xC3\xB5\xA4\xB9");  // 庭で探す in EUC-JP
  std::free(name);
  EXPECT_EQ(find("▽0▼0spring▼1red"), "林檎【りんご】 天道虫【てんとうむし】");
  EXPECT_EQ(find("▽0▼1moss green"), "苔【こけ】");
  EXPECT_EQ(find("▽0▼2Mal"), "林檎【りんご】");
  EXPECT_EQ(find("▽1▼06"), "天道虫【てんとうむし】");
  _SDICMULTIREFLIST* list = nullptr;
  ASSERT_EQ(SDicGetMultiSearchReferenceList(book_, 0, 1, &list), 0u);
  EXPECT_EQ(std::string(list->name), jis("green"));
  ASSERT_NE(list->child, nullptr);
  EXPECT_EQ(std::string(list->child->name), jis("moss green"));
  EXPECT_EQ(std::string(list->next->name), jis("red"));
}

// A tree on a meadow: the bottom row bright green (10), the middle of the crown dark green (2), the corner
// white.
TEST_F(ExampleBook, HasIcons) {
  ASSERT_EQ(run().status, 0);
  char *large = nullptr, *small = nullptr;
  ASSERT_EQ(SDicGetDicIconInformation(folder_.file("book/BOOK.CAT").c_str(), &large, &small), 0u);
  EXPECT_EQ(large[118], '\xAA');
  EXPECT_EQ(large[118 + (31 - 11) * 16 + 8], '\x22');
  EXPECT_EQ(large[118 + 31 * 16], '\xFF');
  EXPECT_EQ(small[118], '\xAA');
  EXPECT_EQ(small[118 + 14 * 8], '\xFF');
  std::free(large);
  std::free(small);
}

// Whatever of a book differs from its source is told: each of these changes one thing.
TEST_F(ExampleBook, DiffersFromAnotherSource) {
  const struct {
    const char* from;
    const char* to;
    const char* fault;
  } changes[] = {
      {"85% H{_2}O", "85% H{^2}O", "entry 1: the text of \"林檎【りんご】\" differs"},
      {"({=Malus domestica})", "(Malus domestica)", "entry 1: the text of \"林檎【りんご】\" differs"},
      {"{picture leaf.png|A leaf}", "{picture ladybird.bmp|A leaf}",
       "entry 3: picture or sound 1 of it differs"},
      {"{sound bell.wav|Hear it}", "{sound other.wav|Hear it}", "entry 7: picture or sound 1 of it differs"},
      {"{>苔|苔 moss}", "{>苔|moss}", "entry 1: the menu \"Plants\" differs"},
      {"{>>Plants}\n", "{>>Animals and things|Plants}\n",
       "entry 0: an item of the menu \"A Small Garden\" leads elsewhere"},
      {"  leaf green\n", "  olive\n", "entry 0: the form \"庭で探す\" differs"},
      {"@value Legs: 0", "@value Legs: 6", "entry 5: \"6\" in its field leads elsewhere"},
      {"@icon icon.png\n", "@icon other.bmp\n", "entry 0: the icon differs"}};
  for (const auto& file : fs::directory_iterator(kExample))
    folder_.write(file.path().filename(), contentOf(file.path()));
  ASSERT_EQ(run().status, 0);
  const std::string wave = contentOf(kExample + "/bell.wav");
  folder_.write("other.wav", wave.substr(0, 2000) + "\x55" + wave.substr(2001));
  folder_.write("other.bmp",
                std::string("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x20\0\0\0\x20\0\0\0\1\0\x18\0", 30) +
                    std::string(24 + 32 * 32 * 3, '\0'));  // 32 x 32 dots of 24 bits, black
  options_.source = folder_.file("garden.txt");
  for (const auto& [from, to, fault] : changes) {
    std::string text = contentOf(kExample + "/garden.txt");
    const size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    folder_.write("garden.txt", text.replace(at, std::string(from).size(), to));
    const mkdict::Outcome outcome = run(true);
    EXPECT_EQ(outcome.status, 5) << to;
    EXPECT_NE(reportText(options_, outcome, summary_, faults_).find(fault), std::string::npos)
        << to << "\n"
        << reportText(options_, outcome, summary_, faults_);
  }
}

// The lines of the manual page behind "# EXAMPLE", without their tab.
std::string manualExample() {
  const std::string page = contentOf(ZAVEL_PROJECT_FOLDER "/docs/man/mkbook-text.5.scd");
  const size_t begin = page.find("```\n", page.find("# EXAMPLE")) + 4;
  return page.substr(begin, page.find("```", begin) - begin);
}

TEST_F(ExampleBook, OfTheManualCompilesAsItStandsThere) {
  for (const char* name : {"leaf.png", "bell.wav"}) folder_.write(name, contentOf(kExample + "/" + name));
  folder_.write("sea.txt", manualExample());
  options_.source = folder_.file("sea.txt");
  open();
  EXPECT_EQ(summary_.text().find("Left out"), std::string::npos) << summary_.text();
  EXPECT_EQ(run(true).status, 0);
}

}  // namespace
}  // namespace zavel::mkbook
