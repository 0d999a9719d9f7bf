// Offsets in the record count bytes, positions in the text UTF-16 units. So the text is cut at the offsets
// while it is still bytes, and each piece crosses into UTF-8 by itself.
// Tests: tests/ui/StyledTextFileTest.cpp
#include "ui/StyledTextFile.h"

#include <algorithm>
#include <vector>

#include "foundation/ByteReader.h"
#include "platform/ForkedFiles.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel {
namespace {

constexpr size_t kCountBytes = 2;
constexpr size_t kRunBytes = 20;
// Where in a run. Its height, ascent and font number are passed over.
constexpr size_t kFaceAt = 10;
constexpr size_t kSizeAt = 12;
constexpr size_t kRedAt = 14;
constexpr size_t kGreenAt = 16;
constexpr size_t kBlueAt = 18;
// Bits of a face.
constexpr uint8_t kBold = 1;
constexpr uint8_t kItalic = 2;

struct StyledRun {
  size_t offset = 0;  // bytes
  TextStyle style;
};

double partOf(const uint8_t* channel) {
  return readBE16(channel) / 65535.0;
}

StyledRun decodeRun(const uint8_t* run) {
  StyledRun decoded;
  decoded.offset = readBE32(run);
  decoded.style.bold = (run[kFaceAt] & kBold) != 0;
  decoded.style.italic = (run[kFaceAt] & kItalic) != 0;
  decoded.style.fontSize = readBE16(run + kSizeAt);
  decoded.style.color = Color{partOf(run + kRedAt), partOf(run + kGreenAt), partOf(run + kBlueAt), 1.0};
  return decoded;
}

std::optional<std::vector<StyledRun>> decodeRecord(std::string_view record) {
  std::vector<StyledRun> runs;
  if (record.empty()) return runs;
  const uint8_t* const bytes = reinterpret_cast<const uint8_t*>(record.data());
  if (record.size() < kCountBytes) return std::nullopt;
  const size_t count = readBE16(bytes);
  if (record.size() != kCountBytes + count * kRunBytes) return std::nullopt;
  for (size_t i = 0; i < count; ++i) {
    runs.push_back(decodeRun(bytes + kCountBytes + i * kRunBytes));
    if (i > 0 && runs[i].offset < runs[i - 1].offset) return std::nullopt;
  }
  return runs;
}

// Bytes of the character that `text`, which isn't empty, begins with.
size_t characterBytes(std::string_view text) {
  const uint8_t lead = static_cast<uint8_t>(text[0]);
  const bool isLead = (lead >= 0x81 && lead <= 0x9F) || (lead >= 0xE0 && lead <= 0xFC);
  if (!isLead || text.size() < 2) return 1;
  const uint8_t trail = static_cast<uint8_t>(text[1]);
  return trail >= 0x40 && trail <= 0xFC && trail != 0x7F ? 2 : 1;
}

// Walks on from `at`, where a character begins, to the one that holds `offset`.
size_t characterAt(std::string_view sjis, size_t at, size_t offset) {
  while (at < sjis.size()) {
    const size_t next = at + characterBytes(sjis.substr(at));
    if (next > offset) break;
    at = next;
  }
  return at;
}

}  // namespace

std::optional<AttributedText> readStyledTextFile(const std::string& path) {
  std::string text;
  std::string record;
  if (!platform().forkedFiles().read(path, "styl", 128, &text, &record)) return std::nullopt;
  return decodeStyledText(text, record);
}

std::optional<AttributedText> decodeStyledText(std::string_view sjis, std::string_view record) {
  const std::optional<std::vector<StyledRun>> runs = decodeRecord(record);
  if (!runs) return std::nullopt;
  const TextEncoding& encoding = platform().encoding();
  AttributedText text;
  TextStyle style;  // of what stands ahead of the first run
  size_t at = 0;
  for (const StyledRun& run : *runs) {
    const size_t next = characterAt(sjis, at, run.offset);
    text.append(encoding.fromSjisLossy(sjis.substr(at, next - at)), style);
    at = next;
    style = run.style;
  }
  text.append(encoding.fromSjisLossy(sjis.substr(at)), style);
  return text;
}

}  // namespace zavel
