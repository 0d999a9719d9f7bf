#ifndef UI_DROPPEDTEXT_H
#define UI_DROPPEDTEXT_H

#include <optional>
#include <string>

#include "foundation/Export.h"

namespace zavel {

class View;

// The text of a drag over a view that takes text, from its entering to the drop.
class ZAVEL_API DroppedText {
 public:
  // Takes the string that the drag offers, in place of what an earlier one left. True if there is one: only
  // then will a drop be taken.
  bool enter(const std::optional<std::string>& text);

  // Forgets the text: the drag left.
  void exit() { text_.reset(); }

  // Posts ZFDropNotification for `target` with the text, and forgets it. False, and nothing posted, when
  // there is none.
  bool post(const View& target);

 private:
  std::optional<std::string> text_;
};

}  // namespace zavel

#endif
