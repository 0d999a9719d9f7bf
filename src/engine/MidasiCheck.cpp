// Tests: tests/engine/MidasiCheckTest.cpp
#include "engine/MidasiCheck.h"

#include <cstring>
#include <string_view>

#include "engine/DicFormat.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

constexpr size_t kTextLimit = 65535;  // texts are shorter than this

using CodeTest = bool (*)(unsigned code);

// Non-empty and below the limit; the text in *view.
bool TakeText(const char* text, std::string_view* view) {
  if (text == nullptr) return false;
  *view = std::string_view(text, strnlen(text, kTextLimit));
  return !view->empty() && view->size() < kTextLimit;
}

// Takes the next character, one byte or two. False for a lead byte without its trail or an illegal pair.
bool NextCode(std::string_view text, size_t* at, unsigned* code) {
  const uint8_t lead = static_cast<uint8_t>(text[(*at)++]);
  *code = lead;
  if (!_ismbblead(lead)) return true;
  if (*at == text.size()) return false;
  *code = lead * 256u + static_cast<uint8_t>(text[(*at)++]);
  return _ismbclegal(*code);
}

Status CheckCodes(std::string_view text, CodeTest accepts) {
  unsigned code = 0;
  for (size_t at = 0; at < text.size();) {
    if (!NextCode(text, &at, &code) || !accepts(code)) return kBadArgument;
  }
  return kOk;
}

bool IsMidasiE(unsigned code) {
  return _isalpha(code) || (code > 0 && code < 0x80 && std::strchr(" &',-./_", static_cast<char>(code)));
}

bool IsMidasiJ(unsigned code) {
  return _ismbchira(code) || _ismbckata(code) || code == kLongSound || code == kFullMinus ||
         code == kEllipsis;
}

bool IsMidasiK(unsigned code) {
  return IsMidasiJ(code) || _ismbcl1(code) || _ismbcl2(code);
}

bool IsMix(unsigned code) {
  return code > 0xFF ? _ismbcprint(code) : _isprint(code) != 0;
}

// One shape for the three kinds of examples.
template <typename Pair>
Status ChkPairs(uint16_t count, Pair* const* pairs) {
  if (count == 0) return kOk;
  if (pairs == nullptr) return kBadArgument;
  for (uint16_t i = 0; i < count; ++i) {
    if (pairs[i] == nullptr || Chk1ByteStr(pairs[i]->eng) != kOk) return kBadArgument;
    if (ChkMixStr(pairs[i]->jpn) != kOk) return kBadArgument;
  }
  return kOk;
}

}  // namespace

Status ChkMidasiStrE(const char* word) {
  std::string_view text;
  return TakeText(word, &text) ? CheckCodes(text, IsMidasiE) : kBadArgument;
}

Status ChkMidasiStrJ(const char* word) {
  if (word == nullptr || *word == 0) return kBadArgument;
  return CheckCodes(word, IsMidasiJ);
}

Status ChkMidasiStrK(const char* word) {
  if (word == nullptr) return kOk;
  return *word == 0 ? kBadArgument : CheckCodes(word, IsMidasiK);
}

Status ChkMixStr(const char* text) {
  std::string_view view;
  return TakeText(text, &view) ? CheckCodes(view, IsMix) : kBadArgument;
}

Status Chk1ByteStr(const char* text) {
  std::string_view view;
  return TakeText(text, &view) ? CheckCodes(view, [](unsigned code) { return _isprint(code) != 0; })
                               : kBadArgument;
}

Status ChkYurei(uint16_t count, yourei* const* pairs) {
  return ChkPairs(count, pairs);
}
Status ChkKurei(uint16_t count, kurei* const* pairs) {
  return ChkPairs(count, pairs);
}
Status ChkBunrei(uint16_t count, bunrei* const* pairs) {
  return ChkPairs(count, pairs);
}

Status CheckInput(const char* word, uint16_t type) {
  if (word == nullptr) return kBadArgument;
  if (type == kTypeE) return CheckCodes(word, [](unsigned code) { return code <= 0xFF; });
  if (type != kTypeKana && type != kTypeKji) return kBadArgument;
  return CheckCodes(word, [](unsigned code) { return code > 0xFF; });
}

}  // namespace zavel::engine
