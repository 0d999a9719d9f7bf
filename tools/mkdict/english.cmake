# The English side: sources, entries, derived words, irregular forms.
find_package(ZLIB REQUIRED)
list(APPEND mkdict_links ZLIB::ZLIB)
list(APPEND mkdict_sources
  Attested.cpp
  BaseForms.cpp
  Countable.cpp
  Coverage.cpp
  DerivedForms.cpp
  DictdReader.cpp
  EnglishEntries.cpp
  EnglishSide.cpp
  EntryText.cpp
  FreeDict.cpp
  GlossIndex.cpp
  Inflection.cpp
  Ipa.cpp
  KatuRecords.cpp
  PartsOfSpeech.cpp
  Pronunciation.cpp
  PronunciationChoice.cpp
  Spelling.cpp
  SpellingPairs.cpp
  Utf8.cpp
  WordNet.cpp)
