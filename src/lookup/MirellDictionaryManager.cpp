// Start, inflection, origin and headword lists.
// Tests: tests/lookup/InflectionTest.cpp, MidashiTest.cpp, RoadsTest.cpp
#include "lookup/MirellDictionaryManager.h"

#include <algorithm>
#include <cstdio>
#include <exception>

#include "engine/EngineStatus.h"
#include "lookup/ByteText.h"
#include "lookup/LockedBlock.h"

namespace zavel {
namespace {

constexpr size_t kMaxWord = 255;           // bytes of a word that is not refused
constexpr uint8_t kBasicDictionaries = 1;  // the engine's `dic`
constexpr uint8_t kAllHeadwords = 0;       // the engine's `mode`

// What the engine searches for: the word up to its first zero byte, in memory that it may change.
std::string engineWord(const std::string& word) {
  std::string copy = word;
  cutAtZero(copy);
  return copy;
}

// Steps through the records of a conjugation list: u16 length L, u8 form code, L bytes of text with its
// zero byte. Stops at a record that does not fit in the block.
class FormReader {
 public:
  explicit FormReader(const LockedBlock& block) : block_(block) {}

  bool next(uint32_t* code, std::string* form) {
    if (block_.left(offset_) < kHead) return false;
    const size_t length = block_.le16At(offset_);
    if (block_.left(offset_ + kHead) < length) return false;
    *code = block_.byteAt(offset_ + 2);
    *form = block_.textAt(offset_ + kHead, length == 0 ? 0 : length - 1);
    offset_ += kHead + length;
    return true;
  }

 private:
  static constexpr size_t kHead = 3;
  const LockedBlock& block_;
  size_t offset_ = 0;
};

bool namesTheWordItself(uint32_t code) {
  return code == kFormNounSingular || code == kFormAdjectivePositive || code == kFormVerbPresent ||
         code == kFormVerbThirdPerson;
}

}  // namespace

MirellDictionaryManager::MirellDictionaryManager() = default;

MirellDictionaryManager::~MirellDictionaryManager() {
  if (initialized) EndAPI();
}

bool MirellDictionaryManager::refuses(const std::string& word) const {
  return !initialized || word.size() > kMaxWord;
}

bool MirellDictionaryManager::InitializeDictionaries(const char* kihonPath, const char*, const char*,
                                                     const FileReference* outputFile) {
  if (outputFile != nullptr) outputSpec = *outputFile;
  uint16_t status = 0;
  try {
    status = InitAPI(kihonPath, nullptr, nullptr);
  } catch (const std::exception&) {
    initialized = 0;
    return false;
  }
  if (status != engine::kOk) {
    std::puts("error: InitializeDictionaries");
    return false;
  }
  initialized = 1;
  return true;
}

bool MirellDictionaryManager::GetInflection(const std::string& word) {
  if (refuses(word)) return false;
  OwnedBlock answer;
  if (GetKatuyo(engineWord(word).c_str(), &answer.size, &answer.handle) != engine::kOk) return false;
  DecodeInflectionData(answer.size, answer.handle);
  return answer.size != 0;
}

std::string MirellDictionaryManager::GetOrigin(const std::string& word) {
  if (refuses(word)) return word;
  std::string searched = engineWord(word);
  OwnedBlock entries;
  const uint16_t found =
      SerchImiE(searched.data(), nullptr, kFilterAll, &entries.size, &entries.handle, kBasicDictionaries);
  if (found == engine::kOk && entries.size != 0) return word;
  OwnedBlock forms;
  if (GetKatuyo(engineWord(word).c_str(), &forms.size, &forms.handle) != engine::kOk) return word;
  const std::string origin = PickupOriginData(forms.size, forms.handle);
  return origin.empty() ? word : origin;
}

bool MirellDictionaryManager::DecodeInflectionData(uint32_t size, Handle handle) {
  inflectionList.clear();
  if (size == 0) return false;
  const LockedBlock block(size, handle);
  FormReader forms(block);
  uint32_t code = 0;
  std::string form;
  while (forms.next(&code, &form)) {
    if (code < kFormFirst || code > kFormLast) continue;
    inflectionList.push_back({code, form, inflectionLabel(code)});
  }
  return true;
}

std::string MirellDictionaryManager::PickupOriginData(uint32_t size, Handle handle) {
  if (size == 0) return std::string();
  const LockedBlock block(size, handle);
  FormReader forms(block);
  uint32_t code = 0;
  std::string form;
  while (forms.next(&code, &form)) {
    if (namesTheWordItself(code)) return form;
  }
  return std::string();
}

uint32_t MirellDictionaryManager::CountInflectionData() {
  return initialized ? static_cast<uint32_t>(inflectionList.size()) : 0;
}

std::string MirellDictionaryManager::GetPureInflectionData(uint32_t index, uint32_t* code) {
  if (index >= inflectionList.size()) return std::string();
  *code = inflectionList[index].code;
  return inflectionList[index].form;
}

std::string MirellDictionaryManager::GetInflectionData(uint32_t index, uint32_t* code) {
  if (index >= inflectionList.size()) return std::string();
  return GetPureInflectionData(index, code) + inflectionList[index].label + kCarriageReturn;
}

bool MirellDictionaryManager::GetMidashiE(const std::string& word) {
  if (refuses(word)) return false;
  OwnedBlock lines;
  const uint16_t status =
      SerchMidasiE(engineWord(word).c_str(), kAllHeadwords, &lines.size, &lines.handle, kBasicDictionaries);
  if (status != engine::kOk) return false;
  DecodeMidashiData(lines.size, lines.handle);
  return lines.size != 0;
}

bool MirellDictionaryManager::GetMidashiJ(const std::string& word) {
  if (refuses(word)) return false;
  std::string searched = engineWord(word);
  OwnedBlock lines;
  const uint16_t status = SerchMidasiJ(searched.data(), &lines.size, &lines.handle, kBasicDictionaries);
  if (status != engine::kOk) return false;
  DecodeMidashiData(lines.size, lines.handle);
  return lines.size != 0;
}

bool MirellDictionaryManager::DecodeMidashiData(uint32_t size, Handle handle) {
  // Lines that overlap after a wrap could otherwise ask for 4 GiB.
  constexpr size_t kTextLimit = 16u << 20;
  midashiList.clear();
  if (size == 0) return false;
  const LockedBlock block(size, handle);
  std::vector<bool> visited(0x10000);
  uint16_t offset = 0;  // kept: 16 bits, so that a long list wraps; see docs/quirks.md
  size_t taken = 0;
  while (block.left(offset) >= 2 && !visited[offset] && taken < kTextLimit) {
    visited[offset] = true;
    const size_t text = offset + 2u;
    const size_t length = std::min<size_t>(block.le16At(offset), block.left(text));
    midashiList.push_back(ConvertMetaKey(block.textAt(text, length), kMetaKeysRemoved));
    taken += length;
    offset = static_cast<uint16_t>(text + length);
  }
  return true;
}

uint32_t MirellDictionaryManager::CountMidashiData() {
  return initialized ? static_cast<uint32_t>(midashiList.size()) : 0;
}

std::string MirellDictionaryManager::GetMidashiData(uint32_t index) {
  return index < midashiList.size() ? midashiList[index] : std::string();
}

}  // namespace zavel
