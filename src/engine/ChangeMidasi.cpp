// Tests: tests/engine/ChangeMidasiTest.cpp
#include "engine/ChangeMidasi.h"

#include "engine/DicFormat.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

// Characters of the output that a first-level index sees.
constexpr size_t kPrefixCharacters = 2;

bool Vanishes(unsigned code) {
  return code == kLongSound || code == kFullMinus || code == kEllipsis;
}

// ヴ ヵ ヶ and the voiced u of hiragana stand with their plain sisters in the tables.
unsigned PlainKana(unsigned code) {
  switch (code) {
    case 0x8394:
    case 0x8868:
      return 0x82A4;  // う
    case 0x8395:
      return 0x82A9;  // か
    case 0x8396:
      return 0x82AF;  // け
    default:
      return code;
  }
}

}  // namespace

std::string ChangeMidasiStrE(std::string_view word) {
  constexpr std::string_view kDropped = " ',-./_";
  std::string key;
  key.reserve(word.size());
  for (const char c : word) {
    if (c == '&') {
      key += "and";
    } else if (c >= 'A' && c <= 'Z') {
      key += static_cast<char>(c - 'A' + 'a');
    } else if (kDropped.find(c) == std::string_view::npos) {
      key += c;
    }
  }
  return key;
}

Status ChangeMidasiStrJ(std::string_view word, bool kanji, std::string* key) {
  key->clear();
  size_t characters = 0;
  for (size_t i = 0; i < word.size(); i += 2) {
    const uint8_t lead = static_cast<uint8_t>(word[i]);
    if (!_ismbblead(lead) || i + 1 == word.size()) return kBadArgument;
    unsigned code = lead * 256u + static_cast<uint8_t>(word[i + 1]);
    if (Vanishes(code)) continue;
    if (characters++ < kPrefixCharacters) code = PlainKana(code);
    // kept: behind the prefix ヴ ヵ ヶ stay as they are, see docs/quirks.md
    code = _mbctohira(code);
    if (kanji) key->push_back(static_cast<char>(HIBYTE(code)));
    key->push_back(static_cast<char>(LOBYTE(code)));
  }
  return kOk;
}

Status ChangeMidasi(std::string_view word, uint16_t indexType, std::string* key) {
  switch (indexType) {
    case kTypeE:
    case kTypeHase:
    case kTypeKatu:
      *key = ChangeMidasiStrE(word);
      return kOk;
    case kTypeKana:
      return ChangeMidasiStrJ(word, false, key);
    case kTypeKji:
      return ChangeMidasiStrJ(word, true, key);
    default:
      return kBadArgument;
  }
}

}  // namespace zavel::engine
