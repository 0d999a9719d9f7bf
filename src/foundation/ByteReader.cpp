// Tests: tests/foundation/ByteReaderTest.cpp
#include "foundation/ByteReader.h"

namespace zavel {

void appendLE16(std::string& out, uint16_t value) {
  out.push_back(static_cast<char>(value));
  out.push_back(static_cast<char>(value >> 8));
}

void appendLE32(std::string& out, uint32_t value) {
  appendLE16(out, static_cast<uint16_t>(value));
  appendLE16(out, static_cast<uint16_t>(value >> 16));
}

void appendBE16(std::string& out, uint16_t value) {
  out.push_back(static_cast<char>(value >> 8));
  out.push_back(static_cast<char>(value));
}

void appendBE32(std::string& out, uint32_t value) {
  appendBE16(out, static_cast<uint16_t>(value >> 16));
  appendBE16(out, static_cast<uint16_t>(value));
}

bool ByteReader::readLE16At(size_t offset, uint16_t* out) const {
  if (!contains(offset, 2)) return false;
  *out = readLE16(data_ + offset);
  return true;
}

bool ByteReader::readLE32At(size_t offset, uint32_t* out) const {
  if (!contains(offset, 4)) return false;
  *out = readLE32(data_ + offset);
  return true;
}

bool ByteReader::readBE16At(size_t offset, uint16_t* out) const {
  if (!contains(offset, 2)) return false;
  *out = readBE16(data_ + offset);
  return true;
}

bool ByteReader::readBE32At(size_t offset, uint32_t* out) const {
  if (!contains(offset, 4)) return false;
  *out = readBE32(data_ + offset);
  return true;
}

}  // namespace zavel
