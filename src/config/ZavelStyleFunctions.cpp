// The plain functions over the one set of styles.
// Tests: tests/config/ZavelStyleTest.cpp
#include <memory>

#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"

namespace {

std::unique_ptr<zavel::ZavelStyle> gZavelStyle;

zavel::ZavelStyle::Values values() {
  return gZavelStyle ? gZavelStyle->values() : zavel::ZavelStyle::Values();
}

}  // namespace

void zavelStyleInitialize(void) {
  gZavelStyle = std::make_unique<zavel::ZavelStyle>();
  gZavelStyle->setZavelType(zavelType());
}

void zavelStyleTerminate(void) {
  gZavelStyle.reset();
}

bool zavelStyleSetTStyleUrl(const char* path) {
  return gZavelStyle && gZavelStyle->setTStyleUrl(path);
}

void zavelStyleSetTechDictUrl(const char* ej, const char* je) {
  if (gZavelStyle) gZavelStyle->setTechDictUrl(ej, je);
}

void zavelStyleSetUserDictUrl(const char* path) {
  if (gZavelStyle) gZavelStyle->setUserDictUrl(path);
}

bool zavelStyleLoadTitleAndCurrentID(int applet, int* current) {
  return gZavelStyle && gZavelStyle->loadTitleAndCurrentID(applet, current);
}

bool zavelStyleLoadTranslationStyleWithID(int id) {
  return gZavelStyle && gZavelStyle->loadTranslationStyleWithID(id);
}

bool zavelStyleLoadTranslationStyleWithApp(int applet) {
  return gZavelStyle && gZavelStyle->loadTranslationStyleWithApp(applet);
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
