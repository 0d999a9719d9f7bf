// Tests: tests/zavel/user/UserRecoveryTest.cpp
#include "user/UserMarker.h"

#include <cinttypes>
#include <cstdio>

#include "engine/DicFormat.h"
#include "foundation/Storage.h"
#include "user/UserIndex.h"

namespace zavel::host {
namespace {

constexpr size_t kLongest = 200;

}  // namespace

UserMarker UserMarker::beginning(const UserPlace& place, UserLanguage language, Work work) {
  UserMarker marker{work, 0, 0};
  const bool english = language == UserLanguage::kEnglish;
  const std::string first = place.file(userFiles(language).front());
  if (!storage().exists(first)) return marker;
  marker.indexHash = UserIndex(first, english ? engine::kTypeE : engine::kTypeKana).hash();
  const auto entries = storage().open(place.file(userFiles(language).back()), OpenMode::kRead);
  const int64_t size = entries ? entries->size() : 0;
  if (size > 0) marker.entriesEnd = static_cast<uint64_t>(size);
  return marker;
}

UserMarker UserMarker::read(const UserPlace& place, UserLanguage language) {
  const std::string path = place.marker(language);
  UserMarker marker;
  if (!storage().exists(path)) return marker;
  std::string text;
  char name[16] = {};
  uint64_t end = 0, hash = 0;
  marker.work = readWholeFile(path, kLongest, &text) ? kUnknown : kUnreadable;
  if (std::sscanf(text.c_str(), "%15s %" SCNu64 " %" SCNx64, name, &end, &hash) != 3 ||
      !text.ends_with('\n')) {
    return marker;
  }
  const std::string_view work = name;
  marker = {work == "arranging" ? kArranging : work == "changing" ? kChanging : kUnknown, end, hash};
  return marker;
}

bool UserMarker::write(const UserPlace& place, UserLanguage language) const {
  char text[kLongest];
  std::snprintf(text, sizeof text, "%s %" PRIu64 " %016" PRIx64 "\n",
                work == kArranging ? "arranging" : "changing", entriesEnd, indexHash);
  const auto file = storage().open(place.marker(language), OpenMode::kCreate);
  return file && file->writeAt(0, text) && file->sync() && file->close() &&
         storage().syncFolder(place.folder());
}

}  // namespace zavel::host
