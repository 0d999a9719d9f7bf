#include <sys/stat.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/TwcServices.h"
#include "platform/ForkedFiles.h"

namespace zavel::test {
namespace {

using Names = std::vector<std::string>;

class TwcFileSearch : public ConfigTest {
 protected:
  TwcFileSearch() { makeFolder(at("f")); }

  void create(const std::string& name, const char* type, const char* creator) {
    const auto writer = platform.forkedFiles().create(at("f/" + name), type, creator);
    ASSERT_TRUE(writer && writer->writeText("x") && writer->close());
  }

  // Names of one batch; "!" and the result when that is no number of files.
  Names search(const char* creator, const char* type, int32_t restart) const {
    char* found[TWC_SEARCH_BATCH];
    const int32_t count = twcCreatorTypeFileSearchInFolder(at("f").c_str(), creator, type, found, restart);
    if (count < 0) return {"!" + std::to_string(count)};
    Names names;
    for (int32_t i = 0; i < count; ++i) {
      const std::unique_ptr<char, decltype(&std::free)> path(found[i], &std::free);
      names.push_back(std::string(path.get()).substr(at("f/").size()));
    }
    return names;
  }
};

TEST_F(TwcFileSearch, FindsTheFilesOfACreatorAndTypeByName) {
  create("c", "TEXT", "ttxt");
  create("a", "TEXT", "ttxt");
  create("b", "TEXT", "zQN8");
  create("d", "styl", "ttxt");
  create("日本", "TEXT", "ttxt");
  writeText(at("f/plain"), "TEXTttxt");
  makeFolder(at("f/folder"));
  EXPECT_EQ(search("ttxt", "TEXT", 1), (Names{"a", "c", "日本"}));
  EXPECT_EQ(search("ttxt", "TEXT", 0), Names{});
  EXPECT_EQ(search("ttxt", "styl", 1), Names{"d"});
  EXPECT_EQ(search("TEXT", "ttxt", 1), Names{});
}

TEST_F(TwcFileSearch, DoesNotWaitForAPipe) {
  ASSERT_EQ(::mkfifo(at("f/pipe").c_str(), 0600), 0);
  create("a", "TEXT", "ttxt");
  EXPECT_EQ(search("ttxt", "TEXT", 1), Names{"a"});
}

TEST_F(TwcFileSearch, DoesNotLookIntoSubfolders) {
  makeFolder(at("f/below"));
  create("below/a", "TEXT", "ttxt");
  EXPECT_EQ(search("ttxt", "TEXT", 1), Names{});
}

TEST_F(TwcFileSearch, GivesBatchesOf30) {
  Names first, second;
  for (int i = 100; i < 165; ++i) create(std::to_string(i), i % 2 ? "TEXT" : "none", "ttxt");
  for (int i = 101; i <= 159; i += 2) first.push_back(std::to_string(i));
  for (int i = 161; i < 165; i += 2) second.push_back(std::to_string(i));
  ASSERT_EQ(first.size(), 30u);
  EXPECT_EQ(search("ttxt", "TEXT", 1), first);
  EXPECT_EQ(search("ttxt", "TEXT", 0), second);
  EXPECT_EQ(search("ttxt", "TEXT", 0), Names{});
}

TEST_F(TwcFileSearch, AWalkGoesOnUntilItIsRestarted) {
  for (int i = 100; i < 135; ++i) create(std::to_string(i), "TEXT", "ttxt");
  ASSERT_EQ(search("ttxt", "TEXT", 1).size(), 30u);
  // What is asked for doesn't count before a restart.
  EXPECT_EQ(search("zzzz", "zzzz", 0), (Names{"130", "131", "132", "133", "134"}));
  EXPECT_EQ(search("ttxt", "TEXT", -1).size(), 30u);
  EXPECT_EQ(search("ttxt", "TEXT", 1)[0], "100");
}

TEST_F(TwcFileSearch, AFileThatWentMeanwhileIsPassedOver) {
  for (int i = 100; i < 133; ++i) create(std::to_string(i), "TEXT", "ttxt");
  ASSERT_EQ(search("ttxt", "TEXT", 1).size(), 30u);
  ASSERT_TRUE(std::remove(at("f/131").c_str()) == 0);
  EXPECT_EQ(search("ttxt", "TEXT", 0), (Names{"130", "132"}));
}

TEST_F(TwcFileSearch, AMissingFolderHoldsNothingAndNullIsRefused) {
  char* found[TWC_SEARCH_BATCH];
  EXPECT_EQ(twcCreatorTypeFileSearchInFolder(at("none").c_str(), "ttxt", "TEXT", found, 1), 0);
  EXPECT_EQ(twcCreatorTypeFileSearchInFolder(nullptr, "ttxt", "TEXT", found, 1), -50);
  EXPECT_EQ(twcCreatorTypeFileSearchInFolder("/", nullptr, "TEXT", found, 1), -50);
  EXPECT_EQ(twcCreatorTypeFileSearchInFolder("/", "ttxt", nullptr, found, 1), -50);
  EXPECT_EQ(twcCreatorTypeFileSearchInFolder("/", "ttxt", "TEXT", nullptr, 1), -50);
}

}  // namespace
}  // namespace zavel::test
