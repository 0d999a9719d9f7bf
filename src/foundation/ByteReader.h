// Readers and writers of integers in foreign bytes. The bilingual dictionary files are little-endian,
// book files and the style record are big-endian; nothing else in the system may assemble integers.
#ifndef FOUNDATION_BYTEREADER_H
#define FOUNDATION_BYTEREADER_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace zavel {

// Unchecked reads: the caller has compared the position with what is left.
inline uint16_t readLE16(const uint8_t* p) {
  return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
inline uint32_t readLE32(const uint8_t* p) {
  return static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
         (static_cast<uint32_t>(p[2]) << 16) | (static_cast<uint32_t>(p[3]) << 24);
}
inline uint16_t readBE16(const uint8_t* p) {
  return static_cast<uint16_t>((p[0] << 8) | p[1]);
}
inline uint32_t readBE32(const uint8_t* p) {
  return (static_cast<uint32_t>(p[0]) << 24) | (static_cast<uint32_t>(p[1]) << 16) |
         (static_cast<uint32_t>(p[2]) << 8) | static_cast<uint32_t>(p[3]);
}

inline void writeLE16(uint8_t* p, uint16_t v) {
  p[0] = static_cast<uint8_t>(v);
  p[1] = static_cast<uint8_t>(v >> 8);
}
inline void writeLE32(uint8_t* p, uint32_t v) {
  writeLE16(p, static_cast<uint16_t>(v));
  writeLE16(p + 2, static_cast<uint16_t>(v >> 16));
}

// Appends an integer to `out`, which holds bytes.
void appendLE16(std::string& out, uint16_t value);
void appendLE32(std::string& out, uint32_t value);
void appendBE16(std::string& out, uint16_t value);
void appendBE32(std::string& out, uint32_t value);

// A bounded view of bytes that it doesn't own. Every read names its offset and answers false when the
// span does not lie inside the view; the out-parameter is then untouched.
class ByteReader {
 public:
  ByteReader(const uint8_t* data, size_t size) : data_(data), size_(size) {}

  size_t size() const { return size_; }
  bool contains(size_t offset, size_t length) const { return offset <= size_ && length <= size_ - offset; }
  bool readLE16At(size_t offset, uint16_t* out) const;
  bool readLE32At(size_t offset, uint32_t* out) const;
  bool readBE16At(size_t offset, uint16_t* out) const;
  bool readBE32At(size_t offset, uint32_t* out) const;

 private:
  const uint8_t* data_;  // borrowed
  size_t size_;          // bytes at data_
};

}  // namespace zavel

#endif
