// Tests: tests/lookup/StyleRunsTest.cpp, tests/lookup/RandomWalksTest.cpp
#include "lookup/StylePass.h"

#include <algorithm>

#include "lookup/ByteText.h"
#include "lookup/MetaKey.h"

namespace zavel {

std::string StylePass::run(std::vector<ScrpSTElement>& runs) {
  out_.reserve(in_.size());
  // The last byte is never looked at.
  while (left() >= 2) {
    ScrpSTElement record = plain_;
    record.scrpStartChar = static_cast<uint32_t>(out_.size());
    if (lineStart_) {
      color_ = plain_.scrpColor;
      runs.push_back(record);
    }
    record.scrpColor = color_;
    const uint8_t byte = static_cast<uint8_t>(in_[at_]);
    if (byte == kMetaKeyHigh2) {
      actOn(pairAt(at_), record, runs);
    } else {
      passOver();
    }
  }
  out_.append(in_, at_, left());
  return std::move(out_);
}

// 0, which is no key, where two bytes are not left.
uint16_t StylePass::pairAt(size_t position) const {
  if (position + 2 > in_.size()) return 0;
  return metaKeyPair(static_cast<uint8_t>(in_[position]), static_cast<uint8_t>(in_[position + 1]));
}

// Kept: of the keys that end a style or open a headword the walk steps back, of the others the byte that
// moves into the place is passed over; italic is shown bold too. See docs/quirks.md.
void StylePass::actOn(uint16_t key, ScrpSTElement record, std::vector<ScrpSTElement>& runs) {
  switch (key) {
    case kMetaBold:
    case kMetaJapaneseBold:
    case kMetaGothic:
    case kMetaSmallCapital:
      skip(pairAt(at_ + 2) == kMetaBold ? 4 : 2);
      record.scrpFace = kFaceBold;
      passOver();
      break;
    case kMetaJapaneseBoldEnd:
    case kMetaStyleEnd:
    case kMetaRoman:
      skip(2);
      record.scrpFace = kFacePlain;
      stepBack();
      break;
    case kMetaItalic:
      skip(2);
      record.scrpFace = kFaceBold | kFaceItalic;
      passOver();
      break;
    case kMetaBoldItalic:
      skip(4);
      record.scrpFace = kFaceBold | kFaceItalic;
      passOver();
      break;
    case kMetaSenseNumber:
      skip(2);
      record.scrpColor = color_ = subIndexColor_;
      passOver();
      lineStart_ = false;
      break;
    case kMetaMidashi:
      skip(2);
      record.scrpColor = color_ = indexColor_;
      record.scrpFace = kFaceBold;
      lineStart_ = false;
      break;
    default:
      return passOver();
  }
  runs.push_back(record);
}

// Takes one byte over; a CR opens a line.
void StylePass::passOver() {
  lineStart_ = left() > 0 && in_[at_] == kCarriageReturn;
  if (left() > 0) out_.push_back(in_[at_++]);
}

// The walk stands on the byte in front again: if that is a CR, the same place begins a line once more.
void StylePass::stepBack() {
  lineStart_ = !out_.empty() && out_.back() == kCarriageReturn;
}

void StylePass::skip(size_t count) {
  at_ += std::min(count, left());
}

}  // namespace zavel
