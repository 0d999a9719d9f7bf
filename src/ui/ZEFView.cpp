// Tests: tests/ui/DropTest.cpp
#include "ui/ZEFView.h"

namespace zavel {

bool ZEFView::dragEntered(const std::optional<std::string>& text) {
  return shown() && text_.enter(text);
}

bool ZEFView::drop() {
  return shown() && text_.post(*this);
}

}  // namespace zavel
