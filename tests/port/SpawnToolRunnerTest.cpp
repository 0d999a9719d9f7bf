#include "base/SpawnToolRunner.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::TempFolder;

class SpawnToolRunnerTest : public testing::Test {
 protected:
  ToolResult shell(const std::string& script) { return tools_.run("/bin/sh", {"-c", script}); }

  SpawnToolRunner tools_;
};

TEST_F(SpawnToolRunnerTest, GivesOutputAndStatus) {
  const ToolResult result = shell("printf 'a\\000b\\n'; exit 3");
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exitStatus, 3);
  EXPECT_EQ(result.output, std::string("a\0b\n", 4));
}

TEST_F(SpawnToolRunnerTest, PassesArgumentsWithoutAShell) {
  const ToolResult result = tools_.run("/usr/bin/printf", {"[%s]", "a b", "", "$HOME;*", "\"'"});
  EXPECT_EQ(result.output, "[a b][][$HOME;*][\"']");
  EXPECT_EQ(result.exitStatus, 0);
}

TEST_F(SpawnToolRunnerTest, StartsNothingThatIsNoProgram) {
  TempFolder folder;
  folder.write("text", "echo x");
  for (const std::string& program :
       {std::string(), std::string("sh"), std::string("./sh"), folder.file("none"), folder.file("text"),
        folder.path(), std::string("/bin/sh\0x", 9)}) {
    const ToolResult result = tools_.run(program, {});
    EXPECT_FALSE(result.started) << program;
    EXPECT_EQ(result.exitStatus, -1);
    EXPECT_EQ(result.output, "");
  }
  EXPECT_FALSE(tools_.run("/bin/echo", {std::string("a\0b", 3)}).started);
}

TEST_F(SpawnToolRunnerTest, TellsTheSignalThatEndedATool) {
  EXPECT_EQ(shell("kill -TERM $$").exitStatus, 128 + SIGTERM);
  EXPECT_EQ(shell("kill -KILL $$").exitStatus, 128 + SIGKILL);
}

TEST_F(SpawnToolRunnerTest, GivesAnEmptyStandardInput) {
  const ToolResult result = shell("cat; echo end");
  EXPECT_EQ(result.output, "end\n");
}

TEST_F(SpawnToolRunnerTest, LeavesNoDescriptorOpenToTheTool) {
  const int leak = ::open("/dev/null", O_RDONLY);  // without close on exec
  const int high = ::fcntl(leak, F_DUPFD, 200);
  // The fourth is the listing's own.
  const ToolResult result = tools_.run("/bin/ls", {"/proc/self/fd"});
  ::close(leak);
  ::close(high);
  EXPECT_EQ(result.output, "0\n1\n2\n3\n");
}

TEST_F(SpawnToolRunnerTest, GivesTheSignalsBackTheirUsualMeaning) {
  const auto old = ::signal(SIGPIPE, SIG_IGN);
  const ToolResult result = shell("kill -PIPE $$; echo alive");
  ::signal(SIGPIPE, old);
  EXPECT_EQ(result.exitStatus, 128 + SIGPIPE);
  EXPECT_EQ(result.output, "");
}

TEST_F(SpawnToolRunnerTest, ReadsMoreThanAPipeHolds) {
  const ToolResult result = shell("head -c 1000000 /dev/zero");
  EXPECT_EQ(result.output, std::string(1000000, '\0'));
  EXPECT_EQ(result.exitStatus, 0);
}

TEST_F(SpawnToolRunnerTest, StopsAToolThatWritesWithoutEnd) {
  const ToolResult result = tools_.run("/bin/cat", {"/dev/zero"});
  EXPECT_EQ(result.output.size(), 64u * 1024 * 1024);
  EXPECT_EQ(result.exitStatus, 128 + SIGKILL);
}

TEST_F(SpawnToolRunnerTest, LeavesNoChildBehind) {
  shell("exit 0");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace zavel
