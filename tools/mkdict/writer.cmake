# The frame, the writer, the verifier and the Japanese side.
list(APPEND mkdict_sources
  Summary.cpp)
