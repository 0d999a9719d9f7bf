// Tests: tests/zavel/user/UserDamageTest.cpp
#include "user/UserSalvage.h"

#include <algorithm>
#include <map>
#include <set>

#include "QueryText.h"
#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/Index3.h"
#include "engine/ListUserDic.h"
#include "user/UserCheckForm.h"
#include "user/UserReach.h"
#include "user/UserRecords.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr unsigned char kKanaLead = 0x82;  // what keys leave out of each kana
constexpr size_t kMostNamed = 5;
constexpr size_t kTagSize = 2;
constexpr size_t kEntriesWindow = size_t{4} * kMaxEntry;

// A key as readers write it.
std::string keyText(const std::string& key, uint16_t type) {
  if (type != kTypeKana) return type == kTypeE ? key : textOfStored(key);
  std::string kana;
  for (const char c : key) kana += {static_cast<char>(kKanaLead), c};
  return textOfStored(kana);
}

// The word as the engine has it.
std::string filedText(const UserEntry& entry) {
  return storedText(entry.language == UserLanguage::kEnglish ? entry.word : wordAsFiled(entry.word));
}

class Salvage {
 public:
  Salvage(UserLanguage language, const UserPaths& paths)
      : language_(language), paths_(paths), entries_(paths(userFiles(language).back()), kEntriesWindow) {}

  SalvagedEntries run(const UserStamp& stamp, bool fits) {
    if (fits && stamp.entriesEnd == entries_.size()) {
      takeUnreached(stamp);  // no index has been looked at
      return std::move(found_);
    }
    const UserIndex index(paths_(userFiles(language_).front()), type());
    if (!index.sound()) {
      takeAll();
      return std::move(found_);
    }
    const char* const blocks = english() ? "ej.ix3" : "kna.ix3";
    eachRow(blocks, index, [this](std::string_view block, size_t rows, size_t row) {
      starts_.insert(entryOfRow(block, rows, row));
    });
    takeBlocks(blocks, index, type());
    if (!english()) takeWritten();
    if (stamp.known) takeUnreached(stamp);
    return std::move(found_);
  }

 private:
  bool english() const { return language_ == UserLanguage::kEnglish; }
  uint16_t type() const { return english() ? kTypeE : kTypeKana; }

  // Every entry that the file holds, one after the other.
  void takeAll() {
    found_.byFile = true;
    for (uint64_t at = kUserHeader; at < entries_.size();) {
      StoredEntry stored;
      std::string key;
      const size_t length = readText(at, &stored, type(), &key);
      if (length > 0) found_.entries.push_back(std::move(stored.entry));
      if (length == 0) found_.gaps = true;
      const std::string_view rest = entries_.at(at + std::max<size_t>(length, 1), kMaxEntry);
      const size_t next = FindEntryTag(rest, 0);
      if (length > 0 && next != 0 && !rest.empty()) found_.gaps = true;
      at += std::max<size_t>(length, 1) + std::min(next, std::max<size_t>(rest.size(), 1));
    }
  }

  // Entries that are written in kanji have two ways to them. The second is of use where the first is lost.
  void takeWritten() {
    int further = 0;
    for (int number = 0; number <= further; ++number) {
      const UserIndex index(paths_(number == 0 ? "kji.idx" : kanjiIndexName(number)), kTypeKji);
      if (!index.sound()) continue;
      if (number == 0) further = std::min<int>(index.furtherIndexes(), kMostKanjiIndexes);
      takeBlocks("kji.ix3", index, kTypeKji);
    }
  }

  void takeUnreached(const UserStamp& stamp) {
    const auto isKnown = [&](uint64_t at) {
      return stamp.isDead(at) || starts_.contains(at) || seen_.contains(static_cast<uint32_t>(at));
    };
    const std::string file = paths_(userFiles(language_).back());
    for (const uint32_t offset : entriesIn(file, language_, {{kUserHeader, entries_.size()}}, isKnown)) {
      StoredEntry stored;
      std::string key;
      if (readText(offset, &stored, type(), &key) > 0) found_.entries.push_back(std::move(stored.entry));
    }
  }

  template <typename Take>
  void eachRow(const std::string& name, const UserIndex& index, const Take& take) {
    WindowFile blocks(paths_(name));
    for (const UserIndex::Row& row : index.rows()) {
      size_t rows = 0;
      const std::string block(blockAt(&blocks, row.block, &rows));
      for (size_t i = 0; !block.empty() && i < rows; ++i) take(block, rows, i);
    }
  }

  void takeBlocks(const std::string& name, const UserIndex& index, uint16_t type) {
    WindowFile blocks(paths_(name));
    for (const UserIndex::Row& row : index.rows()) {
      size_t rows = 0;
      const std::string block(blockAt(&blocks, row.block, &rows));
      const bool whole = CheckIdx3Data(reinterpret_cast<const uint8_t*>(block.data()), block.size()) == kOk;
      for (size_t i = 0; !block.empty() && i < rows; ++i) takeRow(block, rows, i, row.key, type);
      if (!whole && type != kTypeKji) lose(keyText(row.key, type) + "...");
    }
  }

  void takeRow(std::string_view block, size_t rows, size_t row, const std::string& prefix, uint16_t type) {
    std::string_view remainder;
    const bool named = remainderOfRow(block, rows, row, &remainder);
    const std::string key = prefix + std::string(remainder);
    const uint32_t offset = entryOfRow(block, rows, row);
    std::string own;
    StoredEntry stored;
    const bool first = !seen_.contains(offset);
    const bool readable = readText(offset, &stored, type, &own) > 0;
    if (named && readable && own == key) {
      if (first) found_.entries.push_back(std::move(stored.entry));
      if (!first && type != kTypeKji) lose(keyText(key, type));
      seen_.insert(offset);
    } else if (type != kTypeKji) {
      loseRow(prefix, key, named, own);
    }
  }

  // The row or its entry was changed. Which of them, nothing tells: both are named.
  void loseRow(const std::string& prefix, const std::string& key, bool named, const std::string& own) {
    const bool otherBlock = !own.empty() && !own.starts_with(prefix);
    lose(keyText(named && !otherBlock ? key : prefix, type()) + (named && !otherBlock ? "" : "..."));
    // The same entry under another name.
    const std::string other = own.empty() || otherBlock ? std::string() : keyText(own, type());
    if (!other.empty() && !named_.contains(other)) lose(other);
  }

  // One more entry of the word; of a beginning its name alone.
  void lose(const std::string& word) {
    const auto [known, isNew] = named_.try_emplace(word, found_.lost.size());
    if (isNew) {
      found_.lost.push_back({language_, word, 1});
    } else if (!word.ends_with("...")) {
      ++found_.lost[known->second].entries;
    }
  }

  // Bytes of its text, 0 where none can be read whole; and the key under which it is to be filed.
  size_t readText(uint64_t offset, StoredEntry* stored, uint16_t type, std::string* key) {
    const std::string_view text = entries_.at(offset, kMaxEntry);
    const EntryForm entry = formOfEntry(text, language_);
    if (entry.length == 0 || !readEntryText(text.substr(0, entry.length), language_, stored)) return 0;
    const std::string_view word = type == kTypeKji ? entry.kanji : entry.word;
    if (ChangeMidasi(word, type, key) != kOk || !isFiledUnder(*key, word, type)) return 0;
    const std::string_view next = entries_.at(offset + entry.length, kTagSize);
    const bool ends = next.empty() || beginsEntry(next) || starts_.contains(offset + entry.length);
    return ends ? entry.length : 0;
  }

  UserLanguage language_;
  UserPaths paths_;
  WindowFile entries_;
  std::set<uint64_t> starts_;  // of entries, as the rows have them
  std::set<uint32_t> seen_;
  std::map<std::string, size_t> named_;  // where it stands among the lost
  SalvagedEntries found_;
};

}  // namespace

SalvagedEntries salvageEntries(UserLanguage language, const UserPaths& paths, const UserStamp& stamp,
                               bool fits) {
  return Salvage(language, paths).run(stamp, fits);
}

std::vector<std::string> headwordsOf(const std::vector<UserEntry>& entries) {
  std::string list;
  for (const UserEntry& entry : entries) list += filedText(entry) + '\0';
  std::vector<std::string> words;
  if (list.empty() || RemoveSameMidasi(&list) != kOk) return words;
  for (size_t at = 0; at < list.size(); at = list.find('\0', at) + 1) {
    words.push_back(textOfStored(list.c_str() + at));
  }
  return words;
}

std::string lostText(const SalvagedEntries& entries, bool sure) {
  const std::vector<LostWord>& lost = entries.lost;
  if (entries.byFile && !entries.entries.empty())
    return std::string("entries that you deleted or changed may be among those that can be read") +
           (entries.gaps ? ", and others can't be read" : "");
  if (lost.empty() && entries.entries.empty()) return "";
  if (lost.empty())
    return sure ? "each of them can be read" : "those that can be read may not be all, nor as you left them";
  std::string text;
  for (size_t i = 0; i < std::min(lost.size(), kMostNamed); ++i) {
    text += (i > 0 ? ", \"" : "\"") + lost[i].word + "\"";
    if (lost[i].entries > 1) text += " (" + std::to_string(lost[i].entries) + " entries)";
  }
  if (lost.size() > kMostNamed) text += " and " + std::to_string(lost.size() - kMostNamed) + " others";
  const bool one = lost.size() == 1 && lost[0].entries == 1;
  return (one ? "the entry " : "the entries ") + text + " can't be read";
}

}  // namespace zavel::host
