// Meta keys: the two-byte tags of entry text, high byte first, as the manager shows, labels or drops them.
// The engine finds the borders of entries and sections by some of them and passes the others through.
#ifndef LOOKUP_METAKEY_H
#define LOOKUP_METAKEY_H

#include <cstdint>
#include <string_view>

#include "engine/DicFormat.h"

namespace zavel {

inline constexpr uint8_t kMetaKeyHigh1 = 0xF4;
inline constexpr uint8_t kMetaKeyHigh2 = 0xF5;

// A byte that the walks over entry text turn into a blank.
inline constexpr uint8_t kEscape = engine::kKanjiSeparator;

inline constexpr uint16_t kMetaSubscript = engine::kTagSubscript;
inline constexpr uint16_t kMetaSuperscript = engine::kTagMarker;
inline constexpr uint16_t kMetaScriptEnd = engine::kTagMarkerEnd;  // of a sub- or superscript
inline constexpr uint16_t kMetaIgnore = engine::kTagIgnore;        // text that is to be ignored
inline constexpr uint16_t kMetaBold = engine::kTagBold;
inline constexpr uint16_t kMetaJapaneseBold = 0xF5B6;
inline constexpr uint16_t kMetaJapaneseBoldEnd = 0xF5B7;
inline constexpr uint16_t kMetaItalic = 0xF5B8;
inline constexpr uint16_t kMetaBoldItalic = 0xF5B9;
inline constexpr uint16_t kMetaStyleEnd = 0xF5BC;
inline constexpr uint16_t kMetaGothic = engine::kTagGothic;  // with a digit: a sense number
inline constexpr uint16_t kMetaRoman = engine::kTagRoman;    // back to the standard type
inline constexpr uint16_t kMetaSmallCapital = 0xF5C2;
inline constexpr uint16_t kMetaUnknown1End = 0xF5C5;
inline constexpr uint16_t kMetaUnknown1 = 0xF5C6;
inline constexpr uint16_t kMetaSenseNumber = 0xF5C9;  // in no dictionary: OutputResult's own mark
inline constexpr uint16_t kMetaUnknown2End = 0xF5CA;
inline constexpr uint16_t kMetaUnknown2 = 0xF5CB;
inline constexpr uint16_t kMetaCompound = engine::kTagCompound;  // English of a compound, with sense number
inline constexpr uint16_t kMetaMidashi = engine::kTagEntry;      // headword
inline constexpr uint16_t kMetaOrigin = engine::kTagOrigin;      // etymology
inline constexpr uint16_t kMetaHinsi = engine::kTagHinsi;        // part of speech
inline constexpr uint16_t kMetaTranslation = engine::kTagImi;
inline constexpr uint16_t kMetaUsage = engine::kTagYourei;  // usage and phrase example
inline constexpr uint16_t kMetaIdiom = engine::kTagPhrase;  // idiom and sentence example
inline constexpr uint16_t kMetaNote = engine::kTagNote;     // boxes, tables, other notes
inline constexpr uint16_t kMetaExampleJapanese = engine::kTagOtherSide;
inline constexpr uint16_t kMetaRunOn = engine::kTagRunOn;  // run-on derivative, pronunciation
inline constexpr uint16_t kMetaIdiomHinsi = engine::kTagPhraseHinsi;
inline constexpr uint16_t kMetaIdiomTranslation = engine::kTagPhraseImi;
inline constexpr uint16_t kMetaIdiomExample = engine::kTagPhraseYourei;
inline constexpr uint16_t kMetaIdiomNote = engine::kTagPhraseNote;
inline constexpr uint16_t kMetaPhraseEnglish = 0xF5E8;
inline constexpr uint16_t kMetaSentenceEnglish = 0xF5E9;

// One row of the table: a key and its visible text in labelled form, Shift_JIS.
struct MetaKey {
  uint16_t key;
  std::string_view label;  // empty for kMetaStyleEnd alone
};

// The row of the pair, or null when it is no key of the table; kMetaSenseNumber is none.
const MetaKey* findMetaKey(uint8_t high, uint8_t low);

inline constexpr uint16_t metaKeyPair(uint8_t high, uint8_t low) {
  return static_cast<uint16_t>(high << 8 | low);
}

}  // namespace zavel

#endif
