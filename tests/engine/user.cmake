# User dictionaries.
zavel_test(engine_user_test
  SOURCES
    AddUserDicTest.cpp
    UserDicFixture.cpp
  LINKS zavel_test_support)
