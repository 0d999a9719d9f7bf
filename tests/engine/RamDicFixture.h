// User sets in memory, and what a user of the files has to know to recover them.
#ifndef TESTS_ENGINE_RAMDICFIXTURE_H
#define TESTS_ENGINE_RAMDICFIXTURE_H

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "engine/EngineFixture.h"
#include "engine/UserDicFixture.h"
#include "support/RamDisk.h"

namespace zavel::engine {

// Integers as files hold them.
std::string Le16(unsigned value);
std::string Le32(uint32_t value);

// Everything that a user has stored: entries by the order of searches, each with whether it has a kanji row.
struct UserState {
  std::vector<EntryE> english;
  std::vector<std::pair<EntryJ, bool>> japanese;

  bool operator==(const UserState&) const = default;
};
UserState ReadState();

// A basic set on disk, both user sets new, empty and open.
class RamDicTest : public EngineTest {
 protected:
  RamDicTest();
  ~RamDicTest() override { EndAPI(); }

  Status OpenBoth() { return InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), UserPrefix().c_str()); }
  Status OpenE() { return InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), nullptr); }
  Status OpenJ() { return InitAPI(folder_.prefix().c_str(), nullptr, UserPrefix().c_str()); }
  // Ends the engine and opens both sets again: what is found then came from the files.
  void Reopen();

  bool Exists(const std::string& name) const { return disk_.has("u" + name); }
  std::string File(const std::string& name) const { return disk_.file("u" + name); }
  void SetFile(const std::string& name, std::string_view bytes) { disk_.setFile("u" + name, bytes); }
  // What stands in a file behind its header.
  std::string Body(const std::string& name) const { return File(name).substr(128); }
  // Names of the files of the user sets.
  std::vector<std::string> Files() const;

  // The user English set by hand, opened with the other: keys with the texts of their entries; a text that
  // is repeated stands once.
  void WriteSetE(const std::vector<std::pair<std::string, std::string>>& rows);
  // The Japanese set likewise: rows of reading and of written form, in UTF-8, with texts.
  using RowsJ = std::vector<std::pair<std::string, std::string>>;
  void WriteSetJ(const RowsJ& kana, const RowsJ& kanji);

  // Puts back what backups hold, by the rules of docs/formats.md. The engine is closed.
  void Recover();

  test::RamDisk disk_;

 private:
  void PutBack(const std::vector<std::string>& names, const std::string& suffix);
  void Drop(const std::vector<std::string>& names, const std::string& suffix);
};

}  // namespace zavel::engine

#endif
