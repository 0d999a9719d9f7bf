// Tests: tests/book/QueryTest.cpp
#include "book/ItemAddress.h"

#include <new>
#include <utility>

namespace zavel::book {

using foundation::_avltree;

int GFnCompareBodyAddress(const void* hit, const void* other) {
  const _SDICADDRESS& a = static_cast<const _SDICITEMADDRESS*>(hit)->body;
  const _SDICADDRESS& b = static_cast<const _SDICITEMADDRESS*>(other)->body;
  if (a.block != b.block) return a.block < b.block ? -1 : 1;
  if (a.offset != b.offset) return a.offset < b.offset ? -1 : 1;
  return 0;
}

void GFnDeleteItemAddress(void* hit) {
  delete static_cast<_SDICITEMADDRESS*>(hit);
}

bool addHit(_avltree** tree, const _SDICITEMADDRESS& hit) {
  _SDICITEMADDRESS* const copy = new (std::nothrow) _SDICITEMADDRESS(hit);
  if (!copy) return false;
  const int result = foundation::avlt_add(tree, copy, GFnCompareBodyAddress);
  if (result != foundation::kAvltAdded) GFnDeleteItemAddress(copy);
  return result != foundation::kAvltNoMemory;
}

void deleteHits(_avltree* tree) {
  foundation::avlt_delete_tree(tree, GFnDeleteItemAddress);
}

bool HitTree::holds(const _SDICITEMADDRESS& hit) const {
  return foundation::avlt_find(root_, &hit, GFnCompareBodyAddress) != nullptr;
}

_avltree* HitTree::release() {
  return std::exchange(root_, nullptr);
}

void HitTree::reset(_avltree* root) {
  deleteHits(std::exchange(root_, root));
}

}  // namespace zavel::book
