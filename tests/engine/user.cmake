# User dictionaries.
zavel_test(engine_user_test
  SOURCES
    AddUserDicTest.cpp
    UserDicFixture.cpp
  LINKS zavel_test_support)

# Crashes, in child processes: apart, because they take a while.
zavel_test(engine_crash_test
  SOURCES
    UserCrashTest.cpp
    UserDicFixture.cpp
  LINKS zavel_test_support)
