# The frame, the writer, the verifier and the Japanese side.
list(APPEND mkdict_sources
  IndexWriter.cpp
  Progress.cpp
  Summary.cpp
  ToShiftJis.cpp)
