#include "config/TwcServices.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <string>

#include "config/ConfigTest.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"
#include "platform/ForkedFiles.h"
#include "platform/PropertyLists.h"
#include "support/FaultyStorage.h"
#include "support/RacingStorage.h"

extern "C" int zavelConfigInC(void);

namespace zavel::test {
namespace {

// A new string of the services as one of ours; "(null)" for none.
std::string taken(char* string) {
  const std::unique_ptr<char, decltype(&std::free)> owner(string, &std::free);
  return string ? string : "(null)";
}

TEST(TwcServices, ServeAHostInC) {
  EXPECT_EQ(zavelConfigInC(), 1);
}

// --- twcSJISCode, twcIsJapanese ---

struct ClassRow {
  const char* bytes;
  int32_t index;
  int32_t expected;
};

TEST(TwcSJISCode, ClassesEachByte) {
  const ClassRow rows[] = {
      {"\x82\xA0z", 0, 1},             // あ, first byte
      {"\x82\xA0z", 1, 2},             // its second
      {"\x82\xA0z", 2, 0},             // z
      {"a", 0, 0},                     //
      {"\xB1\xB2", 1, 0},              // half-width katakana are single bytes
      {"\x82\x82\x82\x82", 0, 1},      // four lead bytes are two characters
      {"\x82\x82\x82\x82", 1, 2},      //
      {"\x82\x82\x82\x82", 2, 1},      //
      {"\x82\x82\x82\x82", 3, 2},      //
      {"\x82\x31\x82\x31", 1, 0},      // no second byte: single
      {"\x82\x31\x82\x31", 2, 1},      // and the next one starts anew
      {"\x83\x5C\x83\x7E\x61", 3, 2},  // second bytes that are ASCII letters and signs
  };
  for (const ClassRow& row : rows) EXPECT_EQ(twcSJISCode(row.bytes, row.index), row.expected);
}

TEST(TwcSJISCode, FirstBytesAre129To159And224To252) {
  for (int byte : {128, 160, 223, 253, 255, 127, 1})
    EXPECT_EQ(twcSJISCode(std::string(1, static_cast<char>(byte)).c_str(), 0), 0) << byte;
  for (int byte : {129, 159, 224, 252})
    EXPECT_EQ(twcSJISCode(std::string(1, static_cast<char>(byte)).c_str(), 0), 1) << byte;
}

TEST(TwcSJISCode, SecondBytesAre64To252) {
  for (int byte : {63, 253, 255})
    EXPECT_EQ(twcSJISCode((std::string("\x82") + static_cast<char>(byte)).c_str(), 1), 0) << byte;
  for (int byte : {64, 127, 252})
    EXPECT_EQ(twcSJISCode((std::string("\x82") + static_cast<char>(byte)).c_str(), 1), 2) << byte;
}

TEST(TwcSJISCode, PastTheEndGivesTheClassOfTheLastByte) {
  EXPECT_EQ(twcSJISCode("a", 1), 0);
  EXPECT_EQ(twcSJISCode("\x82", 1), 1);
  EXPECT_EQ(twcSJISCode("\x82\xA0", 2), 2);
  EXPECT_EQ(twcSJISCode("\x82\xA0", 2000000000), 2);
}

TEST(TwcSJISCode, AnEmptyStringGives3) {
  EXPECT_EQ(twcSJISCode("", 0), 3);
  EXPECT_EQ(twcSJISCode("", 9), 3);
  EXPECT_EQ(twcSJISCode(nullptr, 0), 3);
  EXPECT_EQ(twcSJISCode("a", -1), 3);
}

TEST(TwcIsJapanese, LooksForAnyByteOfTwoRanges) {
  for (int byte : {0x7F, 0x80, 0xA0, 0xB1, 0xDF, 0xFD, 0xFF})
    EXPECT_FALSE(twcIsJapanese((std::string("ab") + static_cast<char>(byte)).c_str())) << byte;
  for (int byte : {0x81, 0x9F, 0xE0, 0xFC})
    EXPECT_TRUE(twcIsJapanese((std::string("ab") + static_cast<char>(byte)).c_str())) << byte;
  EXPECT_FALSE(twcIsJapanese(""));
  EXPECT_FALSE(twcIsJapanese(nullptr));
}

// --- twcGetBytesFromCFString, twcUserFolderCreateCopy, path forms ---

TEST(TwcGetBytesFromCFString, CopiesSizeMinus1BytesAtMost) {
  char buffer[8] = "#######";
  EXPECT_EQ(twcGetBytesFromCFString("abc", buffer, 8), 3);
  EXPECT_STREQ(buffer, "abc");
  EXPECT_EQ(twcGetBytesFromCFString("abc", buffer, 4), 3);
  EXPECT_STREQ(buffer, "abc");
  EXPECT_EQ(twcGetBytesFromCFString("abc", buffer, 3), 2);
  EXPECT_STREQ(buffer, "ab");
  EXPECT_EQ(twcGetBytesFromCFString("abc", buffer, 1), 0);
  EXPECT_STREQ(buffer, "");
}

TEST(TwcGetBytesFromCFString, CutsNoCharacterInTwo) {
  char buffer[8];
  EXPECT_EQ(twcGetBytesFromCFString("aあ", buffer, 5), 4);
  EXPECT_STREQ(buffer, "aあ");
  for (int32_t size : {2, 3, 4}) {
    EXPECT_EQ(twcGetBytesFromCFString("aあ", buffer, size), 1) << size;
    EXPECT_STREQ(buffer, "a");
  }
}

TEST(TwcGetBytesFromCFString, WritesNothingWhereThereIsNoRoom) {
  char buffer[4] = "###";
  EXPECT_EQ(twcGetBytesFromCFString("abc", buffer, 0), 0);
  EXPECT_EQ(twcGetBytesFromCFString("abc", buffer, -5), 0);
  EXPECT_STREQ(buffer, "###");
  EXPECT_EQ(twcGetBytesFromCFString("abc", nullptr, 4), 0);
  EXPECT_EQ(twcGetBytesFromCFString(nullptr, buffer, 4), 0);
  EXPECT_STREQ(buffer, "");
}

using TwcUserFolder = ConfigTest;

TEST_F(TwcUserFolder, IsTheHomeOfThePlatform) {
  EXPECT_EQ(taken(twcUserFolderCreateCopy()), at("home"));
}

TEST_F(TwcUserFolder, IsNullOnFailureOrOver4096Bytes) {
  platform.fakeFolders.homePath = "";
  EXPECT_EQ(twcUserFolderCreateCopy(), nullptr);
  platform.fakeFolders.homePath = "/" + std::string(4095, 'h');
  EXPECT_EQ(taken(twcUserFolderCreateCopy()), platform.fakeFolders.homePath);
  platform.fakeFolders.homePath += "h";
  EXPECT_EQ(twcUserFolderCreateCopy(), nullptr);
}

TEST(TwcPathForms, AreCopies) {
  char* (*const forms[])(const char*) = {twcFSSpecToCFString, twcFSSpecToFullPath, twcFSSpecToUTF8Path,
                                         twcGetClassicFullPath, CreateUTF8CStringFromCFString};
  for (char* (*form)(const char*) : forms) {
    EXPECT_EQ(taken(form("/a b/辞書")), "/a b/辞書");
    EXPECT_EQ(taken(form("")), "");
    EXPECT_EQ(form(nullptr), nullptr);
  }
}

// --- twcCreateFolder ---

class TwcCreateFolder : public ConfigTest {
 protected:
  int32_t create(const std::string& name) const { return twcCreateFolder(at(name).c_str()); }
};

TEST_F(TwcCreateFolder, MakesEveryFolderOnTheWay) {
  EXPECT_EQ(create("one/two/three"), 0);
  EXPECT_TRUE(isFolder(at("one/two/three")));
}

TEST_F(TwcCreateFolder, TakesBlanksAndJapaneseNames) {
  EXPECT_EQ(create("two words/辞書"), 0);
  EXPECT_TRUE(isFolder(at("two words/辞書")));
}

TEST_F(TwcCreateFolder, PassesOverDoubledAndFinalDelimiters) {
  EXPECT_EQ(create("one//two/"), 0);
  EXPECT_TRUE(isFolder(at("one/two")));
}

TEST_F(TwcCreateFolder, WhatIsThereIsLeftAsItIs) {
  writeText(at("file"), "content");
  EXPECT_EQ(create("file"), 0);
  EXPECT_EQ(readText(at("file")), "content");
  EXPECT_EQ(create("home"), 0);
  EXPECT_EQ(twcCreateFolder("/"), 0);
}

TEST_F(TwcCreateFolder, AnEmptyPathIsMinus50) {
  EXPECT_EQ(twcCreateFolder(""), -50);
  EXPECT_EQ(twcCreateFolder(nullptr), -50);
}

TEST_F(TwcCreateFolder, StopsWithThePlatformsErrorNumber) {
  writeText(at("file"), "");
  EXPECT_EQ(create("file/below"), ENOTDIR);
  EXPECT_EQ(create("file/below/deeper"), ENOTDIR);
}

TEST_F(TwcCreateFolder, AComponentMayHave254Bytes) {
  const std::string longest(254, 'a');
  EXPECT_EQ(create("x/" + longest + "/y"), 0);
  EXPECT_TRUE(isFolder(at("x/" + longest + "/y")));
}

TEST_F(TwcCreateFolder, AComponentOf255BytesStopsTheWalkWithMinus1410) {
  const std::string tooLong(255, 'a');
  EXPECT_EQ(create("x/" + tooLong + "/y"), -1410);
  EXPECT_TRUE(isFolder(at("x")));
  EXPECT_FALSE(exists(at("x/" + tooLong)));
  EXPECT_EQ(create(tooLong), -1410);
}

TEST_F(TwcCreateFolder, AComponentOf255BytesStopsTheWalkThoughItIsThere) {
  const std::string tooLong(255, 'a');
  makeFolder(at(tooLong));
  EXPECT_EQ(create(tooLong), 0);
  EXPECT_EQ(create(tooLong + "/y"), -1410);
  makeFolder(at(tooLong + "/y"));
  EXPECT_EQ(create(tooLong + "/y"), 0);
}

TEST_F(TwcCreateFolder, ComponentsAreCountedInBytes) {
  std::string name;
  for (int i = 0; i < 84; ++i) name += "あ";  // 252 bytes
  EXPECT_EQ(create(name), 0);
  EXPECT_EQ(create(name + "b" + "い"), -1410);  // 256
}

TEST_F(TwcCreateFolder, APathOver4096BytesFails) {
  std::string path = folder;
  while (path.size() <= 4096) path += "/" + std::string(200, 'a');
  EXPECT_NE(twcCreateFolder(path.c_str()), 0);
  EXPECT_TRUE(isFolder(at(std::string(200, 'a'))));
}

TEST_F(TwcCreateFolder, GoesOnWhereAnotherProcessMakesTheFoldersFirst) {
  RacingStorage disk(RacingStorage::kMakesTheFolder);
  EXPECT_EQ(create("one/two"), 0);
  EXPECT_TRUE(isFolder(at("one/two")));
  EXPECT_EQ(disk.count("makeFolder"), 4);  // each of both folders by both
}

TEST_F(TwcCreateFolder, StopsWhereAnotherProcessMakesAFileFirst) {
  RacingStorage disk(RacingStorage::kMakesAFile, "/one");
  EXPECT_EQ(create("one/two"), EEXIST);
  EXPECT_EQ(readText(at("one")), "");
}

// --- twcMakeFolderInFolderX, twcCFStringToFSRef ---

class TwcMakeFolderInFolderX : public ConfigTest {
 protected:
  // The name in its length-prefixed form.
  int32_t make(const std::string& name) const {
    const std::string prefixed = static_cast<char>(name.size()) + name;
    return twcMakeFolderInFolderX(folder.c_str(), reinterpret_cast<const uint8_t*>(prefixed.data()));
  }
};

TEST_F(TwcMakeFolderInFolderX, MakesOneFolder) {
  EXPECT_EQ(make("two 語"), 0);
  EXPECT_TRUE(isFolder(at("two 語")));
}

TEST_F(TwcMakeFolderInFolderX, TheLengthCountsAndNotAZeroByte) {
  const uint8_t name[] = {2, 'a', 'b', 'c', 0};
  EXPECT_EQ(twcMakeFolderInFolderX(folder.c_str(), name), 0);
  EXPECT_TRUE(isFolder(at("ab")));
  EXPECT_FALSE(exists(at("abc")));
}

TEST_F(TwcMakeFolderInFolderX, ATakenNameIsThePlatformsError) {
  EXPECT_EQ(make("home"), EEXIST);
}

TEST_F(TwcMakeFolderInFolderX, AMissingParentIsThePlatformsError) {
  const uint8_t name[] = {1, 'a'};
  EXPECT_EQ(twcMakeFolderInFolderX(at("nothing").c_str(), name), ENOENT);
}

TEST_F(TwcMakeFolderInFolderX, AnImpossibleNameIsMinus50) {
  for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                                  std::string("../out"), std::string("a\0b", 3)})
    EXPECT_EQ(make(name), -50) << name;
  EXPECT_EQ(twcMakeFolderInFolderX(folder.c_str(), nullptr), -50);
  EXPECT_EQ(twcMakeFolderInFolderX(nullptr, reinterpret_cast<const uint8_t*>("\1a")), -50);
}

using TwcCFStringToFSRef = ConfigTest;

TEST_F(TwcCFStringToFSRef, IsTrueWhenThePathExists) {
  writeText(at("file"), "");
  EXPECT_TRUE(twcCFStringToFSRef(at("file").c_str()));
  EXPECT_TRUE(twcCFStringToFSRef(folder.c_str()));
  EXPECT_FALSE(twcCFStringToFSRef(at("nothing").c_str()));
  EXPECT_FALSE(twcCFStringToFSRef(""));
  EXPECT_FALSE(twcCFStringToFSRef(nullptr));
}

// --- No memory ---

class DiskWithoutMemory : public FaultyStorage {
 public:
  bool exists(const std::string&) override { throw std::bad_alloc(); }
  int makeFolder(const std::string&) override { throw std::bad_alloc(); }
};

class FoldersWithoutMemory : public FakeFolders {
 public:
  std::string root() override { throw std::bad_alloc(); }
  std::string home() override { throw std::bad_alloc(); }
};

class ApplicationsWithoutMemory : public Applications {
 public:
  std::optional<ProcessNumber> find(const std::string&, const std::string&) override {
    throw std::bad_alloc();
  }
  int launch(const std::string&, bool, ProcessNumber*) override { throw std::bad_alloc(); }
  SendResult send(const ProcessNumber&, const Message&, Message*) override { throw std::bad_alloc(); }
  std::vector<RunningApplication> running() override { throw std::bad_alloc(); }
  std::optional<RunningApplication> current() override { throw std::bad_alloc(); }
  bool bringToFront(const ProcessNumber&) override { throw std::bad_alloc(); }
  bool start(const std::string&, bool) override { throw std::bad_alloc(); }
};

class ListsWithoutMemory : public PropertyLists {
 public:
  bool parse(std::string_view, Value*) override { throw std::bad_alloc(); }
  std::string serialize(const Value&, PropertyListFormat) override { throw std::bad_alloc(); }
  bool readFile(const std::string&, Value*) override { throw std::bad_alloc(); }
  bool writeFile(const std::string&, const Value&, PropertyListFormat) override { throw std::bad_alloc(); }
};

// A file has its creator and type up to the one of which there is no memory to tell.
class ForksWithoutMemory : public ForkedFiles {
 public:
  std::unique_ptr<ForkedFileWriter> create(const std::string&, const char*, const char*) override {
    throw std::bad_alloc();
  }
  bool read(const std::string&, const char*, uint16_t, std::string*, std::string*) override {
    throw std::bad_alloc();
  }
  std::optional<FileSignature> signature(const std::string&) override {
    if (told-- == 0) throw std::bad_alloc();
    return FileSignature{"ttxt", "TEXT"};
  }
  int told = 0;
};

class PlatformWithoutMemory : public TestPlatform {
 public:
  PlatformWithoutMemory() : before_(setPlatform(this)) {}
  ~PlatformWithoutMemory() override { setPlatform(before_); }

  Folders& folders() override { return full; }
  Applications& applications() override { return fullApplications; }
  PropertyLists& propertyLists() override { return fullLists; }
  ForkedFiles& forkedFiles() override { return fullForks; }

  FoldersWithoutMemory full;
  ApplicationsWithoutMemory fullApplications;
  ListsWithoutMemory fullLists;
  ForksWithoutMemory fullForks;

 private:
  Platform* before_;
};

TEST(TwcServices, WithoutMemoryNothingIsThrownAtTheHost) {
  DiskWithoutMemory disk;
  EXPECT_EQ(twcCreateFolder("/a"), -50);
  EXPECT_EQ(twcMakeFolderInFolderX("/a", reinterpret_cast<const uint8_t*>("\1b")), -50);
  EXPECT_FALSE(twcCFStringToFSRef("/"));
  const PlatformWithoutMemory full;
  EXPECT_EQ(twcUserFolderCreateCopy(), nullptr);
}

TEST(TwcServices, WithoutMemoryNoProcessIsFound) {
  const PlatformWithoutMemory full;
  TwcProcessNumber process{7, 7};
  EXPECT_EQ(twcGetMyPSN(&process), -50);
  EXPECT_EQ(twcGetPSN2("zVX8", "APPL", &process), -50);
  EXPECT_EQ(twcGetProcessSerialNumberByName("Mail", &process), -50);
  EXPECT_FALSE(twcIsLaunchedApp("zVX8", "APPL"));
  EXPECT_FALSE(twcIsMyTopPSN());
  EXPECT_EQ(twcMakeMeFront(), -50);
  EXPECT_EQ(twcSetFront(&process), -50);
  EXPECT_EQ(twcGetCurrentFSSpec(), nullptr);
  EXPECT_EQ(twcGetCurrentCreator(), nullptr);
  EXPECT_EQ(LaunchTargetApplication("/Apps/A.app", true), -50);
  process = {7, 7};
  EXPECT_TRUE(twcGetNextPSN(&process));
  EXPECT_EQ(process.high + process.low, 0u);
  try {
    twcGetPSN("zVX8", "APPL", &process);
    FAIL() << "nothing was thrown";
  } catch (int32_t error) {
    EXPECT_EQ(error, -50);
  }
}

using WithoutMemory = ConfigTest;

TEST_F(WithoutMemory, ASearchGivesTheFilesThatItFoundBefore) {
  makeFolder(at("f"));
  for (const char* name : {"f/a", "f/b", "f/c"}) writeText(at(name), "");
  PlatformWithoutMemory full;
  char* found[TWC_SEARCH_BATCH] = {};
  EXPECT_EQ(twcCreatorTypeFileSearchInFolder(at("f").c_str(), "ttxt", "TEXT", found, 1), -50);
  full.fullForks.told = 2;
  ASSERT_EQ(twcCreatorTypeFileSearchInFolder(at("f").c_str(), "ttxt", "TEXT", found, 1), 2);
  EXPECT_EQ(taken(found[0]), at("f/a"));
  EXPECT_EQ(taken(found[1]), at("f/b"));
  full.fullForks.told = 1;
  ASSERT_EQ(twcCreatorTypeFileSearchInFolder("", "", "", found, 0), 1);
  EXPECT_EQ(taken(found[0]), at("f/c"));
}

TEST_F(WithoutMemory, ThePathTableIsNotLoaded) {
  zavelPathInitialize();
  {
    const PlatformWithoutMemory full;
    EXPECT_EQ(zavelPathLoadDictAndHelper(at("table").c_str()), 1);
    EXPECT_EQ(zavelPathLoadDictAndHelper(nullptr), 1);
  }
  zavelPathTerminate();
}

TEST_F(WithoutMemory, StylesAreNeitherLoadedNorMade) {
  makeFolder(at("styles"));
  writeText(at("user.plist"), "");
  zavelStyleInitialize();
  zavelStyleSetTStyleUrl(at("user").c_str());
  {
    const PlatformWithoutMemory full;
    int current = 7;
    EXPECT_FALSE(zavelStyleSetTStyleUrl(at("user").c_str()));
    EXPECT_FALSE(zavelStyleLoadTitleAndCurrentID(1, &current));
    EXPECT_FALSE(zavelStyleLoadTranslationStyleWithID(1));
    EXPECT_FALSE(zavelStyleLoadTranslationStyleWithApp(1));
    EXPECT_EQ(current, 7);
    EXPECT_NE(zavelStyleBaseURL(), nullptr);
    zavelStyleInitialize();
    EXPECT_EQ(zavelStyleBaseURL(), nullptr);
  }
  zavelStyleTerminate();
}

}  // namespace
}  // namespace zavel::test
