// Tests: tests/config/WorkPathsTest.cpp
#include "config/WorkPaths.h"

#include <string_view>

#include "config/TwcServices.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"
#include "foundation/Storage.h"
#include "platform/Bundle.h"
#include "platform/Platform.h"

namespace zavel {
namespace {

struct SignatureRow {
  const char* signature;
  int applet;
};

constexpr SignatureRow kSignatures[] = {
    {"zQN8", ZAVEL_APPLET_TRANSLATION_EDITOR},
    {"yQN8", ZAVEL_APPLET_TRANSLATION_EDITOR},
    {"zOS8", ZAVEL_APPLET_MEMORY_BROWSER},
    {"yOS8", ZAVEL_APPLET_MEMORY_BROWSER},
    {"zVN8", ZAVEL_APPLET_USER_DICTIONARY_EDITOR},
    {"yVN8", ZAVEL_APPLET_USER_DICTIONARY_EDITOR},
    {"zGX8", ZAVEL_APPLET_TOOL_GX},
    {"zFQ8", ZAVEL_APPLET_CORRESPONDENCE},
    {"yFQ8", ZAVEL_APPLET_CORRESPONDENCE},
    {"zVX8", ZAVEL_APPLET_BROWSER},
    {"yVX8", ZAVEL_APPLET_BROWSER},
};

constexpr char kLastResortFolder[] = "/tmp";

// Systems up to this version have an engine build of their own.
constexpr uint32_t kLastOldSystem = 0x105F;
constexpr char kOldSystemMark[] = "105";

std::string textOf(const char* path) {
  return path ? path : "";
}

// `path` + `rest`, empty where there is no path.
std::string extended(const char* path, const char* rest) {
  return path ? std::string(path) + rest : std::string();
}

bool madeFolder(const std::string& folder) {
  return twcCreateFolder(folder.c_str()) == 0 && storage().isFolder(folder);
}

std::string englishEngine() {
  std::string path = textOf(zavelPathTextEtoJEngine());
  if (path.empty() || platform().bundle().systemVersion() > kLastOldSystem) return path;
  const size_t application = path.rfind(".app");
  return path.insert(application == std::string::npos ? path.size() : application, kOldSystemMark);
}

// The user's file only when it is there now; one that comes later is found at the next start.
std::string styleFile() {
  const std::string own = extended(zavelPathTranslationStylePathURL(), ".plist");
  return !own.empty() && storage().exists(own) ? own : extended(zavelStyleBaseURL(), ".plist");
}

void makeFolders() {
  twcCreateFolder(zavelPathPreferencesFolderURL());
  twcCreateFolder(zavelPathlearningDicJpnFolderURL());
}

}  // namespace

std::string gSourcePath;
std::string gResultPath;
std::string gDictPath;
std::string gStylePath;
std::string gEJEnginePath;
std::string gJEEnginePath;

int ownedApplet = ZAVEL_APPLET_CORRESPONDENCE;

void checkOwnApplet() {
  const std::string signature = platform().bundle().mainSignature();
  for (const SignatureRow& row : kSignatures) {
    if (signature == row.signature) ownedApplet = row.applet;
  }
}

std::string chooseCacheFolder() {
  const char* folder = zavelPathCacheFolderURL();
  if (ownedApplet == ZAVEL_APPLET_BROWSER) folder = zavelPathVXCacheFolderURL();
  if (ownedApplet == ZAVEL_APPLET_CORRESPONDENCE) folder = zavelPathFQCacheFolderURL();
  return folder && madeFolder(folder) ? folder : kLastResortFolder;
}

void setWorkPaths() {
  const std::string folder = chooseCacheFolder();
  gSourcePath = folder + "/SourceFile.txt";
  gResultPath = folder + "/ResultFile.plist";
  gEJEnginePath = englishEngine();
  gJEEnginePath = textOf(zavelPathTextJtoEEngine());
  gStylePath = styleFile();
  makeFolders();
  gDictPath = extended(zavelPathPreferencesFolderURL(), "/ZP.plist");
}

}  // namespace zavel
