// The tab of literature search.
#ifndef RESEARCH_D_CONTROLLER_H
#define RESEARCH_D_CONTROLLER_H

#include <string>

#include "ui/TextField.h"

namespace zavel {

// Takes its events and keeps what they asked for.
class ZAVEL_API D_Controller {
 public:
  // initialize:viewID:  `viewNumber` tells this tab's translations from those of other windows.
  void initialize(const Rect& frame, int viewNumber);

  View& mainView() { return view_; }
  int viewID() const { return viewID_; }
  TextField& queryField() { return queryField_; }

  void setQuery(const std::string& query) { queryField_.setText(query); }

 private:
  View view_;
  TextField queryField_;
  int viewID_ = 0;
};

}  // namespace zavel

#endif
