// Two lists are given, the rest is made of them when this is compiled.
// Tests: tests/foundation/KanjiTablesTest.cpp
#include "foundation/KanjiTables.h"

#include <algorithm>

#include "foundation/Kanji.h"

namespace zavel::foundation {
namespace {

constexpr int kFirstAscii = 0x20;
constexpr int kFirstKana = 0xA1;

// Full-width forms of 0x20 to 0x7E, sixteen bytes a row.
constexpr uint16_t kZenAscii[95] = {
    0x8140, 0x8149, 0x8168, 0x8194, 0x8190, 0x8193, 0x8195, 0x8166,  // blank ! " # $ % & '
    0x8169, 0x816A, 0x8196, 0x817B, 0x8143, 0x817C, 0x8144, 0x815E,  // ( ) * + , - . /
    0x824F, 0x8250, 0x8251, 0x8252, 0x8253, 0x8254, 0x8255, 0x8256,  // 0 to 7
    0x8257, 0x8258, 0x8146, 0x8147, 0x8183, 0x8181, 0x8184, 0x8148,  // 8 9 : ; < = > ?
    0x8197, 0x8260, 0x8261, 0x8262, 0x8263, 0x8264, 0x8265, 0x8266,  // @ A to G
    0x8267, 0x8268, 0x8269, 0x826A, 0x826B, 0x826C, 0x826D, 0x826E,  // H to O
    0x826F, 0x8270, 0x8271, 0x8272, 0x8273, 0x8274, 0x8275, 0x8276,  // P to W
    0x8277, 0x8278, 0x8279, 0x816D, 0x818F, 0x816E, 0x814F, 0x8151,  // X Y Z [ backslash ] ^ _
    0x8165, 0x8281, 0x8282, 0x8283, 0x8284, 0x8285, 0x8286, 0x8287,  // ` a to g
    0x8288, 0x8289, 0x828A, 0x828B, 0x828C, 0x828D, 0x828E, 0x828F,  // h to o
    0x8290, 0x8291, 0x8292, 0x8293, 0x8294, 0x8295, 0x8296, 0x8297,  // p to w
    0x8298, 0x8299, 0x829A, 0x816F, 0x8162, 0x8170, 0x8150,          // x y z { | } ~
};

// Full-width forms of 0xA1 to 0xDF.
constexpr uint16_t kZenKana[63] = {
    0x8142, 0x8175, 0x8176, 0x8141, 0x8145, 0x8392, 0x8340,          // 。「」、・ヲァ
    0x8342, 0x8344, 0x8346, 0x8348, 0x8383, 0x8385, 0x8387, 0x8362,  // ィゥェォャュョッ
    0x815B, 0x8341, 0x8343, 0x8345, 0x8347, 0x8349, 0x834A, 0x834C,  // ーアイウエオカキ
    0x834E, 0x8350, 0x8352, 0x8354, 0x8356, 0x8358, 0x835A, 0x835C,  // クケコサシスセソ
    0x835E, 0x8360, 0x8363, 0x8365, 0x8367, 0x8369, 0x836A, 0x836B,  // タチツテトナニヌ
    0x836C, 0x836D, 0x836E, 0x8371, 0x8374, 0x8377, 0x837A, 0x837D,  // ネノハヒフヘホマ
    0x837E, 0x8380, 0x8381, 0x8382, 0x8384, 0x8386, 0x8388, 0x8389,  // ミムメモヤユヨラ
    0x838A, 0x838B, 0x838C, 0x838D, 0x838F, 0x8393, 0x814A, 0x814B,  // リルレロワン゛゜
};

constexpr uint8_t kDaku = 0xDE;
constexpr uint8_t kDaku2 = 0xDF;

constexpr uint16_t zenOf(uint8_t single) {
  if (single >= kFirstAscii && single < kFirstAscii + 95) return kZenAscii[single - kFirstAscii];
  if (single >= kFirstKana && single < kFirstKana + 63) return kZenKana[single - kFirstKana];
  return 0;
}

constexpr std::array<uint16_t, 256> makeSingleToDouble() {
  std::array<uint16_t, 256> table{};
  for (int single = 0; single < 256; ++single) table[single] = zenOf(static_cast<uint8_t>(single));
  return table;
}

constexpr std::array<KanjiPair, kSingleBytes> makeDoubleToSingle() {
  std::array<KanjiPair, kSingleBytes> table{};
  size_t filled = 0;
  for (int single = 0; single < 256; ++single) {
    const uint16_t zen = zenOf(static_cast<uint8_t>(single));
    if (zen != 0) table[filled++] = {zen, static_cast<uint16_t>(single)};
  }
  std::sort(table.begin(), table.end(), [](KanjiPair a, KanjiPair b) { return a.from < b.from; });
  return table;
}

// The katakana that take a mark, as half-width bytes: カ to ト, ハ to ホ and ウ the one, ハ to ホ the other.
constexpr bool takesDaku2(int single) {
  return single >= 0xCA && single <= 0xCE;
}
constexpr bool takesDaku(int single) {
  return single == 0xB3 || (single >= 0xB6 && single <= 0xC4) || takesDaku2(single);
}

// Voiced kana stand right behind their plain ones, half-voiced ones behind these; ヴ stands by itself.
constexpr uint16_t voicedOf(uint8_t single) {
  return single == 0xB3 ? 0x8394 : static_cast<uint16_t>(zenOf(single) + 1);
}
constexpr uint16_t halfVoicedOf(uint8_t single) {
  return static_cast<uint16_t>(zenOf(single) + 2);
}

constexpr std::array<KanjiPair, kVoicedKana + kHalfVoicedKana> makeMarkedToPair() {
  std::array<KanjiPair, kVoicedKana + kHalfVoicedKana> table{};
  size_t filled = 0;
  for (int single = 0xB6; single <= 0xCE; ++single)
    if (takesDaku(single))
      table[filled++] = {voicedOf(static_cast<uint8_t>(single)), static_cast<uint16_t>(single << 8 | kDaku)};
  for (int single = 0xCA; single <= 0xCE; ++single)
    table[filled++] = {halfVoicedOf(static_cast<uint8_t>(single)),
                       static_cast<uint16_t>(single << 8 | kDaku2)};
  table[filled] = {voicedOf(0xB3), 0xB3DE};
  return table;
}

constexpr HanZenPair eucPair(int single, uint16_t zenSjis) {
  const uint16_t zen = __jmstoeuc(zenSjis);
  return {{0x8E, static_cast<uint8_t>(single)}, {static_cast<uint8_t>(zen >> 8), static_cast<uint8_t>(zen)}};
}

constexpr std::array<HanZenPair, 64> makeEuc() {
  std::array<HanZenPair, 64> table{};
  for (int i = 0; i < 63; ++i) table[i] = eucPair(kFirstKana + i, kZenKana[i]);
  return table;
}

constexpr std::array<HanZenPair, kVoicedKana + 1> makeDakuEuc() {
  std::array<HanZenPair, kVoicedKana + 1> table{};
  size_t filled = 0;
  for (int single = 0xB3; single <= 0xCE; ++single)
    if (takesDaku(single)) table[filled++] = eucPair(single, voicedOf(static_cast<uint8_t>(single)));
  return table;
}

constexpr std::array<HanZenPair, kHalfVoicedKana + 1> makeDaku2Euc() {
  std::array<HanZenPair, kHalfVoicedKana + 1> table{};
  size_t filled = 0;
  for (int single = 0xCA; single <= 0xCE; ++single)
    if (takesDaku2(single)) table[filled++] = eucPair(single, halfVoicedOf(static_cast<uint8_t>(single)));
  return table;
}

}  // namespace

constexpr std::array<uint16_t, 256> mbbtombcarray = makeSingleToDouble();
constexpr std::array<KanjiPair, kSingleBytes> mbctombbarray = makeDoubleToSingle();
constexpr std::array<KanjiPair, kVoicedKana + kHalfVoicedKana> zenhanarray = makeMarkedToPair();
constexpr std::array<HanZenPair, 63 + 1> tblHanToZenEuc = makeEuc();
constexpr std::array<HanZenPair, kVoicedKana + 1> tblDakuHanToZenEuc = makeDakuEuc();
constexpr std::array<HanZenPair, kHalfVoicedKana + 1> tblDaku2HanToZenEuc = makeDaku2Euc();

}  // namespace zavel::foundation
