find_package(ZLIB REQUIRED)

zavel_test(test_mkdict_english SOURCES
  AttestedTest.cpp
  CountableTest.cpp
  DerivedFormsTest.cpp
  DictdReaderTest.cpp
  EnglishEntriesTest.cpp
  EnglishSideTest.cpp
  EntryTextTest.cpp
  FreeDictTest.cpp
  GlossIndexTest.cpp
  InflectionTest.cpp
  KatuRecordsTest.cpp
  PronunciationChoiceTest.cpp
  PronunciationTest.cpp
  SpellingPairsTest.cpp
  Utf8Test.cpp
  WordNetTest.cpp
  LINKS zavel_mkdict zavel_test_support ZLIB::ZLIB)
target_include_directories(test_mkdict_english PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})

# Looks words up in what the open data compiles to.
add_executable(test_mkdict_real RealDataTest.cpp)
target_include_directories(test_mkdict_real PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tools)
target_compile_definitions(test_mkdict_real PRIVATE REAL_DICTIONARY="${REAL_DICTIONARY}")
target_link_libraries(test_mkdict_real PRIVATE zavel_options zavel_engine zavel_test_support GTest::gtest
  GTest::gtest_main)
gtest_discover_tests(test_mkdict_real DISCOVERY_TIMEOUT 60
  PROPERTIES TIMEOUT 300 FIXTURES_REQUIRED real_dictionary)
