// Files of one path and two parts, a text part and a style part, as a styled text file has them.
#ifndef PLATFORM_FORKEDFILES_H
#define PLATFORM_FORKEDFILES_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zavel {

// One file being written. Nothing shows at the path before close(); then both parts do, together, so that
// no reader ever meets the text of one result with the style of another. Destroyed without close() it
// leaves what stood at the path as it was.
class ForkedFileWriter {
 public:
  virtual ~ForkedFileWriter() = default;

  // Sets the whole text part.
  virtual bool writeText(std::string_view text) = 0;

  // Sets one record of the style part, named by a four-character type and a number.
  virtual bool writeStyle(const char* recordType, uint16_t number, std::string_view record) = 0;

  // Puts the file in place. False when it could not be written whole.
  virtual bool close() = 0;
};

// Whose file it is and of what kind, four characters each.
struct FileSignature {
  std::string creator;
  std::string type;
};

class ForkedFiles {
 public:
  virtual ~ForkedFiles() = default;

  // Begins a new file that will replace what stands at `path`. `type` and `creator` are four-character
  // codes. Null when none can be made there.
  virtual std::unique_ptr<ForkedFileWriter> create(const std::string& path, const char* type,
                                                   const char* creator) = 0;

  // Reads both parts back. False when there is no such file or it is damaged; the outs are then empty.
  // A file without that record gives an empty record and true.
  virtual bool read(const std::string& path, const char* recordType, uint16_t number, std::string* text,
                    std::string* record) = 0;

  // The codes that the file was created with; nothing for a file that carries none or can't be read.
  virtual std::optional<FileSignature> signature([[maybe_unused]] const std::string& path) {
    return std::nullopt;
  }
};

}  // namespace zavel

#endif
