// Every byte of an index changed in five ways and every truncation (of a user file's header only the bytes
// that mean something, and some beside them): the engine opens or says 260, finds or
// says 20, and never reads outside (the address sanitizer watches).
#include <gtest/gtest.h>

#include "engine/EngineFixture.h"
#include "engine/Index1.h"

namespace zavel::engine {
namespace {

using test::writeFile;

class DamageTest : public EngineTest {
 protected:
  // Opens on a file with damaged bytes and walks to keys of every length.
  void Try(const std::string& path, const std::string& bytes, const char* user) {
    writeFile(path, bytes);
    const Status status = InitAPI(folder_.prefix().c_str(), user, user);
    ++(status == kOk ? opened_ : refused_);
    ASSERT_TRUE(status == 1 || status == 260 || status == 19 || status == 259) << status;
    if (status == kOk) Walk(user != nullptr);
    EXPECT_EQ(EndAPI(), status == kOk ? 1 : 263);
  }

  void Walk(bool user) {
    uint32_t offset = 0;
    for (const char* key : {"", "a", "ap", "app", "apple", "b", "zzz", "\xFF\xFF\xFF"}) {
      for (const uint16_t type : {kTypeE, kTypeKana, kTypeKji, kTypeHase}) {
        const Status status = GetIdxKihon(type, key, &offset);
        EXPECT_TRUE(status == 1 || status == 20) << status;
        if (user && type != kTypeHase) GetIdxUser(type, key, &offset);
      }
      Bsrch1(kTypeKatu, 0, static_cast<uint8_t>(*key), kSetKihon);
    }
    for (const std::string& key :
         {test::sjis("林檎"), test::sjis("林"), std::string("\xE8\xF1\xB2"), std::string("\xE8")}) {
      for (const uint16_t type : {kTypeKana, kTypeKji}) {
        GetIdxKihon(type, key, &offset);
        if (user) GetIdxUser(type, key, &offset);
      }
    }
  }

  // All of a basic index; of a user index the count of kanji indexes and all from just before the tables.
  static bool Matters(size_t at, const char* user) {
    return user == nullptr || (at >= 5 && at <= 14) || at >= 124;
  }

  void Sweep(const std::string& path, const char* user) {
    const std::string whole = test::readFile(path);
    for (size_t at = 0; at < whole.size(); ++at) {
      if (!Matters(at, user)) continue;
      const uint8_t byte = static_cast<uint8_t>(whole[at]);
      for (const int changed : {0, 0xFF, byte ^ 1, byte + 1, byte - 1}) {
        std::string bytes = whole;
        bytes[at] = static_cast<char>(changed);
        Try(path, bytes, user);
      }
      Try(path, whole.substr(0, at), user);
    }
    writeFile(path, whole);
  }

  int opened_ = 0;
  int refused_ = 0;
};

TEST_F(DamageTest, BasicIndexes) {
  test::DicWriter writer = SmallSet();
  writer.addHase("apples", 0);
  writer.addKatu("ate", "{eat:現,ate:過}");
  writer.write(folder_.path());
  for (const char* name : {"ej.idx", "je.idx", "ke.idx", "hase.idx", "katu.idx"})
    Sweep(BasicFile(name), nullptr);
  EXPECT_GT(opened_, 100);
  EXPECT_GT(refused_, 100);
}

TEST_F(DamageTest, UserIndexes) {
  WriteSmallSet();
  MakeUserFolder();
  for (const char* name : {"ej.dic", "je.dic"}) writeFile(UserFile(name), std::string(128, '\0'));
  const auto ej = test::writeIndex(kTypeE, {{"apple", 128}}, true);
  const auto kna = test::writeIndex(kTypeKana, {{"\xE8\xF1\xB2", 128}}, true);
  const auto kji = test::writeIndex(kTypeKji, {{test::sjis("林檎"), 128}}, true);
  writeFile(UserFile("ej.ix3"), ej.ix3);
  writeFile(UserFile("kna.ix3"), kna.ix3);
  writeFile(UserFile("kji.ix3"), kji.ix3);
  writeFile(UserFile("ej.idx"), ej.idx);
  writeFile(UserFile("kna.idx"), kna.idx);
  writeFile(UserFile("kji.idx"), kji.idx);
  for (const char* name : {"ej.idx", "kna.idx", "kji.idx"}) Sweep(UserFile(name), UserPrefix().c_str());
  EXPECT_GT(opened_, 100);
  EXPECT_GT(refused_, 100);
}

}  // namespace
}  // namespace zavel::engine
