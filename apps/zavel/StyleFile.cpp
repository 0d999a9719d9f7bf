// Tests: tests/zavel/DictionariesTest.cpp
#include "StyleFile.h"

#include <cstdlib>

#include "foundation/Storage.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel::host {
namespace {

constexpr size_t kExtension = 6;  // ".plist"
constexpr int kMostDamagedFiles = 1000;

// A name that nothing has yet.
std::string asideOf(const std::string& file) {
  std::string aside = file + ".damaged";
  for (int number = 2; storage().exists(aside) && number < kMostDamagedFiles; ++number) {
    aside = file + ".damaged-" + std::to_string(number);
  }
  return aside;
}

}  // namespace

bool areStyles(const std::string& file) {
  Value value;
  if (!platform().propertyLists().readFile(file, &value)) return false;
  const Value* styles = value.find("Style");
  return styles && styles->isArray();
}

std::string provideStyles(const std::string& file, bool check) {
  const std::string path = file.substr(0, file.size() - kExtension);
  std::string told;
  if (storage().exists(file)) {
    if (!check || areStyles(file)) return {};
    const std::string aside = asideOf(file);
    if (!storage().rename(file, aside)) {
      return "the translation styles in " + file + " can't be read; the standard ones are used";
    }
    told = "the translation styles could not be read and were reset; the old file is now " + aside;
  }
  writeStylesIfMissing(path, styleLanguage());
  return told;
}

StyleLanguage styleLanguage() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* locale = std::getenv(name);
    if (!locale || !*locale) continue;
    return std::string(locale).starts_with("ja") ? StyleLanguage::kJapanese : StyleLanguage::kEnglish;
  }
  return StyleLanguage::kEnglish;
}

}  // namespace zavel::host
