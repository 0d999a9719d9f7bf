// Tests: tests/book/OpenTest.cpp
#include "book/CSDicObject.h"

namespace zavel::book {

BookStatus CSDicObject::Fn_GetAvailableMethods(uint32_t* methods) const {
  if (!m_bOpened) return kNotOpen;
  if (!methods) return kInvalidArgument;
  *methods = m_methods;
  return kDone;
}

}  // namespace zavel::book
