// Tests: tests/engine/WordInfoTest.cpp
#include "engine/WordInfo.h"

#include <iterator>

#include "engine/DicFormat.h"
#include "engine/Globals.h"
#include "engine/SaveIdx1.h"

namespace zavel::engine {
namespace {

constexpr size_t kTagSize = 2;

// 1 名, 2 代, 3 形, 4 副, 5 動, 6 動 他, 7 動 自, 8 前, 9 接
constexpr std::string_view kHinsiTexts[] = {
    "",           "[\x96\xBC]",           "[\x91\xE3]",           "[\x8C\x60]", "[\x95\x9B]",
    "[\x93\xAE]", "[\x93\xAE][\x91\xBC]", "[\x93\xAE][\x8E\xA9]", "[\x91\x4F]", "[\x90\xDA]"};

constexpr std::string_view kNextMark = "/";

std::string TagText(uint16_t tag) {
  return {static_cast<char>(tag >> 8), static_cast<char>(tag & 0xFF)};
}

// A line: tag, text, line feed.
size_t LineSize(size_t text) {
  return kTagSize + text + 1;
}
std::string Line(uint16_t tag, std::string_view text) {
  return TagText(tag).append(text) + '\n';
}

// A line of two sides, the second behind its tag and a blank.
size_t PairLineSize(size_t first, size_t second) {
  return LineSize(first + kTagSize + 1 + second);
}
std::string PairLine(uint16_t tag, std::string_view first, std::string_view second) {
  return Line(tag, std::string(first) + TagText(kTagOtherSide) + ' ' + std::string(second));
}

// A run in bold type.
size_t BoldSize(size_t text) {
  return kTagSize + text + kTagSize;
}
std::string Bold(std::string_view text) {
  return TagText(kTagBold).append(text) + TagText(kTagRoman);
}

// The examples of a Japanese entry: a mark ahead of the first and another ahead of each later one.
size_t ListSize(const PairSizes& sizes, std::string_view firstMark) {
  size_t total = 0;
  for (size_t i = 0; i < sizes.count(); ++i) {
    const size_t mark = i == 0 ? firstMark.size() : kNextMark.size();
    total += PairLineSize(mark + sizes.jpn[i], sizes.eng[i]);
  }
  return total;
}
template <typename Pair>
std::string List(uint16_t tag, std::string_view firstMark, uint16_t count, Pair* const* pairs) {
  std::string lines;
  for (uint16_t i = 0; i < count; ++i) {
    const std::string mark(i == 0 ? firstMark : kNextMark);
    lines += PairLine(tag, mark + pairs[i]->jpn, pairs[i]->eng);
  }
  return lines;
}

size_t KanjiPartSize(uint16_t kanji) {
  return kanji == 0 ? 0 : size_t{1} + kanji;
}

Status CheckSize(size_t size) {
  return size < kMaxEntry ? kOk : kEntryTooLong;
}

}  // namespace

std::string_view HinsiText(uint16_t hinsi) {
  return hinsi < std::size(kHinsiTexts) ? kHinsiTexts[hinsi] : std::string_view();
}

Status GetImiDataSizeE(const add_dic_e& entry, const add_dic_size_e& sizes, size_t* size) {
  *size = LineSize(BoldSize(sizes.word));
  if (entry.kind == kKindPhrase) {
    *size += LineSize(BoldSize(sizes.phrase));
  } else {
    *size += LineSize(1 + HinsiText(entry.hinsi).size());
  }
  *size += LineSize(sizes.imi);
  for (size_t i = 0; i < sizes.youreis.count(); ++i) {
    *size += PairLineSize(sizes.youreis.eng[i], sizes.youreis.jpn[i]);
  }
  return CheckSize(*size);
}

Status GetImiDataSizeJ(const add_dic_size_j& sizes, size_t* size) {
  *size = LineSize(sizes.kana + KanjiPartSize(sizes.kanji)) + LineSize(sizes.imi) +
          ListSize(sizes.kureis, kKureiMark) + ListSize(sizes.bunreis, kBunreiMark);
  return CheckSize(*size);
}

std::string SetImiDataE(const add_dic_e& entry) {
  const bool phrase = entry.kind == kKindPhrase;
  std::string text = Line(kTagEntry, Bold(entry.word));
  text += phrase ? Line(kTagPhrase, Bold(entry.phrase))
                 : Line(kTagHinsi, std::string("-").append(HinsiText(entry.hinsi)));
  text += Line(phrase ? kTagPhraseImi : kTagImi, entry.imi);
  for (uint16_t i = 0; i < entry.youreiCount; ++i) {
    const yourei& example = *entry.youreis[i];
    text += PairLine(phrase ? kTagPhraseYourei : kTagYourei, example.eng, example.jpn);
  }
  return text;
}

std::string SetImiDataJ(const add_dic_j& entry) {
  std::string midasi = entry.kana;
  if (entry.kanji != nullptr && *entry.kanji != '\0') {
    midasi.push_back(static_cast<char>(kKanjiSeparator));
    midasi += entry.kanji;
  }
  return Line(kTagEntry, midasi) + Line(kTagImi, entry.imi) +
         List(kTagYourei, kKureiMark, entry.kureiCount, entry.kureis) +
         List(kTagPhrase, kBunreiMark, entry.bunreiCount, entry.bunreis);
}

Status WriteImiData(std::string_view bytes, uint16_t set, uint32_t* offset) {
  if (set != kEntriesE && set != kEntriesJ) return kBadArgument;
  return ApendData(set == kEntriesE ? g_fs_Ej_Dic_User : g_fs_Je_Dic_User, bytes.data(), bytes.size(),
                   offset);
}

Status AddWordInfoE(const add_dic_e& entry, const add_dic_size_e& sizes, uint32_t* offset) {
  size_t size = 0;
  const Status status = GetImiDataSizeE(entry, sizes, &size);
  return status == kOk ? WriteImiData(SetImiDataE(entry), kEntriesE, offset) : status;
}

Status AddWordInfoJ(const add_dic_j& entry, const add_dic_size_j& sizes, uint32_t* offset) {
  size_t size = 0;
  const Status status = GetImiDataSizeJ(sizes, &size);
  return status == kOk ? WriteImiData(SetImiDataJ(entry), kEntriesJ, offset) : status;
}

}  // namespace zavel::engine
