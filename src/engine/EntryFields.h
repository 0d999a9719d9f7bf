// The fields of a user entry's text: each begins behind a tag and ends ahead of the next tag or line feed.
// Characters are told apart, so that the second byte of one never opens a tag. The two tags that only change
// the type of letters (bold, roman) belong to no field.
#ifndef ENGINE_ENTRYFIELDS_H
#define ENGINE_ENTRYFIELDS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zavel::engine {

struct EntryField {
  uint16_t tag = 0;
  std::string text;  // without the tags of type
};

class EntryFields {
 public:
  // `text` is borrowed.
  explicit EntryFields(std::string_view text) : text_(text) {}

  // The next field that stands behind a tag; false at the end.
  bool next(EntryField* field);

 private:
  bool tagAt(size_t at, uint16_t* tag) const;

  std::string_view text_;
  size_t at_ = 0;
};

// Where the byte between reading and written form stands in a headword, looked for at whole characters;
// npos for nowhere.
size_t FindSeparator(std::string_view midasi);

}  // namespace zavel::engine

#endif
