// The lookup manager: from a word to lists of headwords, to its dictionary form, and to a formatted entry.
//
// It stands between an application and the bilingual dictionary engine. The engine speaks block lists and
// tagged entry text; the manager owns what comes back, decodes it and keeps the last result in its fields.
//
//   manager.GetOrigin("goes")                   "go"
//   manager.GetMidashiE("go")                   true; GetMidashiData(0) is "go [行く]" and its zero byte
//   manager.ExtractKeywordFromMidashiData(...)  "go"
//   manager.NewGetImiE("go", 0, "go [行く]")    true; the entry is in resultText and in the result file
//
// Glossary: midashi headword, imi meaning, inflection (katuyo in the engine) conjugation, hinsi part of
// speech; E an English headword, J a Japanese one; meta key a two-byte tag in entry text (MetaKey.h).
//
// Conventions of this header:
//  1. All strings are bytes, ASCII and Shift_JIS, and may hold zero bytes; a word goes to the engine up to
//     its first zero byte. Paths are UTF-8.
//  2. An operation that takes a word refuses it, by false, 0 or an empty string and without touching the
//     engine or a field, while `initialized` is clear and when the word has more than 255 bytes.
//  3. Only the basic dictionaries are searched. Engine handles given to a Decode operation stay the
//     caller's; all others are freed here.
//  4. Nothing is raised but the exhaustion of memory. Failures show as false or as empty results.
//  5. Results stay in the fields until the next call of their kind. The engine is one per process: of two
//     managers only the first is initialized. To be used on one thread.
#ifndef LOOKUP_MIRELLDICTIONARYMANAGER_H
#define LOOKUP_MIRELLDICTIONARYMANAGER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/EngineAPI.h"
#include "foundation/Export.h"
#include "lookup/FileReference.h"
#include "lookup/Inflection.h"
#include "lookup/RGBColor.h"
#include "lookup/ScrpSTElement.h"

namespace zavel {

// The engine's filter byte: what of an entry a meaning search gives.
inline constexpr uint8_t kFilterAll = 0;
inline constexpr uint8_t kFilterTranslation = 3;  // parts of speech and translations
inline constexpr uint8_t kFilterPhrase = 4;
inline constexpr uint8_t kFilterExample = 5;

// `mode` of ConvertMetaKey; any other value removes.
inline constexpr uint8_t kMetaKeysRemoved = 0;
inline constexpr uint8_t kMetaKeysLabelled = 1;

class ZAVEL_API MirellDictionaryManager {
 public:
  MirellDictionaryManager();
  MirellDictionaryManager(const MirellDictionaryManager&) = delete;
  MirellDictionaryManager& operator=(const MirellDictionaryManager&) = delete;

  // Closes the engine if this manager opened it.
  virtual ~MirellDictionaryManager();

  // --- Start ---

  // Opens the engine on the basic set at `kihonPath`, a prefix that ends in its own separator. The user
  // paths are ignored. `outputFile`, if not null, is kept in `outputSpec`. True if the engine opened;
  // otherwise "error: InitializeDictionaries" goes to standard output and `initialized` stays as it was.
  virtual bool InitializeDictionaries(const char* kihonPath, const char* userPathE, const char* userPathJ,
                                      const FileReference* outputFile);

  // --- Inflection and origin ---

  // True if the word has forms, which then are in `inflectionList`; after an engine error the list is as
  // it was.
  virtual bool GetInflection(const std::string& word);

  // The dictionary form of an English word: the word itself if it is a headword, has no known form or is
  // refused.
  virtual std::string GetOrigin(const std::string& word);

  // Fills `inflectionList` from a block list of the engine's GetKatuyo, codes 1 to 10 alone. False, the
  // list empty, for a size of 0.
  virtual bool DecodeInflectionData(uint32_t size, Handle handle);

  // The first form of such a list that names the word itself: noun singular (1), adjective positive (3),
  // verb present (6) or third person (7). Empty if there is none.
  virtual std::string PickupOriginData(uint32_t size, Handle handle);

  // Entries of `inflectionList`, 0 while not initialized.
  virtual uint32_t CountInflectionData();

  // The form at `index`, its code in `code`. Beyond the list: empty, `code` untouched.
  virtual std::string GetPureInflectionData(uint32_t index, uint32_t* code);

  // The same with the form's label and a CR behind, for display: "went [動　詞：過去形]" CR.
  virtual std::string GetInflectionData(uint32_t index, uint32_t* code);

  // --- Headwords ---

  // True if headwords begin with the word; they are then in `midashiList`. After an engine error the list
  // is as it was.
  virtual bool GetMidashiE(const std::string& word);
  virtual bool GetMidashiJ(const std::string& word);

  // Fills `midashiList` from a block list of the engine's SerchMidasi functions, tags removed, each line
  // with its terminating zero byte. False, the list empty, for a size of 0. Offsets have 16 bits: a list
  // of more than 65,535 bytes wraps, and ends at the first offset met for the second time.
  virtual bool DecodeMidashiData(uint32_t size, Handle handle);

  // Entries of `midashiList`, 0 while not initialized.
  virtual uint32_t CountMidashiData();

  // The headword line at `index`, its zero byte included; empty beyond the list.
  virtual std::string GetMidashiData(uint32_t index);

  // The best entries of `meaningList` by `searchKeys`, joined in the answer's order, tags and all. Clears
  // `headForm`. All keys but the first stop counting once 512 MiB of entries have been searched for them.
  virtual std::string RebuildResultData();

  // What a meaning search takes for a headword line: the line without brackets, gloss, marks and, in a
  // Japanese one, blanks and hyphens. "**run-up [助走]" gives "run-up".
  virtual std::string ExtractKeywordFromMidashiData(const std::string& midashi);

  // --- Meanings ---
  // `filter` is one of the kFilter values. Operations with a `keyword` ask for the entry with exactly that
  // headword line, an empty keyword for all entries of the word. Each writes the result file `outputSpec`.

  // All entries as one text, in `out` and `resultText`; a word without an entry gives that of its first
  // form that has one. True if there is a text.
  virtual bool GetImiE2(const std::string& word, uint8_t filter, std::string& out);

  // The same for Japanese, without forms. After an engine error the text of the look-up before goes
  // through the stages again, into `out` and the file too, and the result is false.
  virtual bool GetImiJ2(const std::string& word, uint8_t filter, std::string& out);

  // The tagged entries of the first form of `word` that has any, also in `resultText`; empty if none has.
  virtual std::string TryAllInflection(const std::string& word, uint8_t filter);

  // The best entries by the search keys of the keyword. True if the engine gave entries; an engine error
  // leaves all but `searchKeys` as it was, an empty answer runs the stages on the entries before it.
  virtual bool GetImiE(const std::string& word, uint8_t filter, const std::string& keyword);
  virtual bool GetImiJ(const std::string& word, uint8_t filter, const std::string& keyword);

  // GetImiE under the name by which it is called.
  virtual bool NewGetImiE(const std::string& word, uint8_t filter, const std::string& keyword);

  // All entries as one text, in `resultText`. True if the engine answered and there is a text; after an
  // engine error as in GetImiJ2.
  virtual bool NewGetImiJ(const std::string& word, uint8_t filter, const std::string& keyword);

  // Decodes a block list of the engine's SerchImi functions, each entry with two CRs behind it. With `join`
  // set gives the entries as one text, else puts them in `meaningList` and gives nothing. A size of 0
  // changes no field.
  virtual std::string DecodeImiData(uint8_t join, uint32_t size, Handle handle);

  // `outputText`, empty while not initialized.
  virtual std::string GetImiData();

  // --- Output ---

  // The last result with its tags as visible labels.
  virtual std::string GetDebugResult();

  // Replaces the file by `text` (type "TEXT", creator "ttxt") with `styleRuns` as its style record "styl"
  // 128: u16 count, then the runs, big end first. False when the reference is unset or the file can't be
  // made or put in place; a failed write of either part does not show.
  virtual bool OutputResultFile(const FileReference& file, const std::string& text);

  // The text with its meta keys removed, superscripts in brackets, or replaced by their labels.
  virtual std::string ConvertMetaKey(const std::string& text, uint8_t mode);

  // Set a colour. False, and nothing changed, if any component is 0xFFFF.
  virtual bool SetIndexColor(uint16_t red, uint16_t green, uint16_t blue);
  virtual bool SetSubIndexColor(uint16_t red, uint16_t green, uint16_t blue);
  virtual bool SetContentsColor(uint16_t red, uint16_t green, uint16_t blue);

  // Sets what later style runs tell. `font` is only kept. Always true.
  virtual bool SetFontAttribute(const std::string& font, uint32_t size, uint32_t ascent, uint32_t height);

  // Lays tagged entry text out for the reader; also in `outputText`, its style in `styleRuns`. An empty
  // text gives an empty one and changes no field.
  virtual std::string OutputResult(const std::string& text);

  // While `startMark` is found in `text`, erases from it through the first `endMark` of the whole text: an
  // end mark that stands ahead of the start mark makes it erase to the end. Without an end mark it stops.
  virtual void RemoveWordByRange(std::string& text, const std::string& startMark, const std::string& endMark);

  // Fills `searchKeys` with the keys in a headword line: "reading [form1,form2]" gives reading, form1,
  // form2. `word` is only checked.
  virtual void MakeSearchKey(const std::string& word, const std::string& keyword);

  // The zero-terminated text without meta keys and without what stands in "(" and ")".
  virtual std::string RemoveMetaKey(const char* text);

  // The text up to its first CR.
  virtual std::string GetHeadLine(const std::string& text);

  // A copy of the text with `from` replaced by `to` until it is no longer found. Nothing is replaced when
  // `from` is empty or part of `to`.
  virtual std::string ReplaceString(const std::string& text, const std::string& from, const std::string& to);

  // --- Data: the last result, and what shapes the next ---

  std::vector<std::string> searchKeys;     // keys that MakeSearchKey made
  std::vector<std::string> meaningList;    // entries of the last DecodeImiData in list mode
  std::string headForm;                    // the part of a keyword ahead of its brackets
  std::string resultText;                  // the meaning text as it goes through the stages
  FileReference outputSpec;                // the result file
  std::string debugResult;                 // the labelled form of the last result
  std::vector<ScrpSTElement> styleRuns;    // style runs of the last OutputResult
  uint8_t initialized = 0;                 // 1 once the engine opened
  std::vector<std::string> midashiList;    // lines of the last headword search
  std::vector<Inflection> inflectionList;  // forms of the last conjugation search
  std::string outputText;                  // the text of the last OutputResult
  RGBColor indexColor{0xFFFF, 0, 0};       // of headwords
  RGBColor subIndexColor{0, 0, 0xFFFF};    // of sense numbers
  RGBColor contentsColor{0, 0, 0};         // of text
  std::string fontName;
  int16_t fontId = 0x4000;   // no setter: always this
  uint32_t fontSize = 12;    // points
  uint32_t fontAscent = 12;  // points above the base line
  uint32_t lineHeight = 16;  // points

 private:
  bool refuses(const std::string& word) const;
  void addKeysOf(const std::string& line);
  std::string candidateOf(const std::string& entry);
  bool imiByKeys(bool english, const std::string& word, uint8_t filter, const std::string& keyword);
  bool imiJoined(const std::string& word, uint8_t filter, const std::string& keyword);
  void showResult(const std::string& text);
};

}  // namespace zavel

#endif
