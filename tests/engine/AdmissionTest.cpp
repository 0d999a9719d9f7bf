#include <gtest/gtest.h>

#include <cstring>

#include "engine/EngineFixture.h"

namespace zavel::engine {
namespace {

constexpr uint16_t kReadersE[] = {3, 5, 7, 10, 14};
constexpr uint16_t kReadersJ[] = {4, 6, 11, 15};
constexpr uint16_t kWriters[] = {8, 9, 12, 13, 16, 17};

class AdmissionTest : public ::testing::Test {
 protected:
  AdmissionTest() {
    InitGlobalVal();
    InitMtx();
    InitProcessInfo();
  }
  ~AdmissionTest() override { InitGlobalVal(); }

  // stateE, stateJ, readersE, readersJ.
  static std::string States() {
    const processInfo& table = *g_ProcessInfo;
    return std::to_string(table.stateE) + std::to_string(table.stateJ) + " " +
           std::to_string(table.readersE) + std::to_string(table.readersJ);
  }
};

TEST_F(AdmissionTest, TheProcessTableStartsCleared) {
  EXPECT_EQ(g_ProcessInfo->openCount, 1);
  EXPECT_EQ(g_ProcessInfo->attachCount, 0);
  EXPECT_EQ(States(), "00 00");
  EXPECT_STREQ(g_ProcessInfo->pathKihon, "");
}

TEST_F(AdmissionTest, WithoutAProcessTableEverythingIs20) {
  UnLoadProcessInfo();
  for (uint16_t code = 0; code <= 18; ++code) {
    EXPECT_EQ(CheckInMP(code), 20) << code;
    EXPECT_EQ(CheckOutMP(code), 20) << code;
  }
}

TEST_F(AdmissionTest, UnknownCodesAre20) {
  EXPECT_EQ(CheckInMP(0), 20);
  EXPECT_EQ(CheckInMP(18), 20);
  EXPECT_EQ(States(), "00 00");
}

TEST_F(AdmissionTest, ReadersOfOneLanguageRunBesideEachOther) {
  for (const uint16_t code : kReadersE) {
    EXPECT_EQ(CheckInMP(code), 1);
    EXPECT_EQ(CheckInMP(code), 1);
    EXPECT_EQ(States(), "10 20");
    EXPECT_EQ(CheckOutMP(code), 1);
    EXPECT_EQ(States(), "10 10");
    EXPECT_EQ(CheckOutMP(code), 1);
    EXPECT_EQ(States(), "00 00");
  }
  for (const uint16_t code : kReadersJ) {
    EXPECT_EQ(CheckInMP(code), 1);
    EXPECT_EQ(CheckInMP(3), 1);
    EXPECT_EQ(States(), "11 11");
    EXPECT_EQ(CheckOutMP(code), 1);
    EXPECT_EQ(States(), "10 10");
    EXPECT_EQ(CheckOutMP(3), 1);
  }
}

TEST_F(AdmissionTest, AReaderThatNeverCameInChangesNothing) {
  EXPECT_EQ(CheckOutMP(3), 1);
  EXPECT_EQ(CheckOutMP(4), 1);
  EXPECT_EQ(States(), "00 00");
}

TEST_F(AdmissionTest, AWriterExcludesEveryone) {
  for (const uint16_t code : kWriters) {
    ASSERT_EQ(CheckInMP(code), 1);
    EXPECT_EQ(States(), "22 00");
    for (const uint16_t other : {1, 2, 3, 4, 8, 17})
      EXPECT_EQ(CheckInMP(static_cast<uint16_t>(other)), 35) << other;
    EXPECT_EQ(CheckOutMP(code), 1);
    EXPECT_EQ(States(), "00 00");
  }
}

TEST_F(AdmissionTest, AReaderOfEitherLanguageKeepsWritersOut) {
  for (const uint16_t reader : {uint16_t{3}, uint16_t{4}}) {
    ASSERT_EQ(CheckInMP(reader), 1);
    for (const uint16_t code : kWriters) EXPECT_EQ(CheckInMP(code), 35) << code;
    EXPECT_EQ(CheckInMP(1), 35);
    EXPECT_EQ(CheckInMP(2), 35);
    EXPECT_EQ(CheckOutMP(reader), 1);
  }
}

TEST_F(AdmissionTest, AWriterThatFindsAnotherStateSaysSoAndChangesNothing) {
  for (const uint16_t code : kWriters) EXPECT_EQ(CheckOutMP(code), 20) << code;
  ASSERT_EQ(CheckInMP(3), 1);
  for (const uint16_t code : kWriters) EXPECT_EQ(CheckOutMP(code), 20) << code;
  EXPECT_EQ(States(), "10 10");
}

TEST_F(AdmissionTest, AReaderThatEndsUnderAWriterChangesNothing) {
  ASSERT_EQ(CheckInMP(3), 1);
  g_ProcessInfo->stateE = g_ProcessInfo->stateJ = 2;
  EXPECT_EQ(CheckOutMP(3), 1);
  EXPECT_EQ(States(), "22 10");
  g_ProcessInfo->stateE = 1;  // one of them is enough
  EXPECT_EQ(CheckOutMP(3), 1);
  EXPECT_EQ(States(), "12 10");
}

TEST_F(AdmissionTest, InitAPIAttachesOnce) {
  EXPECT_EQ(CheckInMP(1), 1);
  EXPECT_EQ(States(), "22 00");
  EXPECT_EQ(g_ProcessInfo->attachCount, 1);
  EXPECT_TRUE(g_fInitAPI);
  EXPECT_EQ(CheckOutMP(1), 1);
  EXPECT_EQ(States(), "00 00");
  EXPECT_EQ(CheckInMP(1), 262);
  EXPECT_EQ(g_ProcessInfo->attachCount, 1);
}

TEST_F(AdmissionTest, EndAPIDetachesAndForgetsThePaths) {
  EXPECT_EQ(CheckInMP(2), 263);
  ASSERT_EQ(CheckInMP(1), 1);
  ASSERT_EQ(CheckOutMP(1), 1);
  strcpy(g_ProcessInfo->pathKihon, "k");
  strcpy(g_ProcessInfo->pathUserE, "e");
  strcpy(g_ProcessInfo->pathUserJ, "j");
  EXPECT_EQ(CheckInMP(2), 1);
  EXPECT_EQ(States(), "22 00");
  EXPECT_EQ(CheckOutMP(2), 1);
  EXPECT_EQ(States(), "00 00");
  EXPECT_EQ(g_ProcessInfo->attachCount, 0);
  EXPECT_FALSE(g_fInitAPI);
  EXPECT_STREQ(g_ProcessInfo->pathKihon, "");
  EXPECT_STREQ(g_ProcessInfo->pathUserE, "");
  EXPECT_STREQ(g_ProcessInfo->pathUserJ, "");
  EXPECT_EQ(CheckInMP(2), 263);
}

TEST_F(AdmissionTest, PathsStayWhileAnotherProcessIsAttached) {
  ASSERT_EQ(CheckInMP(1), 1);
  ASSERT_EQ(CheckOutMP(1), 1);
  strcpy(g_ProcessInfo->pathKihon, "k");
  g_ProcessInfo->attachCount = 2;
  ASSERT_EQ(CheckInMP(2), 1);
  EXPECT_EQ(CheckOutMP(2), 1);
  EXPECT_EQ(g_ProcessInfo->attachCount, 1);
  EXPECT_STREQ(g_ProcessInfo->pathKihon, "k");
}

}  // namespace
}  // namespace zavel::engine
