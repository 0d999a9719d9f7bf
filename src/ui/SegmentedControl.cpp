// Tests: tests/ui/SegmentedControlTest.cpp
#include "ui/SegmentedControl.h"

#include <utility>

namespace zavel {

void SegmentedControl::setSegments(std::vector<Segment> segments) {
  if (segments == segments_ && selectedSegment_ == -1) return;
  segments_ = std::move(segments);
  selectedSegment_ = -1;
  notifyChange();
}

void SegmentedControl::setSegmentEnabled(size_t index, bool enabled) {
  if (index < segments_.size()) change(segments_[index].enabled, enabled);
}

void SegmentedControl::setSelectedSegment(int index) {
  if (index < -1 || index >= static_cast<int>(segments_.size())) return;
  change(selectedSegment_, index);
}

bool SegmentedControl::choose(size_t index) {
  if (!takesEvents() || index >= segments_.size() || !segments_[index].enabled) return false;
  setSelectedSegment(static_cast<int>(index));
  chosen.emit();
  return true;
}

}  // namespace zavel
