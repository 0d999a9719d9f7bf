#ifndef UI_IMAGEVIEW_H
#define UI_IMAGEVIEW_H

#include <string>

#include "ui/View.h"

namespace zavel {

class ZAVEL_API ImageView : public View {
 public:
  using View::View;

  // Name of an image resource; empty for none.
  const std::string& imageName() const { return imageName_; }
  void setImageName(const std::string& name) { change(imageName_, name); }

 private:
  std::string imageName_;
};

}  // namespace zavel

#endif
