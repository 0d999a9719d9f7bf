// Tags as they stand in an entry.
#ifndef MKDICT_TAG_H
#define MKDICT_TAG_H

#include <cstdint>
#include <string>

namespace zavel::mkdict {

// The two bytes of a tag of engine/DicFormat.h.
inline std::string tag(uint16_t value) {
  return {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
}

}  // namespace zavel::mkdict

#endif
