# The frame, the writer, the verifier and the Japanese side.
list(APPEND mkdict_sources
  BasicSet.cpp
  Build.cpp
  DicFileWriter.cpp
  EdictLabels.cpp
  EdictLine.cpp
  EdictReader.cpp
  EntryCheck.cpp
  IndexCheck.cpp
  IndexWriter.cpp
  IterationMark.cpp
  JapaneseEntries.cpp
  JapaneseRanks.cpp
  JsonString.cpp
  Options.cpp
  ProgramRun.cpp
  Progress.cpp
  ReadingUses.cpp
  Report.cpp
  SetWriter.cpp
  Summary.cpp
  ToShiftJis.cpp
  Verify.cpp)
list(APPEND mkdict_links CLI11::CLI11)
