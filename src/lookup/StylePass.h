#ifndef LOOKUP_STYLEPASS_H
#define LOOKUP_STYLEPASS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "lookup/RGBColor.h"
#include "lookup/ScrpSTElement.h"

namespace zavel {

// Takes the keys of headwords, senses and type faces out of a laid-out text and tells them as style runs.
// Every line begins with a run of its own in the text's colour; offsets never fall from run to run.
class StylePass {
 public:
  // What a plain run at offset 0 looks like, and the two other colours.
  StylePass(std::string text, const ScrpSTElement& plain, const RGBColor& indexColor,
            const RGBColor& subIndexColor)
      : in_(std::move(text)),
        plain_(plain),
        indexColor_(indexColor),
        subIndexColor_(subIndexColor),
        color_(plain.scrpColor) {}

  // The text without those keys, the runs appended to `runs`. A text of fewer than two bytes comes back as
  // it is. To be called once.
  std::string run(std::vector<ScrpSTElement>& runs);

 private:
  size_t left() const { return in_.size() - at_; }
  uint16_t pairAt(size_t position) const;
  void actOn(uint16_t key, ScrpSTElement record, std::vector<ScrpSTElement>& runs);
  void passOver();
  void stepBack();
  void skip(size_t count);

  std::string in_;  // [at_, end) is still to be looked at
  size_t at_ = 0;
  std::string out_;  // the text ahead of the walk's position
  ScrpSTElement plain_;
  RGBColor indexColor_;
  RGBColor subIndexColor_;
  RGBColor color_;         // of the runs from here on
  bool lineStart_ = true;  // the next position begins a line
};

}  // namespace zavel

#endif
