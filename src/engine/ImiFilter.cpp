// A section begins at a start tag, which is copied, and lasts until a tag that ends it, which is not.
//
//   English  begins at   ends at
//   3        D3 D4       D0 D1 D2 D5 D6 D7 D8 D9 E3 E4 E5 E7
//   4        D6 E4       D0 to D5 D7 D8 D9 E3 E5 E7
//   5        D5 D8 E5    D0 to D4 D6 D7 D9 E3 E4 E7
//
// The text is scanned byte by byte, so the second byte of a kanji can look like the first of a tag.
// Tests: tests/engine/ImiFilterTest.cpp
#include "engine/ImiFilter.h"

#include <initializer_list>
#include <string_view>

#include "engine/DicFormat.h"

namespace zavel::engine {
namespace {

// Tags 0xF5D0 to 0xF5E9, one bit each.
constexpr uint16_t kFirstTag = 0xF5D0;
constexpr uint16_t kLastTag = 0xF5E9;

class TagSet {
 public:
  constexpr TagSet(std::initializer_list<uint16_t> tags) {
    for (const uint16_t tag : tags) bits_ |= uint32_t{1} << (tag - kFirstTag);
  }
  constexpr bool has(uint16_t tag) const {
    return tag >= kFirstTag && tag <= kLastTag && (bits_ >> (tag - kFirstTag) & 1) != 0;
  }

 private:
  uint32_t bits_ = 0;
};

struct SectionTags {
  TagSet starts;
  TagSet ends;
};

constexpr SectionTags kImiTags = {
    {0xF5D3, 0xF5D4},
    {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D5, 0xF5D6, 0xF5D7, 0xF5D8, 0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7}};
constexpr SectionTags kPhraseTags = {
    {0xF5D6, 0xF5E4},
    {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D5, 0xF5D7, 0xF5D8, 0xF5D9, 0xF5E3, 0xF5E5, 0xF5E7}};
constexpr SectionTags kYoureiTags = {
    {0xF5D5, 0xF5D8, 0xF5E5},
    {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D6, 0xF5D7, 0xF5D9, 0xF5E3, 0xF5E4, 0xF5E7}};

// Of kurei and bunrei sections; 0xF5A7 ends them too.
constexpr TagSet kEndsJ = {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D4, 0xF5D5, 0xF5D6, 0xF5D7,
                           0xF5D9, 0xF5E3, 0xF5E4, 0xF5E5, 0xF5E7, 0xF5E8, 0xF5E9};

constexpr std::string_view kReferenceMark = "\x81\x73\x81\x9A";  // "《★", which ends a section too

const SectionTags& TagsOf(uint8_t filter) {
  if (filter == kFilterImi) return kImiTags;
  return filter == kFilterPhrase ? kPhraseTags : kYoureiTags;
}

// The tag at `at`, 0 for none.
uint16_t TagAt(std::string_view text, size_t at) {
  uint16_t tag = 0;
  const bool two = text.size() - at >= 2;
  return two && IsTag(static_cast<uint8_t>(text[at]), static_cast<uint8_t>(text[at + 1]), &tag) ? tag : 0;
}

}  // namespace

bool IsImiFilter(uint8_t filter) {
  return filter == kFilterNone || (filter >= kFilterImi && filter <= kFilterYourei);
}

void ImiFilter(uint8_t filter, std::string* block) {
  const SectionTags& tags = TagsOf(filter);
  const std::string_view text = *block;
  std::string kept;
  bool inside = false;
  for (size_t at = 0; at < text.size();) {
    const uint16_t tag = TagAt(text, at);
    size_t step = tag != 0 ? 2 : 1;
    const bool marked = inside && text.substr(at).starts_with(kReferenceMark);
    if (marked) step = kReferenceMark.size();
    inside = inside ? !marked && !tags.ends.has(tag) : tags.starts.has(tag);
    if (inside) kept.append(text, at, step);
    at += step;
  }
  *block = std::move(kept);
}

void ImiFilterJ(uint8_t filter, std::string* block) {
  if (filter == kFilterImi) return ImiFilter(filter, block);
  const uint16_t start = filter == kFilterPhrase ? kTagYourei : kTagPhrase;
  const std::string_view text = *block;
  std::string kept;
  bool inside = false;
  int otherSides = 0;  // in this section; the second one ends it
  for (size_t at = 0; at < text.size();) {
    const uint16_t tag = TagAt(text, at);
    const size_t step = tag != 0 ? 2 : 1;
    if (tag == start) {
      inside = true;  // the next phrase of the list begins
      otherSides = 0;
    } else if (tag == kTagIgnore || kEndsJ.has(tag) || (tag == kTagOtherSide && ++otherSides == 2)) {
      inside = false;
    }
    if (inside) kept.append(text, at, step);
    at += step;
  }
  *block = std::move(kept);
}

}  // namespace zavel::engine
