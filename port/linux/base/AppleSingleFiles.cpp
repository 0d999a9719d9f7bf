// Tests: tests/port/AppleSingleFilesTest.cpp
#include "base/AppleSingleFiles.h"

#include <cstring>
#include <utility>

#include "base/ResourceFork.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel {
namespace {

constexpr uint32_t kMagic = 0x00051600;
constexpr uint32_t kVersion = 0x00020000;
constexpr size_t kHeadSize = 8;
constexpr size_t kFillerSize = 16;
constexpr size_t kCountAt = 24;
constexpr size_t kEntriesAt = 26;
constexpr size_t kEntrySize = 12;
constexpr uint32_t kDataForkId = 1;
constexpr uint32_t kResourceForkId = 2;
constexpr uint32_t kFinderInfoId = 9;
constexpr size_t kFinderInfoSize = 32;
constexpr size_t kCodeSize = 4;
constexpr size_t kMaxText = size_t{64} * 1024 * 1024;
constexpr size_t kMaxFile = kMaxText + size_t{17} * 1024 * 1024;

bool isFourCharacters(const char* code) {
  return code && std::strlen(code) == 4;
}

std::string folderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// Renaming over an old file makes common file systems write the new one out first, which takes many times
// as long as all the rest. Swapping the two and removing the old one does not.
bool putInPlace(const std::string& temporary, const std::string& path) {
  if (!storage().exchange(temporary, path)) return storage().rename(temporary, path);
  storage().remove(temporary);
  return true;
}

std::string container(const std::string& finderInfo, const std::string& resources, std::string_view text) {
  std::string head;
  appendBE32(head, kMagic);
  appendBE32(head, kVersion);
  head.append(kFillerSize, '\0');
  const uint16_t entries = resources.empty() ? 2 : 3;
  appendBE16(head, entries);
  size_t place = kEntriesAt + entries * kEntrySize;
  const auto appendEntry = [&](uint32_t id, size_t size) {
    appendBE32(head, id);
    appendBE32(head, static_cast<uint32_t>(place));
    appendBE32(head, static_cast<uint32_t>(size));
    place += size;
  };
  appendEntry(kFinderInfoId, finderInfo.size());
  if (!resources.empty()) appendEntry(kResourceForkId, resources.size());
  appendEntry(kDataForkId, text.size());
  head.reserve(place);
  head += finderInfo;
  head += resources;
  head += text;
  return head;
}

class AppleSingleWriter final : public ForkedFileWriter {
 public:
  AppleSingleWriter(std::string path, std::string temporary, std::unique_ptr<StorageFile> file,
                    std::string finderInfo)
      : path_(std::move(path)),
        temporary_(std::move(temporary)),
        file_(std::move(file)),
        finderInfo_(std::move(finderInfo)) {}
  ~AppleSingleWriter() override {
    if (file_) discard();
  }

  bool writeText(std::string_view text) override;
  bool writeStyle(const char* recordType, uint16_t number, std::string_view record) override;
  bool close() override;

 private:
  bool discard() {
    file_.reset();
    storage().remove(temporary_);
    return false;
  }

  std::string path_;
  std::string temporary_;
  std::unique_ptr<StorageFile> file_;  // the temporary; null once closed
  std::string finderInfo_;
  std::string text_;
  ResourceRecords records_;
};

bool AppleSingleWriter::writeText(std::string_view text) {
  if (text.size() > kMaxText) return false;
  text_ = text;
  return true;
}

bool AppleSingleWriter::writeStyle(const char* recordType, uint16_t number, std::string_view record) {
  if (!isFourCharacters(recordType)) return false;
  records_[{recordType, number}] = record;
  return true;
}

bool AppleSingleWriter::close() {
  if (!file_) return false;
  std::string resources;
  if (!records_.empty()) {
    resources = writeResourceFork(records_);
    if (resources.empty()) return discard();
  }
  if (!file_->writeAt(0, container(finderInfo_, resources, text_)) || !file_->close()) return discard();
  file_.reset();
  if (putInPlace(temporary_, path_)) return true;
  storage().remove(temporary_);
  return false;
}

bool isContainer(std::string_view head) {
  const ByteReader reader(reinterpret_cast<const uint8_t*>(head.data()), head.size());
  uint32_t magic, version;
  return reader.readBE32At(0, &magic) && reader.readBE32At(4, &version) && magic == kMagic &&
         version == kVersion;
}

// The bytes of entry `id`; `present` tells whether there is one. False when the container is damaged.
bool findEntry(std::string_view bytes, uint32_t id, std::string_view* part, bool* present) {
  const ByteReader reader(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  uint16_t count;
  *present = false;
  if (!reader.readBE16At(kCountAt, &count) || !reader.contains(kEntriesAt, count * kEntrySize)) return false;
  for (size_t i = 0; i < count; ++i) {
    const uint8_t* entry = reinterpret_cast<const uint8_t*>(bytes.data()) + kEntriesAt + i * kEntrySize;
    if (readBE32(entry) != id) continue;
    const uint32_t offset = readBE32(entry + 4);
    const uint32_t length = readBE32(entry + 8);
    if (!reader.contains(offset, length)) return false;
    *part = bytes.substr(offset, length);
    *present = true;
    return true;
  }
  return true;
}

bool readContainer(std::string_view bytes, const char* recordType, uint16_t number, std::string* text,
                   std::string* record) {
  if (!isContainer(bytes)) return false;
  std::string_view data, resources;
  bool hasData, hasResources;
  if (!findEntry(bytes, kDataForkId, &data, &hasData) || !hasData) return false;
  if (!findEntry(bytes, kResourceForkId, &resources, &hasResources)) return false;
  if (hasResources && !resources.empty() && !readResource(resources, recordType, number, record))
    return false;
  *text = data;
  return true;
}

}  // namespace

std::unique_ptr<ForkedFileWriter> AppleSingleFiles::create(const std::string& path, const char* type,
                                                           const char* creator) {
  if (!isFourCharacters(type) || !isFourCharacters(creator) || storage().isFolder(path)) return nullptr;
  std::string temporary;
  std::unique_ptr<StorageFile> file = storage().openTemporary(folderOf(path), ".new-", &temporary);
  if (!file) return nullptr;
  std::string finderInfo = std::string(type) + creator;
  finderInfo.resize(kFinderInfoSize);
  return std::make_unique<AppleSingleWriter>(path, std::move(temporary), std::move(file),
                                             std::move(finderInfo));
}

bool AppleSingleFiles::read(const std::string& path, const char* recordType, uint16_t number,
                            std::string* text, std::string* record) {
  text->clear();
  record->clear();
  std::string bytes;
  if (!isFourCharacters(recordType) || !readWholeFile(path, kMaxFile, &bytes)) return false;
  if (readContainer(bytes, recordType, number, text, record)) return true;
  text->clear();
  record->clear();
  return false;
}

std::optional<FileSignature> AppleSingleFiles::signature(const std::string& path) {
  // Most files that are asked about are no containers; those needn't be read whole.
  char head[kHeadSize];
  const std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kRead);
  if (!file || file->readAt(0, head, kHeadSize) != kHeadSize) return std::nullopt;
  std::string bytes;
  if (!isContainer({head, kHeadSize}) || !readWholeFile(path, kMaxFile, &bytes)) return std::nullopt;
  std::string_view info;
  bool present;
  if (!findEntry(bytes, kFinderInfoId, &info, &present) || info.size() < 2 * kCodeSize) return std::nullopt;
  return FileSignature{std::string(info.substr(kCodeSize, kCodeSize)),
                       std::string(info.substr(0, kCodeSize))};
}

}  // namespace zavel
