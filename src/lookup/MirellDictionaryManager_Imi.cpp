// Meanings: from a word to the result file, by the list road (entries kept apart, the best ones picked) or
// the joined road (all entries as one text).
// Tests: tests/lookup/ImiDataTest.cpp, RoadsTest.cpp
#include <algorithm>

#include "engine/EngineStatus.h"
#include "lookup/ByteText.h"
#include "lookup/LockedBlock.h"
#include "lookup/MirellDictionaryManager.h"

namespace zavel {
namespace {

constexpr uint8_t kJoined = 1;
constexpr uint8_t kListed = 0;

// The engine's meaning search in the basic dictionaries.
uint16_t searchImi(bool english, const std::string& word, const std::string& keyword, uint8_t filter,
                   OwnedBlock& answer) {
  constexpr uint8_t kBasicDictionaries = 1;
  std::string searched = word;
  cutAtZero(searched);  // the engine may shorten it in place
  const char* const midasi = keyword.empty() ? nullptr : keyword.c_str();
  const auto search = english ? SerchImiE : SerchImiJ;
  return search(searched.data(), midasi, filter, &answer.size, &answer.handle, kBasicDictionaries);
}

// Turns line feeds into CRs and zero bytes into blanks. Kept: not in the last four bytes, so that a zero
// byte there cuts the entry later; see docs/quirks.md.
void translateImi(std::string& text) {
  constexpr size_t kUntranslated = 4;
  if (text.size() <= kUntranslated) return;
  for (size_t i = 0; i < text.size() - kUntranslated; ++i) {
    if (text[i] == kLineFeed) text[i] = kCarriageReturn;
    if (text[i] == '\0') text[i] = ' ';
  }
}

}  // namespace

bool MirellDictionaryManager::GetImiE(const std::string& word, uint8_t filter, const std::string& keyword) {
  return imiByKeys(true, word, filter, keyword);
}

bool MirellDictionaryManager::NewGetImiE(const std::string& word, uint8_t filter,
                                         const std::string& keyword) {
  return imiByKeys(true, word, filter, keyword);
}

bool MirellDictionaryManager::GetImiJ(const std::string& word, uint8_t filter, const std::string& keyword) {
  return imiByKeys(false, word, filter, keyword);
}

// The list road. Kept: an answer of size 0 leaves `meaningList` alone, so that the entries of the look-up
// before go through the stages again; see docs/quirks.md.
bool MirellDictionaryManager::imiByKeys(bool english, const std::string& word, uint8_t filter,
                                        const std::string& keyword) {
  if (refuses(word)) return false;
  MakeSearchKey(word, keyword);
  OwnedBlock answer;
  if (searchImi(english, word, keyword, filter, answer) != engine::kOk) return false;
  resultText = DecodeImiData(kListed, answer.size, answer.handle);
  showResult(RebuildResultData());
  return answer.size != 0;
}

bool MirellDictionaryManager::NewGetImiJ(const std::string& word, uint8_t filter,
                                         const std::string& keyword) {
  if (refuses(word)) return false;
  return imiJoined(word, filter, keyword);
}

bool MirellDictionaryManager::GetImiJ2(const std::string& word, uint8_t filter, std::string& out) {
  if (refuses(word)) return false;
  out.clear();
  const bool found = imiJoined(word, filter, std::string());
  out = resultText;
  return found;
}

// The joined road. Kept: a failed search leaves `resultText` alone, so that the text of the look-up before
// goes through the stages again; see docs/quirks.md.
bool MirellDictionaryManager::imiJoined(const std::string& word, uint8_t filter, const std::string& keyword) {
  OwnedBlock answer;
  const bool answered = searchImi(false, word, keyword, filter, answer) == engine::kOk;
  if (answered) resultText = DecodeImiData(kJoined, answer.size, answer.handle);
  if (!resultText.empty()) showResult(std::string(resultText));
  return answered && !resultText.empty();
}

bool MirellDictionaryManager::GetImiE2(const std::string& word, uint8_t filter, std::string& out) {
  if (refuses(word)) return false;
  resultText.clear();
  out.clear();
  OwnedBlock answer;
  if (searchImi(true, word, std::string(), filter, answer) != engine::kOk) return false;
  resultText =
      answer.size == 0 ? TryAllInflection(word, filter) : DecodeImiData(kJoined, answer.size, answer.handle);
  if (resultText.empty()) return false;
  showResult(std::string(resultText));
  out = resultText;
  return !resultText.empty();
}

std::string MirellDictionaryManager::TryAllInflection(const std::string& word, uint8_t filter) {
  if (refuses(word)) return std::string();
  resultText.clear();
  if (!GetInflection(word)) return resultText;
  for (const Inflection& inflection : inflectionList) {
    OwnedBlock answer;
    const uint16_t status = searchImi(true, inflection.form, std::string(), filter, answer);
    if (status != engine::kOk || answer.size == 0) continue;
    resultText = DecodeImiData(kJoined, answer.size, answer.handle);
    break;
  }
  return resultText;
}

// Labels, lays out and writes a tagged text.
void MirellDictionaryManager::showResult(const std::string& text) {
  debugResult = ConvertMetaKey(text, kMetaKeysLabelled);
  resultText = OutputResult(text);
  OutputResultFile(outputSpec, resultText);
}

std::string MirellDictionaryManager::DecodeImiData(uint8_t join, uint32_t size, Handle handle) {
  constexpr size_t kHead = 4;  // u32 length
  std::string joined;
  if (!initialized || size == 0) return joined;
  outputText.clear();
  meaningList.clear();
  const LockedBlock block(size, handle);
  size_t offset = 0;
  while (block.left(offset) >= kHead) {
    const size_t length = std::min<size_t>(block.le32At(offset), block.left(offset + kHead));
    std::string entry = block.textAt(offset + kHead, length);
    translateImi(entry);
    entry.append(2, kCarriageReturn);
    RemoveWordByRange(entry, std::string(kDroppedStart), std::string(kDroppedEnd));
    offset += kHead + length;
    if (join) {
      joined += entry;
    } else {
      meaningList.push_back(std::move(entry));
    }
  }
  return joined;
}

std::string MirellDictionaryManager::GetImiData() {
  return initialized ? outputText : std::string();
}

std::string MirellDictionaryManager::GetHeadLine(const std::string& text) {
  return text.substr(0, text.find(kCarriageReturn));
}

void MirellDictionaryManager::RemoveWordByRange(std::string& text, const std::string& startMark,
                                                const std::string& endMark) {
  removeRanges(text, startMark, endMark);
}

}  // namespace zavel
