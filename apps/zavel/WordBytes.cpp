// Tests: tests/zavel/LookTest.cpp
#include "WordBytes.h"

#include <algorithm>
#include <utility>

#include "Utf8.h"
#include "engine/ChangeMidasi.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

// Most English words are ASCII, which is the same in both encodings.
bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

}  // namespace

std::optional<std::string> wordBytes(const std::string& utf8) {
  if (isAscii(utf8)) return utf8;
  const std::optional<SjisBytes> bytes = platform().encoding().toSjisStrict(utf8);
  if (!bytes) return std::nullopt;
  return bytes->bytes();
}

std::string shownText(std::string sjis) {
  std::replace(sjis.begin(), sjis.end(), '\r', '\n');
  if (isAscii(sjis)) return withoutControls(std::move(sjis));
  return withoutControls(platform().encoding().fromSjisLossy(sjis));
}

bool isEnglishWord(const std::string& sjis) {
  const unsigned char first = sjis.empty() ? 0 : static_cast<unsigned char>(sjis[0]);
  const bool lead = (first >= 0x81 && first <= 0x9F) || (first >= 0xE0 && first <= 0xFC);
  return !lead;
}

std::string englishKey(const std::string& sjis) {
  return engine::ChangeMidasiStrE(sjis);
}

std::string englishKeyOf(const std::string& utf8) {
  return englishKey(isAscii(utf8) ? utf8 : platform().encoding().toSjisLossy(utf8).bytes());
}

}  // namespace zavel::host
