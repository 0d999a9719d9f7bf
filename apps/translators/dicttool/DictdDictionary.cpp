// Tests: tests/translators/DictdDictionaryTest.cpp
#include "dicttool/DictdDictionary.h"

#include <algorithm>
#include <set>
#include <utility>

#include "dicttool/EdictCodes.h"
#include "foundation/Storage.h"
#include "foundation/Utf8.h"

namespace zavel::dicttool {
namespace {

constexpr std::string_view kIndex = ".index", kText = ".dict", kPackedText = ".dict.dz";
constexpr size_t kMostText = 16384;    // bytes of an entry that are read; a line of the answer shows far less
constexpr size_t kMostCounted = 9999;  // entries of one word that are counted

std::string withoutEnd(const std::string& path, std::string_view end) {
  return path.substr(0, path.size() - end.size());
}

// "/a.b/c.dic" gives "/a.b/c"; empty when the name has no extension.
std::string withoutExtension(const std::string& path) {
  const size_t name = path.rfind('/') + 1;  // 0 without any
  const size_t dot = path.rfind('.');
  return dot == std::string::npos || dot <= name ? std::string() : path.substr(0, dot);
}

// A mail-like header, up to the first empty line, that some dictionaries give each entry.
std::string_view withoutMimeHeader(std::string_view text) {
  const size_t end = text.find("\n\n");
  if (text.starts_with('\n')) return text.substr(1);
  return end == std::string_view::npos ? text : text.substr(end + 2);
}

}  // namespace

std::optional<std::string> DictdDictionary::indexOf(const std::string& path) {
  if (path.ends_with(kIndex)) return path;
  for (const std::string_view end : {kPackedText, kText}) {
    if (path.ends_with(end)) return withoutEnd(path, end) + std::string(kIndex);
  }
  for (const std::string& base : {path, withoutExtension(path)}) {
    const std::string index = base + std::string(kIndex);
    if (!base.empty() && storage().exists(index)) return index;
  }
  return std::nullopt;
}

bool DictdDictionary::open(const std::string& indexPath, std::string* error) {
  if (!index_.open(indexPath, error)) return false;
  if (index_.hasOption("virtual") || index_.hasOption("plugin")) {
    *error = indexPath + " has no words of its own, it only refers to other dictionaries; use those instead";
    return false;
  }
  const std::string base = withoutEnd(indexPath, kIndex);
  const std::string plain = base + std::string(kText), packed = base + std::string(kPackedText);
  if (!text_.open(!storage().exists(plain) && storage().exists(packed) ? packed : plain, error)) return false;
  if (text_.indexSize().value_or(index_.size()) == index_.size()) return true;
  *error = indexPath + " is damaged: it has not the size that its text tells";
  return false;
}

bool DictdDictionary::find(std::string_view word, size_t most, DictdMatches* matches, std::string* error) {
  *matches = {};
  bool sound = true;
  std::set<std::pair<uint64_t, uint64_t>> seen;
  const bool read = index_.find(
      word,
      [&](const IndexLine& line) {
        if (!seen.insert({line.offset, line.length}).second) return true;
        if (matches->entries.size() >= most) return ++matches->more < kMostCounted;
        return sound = addEntry(line, matches, error);
      },
      error);
  return read && sound;
}

bool DictdDictionary::tellNames(bool* ofNames, std::string* error) {
  DictdMatches matches;
  if (!find("00-database-info", 1, &matches, error)) return false;
  *ofNames = !matches.entries.empty() && matches.entries.front().text.find(kNamesTitle) != std::string::npos;
  return true;
}

bool DictdDictionary::addEntry(const IndexLine& line, DictdMatches* matches, std::string* error) {
  std::string text;
  const size_t length = static_cast<size_t>(std::min<uint64_t>(line.length, kMostText));
  if (!text_.read(line.offset, length, &text, error)) return false;
  const bool whole = length == line.length;
  if (text.find('\0') != std::string::npos || (whole && index_.hasOption("utf8") && !isValidUtf8(text))) {
    *error = text_.path() + " is damaged: what stands at " + std::to_string(line.offset) + " is no text";
    return false;
  }
  std::string_view shown = text;
  if (index_.hasOption("mimeheader")) shown = withoutMimeHeader(shown);
  matches->entries.push_back({replaceInvalidUtf8(line.spelling), replaceInvalidUtf8(shown)});
  return true;
}

}  // namespace zavel::dicttool
