// Entries on their way to the engine's user functions, and out of them.
#ifndef ZAVEL_USER_USERRECORDS_H
#define ZAVEL_USER_USERRECORDS_H

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EngineAPI.h"
#include "user/UserEntry.h"

namespace zavel::host {

// An entry with what identifies it until the next change of the dictionary.
struct StoredEntry {
  UserEntry entry;
  sikibetu_data place = {};  // of the word
  sikibetu_data kanji = {};  // of the written form
};

// The engine's structure of one entry, with the texts that it points to. The entry's texts are settled.
class EntryRecord {
 public:
  explicit EntryRecord(const UserEntry& entry);
  EntryRecord(const EntryRecord&) = delete;
  EntryRecord& operator=(const EntryRecord&) = delete;

  // Adds it; with `replaced` in the place of that one. The engine's status.
  uint16_t add(const StoredEntry* replaced);

 private:
  char* text(const std::string& utf8);
  template <typename Pair>
  void pairs(const std::vector<UserExample>& examples, std::deque<Pair>* records,
             std::vector<Pair*>* addresses);

  UserLanguage language_;
  std::deque<std::string> texts_;
  std::deque<yourei> youreis_;
  std::deque<kurei> kureis_;
  std::deque<bunrei> bunreis_;
  std::vector<yourei*> youreiAddresses_;
  std::vector<kurei*> kureiAddresses_;
  std::vector<bunrei*> bunreiAddresses_;
  add_dic_e english_ = {};
  add_dic_j japanese_ = {};
};

// Takes `count` serial entries apart; engine/UserEntry.h has their layout. False for a list that is none;
// what came ahead of that is in *entries.
bool readSerial(std::string_view list, size_t count, UserLanguage language,
                std::vector<StoredEntry>* entries);

// Takes the text of one entry apart as the file has it, without a place. False when it is none; needs no
// session.
bool readEntryText(std::string_view text, UserLanguage language, StoredEntry* entry);

}  // namespace zavel::host

#endif
