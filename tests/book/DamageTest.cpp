// A small book with every kind of region: every byte of every file changed in five ways and every file cut at
// every place. All operations run on what is left; the sanitizers watch, and each book has its second.
#include <gtest/gtest.h>

#include <ctime>

#include "support/BookCalls.h"
#include "support/RamDisk.h"
#include "support/SmallBook.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

class Damage : public ::testing::Test {
 protected:
  Damage() : disk_("/book"), whole_(smallBook()) { disk_.setFiles(whole_); }

  // All operations, which have a second of the processor's time. Result: how many succeeded.
  static int use(const std::string& what) {
    const std::clock_t begin = std::clock();
    const int done = BookCalls().useAll("/book/BOOK");
    EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 1.0) << what;
    return done;
  }

  void sweep(const std::string& name) {
    const std::string bytes = whole_.at(name);
    const bool font = name == "FULL" || name == "HALF";
    for (size_t at = 0; at < bytes.size(); ++at) {
      if (font && at > 20 && at < 2040) continue;  // nobody reads there
      const uint8_t byte = static_cast<uint8_t>(bytes[at]);
      for (const int changed : {0, 0xFF, byte ^ 1, byte + 1, byte - 1}) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(changed);
        if (damaged == bytes) continue;
        disk_.setFile(name, damaged);
        use(name + " byte " + std::to_string(at) + " " + std::to_string(changed));
      }
      disk_.setFile(name, bytes.substr(0, at));
      use(name + " cut at " + std::to_string(at));
    }
    disk_.setFile(name, bytes);
  }

  RamDisk disk_;
  RamDisk::Files whole_;
};

TEST_F(Damage, StartsFromAWholeSmallBook) {
  size_t size = 0;
  for (const auto& [name, bytes] : whole_) size += bytes.size() - (bytes.size() > 2048 ? 2034 : 0);
  EXPECT_LT(size, 8192u);
  EXPECT_GT(use("whole"), 60);
}

TEST_F(Damage, OfTheCatalogIsStood) {
  sweep("BOOK");
}

TEST_F(Damage, OfTextsIsStood) {
  for (const char* name : {"r1", "r2", "r3"}) sweep(name);
}

TEST_F(Damage, OfIndexesIsStood) {
  for (const char* name : {"r4", "r6", "r8", "r9", "r10"}) sweep(name);
}

TEST_F(Damage, OfMultiSearchesIsStood) {
  for (const char* name : {"r11", "r12", "r13", "r14"}) sweep(name);
}

TEST_F(Damage, OfMediaIsStood) {
  for (const char* name : {"r20", "r21", "r22", "FULL", "HALF"}) sweep(name);
}

TEST_F(Damage, OfThePublishersFileIsStood) {
  sweep("EXINFO.INI");
}

}  // namespace
}  // namespace zavel::book
