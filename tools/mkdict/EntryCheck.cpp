// Tests: tests/mkdict/VerifyTest.cpp.
#include "mkdict/EntryCheck.h"

#include <algorithm>
#include <cstdio>

#include "engine/DicFormat.h"

namespace zavel::mkdict {
namespace {

constexpr std::string_view kEntryTag = "\xF5\xD1";
constexpr std::string_view kMeaningTag = "\xF5\xD4", kPhraseTag = "\xF5\xE4";
constexpr std::string_view kOpenSound = "\x81\x85", kCloseSound = "\x81\x86";  // ≦ ≧
constexpr std::string_view kOpenNote = "\x81\x73";                             // 《

bool isLead(uint8_t c) {
  return (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC);
}
bool isTrail(uint8_t c) {
  return c >= 0x40 && c <= 0xFC && c != 0x7F;
}
bool isTagLead(uint8_t c) {
  return c == 0xF4 || c == 0xF5;
}

std::string hex(unsigned value) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%02X", value);
  return text;
}

// The headword line behind the entry tag.
std::string_view headLine(std::string_view entry) {
  entry.remove_prefix(std::min(entry.size(), kEntryTag.size()));
  return entry.substr(0, entry.find('\n'));
}

}  // namespace

void EntryCheck::run() {
  for (size_t at = dic_.find(kEntryTag); at != std::string_view::npos; at = dic_.find(kEntryTag, at + 2)) {
    starts_.push_back(static_cast<uint32_t>(at));
  }
  reached_.assign(starts_.size(), false);
  if (!dic_.empty() && (starts_.empty() || starts_[0] != 0)) {
    faults_->add(name_, 0, "the file does not begin with an entry");
  }
  for (size_t i = 0; i < starts_.size(); ++i) {
    checkText(starts_[i], i + 1 < starts_.size() ? starts_[i + 1] : dic_.size());
  }
}

void EntryCheck::checkText(size_t begin, size_t end) {
  if (end - begin >= engine::kMaxEntry) {
    faults_->add(name_, begin, "entry of " + std::to_string(end - begin) + " bytes, more than 65534");
    return;
  }
  if (dic_[end - 1] != '\n') faults_->add(name_, begin, "the entry's last line does not end");
  const std::string_view text = dic_.substr(begin, end - begin);
  const bool meaning =
      text.find(kMeaningTag) != std::string_view::npos || text.find(kPhraseTag) != std::string_view::npos;
  if (!meaning) faults_->add(name_, begin, "an entry without a meaning");
  bool head = true;
  for (size_t at = begin; at < end;) {
    if (dic_[at] == '\n') head = false;
    if (head && dic_.substr(at, 2) == kOpenSound) {
      at = behindSound(at, end);
      if (at == 0) return;
      continue;
    }
    const size_t length = checkCharacter(at, end, head);
    if (length == 0) return;
    at += length;
  }
}

// A pronunciation is written in bytes of its own. The offset behind it; 0 after a fault.
size_t EntryCheck::behindSound(size_t at, size_t end) {
  const size_t close = dic_.find(kCloseSound, at + kOpenSound.size());
  if (close < std::min(end, dic_.find('\n', at))) return close + kCloseSound.size();
  faults_->add(name_, at, "a pronunciation that does not end");
  return 0;
}

// Bytes of the character or tag at `at`; 0 after a fault.
size_t EntryCheck::checkCharacter(size_t at, size_t end, bool headLine) {
  const auto byte = static_cast<uint8_t>(dic_[at]);
  const uint8_t next = at + 1 < end ? static_cast<uint8_t>(dic_[at + 1]) : 0;
  if (isTagLead(byte)) {
    uint16_t tag = 0;
    if (engine::IsTag(byte, next, &tag)) return 2;
    faults_->add(name_, at, hex(static_cast<unsigned>(byte << 8 | next)) + " is no tag");
    return 0;
  }
  if (isLead(byte)) {
    if (isTrail(next)) return 2;
    faults_->add(name_, at, "half a character");
    return 0;
  }
  const bool marks = headLine && (byte == engine::kKanjiSeparator || byte == engine::kSyllableMark ||
                                  byte == engine::kShortLong);
  if ((byte >= 0x20 && byte < 0x7F) || byte == '\n' || marks) return 1;
  faults_->add(name_, at, "the byte " + hex(byte) + " has no place here");
  return 0;
}

const char* EntryCheck::reach(uint32_t offset) {
  const auto at = std::lower_bound(starts_.begin(), starts_.end(), offset);
  if (at == starts_.end() || *at != offset) return "no entry begins there";
  reached_[static_cast<size_t>(at - starts_.begin())] = true;
  return nullptr;
}

void EntryCheck::reportUnreached() {
  for (size_t i = 0; i < starts_.size(); ++i) {
    if (!reached_[i]) faults_->add(name_, starts_[i], "no row leads to this entry");
  }
}

std::string_view EntryCheck::entry(uint32_t offset) const {
  const auto next = std::upper_bound(starts_.begin(), starts_.end(), offset);
  return dic_.substr(offset, (next == starts_.end() ? dic_.size() : *next) - offset);
}

std::string EntryCheck::wordE(std::string_view entry) {
  const std::string_view line = headLine(entry);
  std::string word;
  bool number = false;  // inside a homograph marker
  for (size_t at = 0; at < line.size();) {
    const std::string_view two = line.substr(at, 2);
    const auto byte = static_cast<uint8_t>(line[at]);
    if (two == kOpenSound) {
      at = line.find(kCloseSound, at);
      if (at == std::string_view::npos) break;
      at += kCloseSound.size();
      continue;
    }
    if (line[at] == ',' || line[at] == '[' || two == kOpenNote) break;
    if (two == "\xF4\xB5") number = true;
    if (two == "\xF4\xD0") number = false;
    const bool pair = isLead(byte) || isTagLead(byte);
    if (!pair && !number && byte < 0x80 && byte != '*') word += line[at];
    at += pair ? 2 : 1;
  }
  return word;
}

std::string_view EntryCheck::kana(std::string_view entry) {
  const std::string_view line = headLine(entry);
  return line.substr(0, line.find(static_cast<char>(engine::kKanjiSeparator)));
}

std::string_view EntryCheck::kanji(std::string_view entry) {
  const std::string_view line = headLine(entry);
  const size_t at = line.find(static_cast<char>(engine::kKanjiSeparator));
  return at == std::string_view::npos ? line : line.substr(at + 1);
}

}  // namespace zavel::mkdict
