// Tests: tests/ui/DropTest.cpp
#include "ui/ZEFWebView.h"

namespace zavel {

bool ZEFWebView::dragEntered(const std::optional<std::string>& text) {
  return shown() && text_.enter(text);
}

bool ZEFWebView::drop() {
  return shown() && text_.post(*this);
}

}  // namespace zavel
