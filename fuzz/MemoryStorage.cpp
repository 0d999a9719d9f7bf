#include "MemoryStorage.h"

#include <algorithm>
#include <cstring>

namespace zavel::fuzz {
namespace {

class MemoryFile : public StorageFile {
 public:
  explicit MemoryFile(std::string& content) : content_(content) {}

  int64_t readAt(uint64_t offset, void* out, size_t length) override {
    if (offset >= content_.size() || length == 0) return 0;
    const size_t got = std::min(length, content_.size() - static_cast<size_t>(offset));
    std::memcpy(out, content_.data() + offset, got);
    return static_cast<int64_t>(got);
  }
  bool writeAt(uint64_t offset, std::string_view bytes) override {
    if (offset > (1u << 24)) return false;
    content_.resize(std::max(content_.size(), static_cast<size_t>(offset) + bytes.size()));
    content_.replace(static_cast<size_t>(offset), bytes.size(), bytes);
    return true;
  }
  int64_t size() override { return static_cast<int64_t>(content_.size()); }
  bool truncate(uint64_t length) override {
    content_.resize(static_cast<size_t>(length));
    return true;
  }
  bool sync() override { return true; }
  bool close() override { return true; }

 private:
  std::string& content_;
};

}  // namespace

std::unique_ptr<StorageFile> MemoryStorage::open(const std::string& path, OpenMode mode) {
  if (mode == OpenMode::kCreate) files[path].clear();
  const auto it = files.find(path);
  return it == files.end() ? nullptr : std::make_unique<MemoryFile>(it->second);
}

std::unique_ptr<StorageFile> MemoryStorage::openTemporary(const std::string& folder,
                                                          const std::string& prefix, std::string* path) {
  *path = folder + "/" + prefix + std::to_string(files.size());
  return open(*path, OpenMode::kCreate);
}

bool MemoryStorage::rename(const std::string& from, const std::string& to) {
  const auto it = files.find(from);
  if (it == files.end()) return false;
  files[to] = std::move(it->second);
  files.erase(from);
  return true;
}

bool MemoryStorage::copy(const std::string& from, const std::string& to) {
  const auto it = files.find(from);
  if (it == files.end()) return false;
  files[to] = it->second;
  return true;
}

}  // namespace zavel::fuzz
