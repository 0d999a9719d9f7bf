// Counting what a widget tells.
#ifndef TESTS_UI_CHANGES_H
#define TESTS_UI_CHANGES_H

#include "ui/View.h"

namespace zavel::test {

// How often a signal without arguments was emitted.
class Count {
 public:
  explicit Count(Signal<>& signal) : connection_(signal.connect([this] { ++n; })) {}
  int n = 0;

 private:
  Connection connection_;
};

// How often a view told of a change in itself or below, and the last one that changed.
class Changes {
 public:
  explicit Changes(View& view)
      : connection_(view.changed.connect([this](View& v) {
          ++n;
          last = &v;
        })) {}
  int n = 0;
  const View* last = nullptr;

 private:
  Connection connection_;
};

}  // namespace zavel::test

#endif
