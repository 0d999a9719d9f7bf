// Hits and their order, which is that of the books' body texts.
#ifndef BOOK_ITEMADDRESS_H
#define BOOK_ITEMADDRESS_H

#include "book/BookTypes.h"
#include "foundation/AvlTree.h"

namespace zavel::book {

// Of two _SDICITEMADDRESS: negative, 0 or positive as the first one's body stands ahead of, at or behind the
// second one's, by block, then offset.
int GFnCompareBodyAddress(const void* hit, const void* other);

// Frees a hit that was copied by addHit().
void GFnDeleteItemAddress(void* hit);

// Adds a copy of `hit` unless one of the same body is there. False when memory ran out.
bool addHit(foundation::_avltree** tree, const _SDICITEMADDRESS& hit);

void deleteHits(foundation::_avltree* tree);

// Frees its tree of hits at the end of its life unless release() gave it away.
class HitTree {
 public:
  explicit HitTree(foundation::_avltree* root = nullptr) : root_(root) {}
  ~HitTree() { deleteHits(root_); }
  HitTree(const HitTree&) = delete;
  HitTree& operator=(const HitTree&) = delete;

  foundation::_avltree* get() const { return root_; }
  foundation::_avltree** address() { return &root_; }
  bool holds(const _SDICITEMADDRESS& hit) const;
  bool empty() const { return root_ == nullptr; }

  foundation::_avltree* release();
  void reset(foundation::_avltree* root);

 private:
  foundation::_avltree* root_;  // owned, items as well
};

}  // namespace zavel::book

#endif
