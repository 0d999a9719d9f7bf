#include "support/CrashStorage.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace zavel::test {
namespace {

constexpr size_t kSector = 512;

std::string contentAt(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void setContent(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), std::ssize(bytes));
}

std::string folderOf(const std::string& path) {
  return std::filesystem::path(path).parent_path();
}

}  // namespace

class CrashStorage::File : public StorageFile {
 public:
  File(CrashStorage* storage, std::string path, std::unique_ptr<StorageFile> below)
      : storage_(*storage),
        path_(std::move(path)),
        content_(storage->contentOf(path_)),
        below_(std::move(below)) {}

  int64_t readAt(uint64_t offset, void* out, size_t length) override {
    return below_->readAt(offset, out, length);
  }
  bool writeAt(uint64_t offset, std::string_view bytes) override {
    change();
    return below_->writeAt(offset, bytes);
  }
  int64_t size() override { return below_->size(); }
  bool truncate(uint64_t length) override {
    change();
    return below_->truncate(length);
  }
  bool sync() override {
    storage_.change();
    content_->reset();
    return true;
  }
  bool close() override { return below_->close(); }

 private:
  void change() {
    storage_.change();
    if (*content_) return;
    std::string before(static_cast<size_t>(std::max<int64_t>(below_->size(), 0)), '\0');
    below_->readAt(0, before.data(), before.size());
    *content_ = std::move(before);
  }

  CrashStorage& storage_;
  std::string path_;
  Content content_;
  std::unique_ptr<StorageFile> below_;
};

CrashStorage::CrashStorage(long n, unsigned seed)
    : below_(storage()), previous_(setStorage(this)), left_(n), random_(seed) {}

CrashStorage::~CrashStorage() {
  setStorage(previous_);
}

CrashStorage::Content CrashStorage::contentOf(const std::string& path) {
  Content& content = contents_[path];
  if (!content) content = std::make_shared<std::optional<std::string>>();
  return content;
}

void CrashStorage::change() {
  if (--left_ == 0) crash();
}

void CrashStorage::crash() {
  for (const auto& [path, content] : contents_) {
    if (*content && below_.exists(path)) damage(path, **content);
  }
  const size_t kept = std::uniform_int_distribution<size_t>(0, names_.size())(random_);
  while (names_.size() > kept) {
    names_.back().undo();
    names_.pop_back();
  }
  _exit(kCrashed);
}

// A file of which not all is on the disk.
void CrashStorage::damage(const std::string& path, const std::string& before) {
  std::string now = contentAt(path);
  switch (random_() % 4) {
    case 0:
      return;
    case 1:
      return setContent(path, before);
    case 2: {
      const size_t least = std::min(before.size(), now.size());
      const size_t most = std::max(before.size(), now.size());
      // A lone first byte of a record is no case: disks write sectors, and records begin with two bytes that
      // share one but once in 512.
      size_t length = std::uniform_int_distribution<size_t>(least, most)(random_);
      if (length == before.size() + 1) --length;
      return setContent(path, now.substr(0, length));
    }
    default:
      for (size_t at = before.size() / kSector * kSector; at < now.size(); at += kSector) {
        if (random_() % 2 == 0) continue;
        for (size_t i = std::max(at, before.size()); i < std::min(at + kSector, now.size()); ++i) now[i] = 0;
      }
      return setContent(path, now);
  }
}

std::unique_ptr<StorageFile> CrashStorage::open(const std::string& path, OpenMode mode) {
  if (mode == OpenMode::kCreate) {
    change();
    const Content content = contentOf(path);
    if (!below_.exists(path)) {
      names_.push_back({folderOf(path), [path] { std::filesystem::remove(path); }});
    } else if (!*content) {
      *content = contentAt(path);
    }
  }
  auto file = below_.open(path, mode);
  if (!file) return nullptr;
  return std::make_unique<File>(this, path, std::move(file));
}

std::unique_ptr<StorageFile> CrashStorage::openTemporary(const std::string& folder, const std::string& prefix,
                                                         std::string* path) {
  change();
  auto file = below_.openTemporary(folder, prefix, path);
  if (!file) return nullptr;
  names_.push_back({folderOf(*path), [name = *path] { std::filesystem::remove(name); }});
  return std::make_unique<File>(this, *path, std::move(file));
}

bool CrashStorage::remove(const std::string& path) {
  change();
  if (!below_.exists(path)) return false;
  const std::string content = contentAt(path);
  contents_.erase(path);
  names_.push_back({folderOf(path), [path, content] { setContent(path, content); }});
  return below_.remove(path);
}

bool CrashStorage::rename(const std::string& from, const std::string& to) {
  change();
  const bool replaces = below_.exists(to);
  const std::string replaced = replaces ? contentAt(to) : std::string();
  if (!below_.rename(from, to)) return false;
  contents_[to] = contentOf(from);
  contents_.erase(from);
  names_.push_back({folderOf(to), [=] {
                      std::filesystem::rename(to, from);
                      if (replaces) setContent(to, replaced);
                    }});
  return true;
}

// A copy is on the disk when it comes back, and its folder with it.
bool CrashStorage::copy(const std::string& from, const std::string& to) {
  change();
  contents_.erase(to);
  settleNames(folderOf(to));
  std::error_code failure;
  std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, failure);
  return !failure;
}

void CrashStorage::settleNames(const std::string& folder) {
  std::erase_if(names_,
                [&](const NameChange& change) { return std::filesystem::equivalent(change.folder, folder); });
}

bool CrashStorage::syncFolder(const std::string& folder) {
  change();
  settleNames(folder);
  return true;
}

int runAndCrash(long n, unsigned seed, const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    CrashStorage disk(n, seed);
    _exit(work());
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

}  // namespace zavel::test
