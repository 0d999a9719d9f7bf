// Files of two parts as one plain file, in the AppleSingle container of RFC 1740.
#ifndef PORT_LINUX_BASE_APPLESINGLEFILES_H
#define PORT_LINUX_BASE_APPLESINGLEFILES_H

#include "platform/ForkedFiles.h"

namespace zavel {

// The container, all numbers big end first:
//   0   0x00051600, 0x00020000, 16 zero bytes, number of entries (16 bits)
//   26  entries of 12 bytes: id, offset, length; then what they point at
// Entry 9: 32 bytes of Finder information, type and creator in front. Entry 2, only where there are style
// records: a resource fork (header, data, map) that holds them. Entry 1: the text.
//
// Both parts gather in memory and go out in one write: a temporary beside the path, put in its place by
// close(). It is not synced, for such a file is a cache that the next look-up writes anew.
// At most 64 MiB of text and 16 MiB of records can be written; a larger file is refused on reading.
class AppleSingleFiles : public ForkedFiles {
 public:
  std::unique_ptr<ForkedFileWriter> create(const std::string& path, const char* type,
                                           const char* creator) override;
  bool read(const std::string& path, const char* recordType, uint16_t number, std::string* text,
            std::string* record) override;
  std::optional<FileSignature> signature(const std::string& path) override;
};

}  // namespace zavel

#endif
