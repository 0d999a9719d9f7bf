// Entries that were reported as stored outlive the death of the process at any moment.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <set>

#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kKills = 25;
#else
constexpr int kKills = 200;
#endif

class UserKillTest : public test::RootTest {
 protected:
  // Runs `zavel user add`, or another command, and kills it after a while; true when it had ended well by
  // then.
  bool addAndKill(const std::string& word, int microseconds, const char* command = "add") const {
    const std::string root = "ZAVEL_ROOT=" + this->root();
    const pid_t child = fork();
    if (child == 0) {
      const int null = open("/dev/null", O_WRONLY);
      dup2(null, 1);
      dup2(null, 2);
      const bool add = command == std::string("add");
      const char* argv[] = {"zavel", "user", command, word.c_str(), add ? "meaning" : "--all", nullptr};
      char* envp[] = {const_cast<char*>(root.c_str()), nullptr};
      execve(ZAVEL_PROGRAM, const_cast<char**>(argv), envp);
      _exit(126);
    }
    usleep(static_cast<useconds_t>(microseconds));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  // A word by its number, in letters or in kana.
  static std::string wordOf(int number, bool english) {
    std::string word;
    for (int rest = number + 26; rest > 0; rest /= 26) {
      word += english ? std::string(1, static_cast<char>('a' + rest % 26))
                      : std::string{'\xE3', '\x82', static_cast<char>(0xA2 + rest % 26)};
    }
    return word;
  }
};

TEST_F(UserKillTest, NoAcknowledgedEntryIsLostAndNoneIsHalf) {
  std::mt19937 random(4);
  std::set<std::string> tried, stored;
  // In microseconds: half as much again as one addition takes on this machine, in this build. It then follows
  // what happens, so that about two of three are killed.
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(inRoot({"user", "add", "measured", "meaning"}).run().status, 0);
  const auto took = std::chrono::steady_clock::now() - start;
  tried.insert("measured");
  stored.insert("measured");
  const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(took).count();
  int longest = static_cast<int>(micros * 3 / 2);
  for (int i = 0; i < kKills; ++i) {
    const std::string word = wordOf(i, i % 2 == 0);
    const int wait = static_cast<int>(random() % static_cast<unsigned>(longest));
    tried.insert(word);
    const bool done = addAndKill(word, wait);
    if (done) stored.insert(word);
    longest = std::max(2000, done ? longest - 3000 : longest + 1000);
  }
  const test::Outcome exported = inRoot({"user", "export"}).run();
  ASSERT_EQ(exported.status, 0) << exported.err;
  std::set<std::string> found;
  size_t lines = 0;
  for (size_t at = exported.out.find('\n') + 1; at < exported.out.size();
       at = exported.out.find('\n', at) + 1) {
    const std::string line = exported.out.substr(at, exported.out.find('\n', at) - at);
    const std::string word = line.substr(3, line.find('\t', 3) - 3);
    EXPECT_TRUE(line == "en\t" + word + "\t\tnoun\t\tmeaning\t\t" ||
                line == "ja\t" + word + "\t\t\t\tmeaning\t\t")
        << line;
    EXPECT_TRUE(tried.contains(word)) << word;
    found.insert(word);
    ++lines;
  }
  EXPECT_EQ(lines, found.size());
  for (const std::string& word : stored) EXPECT_TRUE(found.contains(word)) << word;
  EXPECT_GT(stored.size(), 1u);  // more than the measured one
  EXPECT_LT(stored.size(), static_cast<size_t>(kKills) + 1);
}

// Deletions are told from losses whenever they are killed: nothing is said to be unclear afterwards, and
// nothing that was deleted comes back.
TEST_F(UserKillTest, NoKillMakesDeletionsSeemLosses) {
  std::mt19937 random(5);
  std::set<std::string> kept, deleted;
  for (int i = 0; i < kKills / 2; ++i) {
    const std::string word = wordOf(i, i % 2 == 0);
    ASSERT_EQ(inRoot({"user", "add", word, "meaning"}).run().err, "") << i;
    kept.insert(word);
  }
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(inRoot({"user", "delete", *kept.begin(), "--all"}).run().status, 0);
  const auto took = std::chrono::steady_clock::now() - start;
  const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(took).count();
  kept.erase(kept.begin());
  int kills = 0;
  for (const std::string& word : std::set<std::string>(kept)) {
    const int wait = static_cast<int>(random() % static_cast<unsigned>(micros * 5 / 4));
    const bool done = addAndKill(word, wait, "delete");
    if (done) deleted.insert(word);
    kills += done ? 0 : 1;
    kept.erase(word);
    const test::Outcome list = inRoot({"user", "list"}).run();
    ASSERT_EQ(list.status, list.out.empty() ? 1 : 0) << list.err;
    ASSERT_EQ(list.err.find("not as they were left"), std::string::npos) << list.err;
    const std::string lines = "\n" + list.out;
    for (const std::string& one : kept) ASSERT_NE(lines.find("\n" + one + "\n"), std::string::npos) << one;
    for (const std::string& one : deleted) ASSERT_EQ(lines.find("\n" + one + "\n"), std::string::npos) << one;
  }
  EXPECT_GT(kills, 0);
  ASSERT_EQ(inRoot({"user", "arrange"}).run().status, 0);
}

}  // namespace
}  // namespace zavel::host
