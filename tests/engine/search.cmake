# Blocks, entries, headword search and meaning search.
zavel_test(engine_search_test
  SOURCES
    EntryLineTest.cpp
    EntryTest.cpp
    ImiBeieiTest.cpp
    ImiFilterTest.cpp
    Ix3Test.cpp
    MidasiOrderTest.cpp
    SearchDamageTest.cpp
    SearchFixture.cpp
    SearchMemoryTest.cpp
    SerchImiTest.cpp
    SerchMidasiTest.cpp
    UserImiTest.cpp
    UsualLineTest.cpp
  LINKS zavel_test_support zavel_test_memory)
