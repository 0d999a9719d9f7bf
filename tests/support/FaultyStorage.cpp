#include "support/FaultyStorage.h"

#include <cerrno>
#include <utility>

namespace zavel::test {

class FaultyStorage::File final : public StorageFile {
 public:
  File(FaultyStorage& owner, std::string path, std::unique_ptr<StorageFile> below)
      : owner_(owner), path_(std::move(path)), below_(std::move(below)) {}

  int64_t readAt(uint64_t offset, void* out, size_t length) override {
    return owner_.fails("readAt", path_) ? -1 : below_->readAt(offset, out, length);
  }
  bool writeAt(uint64_t offset, std::string_view bytes) override {
    if (!owner_.fails("writeAt", path_)) return below_->writeAt(offset, bytes);
    below_->writeAt(offset, bytes.substr(0, bytes.size() / 2));
    return false;
  }
  int64_t size() override { return owner_.fails("size", path_) ? -1 : below_->size(); }
  bool truncate(uint64_t length) override {
    return !owner_.fails("truncate", path_) && below_->truncate(length);
  }
  bool sync() override { return !owner_.fails("sync", path_) && below_->sync(); }
  bool close() override {
    const bool failing = owner_.fails("close", path_);
    return below_->close() && !failing;
  }

 private:
  FaultyStorage& owner_;
  std::string path_;
  std::unique_ptr<StorageFile> below_;
};

void FaultyStorage::failAt(long n, Repeat repeat) {
  failAt_ = n;
  repeat_ = repeat;
  faults_ = 0;
  history_.clear();
}

long FaultyStorage::count(const std::string& kind) const {
  long found = 0;
  for (const std::string& entry : history_) found += entry.starts_with(kind + " ") ? 1 : 0;
  return found;
}

bool FaultyStorage::fails(const char* kind, const std::string& path) {
  history_.push_back(std::string(kind) + " " + path);
  if (failAt_ == 0) return false;
  const bool failing = repeat_ == kOnce ? operations() == failAt_ : operations() >= failAt_;
  if (failing) ++faults_;
  return failing;
}

std::unique_ptr<StorageFile> FaultyStorage::open(const std::string& path, OpenMode mode) {
  if (fails("open", path)) return nullptr;
  std::unique_ptr<StorageFile> file = below_.open(path, mode);
  if (!file) return nullptr;
  return std::make_unique<File>(*this, path, std::move(file));
}

std::unique_ptr<StorageFile> FaultyStorage::openTemporary(const std::string& folder,
                                                          const std::string& prefix, std::string* path) {
  if (fails("openTemporary", folder)) return nullptr;
  std::unique_ptr<StorageFile> file = below_.openTemporary(folder, prefix, path);
  if (!file) return nullptr;
  return std::make_unique<File>(*this, *path, std::move(file));
}

bool FaultyStorage::remove(const std::string& path) {
  return !fails("remove", path) && below_.remove(path);
}

bool FaultyStorage::rename(const std::string& from, const std::string& to) {
  return !fails("rename", to) && below_.rename(from, to);
}

bool FaultyStorage::exchange(const std::string& one, const std::string& other) {
  return !fails("exchange", other) && below_.exchange(one, other);
}

bool FaultyStorage::copy(const std::string& from, const std::string& to) {
  return !fails("copy", to) && below_.copy(from, to);
}

int FaultyStorage::makeFolder(const std::string& path) {
  return fails("makeFolder", path) ? EIO : below_.makeFolder(path);
}

bool FaultyStorage::syncFolder(const std::string& folder) {
  return !fails("syncFolder", folder) && below_.syncFolder(folder);
}

}  // namespace zavel::test
