// A walk byte by byte with five states. The phonetic bytes are no Shift_JIS, so tags and ≦ ≧ are looked
// for at every byte; only letters are asked whether they are the second half of a character.
//
//   kBefore --F4D0--> kMidasi --≦--> kHatuon --≧ or ","--> kDone
//                     kMidasi --"," or LF--> kDone
//                     kMidasi, kHatuon --F4B5--> kSuspended --F4D0--> back
//
// Tests: tests/engine/KatuyoMidasiTest.cpp.
#include "engine/KatuyoMidasi.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

constexpr size_t kMaxArea = kMaxEntry - 1;  // a NUL belongs to the area too
constexpr uint16_t kHatuonOpen = 0x8185;    // ≦
constexpr uint16_t kHatuonClose = 0x8186;   // ≧
constexpr std::string_view kEntryTag = "\xF5\xD1";

class MidasiReader {
 public:
  MidasiReader(std::string_view text, DicOneMidasiInfo* info) : text_(text), info_(info) {}

  void Read() {
    while (at_ < text_.size() && !(AtEntryTag() && ++entryTags_ > 1 && state_ != State::kBefore)) Step();
    info_->text = text_.substr(0, at_);
    TrimRight(&info_->MidaInfo);
    TrimRight(&info_->syllables);
  }

 private:
  enum class State { kBefore, kMidasi, kHatuon, kSuspended, kDone };

  uint8_t Byte(size_t at) const { return at < text_.size() ? static_cast<uint8_t>(text_[at]) : 0; }
  uint16_t Pair() const { return static_cast<uint16_t>(Byte(at_) << 8 | Byte(at_ + 1)); }
  bool AtEntryTag() const { return Pair() == kTagEntry; }

  // Takes the byte or the pair at at_.
  void Step() {
    switch (state_) {
      case State::kBefore:
        if (Pair() == kTagMarkerEnd) return Enter(State::kMidasi);
        break;
      case State::kSuspended:
        if (Pair() == kTagMarkerEnd) return Enter(resumed_);
        break;
      case State::kMidasi:
        return MidasiStep();
      case State::kHatuon:
        return HatuonStep();
      case State::kDone:
        at_ = std::min(text_.find(kEntryTag, at_ + 1), text_.size());
        return;
    }
    ++at_;
  }

  // Goes on in `state` behind the pair at at_.
  void Enter(State state) {
    state_ = state;
    at_ += 2;
    lead_ = false;
  }

  void Suspend() {
    resumed_ = state_;
    Enter(State::kSuspended);
  }

  void MidasiStep() {
    uint16_t tag = 0;
    if (Pair() == kTagMarker) return Suspend();
    if (Pair() == kHatuonOpen) return Enter(State::kHatuon);
    if (IsTag(Byte(at_), Byte(at_ + 1), &tag)) return Enter(State::kMidasi);
    MidasiByte(Byte(at_));
    ++at_;
  }

  void MidasiByte(uint8_t c) {
    const bool trail = lead_;
    lead_ = !trail && _ismbblead(c) != 0;
    if (_isalpha(c)) {
      if (!trail) Collect(c);
    } else if (c == kSyllableMark) {
      ++info_->markCount;
      Append(c, &info_->syllables);
    } else if (c == ' ' || c == '\'' || c == '-') {
      Collect(c);
    } else if (c == ',' || c == '\n') {
      state_ = State::kDone;
    } else if (c == '*') {
      info_->star = true;
    }
  }

  void HatuonStep() {
    if (Pair() == kTagMarker) return Suspend();
    if (Pair() == kHatuonClose || Byte(at_) == ',') {
      state_ = State::kDone;
    } else {
      Append(Byte(at_), &info_->pronunciation);
    }
    ++at_;
  }

  void Collect(uint8_t c) {
    Append(c, &info_->MidaInfo);
    Append(c, &info_->syllables);
  }

  static void Append(uint8_t c, std::string* area) {
    if (area->size() < kMaxArea) *area += static_cast<char>(c);
  }

  static void TrimRight(std::string* area) {
    while (!area->empty() && area->back() == ' ') area->pop_back();
  }

  std::string_view text_;
  DicOneMidasiInfo* info_;  // borrowed
  size_t at_ = 0;
  State state_ = State::kBefore;
  State resumed_ = State::kMidasi;  // what 0xF4D0 goes back to
  bool lead_ = false;               // the byte before at_ is the first half of a character
  int entryTags_ = 0;
};

}  // namespace

void GetOneMidasiInfo(std::string_view text, DicOneMidasiInfo* info) {
  *info = DicOneMidasiInfo();
  MidasiReader(text, info).Read();
}

}  // namespace zavel::engine
