# Conjugation.
zavel_test(engine_katuyo_test
  SOURCES
    KatuyoDamageTest.cpp
    KatuyoDicTest.cpp
    KatuyoFormsTest.cpp
    KatuyoGenkeiTest.cpp
    KatuyoKatatiTest.cpp
    KatuyoMidasiTest.cpp
    KatuyoTest.cpp
  LINKS zavel_test_support)
