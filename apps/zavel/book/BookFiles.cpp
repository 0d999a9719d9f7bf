// Tests: tests/zavel/book/BookCommandTest.cpp
#include "book/BookFiles.h"

#include <algorithm>
#include <filesystem>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::host {
namespace {

using namespace book;

constexpr size_t kLargestCatalog = size_t{4} << 20;

bool isMedium(uint16_t kind) {
  const uint8_t low = lowByte(kind);
  return low >= lowByte(kKindMonoPictures) && low <= lowByte(kKindData4);
}

// An empty file holds nothing, not even where its sets are.
bool isThere(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) && std::filesystem::file_size(path, error) > 0;
}

}  // namespace

std::vector<std::string> missingFiles(const std::string& catalog) {
  std::string bytes;
  if (!readWholeFile(catalog, kLargestCatalog, &bytes) || bytes.size() < kHeader) return {};
  const auto* const data = reinterpret_cast<const uint8_t*>(bytes.data());
  const size_t records =
      std::min<size_t>(readBE16(data + kHeaderRecords), (bytes.size() - kHeader) / kRecord);
  const std::filesystem::path folder = std::filesystem::path(catalog).parent_path();
  std::vector<std::string> missing;
  for (size_t i = 0; i < records; ++i) {
    const uint8_t* const record = data + kHeader + i * kRecord;
    const size_t length = std::min<size_t>(record[kRecordNameLength], kLongestName);
    const std::string name(reinterpret_cast<const char*>(record + kRecordName), length);
    if (name.empty() || isMedium(readBE16(record + kRecordKind)) || isThere(folder / name)) continue;
    if (std::find(missing.begin(), missing.end(), name) == missing.end()) missing.push_back(name);
  }
  return missing;
}

}  // namespace zavel::host
