#include "foundation/AvlTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <random>
#include <vector>

namespace zavel::foundation {
namespace {

int compareInts(const void* node, const void* other) {
  return *static_cast<const int*>(node) - *static_cast<const int*>(other);
}

// Items of another type than what is looked for.
int compareTensToDigit(const void* node, const void* digit) {
  return *static_cast<const int*>(node) / 10 - (*static_cast<const char*>(digit) - '0');
}

void collect(void* item, void* list) {
  static_cast<std::vector<int>*>(list)->push_back(*static_cast<int*>(item));
}

int deleted = 0;
void count(void*) {
  ++deleted;
}

// A tree over numbers that live here.
class AvlTreeTest : public testing::Test {
 protected:
  ~AvlTreeTest() override { avlt_delete_tree(tree, nullptr); }

  int add(int& item) { return avlt_add(&tree, &item, compareInts); }
  void addAll(std::vector<int>& items) {
    for (int& item : items) ASSERT_EQ(add(item), kAvltAdded);
  }
  std::vector<int> items() {
    std::vector<int> list;
    avlt_output_data(tree, &list, collect);
    return list;
  }

  _avltree* tree = nullptr;
};

// Height by the nodes themselves; the subtrees' heights differ by at most 1 everywhere.
int checkedHeight(const _avltree* tree) {
  if (!tree) return 0;
  const int left = checkedHeight(tree->left), right = checkedHeight(tree->right);
  EXPECT_LE(std::abs(left - right), 1);
  EXPECT_EQ(tree->height, std::max(left, right) + 1);
  return std::max(left, right) + 1;
}

TEST_F(AvlTreeTest, IsEmptyAtFirst) {
  EXPECT_EQ(avlt_get_item_count(tree), 0u);
  EXPECT_EQ(avlt_renumber(tree), -1);
  EXPECT_EQ(avlt_get_item(tree, 0), nullptr);
  const int one = 1;
  EXPECT_EQ(avlt_find(tree, &one, compareInts), nullptr);
  EXPECT_TRUE(items().empty());
  avlt_delete_tree(tree, count);
}

TEST_F(AvlTreeTest, TakesAnEqualItemOnce) {
  int first = 7, second = 7;
  EXPECT_EQ(add(first), 1);
  EXPECT_EQ(add(second), 2);
  EXPECT_EQ(avlt_get_item_count(tree), 1u);
  EXPECT_EQ(avlt_find(tree, &second, compareInts)->item, &first);
}

TEST_F(AvlTreeTest, HasALeafOfHeightOne) {
  int one = 1;
  add(one);
  EXPECT_EQ(tree->height, 1);
  EXPECT_EQ(tree->left, nullptr);
  EXPECT_EQ(tree->right, nullptr);
}

// Three in each of the four orders that need a turn: the middle one comes to the top.
TEST_F(AvlTreeTest, TurnsOnceOrTwice) {
  const std::vector<std::vector<int>> orders = {{3, 2, 1}, {1, 2, 3}, {3, 1, 2}, {1, 3, 2}};
  for (std::vector<int> order : orders) {
    _avltree* turned = nullptr;
    for (int& item : order) avlt_add(&turned, &item, compareInts);
    EXPECT_EQ(*static_cast<int*>(turned->item), 2);
    EXPECT_EQ(*static_cast<int*>(turned->left->item), 1);
    EXPECT_EQ(*static_cast<int*>(turned->right->item), 3);
    EXPECT_EQ(turned->height, 2);
    avlt_delete_tree(turned, nullptr);
  }
}

TEST_F(AvlTreeTest, StaysFlatInAnyOrder) {
  std::vector<int> numbers(2000);
  std::iota(numbers.begin(), numbers.end(), 0);
  std::mt19937 random(5);
  for (int round = 0; round < 3; ++round) {
    _avltree* shuffled = nullptr;
    for (int& number : numbers) ASSERT_EQ(avlt_add(&shuffled, &number, compareInts), kAvltAdded);
    EXPECT_LE(checkedHeight(shuffled), 1.45 * std::log2(2000 + 2));
    EXPECT_EQ(avlt_get_item_count(shuffled), 2000u);
    avlt_delete_tree(shuffled, nullptr);
    std::shuffle(numbers.begin(), numbers.end(), random);
  }
}

TEST_F(AvlTreeTest, NumbersInOrderFromZero) {
  std::vector<int> numbers = {50, 20, 80, 10, 30};
  addAll(numbers);
  EXPECT_EQ(avlt_renumber(tree), 4);
  EXPECT_EQ(*static_cast<int*>(avlt_get_item(tree, 0)), 10);
  EXPECT_EQ(*static_cast<int*>(avlt_get_item(tree, 2)), 30);
  EXPECT_EQ(*static_cast<int*>(avlt_get_item(tree, 4)), 80);
  EXPECT_EQ(avlt_get_item(tree, 5), nullptr);
  EXPECT_EQ(avlt_get_item(tree, -1), nullptr);
  EXPECT_EQ(items(), (std::vector<int>{10, 20, 30, 50, 80}));
}

TEST_F(AvlTreeTest, MissesItemsThatAreNotNumberedYet) {
  std::vector<int> numbers = {1, 2, 3};
  addAll(numbers);
  avlt_renumber(tree);
  int four = 4;
  add(four);
  EXPECT_EQ(avlt_get_item(tree, 3), nullptr);
  avlt_renumber(tree);
  EXPECT_EQ(avlt_get_item(tree, 3), &four);
}

TEST_F(AvlTreeTest, FindsByAKeyOfAnotherType) {
  std::vector<int> numbers = {11, 35, 52};
  addAll(numbers);
  const char three = '3', four = '4';
  EXPECT_EQ(avlt_find(tree, &three, compareTensToDigit)->item, &numbers[1]);
  EXPECT_EQ(avlt_find(tree, &four, compareTensToDigit), nullptr);
}

TEST_F(AvlTreeTest, DeletesEveryItemOnce) {
  std::vector<int> numbers = {4, 2, 6, 1, 3, 5, 7};
  addAll(numbers);
  deleted = 0;
  avlt_delete_tree(tree, count);
  tree = nullptr;
  EXPECT_EQ(deleted, 7);
}

}  // namespace
}  // namespace zavel::foundation
