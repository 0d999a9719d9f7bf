// Tests: tests/translators/WordLookupTest.cpp
#include "dicttool/WordLookup.h"

#include <algorithm>
#include <cstdint>

#include "dicttool/ResultFile.h"
#include "dicttool/WordAnswer.h"
#include "dicttool/WordFold.h"
#include "foundation/KanjiTables.h"
#include "foundation/Storage.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::dicttool {
namespace {

constexpr size_t kLongestSource = size_t{1} << 20;  // bytes; a word is what stands in there
constexpr size_t kLongestWord = 1024;               // bytes; no index has longer ones

bool isLead(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

bool isHalfKana(unsigned char byte) {
  return byte >= 0xA1 && byte <= 0xDF;
}

void appendWide(std::string& out, uint16_t code) {
  out += static_cast<char>(code >> 8);
  out += static_cast<char>(code & 0xFF);
}

// Half-width katakana, each with the voicing mark behind it, as full-width ones; all else as it is.
std::string withWideKana(const std::string& sjis) {
  std::string wide;
  for (size_t i = 0; i < sjis.size(); ++i) {
    const unsigned char byte = static_cast<unsigned char>(sjis[i]);
    const unsigned char next = i + 1 < sjis.size() ? static_cast<unsigned char>(sjis[i + 1]) : 0;
    if (!isHalfKana(byte)) {
      wide += sjis[i];
      if (isLead(byte) && next != 0) wide += sjis[++i];
      continue;
    }
    const uint16_t pair = static_cast<uint16_t>(byte << 8 | next);
    const auto marked = std::find_if(foundation::zenhanarray.begin(), foundation::zenhanarray.end(),
                                     [pair](const auto& row) { return row.to == pair; });
    if (marked != foundation::zenhanarray.end()) ++i;
    appendWide(wide,
               marked != foundation::zenhanarray.end() ? marked->from : foundation::mbbtombcarray[byte]);
  }
  return wide;
}

WordAnswer search(const ToolOptions& options, const DictionaryPlaces& places, const SourceWord& word,
                  std::ostream& err, Failure* failure) {
  DictionaryList list(word.language, places);
  if (!options.parameterFile.empty()) *failure = list.addParameterFile(options.parameterFile);
  if (*failure) return {};
  if (!options.styleFile.empty()) list.addStyle(options.styleFile, options.styleNumber);
  list.addConfiguration();
  for (const std::string& complaint : list.complaints()) err << "zavel-dicttool: " << complaint << "\n";
  if (list.indexes().empty()) {
    *failure = {kExitEnvironment, std::string("there is no dictionary for ") +
                                      (word.language == Direction::kEnglish ? "English" : "Japanese") +
                                      " words; run: zavel dict build, or put one into " + places.folder};
    return {};
  }
  return WordAnswer::of(word.text, list.indexes());
}

// What zavel has made it can make again.
std::string withHint(const std::string& complaint, const DictionaryPlaces& places) {
  for (const char* made : {"/enamdict.", "/compdic."}) {
    if (complaint.starts_with(places.folder + made)) return complaint + "; run: zavel dict build";
  }
  return complaint;
}

}  // namespace

SourceWord SourceWord::fromShiftJis(const std::string& bytes) {
  SourceWord word;
  const TextEncoding& encoding = platform().encoding();
  const size_t start = bytes.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return word;
  const unsigned char first = static_cast<unsigned char>(bytes[start]);
  if (isLead(first)) word.form = Direction::kJapanese;
  if (isLead(first) || isHalfKana(first)) word.language = Direction::kJapanese;
  word.text = tidyQuery(encoding.fromSjisLossy(withWideKana(bytes)));
  return word;
}

Failure lookUpWord(const ToolOptions& options, const DictionaryPlaces& places, std::ostream& err) {
  std::string bytes;
  if (!readWholeFile(options.source, kLongestSource, &bytes)) {
    return {kExitEnvironment, "the source file " + options.source + " can't be read"};
  }
  const SourceWord word = SourceWord::fromShiftJis(bytes);
  Failure failure;
  WordAnswer answer;
  if (!word.text.empty() && word.text.size() <= kLongestWord) {
    answer = search(options, places, word, err, &failure);
  }
  if (failure) return failure;
  for (std::string& complaint : answer.complaints) complaint = withHint(complaint, places);
  // The last of them is what failed where nothing is left to be searched.
  if (!answer.complaints.empty() && answer.searched == 0) {
    failure = {kExitDamaged, answer.complaints.back()};
    answer.complaints.pop_back();
  }
  for (const std::string& complaint : answer.complaints) err << "zavel-dicttool: " << complaint << "\n";
  if (failure) return failure;
  if (!writeResultFile(options.result, answer.result(word.form))) {
    return {kExitEnvironment, "the result file " + options.result + " can't be written"};
  }
  return {};
}

}  // namespace zavel::dicttool
