// User dictionaries in a folder of their own, changed and read through the store.
#ifndef TESTS_ZAVEL_USER_USERSETFIXTURE_H
#define TESTS_ZAVEL_USER_USERSETFIXTURE_H

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/CrashStorage.h"
#include "support/TempFolder.h"
#include "user/UserStore.h"

namespace zavel::host {

class UserSetTest : public testing::Test {
 protected:
  static constexpr UserLanguage kE = UserLanguage::kEnglish;
  static constexpr UserLanguage kJ = UserLanguage::kJapanese;

  UserPlace place() const { return UserPlace(folder_.path() + "/user"); }
  UserStore store() const { return UserStore(place(), folder_.path() + "/none"); }
  std::string file(const std::string& name) const { return folder_.path() + "/user/" + name; }
  bool exists(const std::string& name) const { return std::filesystem::exists(file(name)); }
  std::string bytes(const std::string& name) const { return folder_.read("user/" + name); }
  void put(const std::string& name, const std::string& content) const {
    folder_.write("user/" + name, content);
  }

  static UserEntry english(const std::string& word, const std::string& meaning = "意味") {
    return {.language = kE, .word = word, .pos = 1, .meaning = meaning};
  }
  static UserEntry japanese(const std::string& word, const std::string& kanji = "") {
    return {.language = kJ, .word = word, .kanji = kanji, .meaning = "meaning"};
  }

  // One session. The code of its failure, "" for success.
  std::string add(const std::vector<UserEntry>& entries) const {
    UserStore open = store();
    if (Failure failure = open.open(entries[0].language, UserAccess::kWrite)) return failure.code;
    for (const UserEntry& entry : entries) {
      if (Failure failure = open.add(entry)) return failure.code;
    }
    return open.close().code;
  }

  // Headwords as a new session finds them; "!" and the code of a failure.
  std::vector<std::string> words(UserLanguage language) const {
    UserStore open = store();
    std::vector<std::string> found;
    Failure failure = open.open(language, UserAccess::kRead);
    if (!failure) failure = open.headwords(&found);
    if (failure) return {"!" + failure.code};
    return found;
  }

  std::vector<UserEntry> find(UserLanguage language, const std::string& word) const {
    UserStore open = store();
    std::vector<StoredEntry> found;
    EXPECT_EQ(open.open(language, UserAccess::kRead).code, "");
    EXPECT_EQ(open.find(word, &found).code, "");
    std::vector<UserEntry> entries;
    for (const StoredEntry& stored : found) entries.push_back(stored.entry);
    return entries;
  }

  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path() + "/user")) {
      found.push_back(entry.path().filename());
    }
    std::sort(found.begin(), found.end());
    return found;
  }

  test::TempFolder folder_;

 private:
  test::CrashStorage disk_{0, 0};  // for speed: it puts nothing on the real one
};

using Strings = std::vector<std::string>;

}  // namespace zavel::host

#endif
