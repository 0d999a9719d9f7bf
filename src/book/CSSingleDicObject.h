// A book by itself: its hits, the language of queries, and what its publisher says of it.
#ifndef BOOK_CSSINGLEDICOBJECT_H
#define BOOK_CSSINGLEDICOBJECT_H

#include <cstdint>
#include <optional>
#include <string>

#include "book/CSDicObject.h"

namespace zavel::book {

class CSSingleDicObject : public CSDicObject {
 public:
  ~CSSingleDicObject() override;

  BookStatus Fn_ExecIndexSearch(const char* query, bool ignored, bool keep, long* count,
                                long* first) override;
  BookStatus Fn_GetSearchResult(unsigned long number, _SDICITEMADDRESS* hit) override;
  BookStatus Fn_GetDataSpecVersion(uint32_t* high, uint32_t* low) override;
  BookStatus Fn_GetContentType(uint32_t* type) override;
  BookStatus Fn_GetPublisherInfo(char** info, uint32_t* length) override;
  int32_t Fn_GetPublisherVersion() override { return m_publisherVersion; }

  size_t Fn_GetHitCount() const { return foundation::avlt_get_item_count(m_hitTree); }
  void Fn_ClearSearchResult();

 protected:
  struct QueryLevel;

  // Reads a query from `*cursor` on and searches its keys. One level for each group. On success the cursor
  // stands behind what was understood; an empty intersection leaves it where it was (kept: docs/quirks.md).
  BookStatus Fp_ParseAndSearch(const char** cursor, foundation::_avltree** tree, _SDICITEMADDRESS* firstHit,
                               int depth = 0);

  // A new tree of copies: what is in both, as `first` has it, or what is in either. Null for none.
  static BookStatus Fp_CompositeTree(foundation::_avltree* first, foundation::_avltree* second,
                                     bool intersect, foundation::_avltree** result);

  std::optional<std::string> m_publisherInfo;
  int32_t m_publisherVersion = 1;
  foundation::_avltree* m_multiTree = nullptr;  // of _EPMULTISEARCHBLOCK, owned
  bool m_bPrefixMatch = false;                  // an entry that goes on behind the key is a hit
  uint32_t m_vowelPass = 0;                     // 1 to 6: what the long vowel mark stands for; 0: itself
  uint32_t m_specVersionHigh = 0;
  uint32_t m_specVersionLow = 0;
  uint32_t m_contentType = 0;
  uint32_t m_bAltWordKinds = 1;               // exact searches may use forward indexes
  foundation::_avltree* m_hitTree = nullptr;  // owned
  uint16_t m_multiCount = 0;
  int16_t m_multiSelected = -1;
  std::string m_bookDir;
};

}  // namespace zavel::book

#endif
