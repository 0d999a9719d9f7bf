#ifndef UI_SEGMENTEDCONTROL_H
#define UI_SEGMENTEDCONTROL_H

#include <cstddef>
#include <string>
#include <vector>

#include "ui/Control.h"

namespace zavel {

// A row of segments, of which one is selected or none. Indexes beyond the row are passed over.
class ZAVEL_API SegmentedControl : public Control {
 public:
  struct Segment {
    std::string label;
    std::string imageName = std::string();  // of a resource; empty for none
    std::string tooltip = std::string();
    bool enabled = true;

    bool operator==(const Segment&) const = default;
  };

  using Control::Control;

  const std::vector<Segment>& segments() const { return segments_; }
  // Also selects nothing.
  void setSegments(std::vector<Segment> segments);
  void setSegmentEnabled(size_t index, bool enabled);

  // -1 while none is selected. Setting another index than those and -1 changes nothing.
  int selectedSegment() const { return selectedSegment_; }
  void setSelectedSegment(int index);

  // A momentary control is a row of buttons: a host shows none of them as selected, and the selected segment
  // is the one clicked last.
  bool momentary() const { return momentary_; }
  void setMomentary(bool momentary) { change(momentary_, momentary); }

  // The user clicked a segment, be it the selected one. True if it could be clicked.
  bool choose(size_t index);

  Signal<> chosen;

 private:
  std::vector<Segment> segments_;
  int selectedSegment_ = -1;
  bool momentary_ = false;
};

}  // namespace zavel

#endif
