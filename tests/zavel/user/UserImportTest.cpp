#include "user/UserImport.h"

#include <gtest/gtest.h>

#include "support/CrashStorage.h"
#include "support/EnvironmentVariable.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::host {
namespace {

// Entries alike in all that they have.
std::vector<ImportItem> equalItems(size_t count) {
  const UserEntry entry{.language = UserLanguage::kEnglish, .word = "bank", .pos = 1, .meaning = "銀行"};
  return {count, ImportItem{1, entry, ""}};
}

// Reads of files that importing them into a new dictionary takes.
long readsOf(size_t count) {
  const test::TempFolder folder;
  const test::EnvironmentVariable root("ZAVEL_ROOT", folder.path().c_str());
  test::CrashStorage quick(0, 0);  // puts nothing on the real disk
  test::FaultyStorage disk;
  UserOptions options;
  options.progress = "none";
  std::vector<ImportItem> items = equalItems(count);
  UserImport import(options, &items);
  disk.failAt(0);
  EXPECT_EQ(import.run().code, "");
  EXPECT_EQ(import.counts().added, count);
  return disk.count("readAt");
}

// The entries of a word are read once, not again for each further one of it: twice as many entries take twice
// as many reads, not four times as many.
TEST(UserImport, ReadsAWordsEntriesOnce) {
  const long some = readsOf(200);
  EXPECT_LT(readsOf(400), 5 * some / 2);
}

}  // namespace
}  // namespace zavel::host
