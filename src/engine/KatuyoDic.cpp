// From a word to its records in katu.dic, and from a form list to records. The list is read byte by byte:
//
//   {went:過,gone:分}   '{' is passed over, ',' starts a word, ':' ends it and a label follows, '}' ends all
//
// Tests: tests/engine/KatuyoDicTest.cpp.
#include "engine/KatuyoDic.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/Globals.h"
#include "engine/Index1.h"
#include "engine/Index3.h"
#include "engine/KatuyoForms.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

constexpr size_t kRecordHead = 3;   // u16 length; u8 form code
constexpr size_t kMaxText = 65534;  // the u16 length counts the NUL too
constexpr size_t kLabelLength = 2;  // one double-byte character
constexpr char kStoredComma = static_cast<char>(',' - kKatuShift);

// The block offset in row `row` of the loaded katu.idx.
Status BlockOfRow(uint16_t row, uint32_t* offset) {
  const idx_info_ptr& index = g_sKihonKatu;
  if (index.tableBase == nullptr || index.tableC == nullptr) return kInternal;
  const Status status = AccessCheck(index.tableC, row, kRowC);
  if (status != kOk) return status;
  const size_t at = static_cast<size_t>(index.tableC - index.tableBase) + kTableHeadC + row * kRowC;
  const ByteReader block(index.tableBase, index.size);
  return block.readLE32At(at + 1, offset) ? kOk : kInternal;
}

// Appends one stored record, braces included, still scrambled.
Status AppendStored(FsObj* stream, uint32_t offset, std::string* stored) {
  std::string_view window;
  if (!stream->ReadWindow(offset, kKatuWindow, &window)) return kFileError;
  window = window.substr(0, kKatuWindow);
  const size_t open = window.find(kKatuOpen);
  const size_t close = window.find(kKatuClose);
  if (open == window.npos || close == window.npos || close < open) return kMalformed;
  stored->append(window.substr(open, close - open + 1));
  return kOk;
}

}  // namespace

Status SrchKatuyo(const std::string& key, std::string* text) {
  text->clear();
  if (key.empty()) return kOk;
  const uint16_t row = Bsrch1(kTypeKatu, 0, static_cast<uint8_t>(key[0]), kSetKihon);
  if (row == kRowNotFound) return kOk;
  if (row == kRowBad) return kInternal;
  uint32_t offset = 0;
  Status status = BlockOfRow(row, &offset);
  if (status != kOk) return status;
  Ix3Rows rows;
  status = GetDicOffImi(kTypeKatu, kSetKihon, key, offset, &rows);
  if (status != kOk || rows.offsets.empty()) return status;
  return GetKatuyoDic(rows.offsets, text);
}

Status GetKatuyoDic(const std::vector<uint32_t>& offsets, std::string* text) {
  text->clear();
  FsObj* stream = DicStream(kTypeKatu, kSetKihon);
  if (stream == nullptr) return kNoKihonFile;
  std::string stored;
  for (const uint32_t offset : offsets) {
    if (!stored.empty()) stored.back() = kStoredComma;  // was the closing brace of the record before
    const Status status = AppendStored(stream, offset, &stored);
    if (status != kOk) return status;
  }
  for (char& c : stored) c = static_cast<char>(c + kKatuShift);
  *text = std::move(stored);
  return kOk;
}

Status ProcessKatuyo(std::string_view text, std::string* records) {
  std::string word;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '}') break;
    if (c == '{') continue;
    if (c == ',') {
      word.clear();
    } else if (c == ':') {
      const uint8_t formCode = ConvLabel(text.substr(i + 1, kLabelLength));
      if (formCode == 0) return kNoKihonFile;
      AppendKatuyo(formCode, word, records);
      word.clear();
      i += kLabelLength;
    } else {
      word += c;
    }
  }
  return kOk;
}

void AppendKatuyo(uint8_t formCode, std::string_view text, std::string* records) {
  text = text.substr(0, kMaxText);
  appendLE16(*records, static_cast<uint16_t>(text.size() + 1));
  *records += static_cast<char>(formCode);
  records->append(text);
  *records += '\0';
}

std::vector<std::string_view> GetMemAddrK(std::string_view records) {
  std::vector<std::string_view> views;
  while (records.size() >= kRecordHead) {
    const size_t length = kRecordHead + readLE16(reinterpret_cast<const uint8_t*>(records.data()));
    views.push_back(records.substr(0, length));
    records.remove_prefix(std::min(length, records.size()));
  }
  return views;
}

int compare_ONLY_K(std::string_view a, std::string_view b) {
  return a.substr(kRecordHead - 1).compare(b.substr(kRecordHead - 1));
}

std::string SortKatuyo(std::string_view records) {
  std::vector<std::string_view> views = GetMemAddrK(records);
  std::sort(views.begin(), views.end(),
            [](std::string_view a, std::string_view b) { return compare_ONLY_K(a, b) < 0; });
  const auto end = std::unique(views.begin(), views.end(), [](std::string_view a, std::string_view b) {
    return compare_ONLY_K(a, b) == 0;
  });
  std::string sorted;
  std::for_each(views.begin(), end, [&sorted](std::string_view record) { sorted.append(record); });
  return sorted;
}

uint8_t HinsiOfKatuyo(std::string_view text) {
  uint8_t hinsi = 0;
  if (text.find(kLabelSingular) != text.npos) hinsi |= kHinsiMeisi;
  if (text.find(kLabelPositive) != text.npos) hinsi |= kHinsiKeiyo;
  if (text.find(kLabelPresent) != text.npos) hinsi |= kHinsiDousi;
  return hinsi;
}

}  // namespace zavel::engine
