// Tests: tests/mkbook/MenuWriterTest.cpp
#include "mkbook/MenuWriter.h"

#include <algorithm>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr uint16_t kFrame = 0x1F4C;  // what a menu with pictures begins with

std::string words(std::initializer_list<uint16_t> values) {
  std::string out;
  for (const uint16_t value : values) appendBE16(out, value);
  return out;
}

}  // namespace

MenuWriter::MenuWriter(const std::vector<Menu>& menus, bool pictures) {
  std::copy_if(menus.begin(), menus.end(), std::back_inserter(menus_),
               [&](const Menu& menu) { return menu.pictures == pictures; });
  places_.resize(menus_.size());
}

// A reader begins behind the tag that begins a text, and knows by it that the menu is whole. The first menu
// has that tag at the end of the block ahead of the region (see Compiler.cpp).
std::string MenuWriter::text(size_t number, BodyWriter& writer) const {
  const Menu& menu = menus_[number];
  const std::string head = menu.pictures ? words({kFrame, 0}) : number == 0 ? "" : words({kTagBegin});
  return head + writer.menu(menu.lines) + words({kTagEnd});
}

uint32_t MenuWriter::place(uint32_t first, BodyWriter& writer) {
  first_ = first;
  size_t size = 0;
  for (size_t i = 0; i < menus_.size(); ++i) {
    places_[i] = size + (i > 0 && !menus_[i].pictures ? 2 : 0);
    size += text(i, writer).size();
  }
  return first + static_cast<uint32_t>((size + kBlock - 1) / kBlock);
}

std::optional<_SDICADDRESS> MenuWriter::addressOf(const std::string& name) const {
  for (size_t i = 0; i < menus_.size(); ++i) {
    if (menus_[i].name != name) continue;
    return _SDICADDRESS{first_ + static_cast<uint32_t>(places_[i] >> kBlockShift),
                        static_cast<uint32_t>(places_[i] & kBlockMask)};
  }
  return std::nullopt;
}

std::string MenuWriter::bytes(BodyWriter& writer) const {
  std::string out;
  for (size_t i = 0; i < menus_.size(); ++i) out += text(i, writer);
  return out;
}

}  // namespace zavel::mkbook
