#include "platform/Log.h"

#include <gtest/gtest.h>

#include <vector>

namespace zavel {
namespace {

std::vector<std::string> g_lines;

void keep(const std::string& line) {
  g_lines.push_back(line);
}

TEST(Log, WritesLinesToStandardErrorByItself) {
  testing::internal::CaptureStderr();
  logLine("Syle Number=10");
  logLine("");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Syle Number=10\n\n");
}

TEST(Log, GivesLinesToItsSinkInstead) {
  g_lines.clear();
  EXPECT_EQ(setLogSink(keep), nullptr);
  testing::internal::CaptureStderr();
  logLine("one");
  EXPECT_EQ(setLogSink(nullptr), &keep);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(g_lines, std::vector<std::string>{"one"});
}

}  // namespace
}  // namespace zavel
