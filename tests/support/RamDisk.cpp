#include "support/RamDisk.h"

#include <algorithm>

namespace zavel::test {

class RamDisk::File final : public StorageFile {
 public:
  explicit File(Content content) : content_(std::move(content)) {}

  int64_t readAt(uint64_t offset, void* out, size_t length) override {
    if (offset >= content_->size()) return 0;
    const size_t count = std::min<size_t>(length, content_->size() - offset);
    std::copy_n(content_->data() + offset, count, static_cast<char*>(out));
    return static_cast<int64_t>(count);
  }
  bool writeAt(uint64_t offset, std::string_view bytes) override {
    if (content_->size() < offset + bytes.size()) content_->resize(offset + bytes.size());
    std::copy_n(bytes.data(), bytes.size(), content_->data() + offset);
    return true;
  }
  int64_t size() override { return static_cast<int64_t>(content_->size()); }
  bool truncate(uint64_t length) override {
    content_->resize(length);
    return true;
  }
  bool sync() override { return true; }
  bool close() override { return true; }

 private:
  Content content_;
};

RamDisk::Files RamDisk::files() const {
  Files files;
  for (const auto& [path, content] : files_) {
    files.emplace(std::string_view(path).substr(folder_.size()), std::string_view(*content));
  }
  return files;
}

void RamDisk::setFiles(const Files& files) {
  files_.clear();
  for (const auto& [name, bytes] : files) setFile(name, bytes);
}

std::string RamDisk::file(const std::string& name) const {
  const auto found = files_.find(std::string_view(folder_ + name));
  return found == files_.end() ? "(no such file)" : std::string(std::string_view(*found->second));
}

void RamDisk::setFile(const std::string& name, std::string_view bytes) {
  files_[Bytes(std::string_view(folder_ + name))] = newContent(bytes);
}

std::unique_ptr<StorageFile> RamDisk::open(const std::string& path, OpenMode mode) {
  if (!isHere(path)) return below_.open(path, mode);
  auto found = files_.find(std::string_view(path));
  if (found == files_.end() && mode != OpenMode::kCreate) return nullptr;
  if (found == files_.end()) found = files_.emplace(Bytes(std::string_view(path)), newContent("")).first;
  if (mode == OpenMode::kCreate) found->second->clear();
  return std::make_unique<File>(found->second);
}

std::unique_ptr<StorageFile> RamDisk::openTemporary(const std::string& folder, const std::string& prefix,
                                                    std::string* path) {
  const std::string name = (folder.ends_with('/') ? folder : folder + "/") + prefix;
  if (!isHere(name)) return below_.openTemporary(folder, prefix, path);
  *path = name + std::to_string(++temporaries_);
  return open(*path, OpenMode::kCreate);
}

bool RamDisk::exists(const std::string& path) {
  return isHere(path) ? files_.contains(std::string_view(path)) : below_.exists(path);
}

bool RamDisk::isFolder(const std::string& path) {
  return path + "/" == folder_ || (!isHere(path) && below_.isFolder(path));
}

bool RamDisk::remove(const std::string& path) {
  if (!isHere(path)) return below_.remove(path);
  const auto found = files_.find(std::string_view(path));
  if (found == files_.end()) return false;
  files_.erase(found);
  return true;
}

bool RamDisk::rename(const std::string& from, const std::string& to) {
  if (!isHere(from)) return below_.rename(from, to);
  const auto found = files_.find(std::string_view(from));
  if (found == files_.end()) return false;
  const Content content = found->second;
  files_.erase(found);
  files_[Bytes(std::string_view(to))] = content;
  return true;
}

bool RamDisk::copy(const std::string& from, const std::string& to) {
  if (!isHere(from)) return below_.copy(from, to);
  const auto found = files_.find(std::string_view(from));
  if (found == files_.end()) return false;
  files_[Bytes(std::string_view(to))] = newContent(std::string_view(*found->second));
  return true;
}

}  // namespace zavel::test
