// An engine over dictionaries made in the test: add entries, open(), search, look at lines and status.
#ifndef TESTS_ENGINE_SEARCHFIXTURE_H
#define TESTS_ENGINE_SEARCHFIXTURE_H

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/EngineAPI.h"
#include "engine/Frame.h"
#include "engine/Globals.h"
#include "support/DicWriter.h"

namespace zavel::test {

using Lines = std::vector<std::string>;

// The sides of a search.
inline constexpr uint8_t kBasic = 1;
inline constexpr uint8_t kUser = 2;
inline constexpr uint8_t kBoth = 3;

// A user set in the making; offsets count the file's header of 128 bytes.
struct UserWriter {
  std::string dic = std::string(128, '\0');
  std::vector<IndexRow> kana;  // of English words too
  std::vector<IndexRow> kanji;

  // Files `entry` under keys as they stand in an index; an empty kanji key files none.
  uint32_t add(const std::string& key, const std::string& entry, const std::string& kanjiKey = "");
};

class SearchTest : public testing::Test {
 protected:
  ~SearchTest() override;

  // Writes the basic set, and the user sets that the test has asked for, and starts the engine.
  void open();
  void writeFiles();
  std::string path(const std::string& name) const { return folder.path() + "/" + name; }

  // Searches. The last call's status stays in `status`; the checks that hold for every call are made:
  // nothing found or failed gives size 0 and no list, and no stream stays open.
  Lines midasiE(const std::string& word, uint8_t mode = 0, uint8_t dic = kBasic);
  Lines midasiJ(const std::string& word, uint8_t dic = kBasic);  // Shift_JIS
  Lines imiE(const std::string& word, uint8_t filter = 0, uint8_t dic = kBasic, const char* midasi = nullptr);
  Lines imiJ(const std::string& word, uint8_t filter = 0, uint8_t dic = kBasic, const char* midasi = nullptr);

  DicWriter dic;
  UserWriter userE, userJ;
  bool withUserE = false, withUserJ = false;
  TempFolder folder;
  uint16_t status = 0;
  std::string given;  // the caller's string after the last search

 private:
  void checkIdle() const;
  void checkResult(uint32_t size, Handle list) const;
};

// The fields of an entry by their tags; texts are UTF-8.
std::string head(std::string_view word);                     // F5D1 word LF
std::string line(uint16_t tagValue, std::string_view text);  // tag text LF

}  // namespace zavel::test

#endif
