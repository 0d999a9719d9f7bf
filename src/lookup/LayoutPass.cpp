// Tests: tests/lookup/LayoutTest.cpp, tests/lookup/RandomWalksTest.cpp
//
// The walk is defined inside one text: it replaces a key there and goes one position on. After a
// replacement it then stands on the second byte of what was put there, which holds nothing to act on; after
// a deletion it has passed over the byte that moved in. So the text falls in two, the settled part and the
// part to come, and a replacement is an append to the first: the whole pass is one run over the text.
#include "lookup/LayoutPass.h"

#include <algorithm>

#include "lookup/ByteText.h"
#include "lookup/MetaKey.h"

namespace zavel {
namespace {

constexpr std::string_view kBlanks4 = "    ";
constexpr std::string_view kBlanks8 = "        ";
constexpr std::string_view kBlanks14 = "              ";
constexpr std::string_view kLineBreak = "\x0D";
constexpr std::string_view kSenseNumberKey = "\xF5\xC9";
static_assert(kMetaSenseNumber == 0xF5C9);

}  // namespace

std::string LayoutPass::run() {
  out_.reserve(in_.size() + in_.size() / 8);
  // The last byte is never looked at.
  while (left() >= 2) {
    const uint8_t byte = static_cast<uint8_t>(in_[at_]);
    if (byte == kMetaKeyHigh1 || byte == kMetaKeyHigh2) {
      actOn(metaKeyPair(byte, static_cast<uint8_t>(in_[at_ + 1])));
    } else {
      passOver();
    }
  }
  out_.append(in_, at_, left());
  return std::move(out_);
}

int LayoutPass::peek(size_t ahead) const {
  return ahead < left() ? static_cast<uint8_t>(in_[at_ + ahead]) : -1;
}

bool LayoutPass::afterCarriageReturn() const {
  return !out_.empty() && out_.back() == kCarriageReturn;
}

void LayoutPass::actOn(uint16_t key) {
  switch (key) {
    case kMetaSubscript:
    case kMetaSuperscript:
      return put("(");
    case kMetaScriptEnd:
      return put(")");
    case kMetaIgnore:
      return ignore();
    case kMetaUnknown1End:
    case kMetaUnknown2End:
    case kMetaUnknown2:
      return put("");
    case kMetaUnknown1:
      return joinSpacedText();
    case kMetaCompound:
    case kMetaOrigin:
    case kMetaIdiomHinsi:
    case kMetaPhraseEnglish:
    case kMetaSentenceEnglish:
      return put(kBlanks8);
    case kMetaHinsi:
      return breakHinsi();
    case kMetaTranslation:
      return startTranslation();
    case kMetaUsage:
    case kMetaIdiomTranslation:
      return putOnLine(kBlanks14);
    case kMetaIdiom:
      return putOnLine(kBlanks8);
    case kMetaNote:
      return put(afterCarriageReturn() ? kBlanks14 : "");
    case kMetaExampleJapanese:
      return put(kBlanks4);
    case kMetaRunOn:
    case kMetaIdiomExample:
    case kMetaIdiomNote:
      return put(kBlanks14);
    default:
      return passOver();
  }
}

// Takes one byte over as it is, an escape as a blank.
void LayoutPass::passOver() {
  if (left() == 0) return;
  const char byte = in_[at_++];
  out_.push_back(byte == static_cast<char>(kEscape) ? ' ' : byte);
}

// Replaces the key at the read position. Kept: after a plain deletion the byte that moved into its place
// is passed over as the first byte of a pair, so that of two adjacent keys the second stays; see
// docs/quirks.md.
void LayoutPass::put(std::string_view replacement) {
  at_ += 2;
  if (replacement.empty()) return passOver();
  out_ += replacement;
}

void LayoutPass::putOnLine(std::string_view replacement) {
  if (!afterCarriageReturn()) out_ += kLineBreak;
  put(replacement);
}

// Deletes the key and the next CR, however far on it stands, and looks at the same place again: the one
// key after which the walk steps back.
void LayoutPass::ignore() {
  at_ += 2;
  hinsiBreaks_ = false;
  if (!returnsLeft_) return;
  const size_t end = in_.find(kCarriageReturn, at_);
  returnsLeft_ = end != std::string::npos;
  if (!returnsLeft_) return;
  spend(end - at_);
  std::move_backward(in_.begin() + static_cast<ptrdiff_t>(at_), in_.begin() + static_cast<ptrdiff_t>(end),
                     in_.begin() + static_cast<ptrdiff_t>(end) + 1);
  ++at_;
  spaceFreeUntil_ = std::min(spaceFreeUntil_, end);  // the CR may have parted one
}

// Deletes the key, and the ideographic spaces ahead of the next ")".
void LayoutPass::joinSpacedText() {
  at_ += 2;
  const size_t bracket = bracketsLeft_ ? in_.find(')', at_) : std::string::npos;
  bracketsLeft_ = bracket != std::string::npos;
  if (bracketsLeft_) {
    spend(bracket - at_);
    dropIdeographicSpaces(bracket - at_);
  }
  passOver();
}

// Deletes each ideographic space that begins at fewer than `limit` bytes from the read position. Kept: the
// limit stays where it was while the text draws closer, so k deletions let 2k bytes behind it be searched
// too; see docs/quirks.md.
void LayoutPass::dropIdeographicSpaces(size_t limit) {
  const size_t from = std::max(at_, spaceFreeUntil_);
  const size_t first = in_.find(kIdeographicSpace, from);
  spaceFreeUntil_ = std::min(first, in_.size());
  spend(spaceFreeUntil_ - from);
  if (spaceFreeUntil_ >= at_ + limit) return;
  std::string kept(in_, at_, first - at_);
  size_t read = first;
  while (read < in_.size() && kept.size() <= limit) {
    kept.push_back(in_[read++]);
    if (kept.back() != kIdeographicSpace.back() || !kept.ends_with(kIdeographicSpace)) continue;
    if (kept.size() - 2 < limit) kept.resize(kept.size() - 2);
  }
  spend(4 * kept.size());  // byte by byte costs more than a plain search
  at_ = read - kept.size();
  kept.copy(&in_[at_], kept.size());
}

// Many keys that each go far would take time by the square of the text's length. Past any entry's need they
// go as if nothing stood ahead.
void LayoutPass::spend(size_t bytes) {
  constexpr size_t kMost = size_t{1} << 28;
  spent_ += bytes;
  if (spent_ > kMost) returnsLeft_ = bracketsLeft_ = false;
}

void LayoutPass::breakHinsi() {
  put(hinsiBreaks_ ? kLineBreak : "");
  hinsiBreaks_ = true;
}

// Puts a translation on a line of its own; what stands behind the key says whether a sense begins here.
void LayoutPass::startTranslation() {
  std::string start;
  if (!afterCarriageReturn()) start += kLineBreak;
  const int high = peek(2);
  const int low = peek(3);
  const int label = peek(4);
  if (high == (kMetaBold >> 8) && low == (kMetaBold & 0xFF)) {
    start += label >= 'A' && label <= 'Z' ? kLineBreak : kBlanks8;
  } else if (high == (kMetaGothic >> 8) && low == (kMetaGothic & 0xFF)) {
    if (label != '1') start += kLineBreak;
    start += kSenseNumberKey;
    start += kBlanks4;
  }
  put(start);
}

}  // namespace zavel
