// The one ordered container of the book engine. It keeps pointers to items and neither copies nor owns them.
//
// A tree is the pointer to its root, null when empty. There is insertion, search and deletion of the whole
// tree, but no deletion of one item.
#ifndef FOUNDATION_AVLTREE_H
#define FOUNDATION_AVLTREE_H

#include <cstddef>
#include <cstdint>

namespace zavel::foundation {

struct _avltree {
  int32_t height = 1;  // 1 for a leaf
  int32_t number = 0;  // see avlt_renumber
  _avltree* left = nullptr;
  _avltree* right = nullptr;
  void* item = nullptr;  // borrowed
};

// 0 for equal, negative when the node's item sorts ahead of `other`, positive when behind it. What avlt_find
// is asked for need not be of the items' own type.
using avlt_compare = int (*)(const void* nodeItem, const void* other);
using avlt_delete_item = void (*)(void* item);
using avlt_visit = void (*)(void* item, void* argument);

enum AvltResult : int {
  kAvltNoMemory = 0,  // the tree is as it was, the item still the caller's
  kAvltAdded = 1,
  kAvltThere = 2,  // an equal item is in the tree; the given one is still the caller's
};

// Adds `item` to `*tree`, which may become another root. Result: an AvltResult.
int avlt_add(_avltree** tree, void* item, avlt_compare compare);

// The node whose item is equal to `key`, or null.
_avltree* avlt_find(_avltree* tree, const void* key, avlt_compare compare);

// Calls `deleteItem` (may be null) on each item, children before their parent, and frees every node.
void avlt_delete_tree(_avltree* tree, avlt_delete_item deleteItem);

// Calls `visit` on each item in order. It must not change the tree.
void avlt_output_data(_avltree* tree, void* argument, avlt_visit visit);

size_t avlt_get_item_count(const _avltree* tree);

// Numbers the nodes in order from 0. Result: the last number, -1 for an empty tree.
int32_t avlt_renumber(_avltree* tree);

// The item of that number, or null. After avlt_add only avlt_renumber makes numbers true again.
void* avlt_get_item(_avltree* tree, int32_t number);

}  // namespace zavel::foundation

#endif
