// Tests: tests/zavel/user/UserRecoveryTest.cpp
#include "user/UserPlace.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "Places.h"
#include "foundation/Storage.h"

namespace zavel::host {

const std::vector<std::string>& userFiles(UserLanguage language) {
  static const std::vector<std::string> kEnglish = {"ej.idx", "ej.ix3", "ej.dic"};
  static const std::vector<std::string> kJapanese = {"kna.idx", "kji.idx", "kna.ix3", "kji.ix3", "je.dic"};
  return language == UserLanguage::kEnglish ? kEnglish : kJapanese;
}

std::string kanjiIndexName(int number) {
  char name[16];
  std::snprintf(name, sizeof name, "%03d.idx", number);
  return name;
}

std::string UserPlace::marker(UserLanguage language) const {
  return folder_ + "/.changing-" + languageCode(language);
}

std::string UserPlace::stamp(UserLanguage language) const {
  return file(language == UserLanguage::kEnglish ? "ej.stamp" : "je.stamp");
}

bool UserPlace::exists(UserLanguage language) const {
  if (storage().exists(marker(language))) return true;
  for (const std::string& name : userFiles(language)) {
    for (const char* suffix : {"", ".bkup", ".Bkup", ".arrbkp"}) {
      if (storage().exists(file(name) + suffix)) return true;
    }
  }
  return false;
}

uintmax_t UserPlace::size(UserLanguage language) const {
  std::vector<std::string> names = userFiles(language);
  if (language == UserLanguage::kJapanese) {
    for (int number = 1; number <= kMostKanjiIndexes; ++number) names.push_back(kanjiIndexName(number));
  }
  uintmax_t total = 0;
  for (const std::string& name : names) {
    std::error_code error;
    const uintmax_t size = std::filesystem::file_size(file(name), error);
    if (!error) total += size;
  }
  return total;
}

UserPlace userPlace() {
  const Places places = findPlaces();
  return UserPlace(places.data.empty() ? std::string() : inFolder(places.data, "user"));
}

}  // namespace zavel::host
