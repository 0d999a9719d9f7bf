// The depth is at most 1.44 times the binary logarithm of the count, so that recursion is shallow.
// Tests: tests/foundation/AvlTreeTest.cpp
#include "foundation/AvlTree.h"

#include <algorithm>
#include <new>

namespace zavel::foundation {
namespace {

int32_t heightOf(const _avltree* tree) {
  return tree ? tree->height : 0;
}

void measure(_avltree* tree) {
  tree->height = std::max(heightOf(tree->left), heightOf(tree->right)) + 1;
}

_avltree* rotateRight(_avltree* tree) {
  _avltree* const root = tree->left;
  tree->left = root->right;
  root->right = tree;
  measure(tree);
  measure(root);
  return root;
}

_avltree* rotateLeft(_avltree* tree) {
  _avltree* const root = tree->right;
  tree->right = root->left;
  root->left = tree;
  measure(tree);
  measure(root);
  return root;
}

// One rotation where the outer grandchild is at least as high as the inner one, else two.
_avltree* balance(_avltree* tree) {
  const int32_t lean = heightOf(tree->left) - heightOf(tree->right);
  if (lean > 1) {
    if (heightOf(tree->left->left) < heightOf(tree->left->right)) tree->left = rotateLeft(tree->left);
    return rotateRight(tree);
  }
  if (lean < -1) {
    if (heightOf(tree->right->right) < heightOf(tree->right->left)) tree->right = rotateRight(tree->right);
    return rotateLeft(tree);
  }
  measure(tree);
  return tree;
}

// The new root of the subtree. `node` becomes null once it has found its place.
_avltree* avlt_add_sub(_avltree* tree, _avltree** node, avlt_compare compare) {
  if (!tree) {
    _avltree* const added = *node;
    *node = nullptr;
    return added;
  }
  const int order = compare(tree->item, (*node)->item);
  if (order == 0) return tree;
  _avltree*& child = order < 0 ? tree->right : tree->left;
  child = avlt_add_sub(child, node, compare);
  return *node ? tree : balance(tree);
}

void renumber(_avltree* tree, int32_t* next) {
  if (!tree) return;
  renumber(tree->left, next);
  tree->number = (*next)++;
  renumber(tree->right, next);
}

}  // namespace

int avlt_add(_avltree** tree, void* item, avlt_compare compare) {
  _avltree* node = new (std::nothrow) _avltree;
  if (!node) return kAvltNoMemory;
  node->item = item;
  *tree = avlt_add_sub(*tree, &node, compare);
  if (!node) return kAvltAdded;
  delete node;
  return kAvltThere;
}

_avltree* avlt_find(_avltree* tree, const void* key, avlt_compare compare) {
  while (tree) {
    const int order = compare(tree->item, key);
    if (order == 0) break;
    tree = order < 0 ? tree->right : tree->left;
  }
  return tree;
}

void avlt_delete_tree(_avltree* tree, avlt_delete_item deleteItem) {
  if (!tree) return;
  avlt_delete_tree(tree->left, deleteItem);
  avlt_delete_tree(tree->right, deleteItem);
  if (deleteItem) deleteItem(tree->item);
  delete tree;
}

void avlt_output_data(_avltree* tree, void* argument, avlt_visit visit) {
  if (!tree) return;
  avlt_output_data(tree->left, argument, visit);
  visit(tree->item, argument);
  avlt_output_data(tree->right, argument, visit);
}

size_t avlt_get_item_count(const _avltree* tree) {
  return tree ? avlt_get_item_count(tree->left) + avlt_get_item_count(tree->right) + 1 : 0;
}

int32_t avlt_renumber(_avltree* tree) {
  int32_t next = 0;
  renumber(tree, &next);
  return next - 1;
}

void* avlt_get_item(_avltree* tree, int32_t number) {
  while (tree && tree->number != number) tree = tree->number < number ? tree->right : tree->left;
  return tree ? tree->item : nullptr;
}

}  // namespace zavel::foundation
