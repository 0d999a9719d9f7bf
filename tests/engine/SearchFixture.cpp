#include "engine/SearchFixture.h"

namespace zavel::test {

using namespace zavel::engine;

uint32_t UserWriter::add(const std::string& key, const std::string& entry, const std::string& kanjiKey) {
  const uint32_t offset = static_cast<uint32_t>(dic.size());
  dic += entry;
  kana.push_back({key, offset});
  if (!kanjiKey.empty()) kanji.push_back({kanjiKey, offset});
  return offset;
}

SearchTest::~SearchTest() {
  if (initAPIFlag) EndAPI();
}

void SearchTest::writeFiles() {
  dic.write(folder.path());
  if (withUserE) {
    const IndexFiles files = writeIndex(1, userE.kana, true);
    writeFile(path("ueej.dic"), userE.dic);
    writeFile(path("ueej.ix3"), files.ix3);
    writeFile(path("ueej.idx"), files.idx);
  }
  if (withUserJ) {
    const IndexFiles kana = writeIndex(2, userJ.kana, true);
    const IndexFiles kanji = writeIndex(3, userJ.kanji, true);
    writeFile(path("ujje.dic"), userJ.dic);
    writeFile(path("ujkna.ix3"), kana.ix3);
    writeFile(path("ujkna.idx"), kana.idx);
    writeFile(path("ujkji.ix3"), kanji.ix3);
    writeFile(path("ujkji.idx"), kanji.idx);
  }
}

void SearchTest::open() {
  writeFiles();
  ASSERT_EQ(1, InitAPI(folder.prefix().c_str(), withUserE ? path("ue").c_str() : nullptr,
                       withUserJ ? path("uj").c_str() : nullptr));
}

void SearchTest::checkIdle() const {
  for (const FsObj* stream : {g_fs_Ej_Dic_Kihon, g_fs_Ej_Ix3_Kihon, g_fs_Ha_Ix3_Kihon, g_fs_Je_Dic_Kihon,
                              g_fs_Je_Ix3_Kihon, g_fs_Ke_Ix3_Kihon, g_fs_Ej_Dic_User, g_fs_Ej_Ix3_User,
                              g_fs_Je_Dic_User, g_fs_Je_Ix3_User, g_fs_Ke_Ix3_User}) {
    EXPECT_FALSE(stream != nullptr && stream->IsOpen()) << "a stream stayed open";
  }
  EXPECT_EQ(0, g_ProcessInfo->readersE);
  EXPECT_EQ(0, g_ProcessInfo->readersJ);
}

void SearchTest::checkResult(uint32_t size, Handle list) const {
  checkIdle();
  EXPECT_EQ(size == 0, list == nullptr);
  EXPECT_TRUE(status == 1 || size == 0) << "a failed search gave a result";
}

Lines SearchTest::midasiE(const std::string& key, uint8_t mode, uint8_t dicNo) {
  uint32_t size = 99;
  Handle list = nullptr;
  status = SerchMidasiE(key.c_str(), mode, &size, &list, dicNo);
  checkResult(size, list);
  return takeLines(list, size);
}

Lines SearchTest::midasiJ(const std::string& key, uint8_t dicNo) {
  uint32_t size = 99;
  Handle list = nullptr;
  std::string buffer = key;
  status = SerchMidasiJ(buffer.data(), &size, &list, dicNo);
  given = buffer.c_str();
  checkResult(size, list);
  return takeLines(list, size);
}

Lines SearchTest::imiE(const std::string& key, uint8_t filter, uint8_t dicNo, const char* midasi) {
  uint32_t size = 99;
  Handle list = nullptr;
  std::string buffer = key;
  status = SerchImiE(buffer.data(), midasi, filter, &size, &list, dicNo);
  given = buffer.c_str();
  checkResult(size, list);
  return takeEntries(list, size);
}

Lines SearchTest::imiJ(const std::string& key, uint8_t filter, uint8_t dicNo, const char* midasi) {
  uint32_t size = 99;
  Handle list = nullptr;
  std::string buffer = key;
  status = SerchImiJ(buffer.data(), midasi, filter, &size, &list, dicNo);
  given = buffer.c_str();
  checkResult(size, list);
  return takeEntries(list, size);
}

std::string head(std::string_view word) {
  return tag(0xF5D1) + sjis(word) + "\n";
}

std::string line(uint16_t tagValue, std::string_view text) {
  return tag(tagValue) + sjis(text) + "\n";
}

}  // namespace zavel::test
