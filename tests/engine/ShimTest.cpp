#include "engine/Shim.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "support/DicWriter.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::readFile;
using test::TempFolder;
using test::writeFile;

TEST(GlobalAlloc, ZeroFillsWhenTheFlagsSaySo) {
  Handle handle = GlobalAlloc(0x42, 5);
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(GlobalSize(handle), 5u);
  EXPECT_EQ(std::memcmp(GlobalLock(handle), "\0\0\0\0\0", 5), 0);
  GlobalUnlock(handle);
  GlobalFree(handle);
}

// More bytes than there are. The address sanitizer ends the program on such a request instead of refusing it.
#ifdef __SANITIZE_ADDRESS__
constexpr bool kMayRefuse = false;
#else
constexpr bool kMayRefuse = true;
#endif
constexpr size_t kTooMuch = SIZE_MAX / 4;

TEST(GlobalAlloc, GivesNullForMoreThanThereIs) {
  if (!kMayRefuse) GTEST_SKIP();
  EXPECT_EQ(GlobalAlloc(0x42, kTooMuch), nullptr);
}

TEST(GlobalAlloc, GivesABlockOfNoBytes) {
  Handle handle = GlobalAlloc(0, 0);
  ASSERT_NE(handle, nullptr);
  EXPECT_EQ(GlobalSize(handle), 0u);
  EXPECT_NE(GlobalLock(handle), nullptr);
  GlobalFree(handle);
}

TEST(GlobalReAlloc, KeepsHandleAndContentAndZeroFillsWhatIsAdded) {
  Handle handle = GlobalAlloc(0x42, 3);
  std::memcpy(GlobalLock(handle), "abc", 3);
  EXPECT_EQ(GlobalReAlloc(handle, 100000, 0x42), handle);
  EXPECT_EQ(GlobalSize(handle), 100000u);
  EXPECT_EQ(std::memcmp(GlobalLock(handle), "abc\0\0", 5), 0);
  EXPECT_EQ(static_cast<char*>(GlobalLock(handle))[99999], 0);
  EXPECT_EQ(GlobalReAlloc(handle, 2, 0x42), handle);
  EXPECT_EQ(GlobalSize(handle), 2u);
  EXPECT_EQ(std::memcmp(GlobalLock(handle), "ab", 2), 0);
  GlobalFree(handle);
}

TEST(GlobalReAlloc, LeavesTheBlockAsItWasOnFailure) {
  if (!kMayRefuse) GTEST_SKIP();
  Handle handle = GlobalAlloc(0x42, 3);
  std::memcpy(GlobalLock(handle), "abc", 3);
  EXPECT_EQ(GlobalReAlloc(handle, kTooMuch, 0x42), nullptr);
  EXPECT_EQ(GlobalSize(handle), 3u);
  EXPECT_EQ(std::memcmp(GlobalLock(handle), "abc", 3), 0);
  GlobalFree(handle);
}

TEST(GlobalFree, PassesOverANullHandle) {
  GlobalFree(nullptr);
  GlobalUnlock(nullptr);
  EXPECT_EQ(GlobalLock(nullptr), nullptr);
  EXPECT_EQ(GlobalSize(nullptr), 0u);
  EXPECT_EQ(GlobalReAlloc(nullptr, 1, 0), nullptr);
}

TEST(MakeBlockList, HoldsExactlyTheBytes) {
  uint32_t size = 9;
  Handle list = nullptr;
  EXPECT_EQ(MakeBlockList(std::string_view("a\0b", 3), &size, &list), 1);
  EXPECT_EQ(size, 3u);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(GlobalSize(list), 3u);
  EXPECT_EQ(std::memcmp(GlobalLock(list), "a\0b", 3), 0);
  GlobalFree(list);
}

TEST(MakeBlockList, GivesNoBlockForNoBytes) {
  uint32_t size = 9;
  Handle list = reinterpret_cast<Handle>(&size);
  EXPECT_EQ(MakeBlockList("", &size, &list), 1);
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(list, nullptr);
}

class NamedMemory : public ::testing::Test {
 protected:
  NamedMemory() { DeleteFileMapping(); }
  ~NamedMemory() override { DeleteFileMapping(); }
  static FileMapping* Create(const std::string& name, uint32_t size) {
    return CreateFileMapping(-1, nullptr, 4, 0, size, name.c_str());
  }
};

TEST_F(NamedMemory, GivesAKnownNameItsSlotWithItsFirstSize) {
  FileMapping* first = Create("SM", 16);
  ASSERT_NE(first, nullptr);
  std::memcpy(MapViewOfFile(first), "content", 8);
  FileMapping* second = Create("SM", 99);
  EXPECT_EQ(second, first);
  EXPECT_EQ(second->size, 16u);
  EXPECT_STREQ(static_cast<char*>(MapViewOfFile(second)), "content");
}

TEST_F(NamedMemory, HasTenSlots) {
  for (int i = 0; i < 10; ++i) EXPECT_NE(Create("SM" + std::to_string(i), 1), nullptr) << i;
  EXPECT_EQ(Create("one too many", 1), nullptr);
  EXPECT_NE(Create("SM9", 1), nullptr);
}

TEST_F(NamedMemory, KeepsAViewThatIsUnmappedUntilAllIsFreed) {
  FileMapping* slot = Create("SM", 4);
  std::memcpy(MapViewOfFile(slot), "abc", 4);
  EXPECT_EQ(UnmapViewOfFile(MapViewOfFile(slot)), 1);
  EXPECT_STREQ(static_cast<char*>(MapViewOfFile(slot)), "abc");
  DeleteFileMapping();
  EXPECT_EQ(MapViewOfFile(slot), nullptr);
  EXPECT_EQ(Create("SM", 8)->size, 8u);
}

TEST_F(NamedMemory, RefusesANameThatFillsItsField) {
  EXPECT_EQ(Create(std::string(64, 'n'), 1), nullptr);
  EXPECT_NE(Create(std::string(63, 'n'), 1), nullptr);
}

TEST(Stubs, AnswerAsTheyAlwaysDo) {
  EXPECT_EQ(GetLastError(), 0u);
  EXPECT_EQ(CloseHandle(7), 1);
  EXPECT_EQ(CreateMutex(nullptr, 0, "MT_MP_CTRL"), 1);
  EXPECT_EQ(ReleaseMutex(1), 1);
  EXPECT_EQ(WaitForSingleObject(1, 0xFFFFFFFF), 0u);
  EXPECT_EQ(MapViewOfFile(nullptr), nullptr);
}

TEST(Files, AreDeletedCopiedAndMoved) {
  TempFolder folder;
  const std::string a = folder.prefix() + "a", b = folder.prefix() + "b", c = folder.prefix() + "c";
  writeFile(a, "content");
  EXPECT_TRUE(CopyFile(a, b));
  EXPECT_EQ(readFile(b), "content");
  writeFile(c, "old");
  EXPECT_TRUE(MoveFile(b, c));
  EXPECT_EQ(readFile(c), "content");
  EXPECT_FALSE(std::filesystem::exists(b));
  EXPECT_TRUE(DeleteFile(a));
  EXPECT_FALSE(DeleteFile(a));
  EXPECT_FALSE(CopyFile(a, b));
  EXPECT_FALSE(MoveFile(a, b));
}

TEST(GetTempFileName, MakesANewEmptyFileInTheFolder) {
  TempFolder folder;
  std::string first, second;
  ASSERT_TRUE(GetTempFileName(folder.path(), "ix3", 0, &first));
  ASSERT_TRUE(GetTempFileName(folder.path(), "ix3", 0, &second));
  EXPECT_NE(first, second);
  EXPECT_EQ(first.rfind(folder.prefix() + "ix3", 0), 0u);
  EXPECT_EQ(readFile(first), "");
  EXPECT_FALSE(GetTempFileName(folder.prefix() + "missing", "ix3", 0, &first));
}

TEST(GetTempFileName, LeavesNothingBehindWhenItFails) {
  TempFolder folder;
  test::FaultyStorage disk;
  std::string path;
  for (long n = 1; n <= 2; ++n) {  // the file is made, and closed
    disk.failAt(n);
    EXPECT_FALSE(GetTempFileName(folder.path(), "ix3", 0, &path)) << n;
    EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << n;
  }
}

TEST(CreateFile, MakesAnEmptyFileOrLeavesTheOneThatIsThere) {
  TempFolder folder;
  const std::string path = folder.prefix() + "file";
  EXPECT_TRUE(CreateFile(path, 0x54455354, 0x54455854));
  EXPECT_EQ(readFile(path), "");
  writeFile(path, "content");
  EXPECT_TRUE(CreateFile(path, 0, 0));
  EXPECT_EQ(readFile(path), "content");
  EXPECT_FALSE(CreateFile(folder.prefix() + "missing/file", 0, 0));
}

TEST(FSp2FullPath, GivesAPathOfAtMost1014Bytes) {
  std::string path = "old";
  EXPECT_EQ(FSp2FullPath("/a b/\xE8\xBE\x9E", &path), 8);
  EXPECT_EQ(path, "/a b/\xE8\xBE\x9E");
  EXPECT_EQ(FSp2FullPath(std::string(1014, 'p'), &path), 1014);
  EXPECT_EQ(path, std::string(1014, 'p'));
  path = "old";
  EXPECT_EQ(FSp2FullPath(std::string(1015, 'p'), &path), -1);
  EXPECT_EQ(FSp2FullPath("", &path), -1);
  EXPECT_EQ(path, "old");
}

TEST(FullPath2FSp, WantsUtf8AndSomethingThatStandsThere) {
  TempFolder folder;
  std::string spec = "old";
  EXPECT_EQ(FullPath2FSp(folder.prefix() + "file", &spec), -43);
  writeFile(folder.prefix() + "\xFF", "");
  EXPECT_EQ(FullPath2FSp(folder.prefix() + "\xFF", &spec), -43);
  EXPECT_EQ(spec, "old");
  writeFile(folder.prefix() + "file", "");
  EXPECT_EQ(FullPath2FSp(folder.prefix() + "file", &spec), 0);
  EXPECT_EQ(spec, folder.prefix() + "file");
}

struct PathCase {
  const char* path;
  const char* dir;
  const char* name;
  const char* ext;
};

class SplitPathTest : public ::testing::TestWithParam<PathCase> {};

TEST_P(SplitPathTest, TakesThePathApart) {
  const SplitPath parts = _splitpath(GetParam().path);
  EXPECT_EQ(parts.drive, "");
  EXPECT_EQ(parts.dir, GetParam().dir);
  EXPECT_EQ(parts.name, GetParam().name);
  EXPECT_EQ(parts.ext, GetParam().ext);
}

INSTANTIATE_TEST_SUITE_P(_splitpath, SplitPathTest,
                         ::testing::Values(PathCase{"/home/u.v/ue", "/home/u.v/", "ue", ""},
                                           PathCase{"/home/u/ue.idx", "/home/u/", "ue", ".idx"},
                                           PathCase{"/home/u/a.b.c", "/home/u/", "a.b", ".c"},
                                           PathCase{"/home/u/", "/home/u/", "", ""},
                                           PathCase{"/home/u/.e", "/home/u/", "", ".e"},
                                           PathCase{"ue.", "", "ue", "."}, PathCase{"ue", "", "ue", ""},
                                           PathCase{"", "", "", ""}, PathCase{"a\\b", "a\\", "b", ""}));

TEST(ByteOrder, IsThatOfTheFiles) {
  uint8_t bytes[] = {0x12, 0x34, 0x56, 0xF8};
  EXPECT_EQ(ChangeLoHi(bytes, 4, 4), 1);
  EXPECT_EQ(bytes[0], 0x12);
  EXPECT_EQ(getChangeLoHiDWORD(bytes), 0xF8563412u);
  EXPECT_EQ(getChangeLoHiWORD(bytes), 0x3412u);
}

}  // namespace
}  // namespace zavel::engine
