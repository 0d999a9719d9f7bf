// Tests: tests/mkbook/TextSourceTest.cpp
#include "mkbook/TextMedia.h"

#include "mkbook/Failure.h"
#include "mkbook/InputFile.h"
#include "mkbook/MediumFault.h"
#include "mkbook/PictureFile.h"
#include "mkbook/WaveFile.h"

namespace zavel::mkbook {
namespace {

Failure changed(const std::string& path, const std::string& how) {
  return Failure(mkdict::kExitDamaged, "changed_input", path + " changed while the book was made" + how,
                 "Run it again.");
}

}  // namespace

std::string TextMedia::pathOf(const std::string& name) const {
  return name.starts_with('/') ? name : folder_ + "/" + name;
}

std::string TextMedia::read(const std::string& name) const {
  const std::string path = pathOf(name);
  std::string bytes;
  switch (readInput(path, kLargestMedium, &bytes)) {
    case InputState::kRead:
      return bytes;
    case InputState::kMissing:
      throw MediumFault("is missing; looked for as " + path);
    case InputState::kNoFile:
      throw MediumFault("is no file");
    case InputState::kTooLarge:
      throw MediumFault("has more than 128 MB");
    default:
      throw MediumFault("can't be read");
  }
}

Medium TextMedia::load(const Key& key) const {
  const auto& [name, sound] = key;
  return sound ? readWave(read(name)) : readPicture(read(name));
}

size_t TextMedia::add(const std::string& name, bool sound) {
  const Key key(name, sound);
  if (const auto found = numbers_.find(key); found != numbers_.end()) return found->second;
  shapes_.push_back(load(key).shape);
  keys_.push_back(key);
  return numbers_[key] = keys_.size() - 1;
}

std::string TextMedia::bytes(size_t number) const {
  const std::string path = pathOf(keys_[number].first);
  try {
    Medium medium = load(keys_[number]);
    if (medium.shape == shapes_[number]) return std::move(medium.bytes);
  } catch (const MediumFault& fault) {
    throw changed(path, std::string(": it ") + fault.what());
  }
  throw changed(path, "");
}

}  // namespace zavel::mkbook
