// Tests: tests/ui/MenuTest.cpp
#include "ui/MenuItem.h"

namespace zavel {

MenuItem MenuItem::separatorItem() {
  MenuItem item;
  item.separator = true;
  return item;
}

}  // namespace zavel
