#include <gtest/gtest.h>

#include "OpenBook.h"
#include "Words.h"
#include "support/SmallBook.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// One of a field's sub-entries: kind, first block, number of blocks.
std::string sub(uint8_t kind, uint32_t start, uint32_t blocks = 1) {
  std::string out(1, static_cast<char>(kind));
  out += '\0' + be32(start) + be32(blocks);
  out.resize(16);
  return out;
}

// A field of a form.
std::string field(const std::string& label, const std::vector<std::string>& subs) {
  std::string out(1, static_cast<char>(subs.size()));
  out += '\0' + jis(label);
  out.resize(32);
  for (const std::string& one : subs) out += one;
  return out;
}

std::string form(const std::vector<std::string>& fields) {
  std::string out = be16(static_cast<uint32_t>(fields.size())) + std::string(14, '\0');
  for (const std::string& one : fields) out += one;
  return out;
}

// A book with a form for each definition, at blocks 20, 21 and so on.
BookWriter bookWith(const std::vector<std::string>& forms) {
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  uint32_t block = 20;
  for (const std::string& one : forms) writer.region(0xFF, block++, padded(one));
  return writer;
}

std::string nameOf(OpenBook& book, uint16_t block) {
  char* name = nullptr;
  const uint32_t status = SDicGetMultiSearchName(book.handle, block, &name);
  if (status != 0) return OpenBook::hex(status);
  const std::string found = name;
  std::free(name);
  return found;
}

std::string countOf(OpenBook& book) {
  uint16_t count = 99;
  const uint32_t status = SDicGetMultiSearchCount(book.handle, &count);
  return status != 0 ? OpenBook::hex(status) : std::to_string(count);
}

std::string entriesOf(OpenBook& book, uint16_t block) {
  uint8_t count = 99;
  const uint32_t status = SDicGetMultiSearchEntryCount(book.handle, block, &count);
  return status != 0 ? OpenBook::hex(status) : std::to_string(count);
}

// The label, with "*" behind it where there is a list of choices.
std::string infoOf(OpenBook& book, uint16_t block, uint8_t entry) {
  char* label = nullptr;
  bool hasList = false;
  const uint32_t status = SDicGetMultiSearchEntryInfo(book.handle, block, entry, &label, &hasList);
  if (status != 0) return OpenBook::hex(status);
  const std::string found = label;
  std::free(label);
  return hexOf(found) + (hasList ? "*" : "");
}

std::string show(const _SDICMULTIREFLIST* node) {
  std::string out;
  for (; node; node = node->next) {
    size_t length = 0;
    while (node->name[length] != '\0') length += 2;
    out += std::to_string(node->level) + "." + std::to_string(node->position) +
           fromJis(std::string(node->name, length));
    if (node->child) out += "(" + show(node->child) + ")";
  }
  return out;
}

std::string listOf(OpenBook& book, uint16_t block = 0, uint8_t entry = 0) {
  _SDICMULTIREFLIST* list = nullptr;
  const uint32_t status = SDicGetMultiSearchReferenceList(book.handle, block, entry, &list);
  return status != 0 ? OpenBook::hex(status) : show(list);
}

TEST(MultiSearch, IsNamedByTheBook) {
  BookWriter writer = bookWith({form({}), form({}), form({})});
  writer.info("[GENERAL]\nMUL0NAME=First\nMUL2NAME=\xC9\xF4\xBC\xF3\n");
  OpenBook book(writer);
  EXPECT_EQ(countOf(book), "3");
  EXPECT_EQ(nameOf(book, 0), "First");
  EXPECT_EQ(nameOf(book, 1),
            "\xCA\xA3\xB9\xE7\xB8\xA1\xBA\xF7"
            "2");  // 複合検索2, in EUC-JP
  EXPECT_EQ(nameOf(book, 2), "\xC9\xF4\xBC\xF3");
  EXPECT_EQ(nameOf(book, 3), "80000016");
  EXPECT_EQ(nameOf(book, 0xFFFF), "80000016");
}

TEST(MultiSearch, HasANameOfItsOwnElse) {
  OpenBook book(bookWith({form({})}));
  EXPECT_EQ(nameOf(book, 0),
            "\xCA\xA3\xB9\xE7\xB8\xA1\xBA\xF7"
            "1");
}

TEST(MultiSearch, IsNumberedInHexadecimal) {
  BookWriter writer = bookWith(std::vector<std::string>(18, form({})));
  writer.info("[GENERAL]\nMULANAME=Ten\nMUL10NAME=Sixteen\nMUL11NAME=" + std::string(80, 'x') + "\n");
  OpenBook book(writer);
  EXPECT_EQ(nameOf(book, 10), "Ten");
  EXPECT_EQ(nameOf(book, 16), "Sixteen");
  EXPECT_EQ(nameOf(book, 17), std::string(63, 'x'));
}

TEST(MultiSearch, HasLabelledFields) {
  OpenBook book(bookWith({form({field("部首", {sub(0x91, 30), sub(1, 40)}), field("", {})}),
                          form({field("ABCDEFGHIJKLMNO", {sub(0xA1, 30)})})}));
  EXPECT_EQ(entriesOf(book, 0), "2");
  EXPECT_EQ(entriesOf(book, 1), "1");
  EXPECT_EQ(entriesOf(book, 2), "80000016");
  EXPECT_EQ(infoOf(book, 0, 0), "C9F4BCF3*");
  EXPECT_EQ(infoOf(book, 0, 1), "");
  EXPECT_EQ(infoOf(book, 0, 2), "80000016");
  EXPECT_EQ(infoOf(book, 2, 0), "80000016");
  // Fifteen characters fill the label.
  EXPECT_EQ(infoOf(book, 1, 0), "A3C1A3C2A3C3A3C4A3C5A3C6A3C7A3C8A3C9A3CAA3CBA3CCA3CDA3CEA3CF");
}

TEST(MultiSearch, IsNotAvailableInAPlainBook) {
  OpenBook book(BookWriter().region(0, 1, padded("body")));
  EXPECT_EQ(countOf(book), "8004100C");
  EXPECT_EQ(nameOf(book, 0), "8004100C");
  EXPECT_EQ(entriesOf(book, 0), "8004100C");
  EXPECT_EQ(infoOf(book, 0, 0), "8004100C");
  EXPECT_EQ(listOf(book), "8004100C");
}

// The test is by the methods' size: a menu (0x100) is enough.
TEST(MultiSearch, IsOfNoNumberInABookWithMenus) {
  OpenBook book(BookWriter().region(0, 1, padded("body")).region(1, 5, padded("menu")));
  EXPECT_EQ(countOf(book), "0");
  EXPECT_EQ(nameOf(book, 0), "80000016");
  EXPECT_EQ(entriesOf(book, 0), "80000016");
  EXPECT_EQ(infoOf(book, 0, 0), "80000016");
  EXPECT_EQ(listOf(book), "80000016");
}

TEST(MultiSearch, DropsADefinitionThatCantBeRead) {
  // Two fields are told, and the region ends behind the first one's 2032nd byte.
  const std::string broken =
      form({field("", std::vector<std::string>(125, sub(0x91, 30)))}).replace(0, 2, be16(2));
  ASSERT_EQ(broken.size(), 2048u);
  OpenBook book(bookWith({form({field("A", {})}), broken, form({field("B", {})})}));
  EXPECT_EQ(countOf(book), "2");
  EXPECT_EQ(infoOf(book, 0, 0), "A3C1");
  EXPECT_EQ(infoOf(book, 1, 0), "A3C2");
}

// A region of `blocks` blocks that repeat one set of 16.
BookWriter& repeat(BookWriter& writer, uint16_t kind, uint32_t start, uint32_t blocks,
                   const std::string& set) {
  const std::string name = "rep" + std::to_string(start);
  std::string file(64, '\0');
  const uint32_t sets = (blocks + 15) / 16;
  for (uint32_t i = 0; i < sets; ++i) file += be32(64 + 4 * sets);
  std::string codes;
  for (const char byte : set) codes += code(0, 0, static_cast<uint8_t>(byte));
  writer.file(name, file + blockSet(0, codes));
  return writer.record(
      {.kind = kind, .start = start, .end = start + blocks - 1, .flags = std::string(4, '\0'), .name = name});
}

TEST(MultiSearch, BoundsFieldsOfAllDefinitions) {
  BookWriter writer = BookWriter().region(0, 1, padded("body"));
  repeat(writer, 0xFF, 100, 1040, be16(0xFFFF));
  repeat(writer, 0xFF, 2000, 1040, be16(0xFFFF));
  // The first one's 65535 fields leave room for one more, and the second one has as many.
  OpenBook book(writer);
  EXPECT_EQ(countOf(book), "1");
  EXPECT_EQ(entriesOf(book, 0), "255");
}

TEST(MultiSearch, BoundsForms) {
  const TempFolder folder;
  folder.write("r1", packed("body"));
  folder.write("form", packed(form({})));
  folder.write("EXINFO.INI", "[GENERAL]\nMUL3FFNAME=Last\n");
  BookWriter writer;
  writer.record({.kind = 0, .start = 1, .end = 1, .flags = std::string(4, '\0'), .name = "r1"});
  for (uint32_t i = 0; i < 1100; ++i)
    writer.record(
        {.kind = 0xFF, .start = 2 + i, .end = 2 + i, .flags = std::string(4, '\0'), .name = "form"});
  OpenBook book(writer);
  EXPECT_EQ(book.status, 0x80041006u);  // none of its files
  SDicCloseDictionary(book.handle);
  book.handle = nullptr;
  const std::string path = writer.write(folder);
  ASSERT_EQ(SDicOpenDictionary(path.c_str(), &book.handle, nullptr, false, false), 0u);
  EXPECT_EQ(countOf(book), "1024");
  EXPECT_EQ(nameOf(book, 1023), "Last");
}

TEST(MultiSearch, ShowsAtMost255Fields) {
  OpenBook book(bookWith({form(std::vector<std::string>(300, field("A", {})))}));
  EXPECT_EQ(entriesOf(book, 0), "255");
  EXPECT_EQ(infoOf(book, 0, 254), "A3C1");
}

// One choice: its name and where those below it stand.
std::string choice(const std::string& name, uint32_t block = 0, uint32_t offset = 0) {
  return Text().word(0x1F43).chars(name).word(0x1F63).address(block, offset).bytes();
}

BookWriter bookWithList(const std::string& list, uint32_t start = 40) {
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(0x02, 40, padded(list));
  writer.region(0xFF, 60,
                padded(form({field("A", {sub(0x91, 30), sub(1, start), sub(1, 41)}), field("B", {})})));
  return writer;
}

TEST(Choices, OfOneLevelHaveNoChildren) {
  OpenBook book(bookWithList(be16(0x1F02) + choice("一") + choice("二三") + choice("") + be16(0x1F03)));
  EXPECT_EQ(listOf(book), "0.0一0.1二三0.2");
  _SDICMULTIREFLIST* first = nullptr;
  _SDICMULTIREFLIST* second = nullptr;
  ASSERT_EQ(SDicGetMultiSearchReferenceList(book.handle, 0, 0, &first), 0u);
  ASSERT_EQ(SDicGetMultiSearchReferenceList(book.handle, 0, 0, &second), 0u);
  EXPECT_EQ(first, second);  // made once
}

TEST(Choices, MayHaveLevelsBelow) {
  const std::string end = be16(0x1F03);
  std::string list = choice("A", 40, 200) + choice("B") + choice("C", 40, 400) + end;
  list.resize(200);
  list += choice("D") + choice("E", 40, 600) + end;
  list.resize(400);
  list += choice("F") + end;
  list.resize(600);
  list += choice("G") + end;
  OpenBook book(bookWithList(list));
  EXPECT_EQ(listOf(book), "0.0Ａ(1.0Ｄ1.1Ｅ(2.0Ｇ))0.1Ｂ0.2Ｃ(1.0Ｆ)");
}

TEST(Choices, AreNotThereForOtherFields) {
  OpenBook book(bookWithList(choice("A") + be16(0x1F03)));
  EXPECT_EQ(listOf(book, 0, 1), "80041012");
  EXPECT_EQ(listOf(book, 0, 2), "80000016");
  EXPECT_EQ(listOf(book, 1, 0), "80000016");
}

TEST(Choices, BeginSomewhere) {
  OpenBook book(bookWithList(choice("A") + be16(0x1F03), 0));
  EXPECT_EQ(listOf(book), "8004100E");
}

TEST(Choices, AreBrokenWithoutTheirTags) {
  const std::string end = be16(0x1F03);
  EXPECT_EQ(listOf(*std::make_unique<OpenBook>(bookWithList(jis("A") + choice("B") + end))), "8004100E");
  EXPECT_EQ(listOf(*std::make_unique<OpenBook>(bookWithList(be16(0x1F43) + choice("B") + end))), "8004100E");
  EXPECT_EQ(listOf(*std::make_unique<OpenBook>(bookWithList(choice("B") + jis("A") + end))), "8004100E");
  EXPECT_EQ(listOf(*std::make_unique<OpenBook>(bookWithList(be16(0x1F63) + end))), "8004100E");
}

TEST(Choices, FailWhereTheyCantBeRead) {
  // The child's list lies in no region; a name runs to the region's end; a list at its very end.
  OpenBook child(bookWithList(choice("A", 50, 0) + be16(0x1F03)));
  EXPECT_EQ(listOf(child), "8004100D");
  OpenBook name(bookWithList(textAt(0, be16(0x1F43) + std::string(2046, '\x23'))));
  EXPECT_EQ(listOf(name), "8004100D");
  OpenBook whole(bookWithList(
      std::string(choice("A", 40, 2048 - 12) + std::string(2048, '\0')).substr(0, 2048 - 12) + choice("B")));
  EXPECT_EQ(listOf(whole), "8004100D");
}

TEST(Choices, HoldNamesTo254Bytes) {
  std::string name;
  for (int i = 0; i < 200; ++i) name += 'A';
  OpenBook book(bookWithList(choice(name) + be16(0x1F03)));
  _SDICMULTIREFLIST* list = nullptr;
  ASSERT_EQ(SDicGetMultiSearchReferenceList(book.handle, 0, 0, &list), 0u);
  EXPECT_EQ(std::string(list->name, 256), jis(std::string(127, 'A')) + std::string(2, '\0'));
}

TEST(Choices, EndANameThatIsNone) {
  OpenBook book(bookWithList(be16(0x1F43) + std::string(5000, '\x23') + words({0x1F63, 0, 0, 0, 0x1F03})));
  EXPECT_EQ(listOf(book), "8004100E");
}

TEST(Choices, LeadBackToNoneAbove) {
  OpenBook book(bookWithList(choice("A", 40, 0) + be16(0x1F03)));
  EXPECT_EQ(listOf(book), "8004100E");
  EXPECT_EQ(listOf(book), "8004100E");
}

TEST(Choices, AreBoundedInNumber) {
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  std::string set;
  while (set.size() < 32768) set += choice("ABC");  // 16 bytes each, and none that ends the list
  repeat(writer, 0x02, 100, 1024, set);
  writer.region(0xFF, 60, padded(form({field("A", {sub(1, 100)})})));
  OpenBook book(writer);
  EXPECT_EQ(listOf(book), "8004100E");
}

// Fields are searched in what their sub-entries say. Indexes at 30 (0x91, two addresses), 31 (0xA1 groups),
// 32 and 33 (direct).
BookWriter searchable(const std::vector<std::string>& subs, const std::vector<std::string>& more = {}) {
  IndexBlock forward(0xA0);
  forward.leaf(jis("A"), place(1, 10), place(1, 11)).leaf(jis("AB"), place(1, 20), place(1, 21));
  forward.leaf(jis("B"), place(1, 30), place(1, 31));
  const auto head = [](const std::string& key) {
    return std::string("\x80", 1) + static_cast<char>(key.size()) + std::string(4, '\0') + key;
  };
  IndexBlock groups(0xB0);
  groups.record(head(jis("A")));
  groups.record("\xC0" + place(1, 20) + place(2, 1)).record("\xC0" + place(1, 10) + place(2, 2));
  groups.tagged(0x00, jis("AB"), place(1, 40) + place(2, 3));
  groups.record(head(jis("B"))).record("\xC0" + place(1, 50) + place(2, 4));
  groups.tagged(0x00, jis("C"), place(1, 60) + place(2, 5));
  groups.tagged(0x00, jis("・D"), place(1, 70) + place(2, 6));
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(0x02, 30, forward.bytes());
  writer.region(0x02, 31, groups.bytes());
  writer.region(0x02, 32, padded(place(1, 10)) + padded(place(1, 77)));
  writer.region(0xFF, 60, padded(form({field("X", subs), field("Y", more)})));
  return writer;
}

TEST(Fields, AreSearchedForBeginningsInKind91) {
  OpenBook book(searchable({sub(0x91, 30)}));
  EXPECT_EQ(book.search("▽０▼０A"), "ok: 1/10 1/20");
  EXPECT_EQ(book.headwords, (std::vector<std::string>{"1/11", "1/21"}));
  EXPECT_EQ(book.search("▽０▼０AB"), "ok: 1/20");
  EXPECT_EQ(book.search("▽０▼０C"), "ok:");
}

TEST(Fields, AreSearchedForWholeKeysInKindA1) {
  OpenBook book(searchable({sub(0xA1, 31)}));
  EXPECT_EQ(book.search("▽０▼０A"), "ok: 1/10 1/20");
  EXPECT_EQ(book.headwords, (std::vector<std::string>{"2/2", "2/1"}));
  EXPECT_EQ(book.search("▽０▼０AB"), "ok: 1/40");
  EXPECT_EQ(book.search("▽０▼０B"), "ok: 1/50");
  EXPECT_EQ(book.search("▽０▼０C"), "ok: 1/60");
  EXPECT_EQ(book.search("▽０▼０D"), "ok: 1/70");  // the mark in the entry is passed over
}

TEST(Fields, HaveOneAnswerInDirectKinds) {
  for (const uint8_t kind : {0xB0, 0xB1}) {
    OpenBook book(searchable({sub(kind, 33)}));
    EXPECT_EQ(book.search("▽０▼０A"), "ok: 1/77");
    EXPECT_EQ(book.headwords, (std::vector<std::string>{"0/0"}));
    // A number would be looked for without end.
    for (const char* key : {"０", "９", "１A"})
      EXPECT_EQ(book.search(std::string("▽０▼０") + key), "ok:") << key;
  }
  OpenBook missing(searchable({sub(0xB0, 50)}));
  EXPECT_EQ(missing.search("▽０▼０A"), "ok:");
}

TEST(Fields, ChooseOneOfTheirIndexes) {
  EXPECT_EQ(OpenBook(searchable({sub(0x91, 30), sub(0xB0, 33)})).search("▽０▼０A"), "ok: 1/77");
  EXPECT_EQ(OpenBook(searchable({sub(0xB0, 33), sub(0x91, 30)})).search("▽０▼０A"), "ok: 1/77");
  EXPECT_EQ(OpenBook(searchable({sub(0xB0, 33), sub(0xB1, 32)})).search("▽０▼０A"), "ok: 1/10");
  EXPECT_EQ(OpenBook(searchable({sub(0xB0, 33), sub(0xA1, 31)})).search("▽０▼０B"), "ok: 1/50");
  EXPECT_EQ(OpenBook(searchable({sub(0x91, 30), sub(0x91, 50)})).search("▽０▼０B"), "ok: 1/30");
  EXPECT_EQ(OpenBook(searchable({sub(0x01, 30), sub(0xC0, 33), sub(0x90, 30)})).search("▽０▼０A"),
            "8004100C");
  EXPECT_EQ(OpenBook(searchable({})).search("▽０▼０A"), "8004100C");
}

TEST(Fields, AreCombinedWithAnd) {
  OpenBook book(searchable({sub(0x91, 30)}, {sub(0xA1, 31)}));
  EXPECT_EQ(book.search("▽０▼０A▼１A"), "ok: 1/10 1/20");
  EXPECT_EQ(book.search("▽０▼０AB▼１A"), "ok: 1/20");
  EXPECT_EQ(book.search("▽０▼０B▼１A"), "80041009");
  EXPECT_EQ(book.search("▽０▼０X▼１A"), "80041009");
  EXPECT_EQ(book.search("▽０▼０A◇▼１A"), "ok: 1/10 1/20");
  EXPECT_EQ(book.search("▽０▼０B│▼１C"), "ok: 1/30 1/60");
  EXPECT_EQ(book.search("▽０▼０A▼１A▼０AB"), "ok: 1/20");
}

TEST(Fields, AreWithinTheirForm) {
  OpenBook book(searchable({sub(0x91, 30)}));
  EXPECT_EQ(book.search("▼０A"), "80000016");  // no form is selected
  EXPECT_EQ(book.search("▽１▼０A"), "80041009");
  EXPECT_EQ(book.search("▽０▼２A"), "80000016");
  EXPECT_EQ(book.search("▽０▼Ａ"), "80000016");
  EXPECT_EQ(book.search("▽０▼０"), "80041009");
  EXPECT_EQ(book.search("▽０"), "80041009");
  EXPECT_EQ(book.search("▼０B"), "ok: 1/30");  // the form stays selected
}

TEST(Fields, TakeTheirKeysAsTheyAre) {
  IndexBlock leaf(0xA0);
  leaf.leaf(jis("ガ"), place(1, 10), place(1, 10));
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(0x02, 30, leaf.bytes());
  writer.region(0xFF, 60, padded(form({field("X", {sub(0x91, 30)})})));
  OpenBook book(writer);
  EXPECT_EQ(book.search("▽０▼０ガ"), "ok: 1/10");
  EXPECT_EQ(book.search("▽０▼０が"), "ok: 1/10");
  EXPECT_EQ(book.search("▽０▼０カ"), "ok:");
}

}  // namespace
}  // namespace zavel::book
