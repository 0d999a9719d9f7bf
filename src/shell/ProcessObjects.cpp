// Tests: tests/shell/ControllerTest.cpp
#include "shell/ProcessObjects.h"

#include <memory>
#include <optional>

#include "config/WorkPaths.h"
#include "config/ZFWPlistController.h"
#include "config/ZavelCommonModule.h"
#include "config/ZavelCommunication.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"
#include "feed/RSSSubscriber2.h"
#include "lookup/MirellModule.h"
#include "platform/Bundle.h"
#include "platform/Platform.h"
#include "research/ZFWiPodController.h"
#include "translate/TranslationController2.h"

namespace zavel {

int gCallCount = 0;
int viewID = 0;
bool rssTimerFlag = false;

namespace {

std::string hostPathTable;
std::unique_ptr<MirellModule> ownedMirellModule;
ProcessStatus status;

std::string text(const char* path) {
  return path ? path : "";
}

void makeCommonModule() {
  if (gZavelCommonModule) {
    // The table in use; a copy, because loading replaces what the accessor gave.
    const std::string table = text(zavelPathDictAndHelper());
    status.pathTable = zavelPathLoadDictAndHelper(table.empty() ? nullptr : table.c_str());
    return;
  }
  gZavelCommonModule = std::make_unique<ZavelCommonModule>(
      platform().bundle().resourcePath("Entity", "plist").value_or(std::string()));
  zavelPathInitialize();
  status.pathTable = zavelPathLoadDictAndHelper(hostPathTable.empty() ? nullptr : hostPathTable.c_str());
  zavelStyleInitialize();
  zavelStyleSetTStyleUrl(zavelPathTranslationStylePathURL());
  zavelStyleSetTechDictUrl(zavelPathTechnicalDicEngFolderURL(), zavelPathTechnicalDicJpnFolderURL());
  zavelStyleSetUserDictUrl(zavelPathUserDicFolderURL());
}

// The application's own cache folder, where it has one; the common one for all others.
std::string translationCacheFolder() {
  switch (ownedApplet) {
    case ZAVEL_APPLET_TRANSLATION_EDITOR:
      return text(zavelPathQNCacheFolderURL());
    case ZAVEL_APPLET_MEMORY_BROWSER:
      return text(zavelPathAtokCacheFolderURL());
    case ZAVEL_APPLET_CORRESPONDENCE:
      return text(zavelPathFQCacheFolderURL());
    case ZAVEL_APPLET_BROWSER:
      return text(zavelPathVXCacheFolderURL());
    default:
      return text(zavelPathCacheFolderURL());
  }
}

bool hasOwnCacheFolder() {
  return ownedApplet == ZAVEL_APPLET_TRANSLATION_EDITOR || ownedApplet == ZAVEL_APPLET_MEMORY_BROWSER ||
         ownedApplet == ZAVEL_APPLET_CORRESPONDENCE || ownedApplet == ZAVEL_APPLET_BROWSER;
}

void makeTranslationController() {
  if (gTranslationController2) return;
  gTranslationController2 = std::make_unique<TranslationController2>();
  gTranslationController2->setOwnserPath(text(zavelPathGetAppleyPath(ownedApplet)));
  const std::string folder = translationCacheFolder();
  if (hasOwnCacheFolder() && !folder.empty()) ZavelCommonModule::removeFileInDirectory(folder);
  gTranslationController2->setCacheFolder(folder, text(zavelPathRSSCacheFolderURL()));
}

}  // namespace

void setHostPathTable(const std::string& path) {
  hostPathTable = path;
}

ProcessStatus processStatus() {
  return status;
}

void retainProcessObjects() {
  ++gCallCount;
  makeCommonModule();
  if (!gZavelCommunication) gZavelCommunication = std::make_unique<ZavelCommunication>();
  if (!gZFWPlist) gZFWPlist = std::make_unique<ZFWPlistController>();
  if (!gZFWiPod) gZFWiPod = std::make_unique<ZFWiPodController>();
  checkOwnApplet();
  setWorkPaths();
  makeTranslationController();
  if (!gRSSSubscriber2) gRSSSubscriber2 = std::make_unique<RSSSubscriber2>();
}

void makeMirellModule(const std::string& cacheName) {
  if (!gMirellModule) {
    ownedMirellModule = std::make_unique<MirellModule>();
    gMirellModule = ownedMirellModule.get();
    gMirellModule->load(cacheName);
  }
  status.mirellLoaded = gMirellModule->objectODM() != nullptr;
}

void releaseProcessObjects() {
  if (--gCallCount > 0) return;
  status = ProcessStatus();
  if (gRSSSubscriber2) gRSSSubscriber2->terminateProcess();
  gRSSSubscriber2.reset();
  gTranslationController2.reset();
  if (ownedMirellModule) gMirellModule = nullptr;
  ownedMirellModule.reset();
  gZFWPlist.reset();
  gZavelCommunication.reset();
  zavelPathTerminate();
  zavelStyleTerminate();
  gZavelCommonModule.reset();
}

}  // namespace zavel
