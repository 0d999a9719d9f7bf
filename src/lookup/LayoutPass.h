#ifndef LOOKUP_LAYOUTPASS_H
#define LOOKUP_LAYOUTPASS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zavel {

// Turns the meta keys that stand for layout into line breaks, indents and brackets. Keys of headwords and
// styles pass untouched, and kMetaSenseNumber is put in front of sense numbers for the pass that follows.
//
//   F5D1 go LF... F5D3 -[動] CR F5D4 F5BD 1 ...   gives   F5D1 go ... CR -[動] CR F5C9 ____ F5BD 1 ...
//
// The walk is over bytes, blind to Shift_JIS: a trail byte 0xF4 or 0xF5 with the right lead byte behind it
// is a key like any other.
//
// What a key looks for far ahead it looks for as long as all such ways together are at most 256 MiB, that is
// 4,096 keys that each go 64 KiB: no text takes hours.
class LayoutPass {
 public:
  explicit LayoutPass(std::string text) : in_(std::move(text)) {}

  // The laid-out text; a text of fewer than two bytes as it is. To be called once.
  std::string run();

 private:
  size_t left() const { return in_.size() - at_; }
  // The byte `ahead` of the read position, -1 behind the end.
  int peek(size_t ahead) const;
  bool afterCarriageReturn() const;

  void actOn(uint16_t key);
  void put(std::string_view replacement);
  void putOnLine(std::string_view replacement);
  void passOver();
  void ignore();
  void joinSpacedText();
  void breakHinsi();
  void startTranslation();
  void dropIdeographicSpaces(size_t limit);
  void spend(size_t bytes);

  std::string in_;  // [at_, end) is still to be laid out
  size_t at_ = 0;
  std::string out_;            // the text ahead of the walk's position
  bool hinsiBreaks_ = true;    // the part-of-speech flag: the next kMetaHinsi begins a line
  size_t spaceFreeUntil_ = 0;  // no ideographic space begins in [at_, here)
  bool bracketsLeft_ = true;   // a ")" may stand ahead
  bool returnsLeft_ = true;    // a CR may stand ahead
  size_t spent_ = 0;           // bytes looked through and moved far ahead
};

}  // namespace zavel

#endif
