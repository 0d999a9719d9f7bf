// What a book's publisher says, and its hits. Tests: tests/book/QueryTest.cpp, tests/book/OpenTest.cpp
#include "book/CSSingleDicObject.h"

#include <limits>

#include "book/ItemAddress.h"
#include "book/OutBuffer.h"

namespace zavel::book {

using foundation::_avltree;

CSSingleDicObject::~CSSingleDicObject() {
  Fn_ClearSearchResult();
}

void CSSingleDicObject::Fn_ClearSearchResult() {
  deleteHits(m_hitTree);
  m_hitTree = nullptr;
}

BookStatus CSSingleDicObject::Fn_ExecIndexSearch(const char* query, bool, bool keep, long* count,
                                                 long* first) {
  if (!m_bOpened) return kNotOpen;
  if (!query || !count || !first) return kInvalidArgument;
  *count = *first = 0;
  if (!keep) Fn_ClearSearchResult();
  if (*query == '\0') return kInvalidArgument;
  const std::string copy = query;
  const char* cursor = copy.c_str();
  HitTree found;
  _SDICITEMADDRESS firstHit{};
  if (const BookStatus status = Fp_ParseAndSearch(&cursor, found.address(), &firstHit)) return status;
  if (*cursor != '\0') return kBadKey;
  // kept: hits that are kept from an earlier search stay as they are (docs/quirks.md)
  if (!m_hitTree) m_hitTree = found.release();
  *count = foundation::avlt_renumber(m_hitTree) + 1L;
  const _avltree* const node = foundation::avlt_find(m_hitTree, &firstHit, GFnCompareBodyAddress);
  *first = node ? node->number : 0;
  return kDone;
}

BookStatus CSSingleDicObject::Fn_GetSearchResult(unsigned long number, _SDICITEMADDRESS* hit) {
  if (!m_bOpened) return kNotOpen;
  constexpr unsigned long kLast = std::numeric_limits<int32_t>::max();
  if (!hit || number > kLast) return kInvalidArgument;
  const void* const item = foundation::avlt_get_item(m_hitTree, static_cast<int32_t>(number));
  if (!item) return kInvalidArgument;
  *hit = *static_cast<const _SDICITEMADDRESS*>(item);
  return kDone;
}

BookStatus CSSingleDicObject::Fn_GetDataSpecVersion(uint32_t* high, uint32_t* low) {
  if (!high || !low) return kInvalidArgument;
  *high = m_specVersionHigh;
  *low = m_specVersionLow;
  return kDone;
}

BookStatus CSSingleDicObject::Fn_GetContentType(uint32_t* type) {
  if (!type) return kInvalidArgument;
  *type = m_contentType;
  return kDone;
}

BookStatus CSSingleDicObject::Fn_GetPublisherInfo(char** info, uint32_t* length) {
  if (!m_bOpened) return kNotOpen;
  if (!info || !length) return kInvalidArgument;
  if (!m_publisherInfo) return kNoInformation;
  *info = copyOut(*m_publisherInfo);
  if (!*info) return kOutOfMemory;
  *length = static_cast<uint32_t>(m_publisherInfo->size());
  return kDone;
}

}  // namespace zavel::book
