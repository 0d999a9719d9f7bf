#ifndef LOOKUP_MIRELLDATA_H
#define LOOKUP_MIRELLDATA_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "foundation/Export.h"
#include "platform/SjisBytes.h"

namespace zavel {

// The row of the result list for the bilingual dictionary: what it takes to show the row and, when it is
// selected, its entry. The row owns its bytes.
class ZAVEL_API MirellData {
 public:
  // initWithMidashiBytes:midashiLength:keywordBytes:keywordLength:english:
  // Copies a headword line as the manager gave it, its terminating zero included, and the line's keyword.
  // Both become titles, decoded from Shift_JIS up to their first zero byte.
  void initWithMidashiBytes(const char* midashiBytes, size_t midashiLength, const char* keywordBytes,
                            size_t keywordLength, bool english);

  // setDataIndexTitle:cacheFile:
  void setDataIndexTitle(const std::string& indexTitle, const std::string& cacheFile);

  // setData:cacheFile:  The title is `data` decoded from Shift_JIS.
  void setData(const SjisBytes& data, const std::string& cacheFile);

  const char* midashiBytes() const { return midashiData_.data(); }
  size_t midashiLength() const { return midashiData_.size(); }
  const char* keywordBytes() const { return keywordData_.data(); }
  size_t keywordLength() const { return keywordData_.size(); }
  bool english() const { return english_ != 0; }
  const std::string& indexTitle() const { return indexTitle_; }
  const std::string& cacheFile() const { return cacheFile_; }
  const std::string& iPodTitle() const { return iPodTitle_; }

  // copyWithZone:  Kept: a copy has its title and cache file only; without bytes it can't be searched
  // again. See docs/quirks.md.
  MirellData copyWithZone() const;

 private:
  std::string midashiData_;  // headword line, Shift_JIS with its terminating zero
  std::string keywordData_;  // its keyword, Shift_JIS
  uint8_t english_ = 0;      // direction of the look-up that made the row
  std::string indexTitle_;   // what the list shows, UTF-8
  std::string cacheFile_;    // left empty by look-ups
  std::string iPodTitle_;    // the keyword as text, UTF-8: the title of a note
};

}  // namespace zavel

#endif
