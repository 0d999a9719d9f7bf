# User dictionaries: adding, searching, listing, deleting, arranging.
list(APPEND engine_sources
  AddDicSize.cpp
  AddUserDic.cpp
  Arrange.cpp
  ArrangeUserDic.cpp
  DelUserDic.cpp
  EntryFields.cpp
  Ix3Update.cpp
  KjiIdxGrowth.cpp
  ListUserDic.cpp
  RenewIndex.cpp
  SerchUserDic.cpp
  Sikibetu.cpp
  TemporaryFile.cpp
  UserEntry.cpp
  UserEntryText.cpp
  UserFrame.cpp
  WordInfo.cpp
  WordParam.cpp)
