// A storage whose folders another process makes first, each right before the caller does.
#ifndef TESTS_SUPPORT_RACINGSTORAGE_H
#define TESTS_SUPPORT_RACINGSTORAGE_H

#include <string>

#include "support/FaultyStorage.h"

namespace zavel::test {

class RacingStorage : public FaultyStorage {
 public:
  enum Rival { kMakesTheFolder, kMakesAFile };

  // `rival` comes in ahead of each folder whose path ends in `name`; an empty one: of every folder.
  explicit RacingStorage(Rival rival, std::string name = "") : rival_(rival), name_(std::move(name)) {}

  int makeFolder(const std::string& path) override {
    if (path.ends_with(name_)) {
      if (rival_ == kMakesTheFolder) FaultyStorage::makeFolder(path);
      if (rival_ == kMakesAFile) open(path, OpenMode::kCreate);
    }
    return FaultyStorage::makeFolder(path);
  }

 private:
  Rival rival_;
  std::string name_;
};

}  // namespace zavel::test

#endif
