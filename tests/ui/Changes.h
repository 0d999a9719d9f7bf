// Counting what a widget tells, and widgets that a handler destroys.
#ifndef TESTS_UI_CHANGES_H
#define TESTS_UI_CHANGES_H

#include <cstddef>
#include <new>
#include <utility>

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

// A widget that ends when a handler says so. Whoever uses it afterwards finds what it left, or, where that is
// made useless, nothing that works.
template <typename Widget>
class Doomed {
 public:
  ~Doomed() { end(); }
  void end() {
    if (widget_) std::exchange(widget_, nullptr)->~Widget();
  }
  void endInRuins() {
    end();
    for (size_t i = 0; i < sizeof place_; ++i) static_cast<volatile unsigned char*>(place_)[i] = 0xA5;
  }
  bool ended() const { return widget_ == nullptr; }
  Widget* operator->() { return widget_; }

 private:
  alignas(Widget) unsigned char place_[sizeof(Widget)];
  Widget* widget_ = new (place_) Widget;
};

}  // namespace zavel::test

#endif
