// The tab of example archives.
#ifndef RESEARCH_A_CONTROLLER_H
#define RESEARCH_A_CONTROLLER_H

#include <string>

#include "ui/TextField.h"

namespace zavel {

// Takes its events and keeps what they asked for.
class ZAVEL_API A_Controller {
 public:
  // initialize:
  void initialize(const Rect& frame);

  View& mainView() { return view_; }
  TextField& queryField() { return queryField_; }

  void setQuery(const std::string& query) { queryField_.setText(query); }

 private:
  View view_;
  TextField queryField_;
};

}  // namespace zavel

#endif
