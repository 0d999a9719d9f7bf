// User sets under test: entries by a few words of UTF-8, what the exported functions give back taken apart by
// a reader of its own.
#ifndef TESTS_ENGINE_USERDICFIXTURE_H
#define TESTS_ENGINE_USERDICFIXTURE_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "engine/EngineAPI.h"
#include "engine/EngineFixture.h"

namespace zavel::engine {

using Pairs = std::vector<std::pair<std::string, std::string>>;  // eng, jpn

// An entry as a test writes it: UTF-8, turned into Shift_JIS on its way to the engine.
struct EntryE {
  std::string word{};
  std::string imi = "意味";
  uint8_t kind = 1;
  uint16_t hinsi = 1;
  std::string phrase{};
  Pairs youreis{};

  bool operator==(const EntryE&) const = default;
};
struct EntryJ {
  std::string kana{};
  std::string kanji{};  // empty: none
  std::string imi = "meaning";
  Pairs kureis{};
  Pairs bunreis{};

  bool operator==(const EntryJ&) const = default;
};

// What a search gave back: the entry in UTF-8 and its identification.
struct FoundE {
  EntryE entry;
  sikibetu_data sikibetu{};
};
struct FoundJ {
  EntryJ entry;
  sikibetu_data kana{};
  sikibetu_data kanji{};
};

// Whole calls. The status alone, or with `status` null success expected.
Status Add(const EntryE& entry, sikibetu_data* sikibetu = nullptr);
Status Add(const EntryJ& entry, sikibetu_data* kana = nullptr, sikibetu_data* kanji = nullptr);
std::vector<FoundE> FindE(const std::string& word, Status* status = nullptr);
std::vector<FoundJ> FindJ(const std::string& kana, Status* status = nullptr);
std::vector<std::string> ListE(Status* status = nullptr);
std::vector<std::string> ListJ(Status* status = nullptr);

// Serial entries taken apart; fails the test where offsets and sizes don't agree.
std::vector<FoundE> ParseE(const std::string& list, size_t count);
std::vector<FoundJ> ParseJ(const std::string& list, size_t count);

// The bytes of a block list, which is freed.
std::string TakeBytes(Handle list);

// A basic set, and user sets at one prefix, empty and open.
class UserDicTest : public EngineTest {
 protected:
  UserDicTest();

  Status OpenBoth() { return InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), UserPrefix().c_str()); }
  // Ends the engine and opens it again: what is found then came from the disk.
  void Reopen();
  bool Exists(const std::string& name) const { return std::filesystem::exists(UserFile(name)); }
  std::string File(const std::string& name) const { return test::readFile(UserFile(name)); }
  // Names of the files of the user sets.
  std::vector<std::string> Files() const;
};

}  // namespace zavel::engine

#endif
