// The text file of a dictd dictionary, read at any place.
#ifndef DICTTOOL_DICTDTEXT_H
#define DICTTOOL_DICTDTEXT_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Storage.h"

namespace zavel::dicttool {

// Plain, or dictzip: a gzip file whose header tells where each chunk of the text begins, so that a piece is
// had by inflating the chunks it lies in and no others.
class DictdText {
 public:
  // Opens the file and reads its header. False with a sentence in *error, which names the path.
  bool open(const std::string& path, std::string* error);

  // `length` bytes at `offset` of the unpacked text. False with a sentence in *error when the text does not
  // reach so far or the chunks there are damaged; *out is then unsettled.
  bool read(uint64_t offset, size_t length, std::string* out, std::string* error);

  // The size of the index that the end of a plain text tells; nothing where it tells none.
  std::optional<uint64_t> indexSize() const;

  const std::string& path() const { return path_; }

 private:
  bool readHeader(std::string* error);
  bool readGzipHeader(const std::string& header);
  bool readExtraFields(const std::string& fields);
  bool readChunkTable(const std::string& fields, size_t at, size_t end);
  bool skipNames(uint8_t flags, uint64_t at, uint64_t* begin);
  bool readPlain(uint64_t offset, size_t length, std::string* out);
  bool readPacked(uint64_t offset, size_t length, std::string* out);
  bool loadChunk(size_t number);

  std::string path_;
  std::unique_ptr<StorageFile> file_;
  bool packed_ = false;
  size_t chunkLength_ = 0;             // bytes of text in every chunk but the last
  std::vector<uint64_t> chunkStarts_;  // places in the file; one more than there are chunks
  size_t loaded_ = SIZE_MAX;           // the chunk in chunk_
  std::string chunk_;
};

// The last line of a text that this program writes: how many bytes its index has. An index that was cut at
// the end of a line looks whole by itself. No line of the index leads to it.
std::string indexSizeLine(uint64_t size);

// The number in that line at the end of `text`; nothing where there is none.
std::optional<uint64_t> indexSizeIn(std::string_view text);

}  // namespace zavel::dicttool

#endif
