// Characters of Unicode and of JIS X 0208, in the rows that books use.
#ifndef MKBOOK_JISTABLE_H
#define MKBOOK_JISTABLE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zavel::mkbook {

// 〓, which stands for what can't be written.
inline constexpr uint16_t kGeta = 0x222E;

class JisTable {
 public:
  static const JisTable& shared();

  // The code of a character, 0 for none. ASCII has the codes of its full-width partners; of the several ways
  // to write a wave dash, a minus and their like in Unicode each has the one code.
  uint16_t codeOf(char32_t character) const;

  // The character of a code, 0 for none; with `half` the ASCII character if the code has one.
  char32_t characterOf(uint16_t code, bool half) const;

 private:
  JisTable();
  void add(uint16_t code, char32_t character);

  std::unordered_map<char32_t, uint16_t> codes_;
  std::unordered_map<uint16_t, char32_t> characters_, ascii_;
};

// A word as a search has it, where every character can be typed: accents fall, ligatures are spelled out.
// Empty when there is no such form.
std::string typedForm(std::string_view utf8);

// In EUC-JP, ASCII as it is; 〓 for what that can't write.
std::string eucOf(std::string_view utf8);

}  // namespace zavel::mkbook

#endif
