#include "base/LinuxFolders.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>

namespace zavel {
namespace {

// Sets or clears (null) a variable for as long as it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* old = ::getenv(name)) old_ = old;
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
  }
  ~Variable() { old_ ? ::setenv(name_, old_->c_str(), 1) : ::unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

std::string rootWith(const char* root, const char* data, const char* home) {
  const Variable a("ZAVEL_ROOT", root), b("XDG_DATA_HOME", data), c("HOME", home);
  LinuxFolders folders;
  EXPECT_EQ(folders.home(), folders.root());
  return folders.root();
}

TEST(LinuxFolders, TakesTheFirstPlaceThatIsSet) {
  EXPECT_EQ(rootWith("/r", "/d", "/h"), "/r");
  EXPECT_EQ(rootWith(nullptr, "/d", "/h"), "/d/zavel");
  EXPECT_EQ(rootWith(nullptr, nullptr, "/h"), "/h/.local/share/zavel");
}

TEST(LinuxFolders, PassesOverEmptyAndRelativePlaces) {
  EXPECT_EQ(rootWith("", "/d", "/h"), "/d/zavel");
  EXPECT_EQ(rootWith("r", "d", "/h"), "/h/.local/share/zavel");
  EXPECT_EQ(rootWith("~/r", "./d", "/h"), "/h/.local/share/zavel");
}

TEST(LinuxFolders, GivesNoTrailingDelimiter) {
  EXPECT_EQ(rootWith("/r/s//", nullptr, "/h"), "/r/s");
  EXPECT_EQ(rootWith(nullptr, "/d/", "/h"), "/d/zavel");
}

TEST(LinuxFolders, NeverTakesTheRootOfAllFiles) {
  EXPECT_EQ(rootWith("/", nullptr, "/h"), "/h/.local/share/zavel");
  EXPECT_EQ(rootWith("///", "/", "/h"), "/h/.local/share/zavel");
}

TEST(LinuxFolders, FallsBackOnTheUserDatabase) {
  const Variable a("ZAVEL_ROOT", nullptr), b("XDG_DATA_HOME", nullptr), c("HOME", nullptr);
  const std::string root = LinuxFolders().root();
  EXPECT_TRUE(root.ends_with("/.local/share/zavel") || root == "/dev/null/zavel") << root;
}

}  // namespace
}  // namespace zavel
