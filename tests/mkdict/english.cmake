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
  PronunciationTest.cpp
  SpellingPairsTest.cpp
  Utf8Test.cpp
  WordNetTest.cpp
  LINKS zavel_mkdict zavel_test_support ZLIB::ZLIB)
target_include_directories(test_mkdict_english PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
