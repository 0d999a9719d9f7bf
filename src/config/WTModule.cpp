// Tests: tests/config/ProcessesTest.cpp
#include "config/WTModule.h"

#include "config/ZavelCommonModule.h"
#include "config/ZavelPath.h"
#include "platform/Applications.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel {
namespace {

constexpr int kBrowserRuns = 1;  // of launchedApplication

// Kept: the general edition's browser is looked for in the medical edition too. docs/quirks.md
bool findOrStartBrowser(ProcessNumber* browser) {
  if (ZavelCommonModule::getPSN2Creator("zVX8", "APPL", browser) == ZavelCommonModule::kProcessFound)
    return true;
  const char* path = zavelPathGetAppleyPath(ZAVEL_APPLET_BROWSER);
  return path && ZavelCommonModule::launchedApplication(path, browser, true) == kBrowserRuns;
}

}  // namespace

bool WTModule::goWebTranslator(const std::string& url) {
  ProcessNumber browser;
  if (!findOrStartBrowser(&browser)) return false;
  platform().applications().bringToFront(browser);
  const Message message{"misc", "wURL", {{"----", "TEXT", platform().encoding().toSjisLossy(url).bytes()}}};
  return platform().applications().send(browser, message, nullptr) == SendResult::kSent;
}

}  // namespace zavel
