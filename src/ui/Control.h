#ifndef UI_CONTROL_H
#define UI_CONTROL_H

#include "ui/View.h"

namespace zavel {

// A widget that the user acts on. While it is disabled, or not shown, its event methods do nothing and give
// false, so that a late click of a host does no harm.
class ZAVEL_API Control : public View {
 public:
  using View::View;

  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { change(enabled_, enabled); }

  // Tells controls apart that share a handler.
  int tag() const { return tag_; }
  void setTag(int tag) { change(tag_, tag); }

  bool takesEvents() const { return enabled_ && shown(); }

 private:
  bool enabled_ = true;
  int tag_ = 0;
};

}  // namespace zavel

#endif
