// The plain functions over the one path table.
// Tests: tests/config/ZavelPathTest.cpp, tests/config/PathTableTest.cpp
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "config/ZavelPath.h"
#include "platform/Log.h"

using zavel::PathEntry;

namespace {

constexpr int kStyleCount = 10;

std::unique_ptr<zavel::ZavelPath> gZavelPath;
int gZavelType = ZAVEL_TYPE_GENERAL;

const char* valueOf(PathEntry entry) {
  return gZavelPath ? gZavelPath->value(entry) : nullptr;
}

void setEdition(std::string_view path) {
  gZavelType = ZAVEL_TYPE_GENERAL;
  if (path.empty()) return;
  // Kept: the name counts wherever it stands, in a folder's name too. docs/quirks.md
  if (path.find("Medical") != std::string_view::npos) gZavelType = ZAVEL_TYPE_MEDICAL;
  zavel::logLine("Syle Number=" + std::to_string(kStyleCount));
}

}  // namespace

void zavelPathInitialize(void) try {
  gZavelPath = std::make_unique<zavel::ZavelPath>();
} catch (const std::bad_alloc&) {
  gZavelPath.reset();
}

void zavelPathTerminate(void) {
  gZavelPath.reset();
}

int zavelPathLoadDictAndHelper(const char* path) try {
  setEdition(path ? path : "");
  return gZavelPath ? gZavelPath->loadDictAndHelper(path) : zavel::kPathTableMissing;
} catch (const std::bad_alloc&) {
  return zavel::kPathTableMissing;
}

const char* zavelPathDictAndHelper(void) {
  return gZavelPath ? gZavelPath->pathDictAndHelper() : nullptr;
}

const char* zavelPathGetAppleyPath(int applet) try {
  return gZavelPath ? gZavelPath->getAppleyPath(applet) : nullptr;
} catch (const std::bad_alloc&) {
  return nullptr;
}

int zavelType(void) {
  return gZavelType;
}

int styleNum(void) {
  return kStyleCount;
}

const char* zavelPathPreferencesFolderURL(void) {
  return valueOf(PathEntry::kPreferencesFolder);
}
const char* zavelPathDocumentsFolderURL(void) {
  return valueOf(PathEntry::kDocumentsFolder);
}
const char* zavelPathTranslationStylePathURL(void) {
  return valueOf(PathEntry::kTranslationStyle);
}
const char* zavelPathPresetRssPathURL(void) {
  return valueOf(PathEntry::kPresetRss);
}

const char* zavelPathCacheFolderURL(void) {
  return valueOf(PathEntry::kCacheFolder);
}
const char* zavelPathAtokCacheFolderURL(void) {
  return valueOf(PathEntry::kCacheFolderOther);
}
const char* zavelPathWTCacheFolderURL(void) {
  return valueOf(PathEntry::kWTCacheFolder);
}
const char* zavelPathFQCacheFolderURL(void) {
  return valueOf(PathEntry::kFQCacheFolder);
}
const char* zavelPathRSSCacheFolderURL(void) {
  return valueOf(PathEntry::kRSSCacheFolder);
}
const char* zavelPathVXCacheFolderURL(void) {
  return valueOf(PathEntry::kVXCacheFolder);
}
const char* zavelPathQNCacheFolderURL(void) {
  return valueOf(PathEntry::kQNCacheFolder);
}

const char* zavelPathArchivesURL(void) {
  return valueOf(PathEntry::kExampleArchives);
}
const char* zavelPathMemoryEtoJURL(void) {
  return valueOf(PathEntry::kExampleMemoryEJ);
}
const char* zavelPathMemoryJtoEURL(void) {
  return valueOf(PathEntry::kExampleMemoryJE);
}
const char* zavelPathMemoryEtoJTitle(void) {
  return valueOf(PathEntry::kExampleMemoryTitleEJ);
}
const char* zavelPathMemoryJtoETitle(void) {
  return valueOf(PathEntry::kExampleMemoryTitleJE);
}

const char* zavelPathSystemDicEngURL(void) {
  return valueOf(PathEntry::kSystemDictionaryEJ);
}
const char* zavelPathSystemDicEng2URL(void) {
  return valueOf(PathEntry::kSystemDictionaryEJ2);
}
const char* zavelPathProperNounDicEngURL(void) {
  return valueOf(PathEntry::kProperNounDictionaryEJ);
}
const char* zavelPathSystemDicJpnURL(void) {
  return valueOf(PathEntry::kSystemDictionaryJE);
}
const char* zavelPathUserDicEngName(void) {
  return valueOf(PathEntry::kUserDictionaryEJName);
}
const char* zavelPathUserDicJpnName(void) {
  return valueOf(PathEntry::kUserDictionaryJEName);
}
const char* zavelPathUserOslEngName(void) {
  return valueOf(PathEntry::kUserOSLEJName);
}
const char* zavelPathUserOslJpnName(void) {
  return valueOf(PathEntry::kUserOSLJEName);
}
const char* zavelPathEnhancedDicEngFolderURL(void) {
  return valueOf(PathEntry::kEnhancedDictionaryEJFolder);
}
const char* zavelPathEnhancedDicJpnFolderURL(void) {
  return valueOf(PathEntry::kEnhancedDictionaryJEFolder);
}
const char* zavelPathTechnicalDicEngFolderURL(void) {
  return valueOf(PathEntry::kTechnicalDictionaryEJFolder);
}
const char* zavelPathTechnicalDicJpnFolderURL(void) {
  return valueOf(PathEntry::kTechnicalDictionaryJEFolder);
}
const char* zavelPathUserDicFolderURL(void) {
  return valueOf(PathEntry::kUserDictionaryFolder);
}
const char* zavelPathUserOslFolderURL(void) {
  return valueOf(PathEntry::kUserOSLFolder);
}
const char* zavelPathlearningDicJpnFolderURL(void) {
  return valueOf(PathEntry::kLearningDictionaryFolder);
}
const char* zavelPathKenkyuDicFolderURL(void) {
  return valueOf(PathEntry::kKenkyuDictionaryFolder);
}
const char* zavelPathJJCheckerDicFolderURL(void) {
  return valueOf(PathEntry::kJJCheckerDictionaryFolder);
}

const char* zavelPathHelperTextTranslation(void) {
  return valueOf(PathEntry::kTextTranslationHelper);
}
const char* zavelPathHelperWebTranslation(void) {
  return valueOf(PathEntry::kWebTranslationHelper);
}
const char* zavelPathHelperKenkyuDictionary(void) {
  return valueOf(PathEntry::kKenkyuDictionaryHelper);
}
const char* zavelPathHelperDRP2Text(void) {
  return valueOf(PathEntry::kDRP2TextHelper);
}
const char* zavelPathHelperSpellCheck2File(void) {
  return valueOf(PathEntry::kSpellCheck2FileHelper);
}

const char* zavelKenkyuEngine(void) {
  return valueOf(PathEntry::kKModule);
}
const char* zavelPathTextEtoJEngine(void) {
  return valueOf(PathEntry::kTEModule);
}
const char* zavelPathTextESEngine(void) {
  return valueOf(PathEntry::kTSModule);
}
const char* zavelPathTextJtoEEngine(void) {
  return valueOf(PathEntry::kTJModule);
}
const char* zavelPathHtmlEtoJEngine(void) {
  return valueOf(PathEntry::kWEModule);
}
const char* zavelPathHtmlJtoEEngine(void) {
  return valueOf(PathEntry::kWJModule);
}
const char* zavelPathUserEtoJEngine(void) {
  return valueOf(PathEntry::kUEModule);
}
const char* zavelPathUserJtoEEngine(void) {
  return valueOf(PathEntry::kUJModule);
}
const char* zavelPathGrammarHelp(void) {
  return valueOf(PathEntry::kGrammarHelp);
}
const char* zavelPathHowToMail(void) {
  return valueOf(PathEntry::kHowToMail);
}

const char* zavelPathTwedApplicationURL(void) {
  return valueOf(PathEntry::kTwedApplication);
}

const char* zavelPathSupportURL(void) {
  return valueOf(PathEntry::kSupport);
}
const char* zavelPathHomepageURL(void) {
  return valueOf(PathEntry::kHomepage);
}
