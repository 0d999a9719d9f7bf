// The plain functions over the one set of styles.
// Tests: tests/config/ZavelStyleTest.cpp
#include <memory>
#include <new>

#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"

namespace {

std::unique_ptr<zavel::ZavelStyle> gZavelStyle;

zavel::ZavelStyle::Values values() {
  return gZavelStyle ? gZavelStyle->values() : zavel::ZavelStyle::Values();
}

}  // namespace

void zavelStyleInitialize(void) try {
  gZavelStyle = std::make_unique<zavel::ZavelStyle>();
  gZavelStyle->setZavelType(zavelType());
} catch (const std::bad_alloc&) {
  gZavelStyle.reset();
}

void zavelStyleTerminate(void) {
  gZavelStyle.reset();
}

bool zavelStyleSetTStyleUrl(const char* path) try {
  return gZavelStyle && gZavelStyle->setTStyleUrl(path);
} catch (const std::bad_alloc&) {
  return false;
}

void zavelStyleSetTechDictUrl(const char* ej, const char* je) try {
  if (gZavelStyle) gZavelStyle->setTechDictUrl(ej, je);
} catch (const std::bad_alloc&) {
}

void zavelStyleSetUserDictUrl(const char* path) try {
  if (gZavelStyle) gZavelStyle->setUserDictUrl(path);
} catch (const std::bad_alloc&) {
}

bool zavelStyleLoadTitleAndCurrentID(int applet, int* current) try {
  return gZavelStyle && gZavelStyle->loadTitleAndCurrentID(applet, current);
} catch (const std::bad_alloc&) {
  return false;
}

bool zavelStyleLoadTranslationStyleWithID(int id) try {
  return gZavelStyle && gZavelStyle->loadTranslationStyleWithID(id);
} catch (const std::bad_alloc&) {
  return false;
}

bool zavelStyleLoadTranslationStyleWithApp(int applet) try {
  return gZavelStyle && gZavelStyle->loadTranslationStyleWithApp(applet);
} catch (const std::bad_alloc&) {
  return false;
}

const char* zavelStyleBaseURL(void) {
  return gZavelStyle ? gZavelStyle->baseUrl().c_str() : nullptr;
}

ZavelStyleTitle zavelStyleTitleID(int index) {
  constexpr ZavelStyleTitle kFreeTitle = {-1, 0, {}};
  return gZavelStyle ? gZavelStyle->title(index) : kFreeTitle;
}

int zavelStyleEtojStyle(void) {
  return values().etojStyle;
}
int zavelStyleEtojThey(void) {
  return values().etojThey;
}
int zavelStyleEtojLearning(void) {
  return values().etojLearning;
}
int zavelStyleJtoeShugo(void) {
  return values().jtoeShugo;
}
int zavelStyleJtoeKanshi(void) {
  return values().jtoeKanshi;
}
int zavelStyleJtoeUkemi(void) {
  return values().jtoeUkemi;
}
int zavelStyleJtoeLearning(void) {
  return values().jtoeLearning;
}
