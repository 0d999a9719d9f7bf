// Tests: tests/zavel/user/UserDamageTest.cpp
#include "user/UserSalvage.h"

#include <algorithm>
#include <set>

#include "QueryText.h"
#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/ListUserDic.h"
#include "foundation/ByteReader.h"
#include "user/UserRecords.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr unsigned char kKanaLead = 0x82;  // what keys leave out of each kana
constexpr size_t kMostNamed = 5;

// A key as readers write it.
std::string keyText(const std::string& key, UserLanguage language) {
  if (language == UserLanguage::kEnglish) return key;
  std::string kana;
  for (const char c : key) kana += {static_cast<char>(kKanaLead), c};
  return textOfStored(kana);
}

// The remainder of the key in a row of a block; false where the block has none there.
bool remainderOf(std::string_view block, size_t rows, size_t row, std::string* remainder) {
  const auto* data = reinterpret_cast<const uint8_t*>(block.data());
  const size_t start = kIx3Head + 2 * rows, end = block.size() - 4 * rows;
  const size_t at = start + readLE16(data + kIx3Head + 2 * row) + 2;
  if (at >= end) return false;
  const std::string_view text = block.substr(at, end - at);
  *remainder = text.substr(0, text.find('\0'));
  return text.find('\0') != std::string_view::npos;
}

// The word as the engine has it.
std::string filedText(const UserEntry& entry) {
  return storedText(entry.language == UserLanguage::kEnglish ? entry.word : wordAsFiled(entry.word));
}

class Salvage {
 public:
  Salvage(UserLanguage language, const UserPaths& paths)
      : language_(language),
        index_(paths(userFiles(language).front()), type()),
        blocks_(paths(english() ? "ej.ix3" : "kna.ix3")),
        entries_(paths(userFiles(language).back())) {}

  SalvagedEntries run() {
    if (!index_.sound()) takeAll();
    for (const UserIndex::Row& row : index_.rows()) takeBlock(row);
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
      const size_t length = readText(at, &stored);
      if (length > 0) found_.entries.push_back(std::move(stored.entry));
      const std::string_view rest = entries_.at(at + std::max<size_t>(length, 1), kMaxEntry);
      const size_t next = FindEntryTag(rest, 0);
      at += std::max<size_t>(length, 1) + std::min(next, std::max<size_t>(rest.size(), 1));
    }
  }

  void takeBlock(const UserIndex::Row& row) {
    size_t rows = 0;
    const std::string block(blockAt(&blocks_, row.block, &rows));
    if (block.empty()) found_.lost.push_back(keyText(row.key, language_) + "...");
    for (size_t i = 0; !block.empty() && i < rows; ++i) {
      std::string remainder;
      const bool named = remainderOf(block, rows, i, &remainder);
      StoredEntry stored;
      const uint32_t offset = entryOfRow(block, rows, i);
      if (!seen_.insert(offset).second) continue;
      if (named && readEntry(offset, row.key + remainder, &stored)) {
        found_.entries.push_back(std::move(stored.entry));
      } else {
        found_.lost.push_back(keyText(row.key + remainder, language_) + (named ? "" : "..."));
      }
    }
  }

  // As the engine reads it. Bytes of its text, 0 where none can be read.
  size_t readText(uint64_t offset, StoredEntry* stored) {
    std::string text(entries_.at(offset, kMaxEntry));
    if (FindEntryTag(text, 0) != 0) return 0;
    text.resize(std::min(text.size(), EntryLength(text)));
    text.resize(entryEnd(text));
    std::replace(text.begin(), text.end(), '\0', ' ');
    return readEntryText(text, language_, stored) ? text.size() : 0;
  }

  // One that is filed where it belongs.
  bool readEntry(uint32_t offset, const std::string& key, StoredEntry* stored) {
    if (readText(offset, stored) == 0) return false;
    std::string own;
    return ChangeMidasi(filedText(stored->entry), type(), &own) == kOk && own == key;
  }

  UserLanguage language_;
  UserIndex index_;
  WindowFile blocks_, entries_;
  std::set<uint32_t> seen_;
  SalvagedEntries found_;
};

}  // namespace

SalvagedEntries salvageEntries(UserLanguage language, const UserPaths& paths) {
  return Salvage(language, paths).run();
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

std::string lostText(const SalvagedEntries& entries) {
  const std::vector<std::string>& lost = entries.lost;
  if (entries.byFile && !entries.entries.empty())
    return "entries that you deleted or changed may be among those that can be read";
  if (lost.empty()) return entries.entries.empty() ? "" : "each of them can be read";
  std::string text;
  for (size_t i = 0; i < std::min(lost.size(), kMostNamed); ++i)
    text += (i > 0 ? ", \"" : "\"") + lost[i] + "\"";
  if (lost.size() > kMostNamed) text += " and " + std::to_string(lost.size() - kMostNamed) + " others";
  return (lost.size() == 1 ? "the entry " : "the entries ") + text + " can't be read";
}

}  // namespace zavel::host
