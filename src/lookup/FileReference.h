#ifndef LOOKUP_FILEREFERENCE_H
#define LOOKUP_FILEREFERENCE_H

#include <string>
#include <utility>

namespace zavel {

// Names a file, which need not exist, or is unset and names none.
class FileReference {
 public:
  FileReference() = default;
  explicit FileReference(std::string path) : path_(std::move(path)) {}

  bool isSet() const { return !path_.empty(); }
  const std::string& path() const { return path_; }  // empty while unset

 private:
  std::string path_;
};

}  // namespace zavel

#endif
