// The file: "bplist00", objects, table of object offsets, trailer of 32 bytes. An object is a marker (kind
// in the high half, size in the low one; 15 says that an integer object with the size follows) and its
// payload. The walk goes depth first with a list of its own and remembers for every finished object what it
// unfolds to, so that it visits each once however often it is named.
// Tests: tests/port/PlistPropertyListsTest.cpp
#include "base/BinaryPlistCheck.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "base/PlistLimits.h"
#include "base/PlistText.h"
#include "foundation/ByteReader.h"

namespace zavel {
namespace {

constexpr std::string_view kMagic = "bplist00";
constexpr size_t kTrailerSize = 32;
// Places in the trailer.
constexpr size_t kOffsetSizeAt = 6;     // bytes of an entry of the offset table
constexpr size_t kReferenceSizeAt = 7;  // bytes of a reference to an object
constexpr size_t kCountAt = 8;          // objects
constexpr size_t kTopAt = 16;           // number of the outermost object
constexpr size_t kTableAt = 24;         // place of the offset table

enum Kind : uint8_t {
  kSimple = 0x0,  // false 0x08, true 0x09
  kInteger = 0x1,
  kReal = 0x2,
  kDate = 0x3,
  kData = 0x4,
  kAscii = 0x5,
  kUtf16 = 0x6,
  kArray = 0xA,
  kDict = 0xD,
};

struct Object {
  uint8_t kind = 0;
  uint8_t low = 0;                   // low half of the marker
  uint64_t count = 0;                // bytes, units or members
  const uint8_t* payload = nullptr;  // `size` bytes, all inside the file
  uint64_t size = 0;
};

class Checker {
 public:
  explicit Checker(std::string_view bytes)
      : data_(reinterpret_cast<const uint8_t*>(bytes.data())), size_(bytes.size()) {}

  bool run();

 private:
  enum State : uint8_t { kNew, kOpen, kDone };
  struct Measure {
    State state = kNew;
    uint16_t height = 0;  // lists and maps inside one another, itself included
    uint32_t values = 0;  // what it unfolds to
    uint32_t bytes = 0;
  };
  struct Frame {
    uint64_t number;
    Object object;
    uint64_t next;  // member to look at next
  };

  bool readTrailer();
  uint64_t readSized(const uint8_t* p, size_t width) const;
  bool readObject(uint64_t number, Object* object) const;
  bool readCount(size_t* at, Object* object) const;
  bool payloadSize(Object* object) const;
  bool begin(uint64_t number);
  bool step();
  bool add(Frame* frame, uint64_t member);
  bool isGoodLeaf(const Object& object) const;
  bool isGoodUtf16(const Object& object) const;

  const uint8_t* data_;
  size_t size_;
  size_t table_ = 0;
  size_t offsetSize_ = 0;
  size_t referenceSize_ = 0;
  uint64_t count_ = 0;
  uint64_t top_ = 0;
  uint64_t touched_ = 0;  // bytes of all objects begun
  std::vector<Measure> measures_;
  std::vector<Frame> frames_;
};

// A big-endian integer of 1 to 8 bytes.
uint64_t Checker::readSized(const uint8_t* p, size_t width) const {
  uint64_t value = 0;
  for (size_t i = 0; i < width; ++i) value = (value << 8) | p[i];
  return value;
}

bool Checker::readTrailer() {
  if (size_ < kMagic.size() + kTrailerSize || size_ > kPlistMaxBytes) return false;
  const uint8_t* trailer = data_ + size_ - kTrailerSize;
  offsetSize_ = trailer[kOffsetSizeAt];
  referenceSize_ = trailer[kReferenceSizeAt];
  count_ = readSized(trailer + kCountAt, 8);
  top_ = readSized(trailer + kTopAt, 8);
  const uint64_t table = readSized(trailer + kTableAt, 8);
  if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8) return false;
  if (count_ < 1 || count_ > kPlistMaxValues || top_ >= count_) return false;
  const size_t tableEnd = size_ - kTrailerSize;
  if (table < kMagic.size() || table > tableEnd || count_ * offsetSize_ > tableEnd - table) return false;
  table_ = static_cast<size_t>(table);
  return true;
}

// A count of 15 and up stands in an integer object behind the marker.
bool Checker::readCount(size_t* at, Object* object) const {
  object->count = object->low;
  if (object->low != 15) return true;
  if (*at >= table_) return false;
  const uint8_t marker = data_[(*at)++];
  if (marker < 0x10 || marker > 0x13) return false;
  const size_t width = size_t{1} << (marker & 3);
  if (width > table_ - *at) return false;
  object->count = readSized(data_ + *at, width);
  *at += width;
  return object->count <= size_;
}

bool Checker::payloadSize(Object* object) const {
  switch (object->kind) {
    case kSimple:
      object->size = 0;
      return object->low == 8 || object->low == 9;
    case kInteger:
      object->size = uint64_t{1} << object->low;
      return object->low <= 4;
    case kReal:
      object->size = uint64_t{1} << object->low;
      return object->low == 2 || object->low == 3;
    case kDate:
      object->size = 8;
      return object->low == 3;
    case kData:
    case kAscii:
      object->size = object->count;
      return true;
    case kUtf16:
      object->size = object->count * 2;
      return true;
    case kArray:
      object->size = object->count * referenceSize_;
      return true;
    case kDict:
      object->size = object->count * 2 * referenceSize_;
      return true;
    default:
      return false;
  }
}

bool Checker::readObject(uint64_t number, Object* object) const {
  if (number >= count_) return false;
  const uint64_t offset = readSized(data_ + table_ + number * offsetSize_, offsetSize_);
  if (offset < kMagic.size() || offset >= table_) return false;
  size_t at = static_cast<size_t>(offset);
  const uint8_t marker = data_[at++];
  object->kind = marker >> 4;
  object->low = marker & 15;
  const bool counted = object->kind >= kData;
  if (counted && !readCount(&at, object)) return false;
  if (!payloadSize(object) || object->size > table_ - at) return false;
  object->payload = data_ + at;
  return true;
}

bool Checker::isGoodUtf16(const Object& object) const {
  if (object.count == 0) return false;  // writers put an empty text down as ASCII; the library knows no other
  for (uint64_t i = 0; i < object.count; ++i) {
    char32_t code = readBE16(object.payload + 2 * i);
    if (code >= 0xD800 && code <= 0xDBFF && i + 1 < object.count) {
      const char32_t low = readBE16(object.payload + 2 * ++i);
      if (low < 0xDC00 || low > 0xDFFF) return false;
      code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
    }
    if (!isPlistCharacter(code)) return false;
  }
  return true;
}

bool Checker::isGoodLeaf(const Object& object) const {
  switch (object.kind) {
    case kInteger:  // of 16 bytes only the unsigned low half counts
      if (object.low == 4) return readSized(object.payload, 8) == 0 && object.payload[8] < 0x80;
      return true;
    case kDate: {
      const uint64_t bits = readSized(object.payload, 8);
      double seconds;
      std::memcpy(&seconds, &bits, sizeof seconds);
      return std::isfinite(seconds) && seconds >= kPlistFirstDate && seconds <= kPlistLastDate;
    }
    case kAscii:
      for (uint64_t i = 0; i < object.size; ++i)
        if (object.payload[i] >= 0x80 || !isPlistCharacter(object.payload[i])) return false;
      return true;
    case kUtf16:
      return isGoodUtf16(object);
    default:
      return true;
  }
}

// Opens an object that was not met before; a leaf is finished at once.
bool Checker::begin(uint64_t number) {
  Object object;
  if (!readObject(number, &object)) return false;
  // Objects may overlap, so that a small file could ask for endless reading.
  touched_ += object.size + 1;
  if (touched_ > kPlistMaxBytes) return false;
  Measure& measure = measures_[number];
  measure.values = 1;
  if (object.kind == kArray || object.kind == kDict) {
    if (frames_.size() >= kPlistMaxDepth) return false;
    if (object.kind == kDict && object.count > kPlistMaxKeys) return false;
    measure.state = kOpen;
    measure.height = 1;
    frames_.push_back({number, object, 0});
    return true;
  }
  measure.state = kDone;
  measure.bytes = static_cast<uint32_t>(object.size);
  return isGoodLeaf(object);
}

// Adds a finished member to the measure of the list or map that holds it.
bool Checker::add(Frame* frame, uint64_t member) {
  const Measure& inner = measures_[member];
  Measure& outer = measures_[frame->number];
  if (inner.height + frames_.size() > kPlistMaxDepth) return false;
  if (inner.height >= outer.height) outer.height = static_cast<uint16_t>(inner.height + 1);
  outer.values += inner.values;
  outer.bytes += inner.bytes;
  ++frame->next;
  return outer.values <= kPlistMaxValues && outer.bytes <= kPlistMaxBytes;
}

// Looks at one member of the innermost open object, or finishes that object.
bool Checker::step() {
  Frame& frame = frames_.back();
  const bool map = frame.object.kind == kDict;
  if (frame.next == frame.object.count * (map ? 2 : 1)) {
    measures_[frame.number].state = kDone;
    frames_.pop_back();
    return true;
  }
  const uint64_t member = readSized(frame.object.payload + frame.next * referenceSize_, referenceSize_);
  if (member >= count_ || measures_[member].state == kOpen) return false;
  if (map && frame.next < frame.object.count) {  // the keys stand first
    Object key;
    if (!readObject(member, &key) || (key.kind != kAscii && key.kind != kUtf16)) return false;
  }
  return measures_[member].state == kDone ? add(&frame, member) : begin(member);
}

bool Checker::run() {
  if (!readTrailer()) return false;
  measures_.resize(static_cast<size_t>(count_));
  if (!begin(top_)) return false;
  while (!frames_.empty())
    if (!step()) return false;
  return true;
}

}  // namespace

bool isSafeBinaryPlist(std::string_view bytes) {
  return bytes.starts_with(kMagic) && Checker(bytes).run();
}

}  // namespace zavel
