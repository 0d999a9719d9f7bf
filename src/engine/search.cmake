# Blocks, entries, headword search and meaning search.
list(APPEND engine_sources
  Entry.cpp
  Index3.cpp
  IndexLine.cpp)
