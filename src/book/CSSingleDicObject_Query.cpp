// The language of queries: keys combined with and, or and groups. Tests: tests/book/QueryTest.cpp
#include <array>
#include <cstring>
#include <optional>

#include "book/BookFormat.h"
#include "book/CSSingleDicObject.h"
#include "book/ItemAddress.h"
#include "book/JisCode.h"

namespace zavel::book {
namespace {

using foundation::_avltree;

constexpr int kDeepestGroup = 200;

struct Copying {
  enum Which { kAll, kInOther, kNotInOther };

  _avltree* other;
  Which which;
  _avltree** result;
  bool outOfMemory = false;

  bool wants(const _SDICITEMADDRESS& hit) const {
    if (which == kAll) return true;
    return (foundation::avlt_find(other, &hit, GFnCompareBodyAddress) != nullptr) == (which == kInOther);
  }
};

void copyItem(void* item, void* argument) {
  Copying& copying = *static_cast<Copying*>(argument);
  const _SDICITEMADDRESS& hit = *static_cast<const _SDICITEMADDRESS*>(item);
  if (!copying.outOfMemory && copying.wants(hit)) copying.outOfMemory = !addHit(copying.result, hit);
}

bool copyItems(_avltree* from, _avltree* other, Copying::Which which, _avltree** result) {
  Copying copying = {other, which, result};
  foundation::avlt_output_data(from, &copying, copyItem);
  return !copying.outOfMemory;
}

}  // namespace

BookStatus CSSingleDicObject::Fp_CompositeTree(_avltree* first, _avltree* second, bool intersect,
                                               _avltree** result) {
  HitTree both;
  const bool copied = intersect ? copyItems(first, second, Copying::kInOther, both.address())
                                : copyItems(first, second, Copying::kAll, both.address()) &&
                                      copyItems(second, first, Copying::kNotInOther, both.address());
  if (!copied) return kOutOfMemory;
  *result = both.release();
  return kDone;
}

// What is known at one level of groups while the query is read.
struct CSSingleDicObject::QueryLevel {
  QueryLevel(CSSingleDicObject* object, const char* text, int level)
      : book(object), cursor(text), depth(level) {}

  enum class Next { kGoOn, kFinished, kEmpty };

  CSSingleDicObject* book;  // borrowed
  const char* cursor;
  int depth;
  std::array<char, 128> key{};  // cleared once, so that a key ahead of a group runs again behind it
  size_t length = 0;
  bool hasKey = false;
  HitTree accumulated;
  bool intersect = false;
  int entries = 0;
  _SDICITEMADDRESS firstHit{};

  bool has(size_t bytes) const { return ::strnlen(cursor, bytes) == bytes; }

  // Keys longer than the buffer lose their end.
  void append(size_t bytes) {
    if (length + bytes < key.size()) {
      std::memcpy(key.data() + length, cursor, bytes);
      length += bytes;
      key[length] = '\0';
    }
    cursor += bytes;
  }

  BookStatus beginKey(size_t bytes) {
    if (hasKey || !has(bytes)) return kBadKey;
    length = 0;
    append(bytes);
    hasKey = true;
    return kDone;
  }

  BookStatus selectMulti() {
    if (!has(4)) return kBadKey;
    const uint16_t number = static_cast<uint16_t>(codeAt(cursor + 2) - kTokenZero);
    if (number >= book->m_multiCount) return kBadKey;
    book->m_multiSelected = static_cast<int16_t>(number);
    cursor += 4;
    intersect = true;
    return kDone;
  }

  BookStatus runKey(HitTree* found, _SDICITEMADDRESS* first) {
    _avltree* tree = nullptr;
    const BookStatus status = book->Fp_SearchSingleKey(key.data(), &tree, first);
    found->reset(tree);
    return status;
  }

  // The first hit stays as long as it is among the hits.
  void keepFirstHit(const _SDICITEMADDRESS& newest) {
    if (!accumulated.holds(firstHit) && accumulated.holds(newest)) firstHit = newest;
  }

  BookStatus combine(const HitTree& found, const _SDICITEMADDRESS& first) {
    _avltree* both = nullptr;
    if (const BookStatus status = Fp_CompositeTree(accumulated.get(), found.get(), intersect, &both))
      return status;
    accumulated.reset(both);
    keepFirstHit(first);
    return kDone;
  }

  void take(HitTree* found, const _SDICITEMADDRESS& first) {
    accumulated.reset(found->release());
    keepFirstHit(first);
  }

  // ▼ behind a key: the key is searched, and the same ▼ is looked at again.
  BookStatus endField(Next* next) {
    HitTree found;
    _SDICITEMADDRESS first{};
    if (const BookStatus status = runKey(&found, &first)) return status;
    if (entries > 0) {
      if (const BookStatus status = combine(found, first)) return status;
    } else {
      take(&found, first);
    }
    hasKey = false;
    ++entries;
    if (accumulated.empty()) *next = Next::kEmpty;
    return kDone;
  }

  BookStatus field(Next* next) { return hasKey ? endField(next) : beginKey(4); }

  BookStatus group(Next* next) {
    if (hasKey) return kBadKey;
    cursor += 2;
    HitTree found;
    _SDICITEMADDRESS first{};
    if (const BookStatus status = book->Fp_ParseAndSearch(&cursor, found.address(), &first, depth + 1))
      return status;
    if (const BookStatus status = combine(found, first)) return status;
    hasKey = true;
    if (accumulated.empty()) *next = Next::kEmpty;
    return kDone;
  }

  // kept: the buffer isn't cleared at a group, and its key runs again behind it (docs/quirks.md)
  BookStatus endKey(Next* next) {
    if (key[0] == '\0') return kDone;
    HitTree found;
    _SDICITEMADDRESS first{};
    if (const BookStatus status = runKey(&found, &first)) return status;
    if (accumulated.empty()) {
      take(&found, first);  // also when it found nothing: the query is well formed
      return kDone;
    }
    if (const BookStatus status = combine(found, first)) return status;
    if (accumulated.empty()) *next = Next::kEmpty;
    return kDone;
  }

  BookStatus endOperand(uint16_t token, Next* next) {
    if (!hasKey) return kBadKey;
    if (token != 0) cursor += 2;
    if (const BookStatus status = endKey(next); status != kDone || *next == Next::kEmpty) return status;
    if (token == 0 || token == kTokenClose) {
      *next = Next::kFinished;
      return kDone;
    }
    intersect = token == kTokenAnd;
    hasKey = false;
    return kDone;
  }

  BookStatus character() {
    if (!hasKey) return kBadKey;
    append(2);
    return kDone;
  }

  BookStatus step(Next* next) {
    if (*cursor != '\0' && !has(2)) return kBadKey;
    const uint16_t token = *cursor == '\0' ? 0 : codeAt(cursor);
    if (token >= kTokenExact && token <= kTokenKeyword) return beginKey(2);
    switch (token) {
      case kTokenMulti:
        return selectMulti();
      case kTokenField:
        return field(next);
      case kTokenOpen:
        return group(next);
      case 0:
      case kTokenAnd:
      case kTokenOr:
      case kTokenClose:
        return endOperand(token, next);
      default:
        return character();
    }
  }
};

BookStatus CSSingleDicObject::Fp_ParseAndSearch(const char** cursor, _avltree** tree,
                                                _SDICITEMADDRESS* firstHit, int depth) {
  *tree = nullptr;
  if (depth > kDeepestGroup) return kBadKey;
  QueryLevel level(this, *cursor, depth);
  QueryLevel::Next next = QueryLevel::Next::kGoOn;
  while (next == QueryLevel::Next::kGoOn) {
    if (const BookStatus status = level.step(&next)) return status;
  }
  if (next == QueryLevel::Next::kEmpty) return kDone;
  *cursor = level.cursor;
  *tree = level.accumulated.release();
  *firstHit = level.firstHit;
  return kDone;
}

}  // namespace zavel::book
