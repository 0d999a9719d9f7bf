# Blocks, entries, headword search and meaning search.
list(APPEND engine_sources
  Beiei.cpp
  Entry.cpp
  ImiFilter.cpp
  Index3.cpp
  IndexLine.cpp
  MidasiOrder.cpp
  SerchFrame.cpp
  SerchImi.cpp
  SerchMidasi.cpp
  UserImi.cpp
  UsualLine.cpp)
