# User dictionaries.
zavel_test(engine_user_test
  SOURCES
    AddUserDicTest.cpp
    ArrangeUserDicTest.cpp
    DelUserDicTest.cpp
    EntryFieldsTest.cpp
    Ix3UpdateTest.cpp
    KjiIdxGrowthTest.cpp
    ListUserDicTest.cpp
    RamDicFixture.cpp
    SerchUserDicTest.cpp
    SikibetuTest.cpp
    UserDamageTest.cpp
    UserDicFixture.cpp
    UserEntryTest.cpp
    UserFaultTest.cpp
    UserFrameTest.cpp
    UserMemoryTest.cpp
    UserModelTest.cpp
    WordInfoTest.cpp
  LINKS zavel_test_support zavel_test_memory)

# Crashes, in child processes: apart, because they take a while.
zavel_test(engine_crash_test
  SOURCES
    UserCrashTest.cpp
    UserDicFixture.cpp
  LINKS zavel_test_support)
