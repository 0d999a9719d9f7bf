// Tests: tests/ui/ViewTest.cpp
#include "ui/View.h"

#include <algorithm>

namespace zavel {

View::~View() {
  for (View* child : children_) child->parent_ = nullptr;
  children_.clear();
  if (parent_) parent_->removeChild(*this);
}

bool View::shown() const {
  for (const View* view = this; view; view = view->parent_) {
    if (view->hidden_) return false;
    if (view->parent_ && !view->parent_->shows(*view)) return false;
  }
  return true;
}

void View::addChild(View& child) {
  for (const View* view = this; view; view = view->parent_)
    if (view == &child) return;
  if (child.parent_) child.parent_->removeChild(child);
  child.parent_ = this;
  children_.push_back(&child);
  notifyChange();
}

void View::removeChild(View& child) {
  if (child.parent_ != this) return;
  child.parent_ = nullptr;
  std::erase(children_, &child);
  childLeft(child);
  notifyChange();
}

bool View::dragEntered(const std::optional<std::string>&) {
  return false;
}

void View::notifyChange() {
  for (View* view = this; view; view = view->parent_) view->changed.emit(*this);
}

bool View::shows(const View&) const {
  return true;
}

}  // namespace zavel
