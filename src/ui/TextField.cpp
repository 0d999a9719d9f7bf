// Tests: tests/ui/TextFieldTest.cpp
#include "ui/TextField.h"

#include "foundation/Utf8.h"

namespace zavel {

void TextField::setText(const std::string& text) {
  change(text_, replaceInvalidUtf8(text));
}

bool TextField::type(const std::string& text) {
  if (!takesEvents()) return false;
  setText(text);
  textEdited.emit();
  return true;
}

}  // namespace zavel
