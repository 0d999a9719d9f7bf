// Tests: tests/mkbook/MultiSearchTest.cpp
#include "mkbook/MultiSearchWriter.h"

#include <stdexcept>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/BodyWriter.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr size_t kFieldsAt = 16, kLabel = 30, kIndexSize = 16;
constexpr uint8_t kListKind = 1;

void pad(std::string* bytes, size_t unit) {
  bytes->resize((bytes->size() + unit - 1) / unit * unit);
}

uint32_t blocksOf(const std::string& bytes) {
  return static_cast<uint32_t>(bytes.size() / kBlock);
}

std::string choiceList(const std::vector<std::string>& choices, CustomCharacters& characters) {
  std::string out;
  if (choices.empty()) return out;
  appendBE16(out, kTagBegin);
  for (const std::string& choice : choices) {
    appendBE16(out, kTagMenuItem);
    out += characters.codes(choice);
    appendBE16(out, kTagMenuItemEnd);
    out.append(6, '\0');  // leads to no further list
  }
  appendBE16(out, kTagEnd);
  pad(&out, kBlock);
  return out;
}

void appendIndex(std::string* out, uint8_t kind, uint32_t first, uint32_t blocks) {
  const size_t start = out->size();
  *out += static_cast<char>(kind);
  *out += '\0';
  appendBE32(*out, first);
  appendBE32(*out, blocks);
  out->resize(start + kIndexSize);
}

}  // namespace

MultiSearchWriter::MultiSearchWriter(const MultiSearch& form, CustomCharacters& characters)
    : characters_(characters) {
  for (const SearchField& field : form.fields) {
    const uint16_t kind = field.byBeginning ? kKindForward : kKindGrouped;
    fields_.push_back(
        {characters.codes(field.label), choiceList(field.choices, characters), IndexBuilder::ofField(kind)});
    if (fields_.back().label.size() > kLabel) throw std::length_error(field.label + " is too long a label");
  }
  if (definition(0).size() > kBlock) throw std::length_error("a form of too many fields");
}

void MultiSearchWriter::add(const std::vector<std::vector<std::string>>& values, const _SDICADDRESS& entry) {
  for (size_t i = 0; i < fields_.size() && i < values.size(); ++i)
    for (const std::string& value : values[i]) fields_[i].index.add(characters_.codes(value), entry, entry);
}

void MultiSearchWriter::settle() {
  for (Field& field : fields_) field.index.settle();
}

uint32_t MultiSearchWriter::blocks() const {
  uint32_t blocks = 1;
  for (const Field& field : fields_) blocks += blocksOf(field.choices) + field.index.blocks();
  return blocks;
}

// Behind the definition's block each field's choices and index follow one another.
std::string MultiSearchWriter::definition(uint32_t first) const {
  std::string out;
  appendBE16(out, static_cast<uint16_t>(fields_.size()));
  out.resize(kFieldsAt);
  uint32_t next = first + 1;
  for (const Field& field : fields_) {
    const size_t start = out.size();
    const uint32_t list = blocksOf(field.choices);
    out += static_cast<char>(list > 0 ? 2 : 1);
    out += '\0';
    out += field.label;
    out.resize(start + 2 + kLabel);
    if (list > 0) appendIndex(&out, kListKind, next, list);
    const uint32_t blocks = first == 0 ? 0 : field.index.blocks();
    appendIndex(&out, static_cast<uint8_t>(field.index.kind()), next + list, blocks);
    next += list + blocks;
  }
  return out;
}

void MultiSearchWriter::write(uint32_t first, RegionFile& file) const {
  std::string bytes = definition(first);
  pad(&bytes, kBlock);
  file.append(bytes);
  uint32_t next = first + 1;
  for (const Field& field : fields_) {
    file.append(field.choices);
    next += blocksOf(field.choices);
    field.index.write(next, file);
    next += field.index.blocks();
  }
}

}  // namespace zavel::mkbook
