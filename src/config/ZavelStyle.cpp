// Tests: tests/config/ZavelStyleTest.cpp
#include "config/ZavelStyle.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>
#include <variant>

#include "foundation/Storage.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "platform/TextEncoding.h"

namespace zavel {
namespace {

struct AppletKey {
  int applet;
  const char* key;
};

constexpr AppletKey kAppletKeys[] = {
    {ZAVEL_APPLET_TRANSLATION_EDITOR, "QN"},
    {ZAVEL_APPLET_STYLE_CLIENT_HG, "HG"},
    {ZAVEL_APPLET_MEMORY_BROWSER, "OSL"},
    {ZAVEL_APPLET_USER_DICTIONARY_EDITOR, "VN"},
    {ZAVEL_APPLET_TOOL_GX, "GX"},
    {ZAVEL_APPLET_CORRESPONDENCE, "FQ"},
    {ZAVEL_APPLET_STYLE_CLIENT_PXW, "PXW"},
    {ZAVEL_APPLET_CORRESPONDENCE2, "QUIR"},
    {ZAVEL_APPLET_BROWSER, "VX"},
    {ZAVEL_APPLET_TOOL_WZ, "WZ"},
    {ZAVEL_APPLET_MEMORY_EDITOR, "YPH"},
};

constexpr char kGeneralStyles[] = "/Library/Application Support/Tarnwick/ZavelLex/ZavelStyle";
constexpr int kGeneralNewestYear = 2009;
constexpr char kMedicalStyles[] = "/Library/Application Support/Tarnwick/TarnwickMedical/TarnwickStyle";
constexpr int kMedicalNewestYear = 2014;
constexpr int kOldestYear = 2008;

constexpr char kGeneralTechDicEJ[] = "/Applications/ZavelLex.localized/Contents/TechDic.localized/EJ";
constexpr char kGeneralTechDicJE[] = "/Applications/ZavelLex.localized/Contents/TechDic.localized/JE";
constexpr char kMedicalTechDicEJ[] = "/Applications/TarnwickMedical.localized/Contents/TechDic.localized/EJi";
constexpr char kMedicalTechDicJE[] = "/Applications/TarnwickMedical.localized/Contents/TechDic.localized/JE";

constexpr ZavelStyleTitle kFreeTitle = {-1, 0, {}};

std::string belowRoot(const char* place) {
  return platform().folders().root() + place;
}

// The file of the newest year that is there; that of the oldest one needn't be.
std::string newestStyles(const char* place, int newestYear) {
  const std::string stem = belowRoot(place);
  for (int year = newestYear; year > kOldestYear; --year) {
    const std::string path = stem + std::to_string(year);
    if (storage().exists(path + ".plist")) return path;
  }
  return stem + std::to_string(kOldestYear);
}

// A number of 32 bits. Files written by hand mix up booleans and numbers, so each serves as the other.
std::optional<int32_t> numberAt(const Value& map, const char* key) {
  const Value* value = map.find(key);
  if (!value) return std::nullopt;
  const bool number = std::holds_alternative<bool>(value->storage()) ||
                      std::holds_alternative<int64_t>(value->storage()) ||
                      std::holds_alternative<double>(value->storage());
  const int64_t integer = value->integer(std::numeric_limits<int64_t>::max());
  if (!number || integer != static_cast<int32_t>(integer)) return std::nullopt;
  return static_cast<int32_t>(integer);
}

// Stores the number at `key`; false, with `field` as it was, when it is missing.
bool loadNumber(const Value& map, const char* key, int32_t* field) {
  const std::optional<int32_t> number = numberAt(map, key);
  if (number) *field = *number;
  return number.has_value();
}

bool loadFlag(const Value& map, const char* key, int32_t* field) {
  const bool loaded = loadNumber(map, key, field);
  if (loaded) *field = *field != 0;
  return loaded;
}

// The list of styles; null when the file has none.
const Value::Array* stylesIn(const Value& file) {
  const Value* list = file.find("Style");
  return list ? list->asArray() : nullptr;
}

bool isSjisFirst(char byte) {
  const unsigned char b = static_cast<unsigned char>(byte);
  return (b >= 0x81 && b <= 0x9F) || (b >= 0xE0 && b <= 0xFC);
}

// As many whole characters as a title has room for.
std::string_view cutToTitle(std::string_view sjis) {
  size_t end = 0;
  for (size_t next = 0; next <= std::min<size_t>(sjis.size(), ZAVEL_STYLE_TITLE_BYTES);) {
    end = next;
    if (end == sjis.size()) break;
    next += isSjisFirst(sjis[end]) ? 2 : 1;
  }
  return sjis.substr(0, end);
}

ZavelStyleTitle titleOf(int32_t id, const std::string& name) {
  const SjisBytes sjis = platform().encoding().toSjisLossy(name);
  const std::string_view text = cutToTitle(sjis.bytes());
  ZavelStyleTitle title = kFreeTitle;
  title.id = id;
  title.length = static_cast<uint8_t>(text.size());
  std::copy(text.begin(), text.end(), title.text);
  return title;
}

// Keys and accessors differ in their order: "Opt2" is Ukemi and "Opt3" Kanshi. "TD" and "UD" are not read
// here: the engines get the dictionaries by their parameter file.
bool loadEtoj(const Value& options, ZavelStyle::Values* values) {
  return loadNumber(options, "Opt1", &values->etojStyle) && loadNumber(options, "Opt2", &values->etojThey) &&
         loadNumber(options, "Opt3", &values->etojLearning);
}

bool loadJtoe(const Value& options, ZavelStyle::Values* values) {
  return loadNumber(options, "Opt1", &values->jtoeShugo) && loadNumber(options, "Opt2", &values->jtoeUkemi) &&
         loadNumber(options, "Opt3", &values->jtoeKanshi) && loadFlag(options, "Opt4", &values->jtoeLearning);
}

}  // namespace

ZavelStyle::ZavelStyle()
    : baseUrl_(newestStyles(kGeneralStyles, kGeneralNewestYear)),
      techDictEJ_(belowRoot(kGeneralTechDicEJ)),
      techDictJE_(belowRoot(kGeneralTechDicJE)) {
  titles_.fill(kFreeTitle);
}

void ZavelStyle::setZavelType(int type) {
  if (type == type_) return;
  type_ = type;
  baseUrl_ = newestStyles(kMedicalStyles, kMedicalNewestYear);
  techDictEJ_ = belowRoot(kMedicalTechDicEJ);
  techDictJE_ = belowRoot(kMedicalTechDicJE);
}

bool ZavelStyle::setTStyleUrl(const char* path) {
  std::string url = path ? path : "";
  styleUrlPlist_ = url + ".plist";
  styleUrl_ = std::move(url);
  if (styleUrl_.empty()) return false;
  return !storage().exists(styleUrlPlist_) || readStyleFile();
}

void ZavelStyle::setTechDictUrl(const char* ej, const char* je) {
  if (ej) techDictEJ_ = ej;
  if (je) techDictJE_ = je;
}

void ZavelStyle::setUserDictUrl(const char* path) {
  userDict_ = path ? std::optional<std::string>(path) : std::nullopt;
}

std::optional<Value> ZavelStyle::readStyleFile() const {
  if (styleUrl_.empty()) return std::nullopt;
  Value file;
  const std::string path = storage().exists(styleUrlPlist_) ? styleUrlPlist_ : baseUrl_ + ".plist";
  if (!platform().propertyLists().readFile(path, &file) || !file.isDict()) return std::nullopt;
  return file;
}

bool ZavelStyle::loadTitleAndCurrentID(int applet, int* current) {
  const std::optional<Value> file = readStyleFile();
  if (!file || !loadTitles(*file)) return false;
  const Value* selections = file->find("Selection");
  if (!selections || !selections->isDict()) return false;
  if (!current) return true;
  const std::optional<int32_t> id = selection(*file, applet);
  if (id) *current = *id;
  return id.has_value();
}

bool ZavelStyle::loadTitles(const Value& file) {
  const Value::Array* styles = stylesIn(file);
  if (!styles) return false;
  const size_t count = std::min(styles->size(), titles_.size());
  for (size_t i = 0; i < count; ++i) {
    const std::optional<int32_t> id = numberAt((*styles)[i], "ID");
    const Value* name = (*styles)[i].find("Name");
    if (!id || !name || !name->isString()) return false;
    titles_[i] = titleOf(*id, *name->asString());
  }
  return true;
}

bool ZavelStyle::loadTranslationStyleWithID(int id) {
  const std::optional<Value> file = readStyleFile();
  return file && loadValues(*file, id);
}

bool ZavelStyle::loadTranslationStyleWithApp(int applet) {
  const std::optional<Value> file = readStyleFile();
  const std::optional<int32_t> id = file ? selection(*file, applet) : std::nullopt;
  return id && loadTranslationStyleWithID(*id);
}

bool ZavelStyle::loadValues(const Value& file, int id) {
  const Value::Array* styles = stylesIn(file);
  // Kept: a longer list is refused here, while the titles take its first ten. docs/quirks.md
  if (!styles || styles->size() > titles_.size()) return false;
  for (const Value& style : *styles) {
    const std::optional<int32_t> styleId = numberAt(style, "ID");
    if (!styleId) return false;
    if (*styleId != id) continue;
    const Value* etoj = style.find("EJ");
    if (!etoj || !loadEtoj(*etoj, &values_)) return false;
    const Value* jtoe = style.find("JE");
    return jtoe && loadJtoe(*jtoe, &values_);
  }
  return true;  // kept: an ID that no style has changes nothing, and that is no failure
}

std::optional<int32_t> ZavelStyle::selection(const Value& file, int applet) {
  const Value* selections = file.find("Selection");
  const char* key = appKeyWithEnum(applet);
  return selections && key ? numberAt(*selections, key) : std::nullopt;
}

const char* ZavelStyle::appKeyWithEnum(int applet) {
  for (const AppletKey& row : kAppletKeys) {
    if (row.applet == applet) return row.key;
  }
  return nullptr;
}

ZavelStyleTitle ZavelStyle::title(int index) const {
  return index >= 0 && index < kStyleCount ? titles_[static_cast<size_t>(index)] : kFreeTitle;
}

}  // namespace zavel
