// Tests: tests/engine/EntryFieldsTest.cpp
#include "engine/EntryFields.h"

#include "engine/DicFormat.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

bool IsTypeTag(uint16_t tag) {
  return tag == kTagBold || tag == kTagRoman;
}

// Bytes of the character at `at`.
size_t CharacterAt(std::string_view text, size_t at) {
  const bool pair = _ismbblead(static_cast<uint8_t>(text[at])) && at + 1 < text.size() &&
                    _ismbclegal(static_cast<uint8_t>(text[at]) * 256u + static_cast<uint8_t>(text[at + 1]));
  return pair ? 2 : 1;
}

}  // namespace

bool EntryFields::tagAt(size_t at, uint16_t* tag) const {
  return at + 1 < text_.size() &&
         IsTag(static_cast<uint8_t>(text_[at]), static_cast<uint8_t>(text_[at + 1]), tag);
}

bool EntryFields::next(EntryField* field) {
  *field = EntryField{};
  uint16_t tag = 0;
  for (; at_ < text_.size(); at_ += CharacterAt(text_, at_)) {
    if (tagAt(at_, &tag) && !IsTypeTag(tag)) break;
  }
  if (at_ >= text_.size()) return false;
  field->tag = tag;
  at_ += 2;
  while (at_ < text_.size() && text_[at_] != '\n') {
    const bool isTag = tagAt(at_, &tag);
    if (isTag && !IsTypeTag(tag)) return true;
    const size_t length = isTag ? 2 : CharacterAt(text_, at_);
    if (!isTag) field->text.append(text_.substr(at_, length));
    at_ += length;
  }
  return true;
}

size_t FindSeparator(std::string_view midasi) {
  for (size_t at = 0; at < midasi.size(); at += CharacterAt(midasi, at)) {
    if (static_cast<uint8_t>(midasi[at]) == kKanjiSeparator) return at;
  }
  return std::string_view::npos;
}

}  // namespace zavel::engine
