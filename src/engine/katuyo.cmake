# Conjugation.
list(APPEND engine_sources
  Katuyo.cpp
  KatuyoDic.cpp
  KatuyoForms.cpp
  KatuyoGenkei.cpp
  KatuyoKatati.cpp
  KatuyoMidasi.cpp)
