// Tests: tests/mkbook/MultiSearchTest.cpp
#include "mkbook/MultiSearchWriter.h"

#include <functional>
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

// One list: its bytes don't depend on where the lists below its choices stand. `place` gives that in bytes
// from the first list's beginning.
std::string choiceList(const std::vector<Choice>& choices, CustomCharacters& characters, uint32_t first,
                       const std::function<size_t(size_t choice)>& place) {
  std::string out;
  appendBE16(out, kTagBegin);
  for (size_t i = 0; i < choices.size(); ++i) {
    appendBE16(out, kTagMenuItem);
    out += characters.codes(choices[i].name);
    appendBE16(out, kTagMenuItemEnd);
    const size_t at = choices[i].below.empty() ? 0 : place(i);
    appendBcd(&out, at == 0 ? 0 : first + static_cast<uint32_t>(at >> kBlockShift), 4);
    appendBcd(&out, static_cast<uint32_t>(at & kBlockMask), 2);
  }
  appendBE16(out, kTagEnd);
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
    fields_.push_back({characters.codes(field.label), field.choices, blocksOf(choiceLists(field.choices, 0)),
                       IndexBuilder::ofField(kind)});
    if (fields_.back().label.size() > kLabel) throw std::length_error(field.label + " is too long a label");
  }
  if (definition(0).size() > kBlock) throw std::length_error("a form of too many fields");
}

// A list, then those below its choices, one behind the other and each as its own choices have it; whole
// blocks. Empty where there are no choices.
std::string MultiSearchWriter::choiceLists(const std::vector<Choice>& choices, uint32_t first) const {
  std::string out;
  const std::function<size_t(const std::vector<Choice>&)> append = [&](const std::vector<Choice>& list) {
    const size_t start = out.size();
    out += choiceList(list, characters_, first, [](size_t) { return 0; });
    std::vector<size_t> places;
    for (const Choice& choice : list) places.push_back(choice.below.empty() ? 0 : append(choice.below));
    const std::string settled = choiceList(list, characters_, first, [&](size_t i) { return places[i]; });
    out.replace(start, settled.size(), settled);
    return start;
  };
  if (choices.empty()) return out;
  append(choices);
  pad(&out, kBlock);
  return out;
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
  for (const Field& field : fields_) blocks += field.listBlocks + field.index.blocks();
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
    const uint32_t list = field.listBlocks;
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
    file.append(choiceLists(field.choices, next));
    next += field.listBlocks;
    field.index.write(next, file);
    next += field.index.blocks();
  }
}

}  // namespace zavel::mkbook
