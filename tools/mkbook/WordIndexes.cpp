// Tests: tests/mkbook/WordIndexesTest.cpp
#include "mkbook/WordIndexes.h"

#include <string>

#include "book/BookFormat.h"
#include "foundation/StringType.h"
#include "mkbook/BookFolder.h"

namespace zavel::mkbook {
namespace {

using namespace book;
using foundation::GFnGetStringType;

// Places in the list: of each method the index for kana, the one for letters, the general one.
enum Method : size_t { kExact = 0, kForward = 3, kBackward = 6, kKeywords = 9, kCross = 10 };
constexpr size_t kClasses = 3;
constexpr size_t kGeneral = 2;

constexpr struct {
  uint16_t kind;
  const char* name;
} kIndexes[] = {{kKindExactKana, kExactKanaFile},
                {kKindExactAlphabetic, kExactLettersFile},
                {kKindExact, kExactFile},
                {kKindForwardKana, kForwardKanaFile},
                {kKindForwardAlphabetic, kForwardLettersFile},
                {kKindForward, kForwardFile},
                {kKindBackwardKana, kBackwardKanaFile},
                {kKindBackwardAlphabetic, kBackwardLettersFile},
                {kKindBackward, kBackwardFile},
                {kKindKeyword, kKeywordFile},
                {kKindCross, kCrossFile}};

// The index that a key of this type is looked for in, as a bit.
unsigned classOf(int type) {
  if (type == foundation::kStringNone) return 0;
  if (type == foundation::kStringKana) return 1;
  return type == foundation::kStringAlphabetic ? 2 : 1u << kGeneral;
}

int typeOf(std::string_view codes) {
  return GFnGetStringType(std::string(codes).c_str());
}

// Of all beginnings, or ends, of a word. Only a character of another type than the last one changes what they
// are.
unsigned classesOfParts(std::string_view codes, bool ends) {
  unsigned classes = 0;
  int last = foundation::kStringNone;
  for (size_t length = 2; length <= codes.size(); length += 2) {
    const size_t at = ends ? codes.size() - length : 0;
    const int type = typeOf(codes.substr(ends ? at : length - 2, 2));
    if (type == foundation::kStringNone || type == last) continue;
    last = type;
    classes |= classOf(typeOf(codes.substr(at, length)));
  }
  return classes;
}

std::string turned(const std::string& codes) {
  std::string out;
  for (size_t at = codes.size(); at >= 2; at -= 2) out += codes.substr(at - 2, 2);
  return out;
}

}  // namespace

WordIndexes::WordIndexes() {
  for (const auto& [kind, name] : kIndexes) entries_.push_back({IndexBuilder(kind), name});
}

bool WordIndexes::addTo(size_t method, unsigned classes, std::string_view word, const _SDICADDRESS& address) {
  bool added = false;
  for (size_t i = 0; i < kClasses; ++i)
    if ((classes >> i & 1) != 0) added |= entries_[method + i].index.add(word, address, address);
  return added;
}

// A word is asked for as it is spelled, and without the signs that no key holds.
bool WordIndexes::add(std::string_view word, const _SDICADDRESS& address) {
  const std::string spelled = IndexBuilder::queryOf(kKindExact, word);
  const std::string bare = IndexBuilder::keyOf(kKindExact, kPlainKeys, word);
  if (bare.empty()) return false;
  unsigned whole = 0, beginnings = 0, ends = 0;
  for (const std::string& form : {spelled, bare}) {
    whole |= classOf(typeOf(form));
    beginnings |= classesOfParts(form, false);
  }
  // The end of a long word is none of its beginning; keys of ends are turned round.
  const std::string spelledEnd = IndexBuilder::queryOf(kKindBackward, word);
  const std::string bareEnd = turned(IndexBuilder::keyOf(kKindBackward, kPlainKeys, word));
  for (const std::string& form : {spelledEnd, bareEnd}) ends |= classesOfParts(form, true);
  addTo(kForward, beginnings, word, address);
  addTo(kBackward, ends, word, address);
  return addTo(kExact, whole, word, address);
}

bool WordIndexes::addKeyword(std::string_view word, const _SDICADDRESS& address) {
  return entries_[kKeywords].index.add(word, address, address);
}

bool WordIndexes::addCross(std::string_view word, const _SDICADDRESS& address) {
  return entries_[kCross].index.add(word, address, address);
}

void WordIndexes::settle() {
  for (Entry& entry : entries_) entry.index.settle();
}

std::vector<WordIndexes::File> WordIndexes::files() const {
  std::vector<File> out;
  for (size_t i = 0; i < entries_.size(); ++i) {
    const bool general = i < kKeywords && i % kClasses == kGeneral;
    if (general || entries_[i].index.size() > 0) out.push_back({&entries_[i].index, entries_[i].name});
  }
  return out;
}

size_t WordIndexes::words() const {
  size_t words = 0;
  for (size_t i = 0; i < kClasses; ++i) words += entries_[kExact + i].index.size();
  return words;
}

size_t WordIndexes::keywords() const {
  return entries_[kKeywords].index.size();
}

size_t WordIndexes::crossWords() const {
  return entries_[kCross].index.size();
}

}  // namespace zavel::mkbook
