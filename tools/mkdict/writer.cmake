# The frame, the writer, the verifier and the Japanese side.
list(APPEND mkdict_sources
  BasicSet.cpp
  DicFileWriter.cpp
  EdictLabels.cpp
  EdictLine.cpp
  EdictReader.cpp
  IndexWriter.cpp
  JapaneseEntries.cpp
  Progress.cpp
  Summary.cpp
  ToShiftJis.cpp)
