// Tests: tests/config/CommonModuleTextTest.cpp, tests/config/CommonModuleFilesTest.cpp
#include "config/ZavelCommonModule.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "config/ByteStrings.h"
#include "config/SjisClassWalk.h"
#include "foundation/Storage.h"
#include "platform/Bundle.h"
#include "platform/Folders.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "platform/TextEncoding.h"
#include "platform/ToolRunner.h"

namespace zavel {
namespace {

constexpr size_t kMaxTextFileBytes = size_t{64} << 20;
constexpr unsigned char kFirstGraphic = 33;
constexpr unsigned char kBlank = 32;
constexpr unsigned char kTab = 9;
constexpr unsigned char kLineFeed = 10;
constexpr unsigned char kCarriageReturn = 13;

// The first two bytes of a typographic dash or quotation mark that is UTF-8 among Shift_JIS.
constexpr unsigned char kUtf8PunctuationLead = 0xE2;
constexpr unsigned char kUtf8PunctuationTrail = 0x80;

// Localized texts of typographic signs, and what the English engine wants for them.
struct PlainSign {
  const char* key;
  const char* plain;
};

constexpr PlainSign kPlainSigns[] = {
    {"ShortHyphen", "-"},    {"LongHyphen", "-"},   {"HidariApostrophe", "'"},
    {"MigiApostrophe", "'"}, {"HidariQuote", "\""}, {"MigiQuote", "\""},
};

unsigned char byteAt(const std::string& bytes, size_t index) {
  return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
}

bool isWhiteSpace(unsigned char byte) {
  return (byte >= 9 && byte <= 13) || byte == kBlank;
}

bool belowGraphic(char byte) {
  return static_cast<unsigned char>(byte) < kFirstGraphic;
}

void trimHead(std::string* bytes) {
  bytes->erase(bytes->begin(), std::find_if_not(bytes->begin(), bytes->end(), belowGraphic));
}

void trimTail(std::string* bytes) {
  bytes->erase(std::find_if_not(bytes->rbegin(), bytes->rend(), belowGraphic).base(), bytes->end());
}

// What a single byte of English text becomes; 0 for nothing.
char plainEnglish(unsigned char byte, unsigned char next) {
  switch (byte) {
    case kTab:
    case kLineFeed:
    case 0xCA:
      return ' ';
    case kCarriageReturn:
      return next == kLineFeed ? '\0' : ' ';
    case 0xD0:
    case 0xD1:
      return '-';
    case 0xD2:
    case 0xD3:
      return '"';
    case 0xD4:
    case 0xD5:
      return '\'';
    default:
      return byte >= kBlank ? static_cast<char>(byte) : '\0';
  }
}

// The text with every byte below 33 gone from its head and its middle made plain.
std::string plainMiddle(const std::string& bytes) {
  std::string plain;
  SjisClassWalk walk(bytes);
  for (size_t i = 0; i < bytes.size(); ++i) {
    const SjisClass sjisClass = walk.classAt(i);
    const unsigned char byte = byteAt(bytes, i);
    const unsigned char next = byteAt(bytes, i + 1);
    if (sjisClass == kSjisFirst && byte == kUtf8PunctuationLead && next == kUtf8PunctuationTrail) {
      plain.push_back('-');
      ++i;
    } else if (sjisClass != kSjisSingle) {
      plain.push_back(bytes[i]);
    } else if (const char kept = plainEnglish(byte, next)) {
      plain.push_back(kept);
    }
  }
  return plain;
}

Encoding encodingFromFileTool(const std::string& description) {
  if (description.find("UTF-16") != std::string::npos) return Encoding::kUtf16;
  if (description.find("UTF-8") != std::string::npos) return Encoding::kUtf8;
  // That tool's name for text in Japanese EUC.
  if (description.find("ISO-8859") != std::string::npos) return Encoding::kEucJp;
  return Encoding::kShiftJis;
}

// Kept: what the tool says begins with the path, so that a folder named "UTF-8" decides. docs/quirks.md
Encoding encodingOfFile(const std::string& path) {
  // A path that looks like an option is given a folder, which leads to the same file.
  const std::string argument = path.starts_with("-") ? "./" + path : path;
  const ToolResult result = platform().tools().run("/usr/bin/file", {argument});
  return encodingFromFileTool(platform().encoding().fromSjisLossy(result.output));
}

// Replaces each `from` once, whatever the case of its ASCII letters.
void replaceInAnyCase(std::string* text, const std::string& from, const std::string& to) {
  if (from.empty()) return;
  std::string folded, key, result;
  ToLower(true, *text, &folded);
  ToLower(true, from, &key);
  size_t done = 0;
  for (size_t at; (at = folded.find(key, done)) != std::string::npos; done = at + key.size())
    result.append(*text, done, at - done).append(to);
  *text = result.append(*text, done);
}

double numberIn(std::string_view piece) {
  if (piece.starts_with('+')) piece.remove_prefix(1);
  double number = 0;
  std::from_chars(piece.data(), piece.data() + piece.size(), number);
  return std::isfinite(number) ? number : 0;
}

std::vector<std::string_view> splitAtEachBlank(std::string_view text) {
  std::vector<std::string_view> pieces;
  for (size_t blank; (blank = text.find(' ')) != std::string_view::npos; text.remove_prefix(blank + 1))
    pieces.push_back(text.substr(0, blank));
  pieces.push_back(text);
  return pieces;
}

// The folder `below` under the home, made when missing; the home when it can't be made.
std::string folderBelowHome(const char* below) {
  const std::string home = ZavelCommonModule::homeFolder();
  if (home.empty()) return home;
  const std::string folder = home + below;
  return ZavelCommonModule::createDirectoriesAtPath(folder) ? folder : home;
}

Value readEntityArray(const std::string& path) {
  if (!storage().exists(path)) {
    logLine("Error file : Entity.plist");
    return Value();
  }
  Value table;
  if (!platform().propertyLists().readFile(path, &table)) {
    logLine("Error read : Entity.plist");
    return Value();
  }
  const Value* list = table.find("Entity");
  if (list && list->isArray()) return *list;
  logLine("Error item : Entity.plist");
  return Value();
}

}  // namespace

std::unique_ptr<ZavelCommonModule> gZavelCommonModule;

ZavelCommonModule::ZavelCommonModule(const std::string& entityPath)
    : entityArray_(readEntityArray(entityPath)) {}

std::string ZavelCommonModule::sjisToNSString(const char* sjis) {
  return sjis ? platform().encoding().fromSjisLossy(sjis) : std::string();
}

std::string ZavelCommonModule::sjisDataToNSString(const std::string& sjis) {
  return sjisToNSString(sjis.c_str());
}

bool ZavelCommonModule::getSjisFromNSString(const std::string& text, char* sjisBuf, size_t maxLength) {
  if (!sjisBuf || maxLength == 0) return true;
  const SjisBytes sjis = platform().encoding().toSjisLossy(text);
  sjisBuf[sjis.bytes().copy(sjisBuf, maxLength - 1)] = '\0';
  // Kept: a text that just fits counts as cut. docs/quirks.md
  return sjis.bytes().size() >= maxLength - 1;
}

void ZavelCommonModule::trimHeadTail(std::string* bytes) {
  trimHead(bytes);
  trimTail(bytes);
}

void ZavelCommonModule::trimHeadTailCheckMiddleForEnglish(std::string* bytes) {
  trimHead(bytes);
  *bytes = plainMiddle(*bytes);
  trimTail(bytes);
}

void ZavelCommonModule::trimInsideCheck(std::string* bytes) {
  for (char& byte : *bytes) {
    if (static_cast<unsigned char>(byte) < kBlank) byte = ' ';
  }
}

ZavelCommonModule::Language ZavelCommonModule::judgeTextStringEorJ(const std::string& text) {
  return judgeTextDataEorJ(platform().encoding().toSjisLossy(text).bytes());
}

ZavelCommonModule::Language ZavelCommonModule::judgeTextDataEorJ(const std::string& sjis) {
  double japanese = 0;
  double english = 0;
  SjisClassWalk walk(sjis);
  for (size_t i = 0; i < sjis.size(); ++i) {
    if (walk.classAt(i) == kSjisFirst) {
      ++japanese;
      ++i;
    } else if (!isWhiteSpace(byteAt(sjis, i))) {
      ++english;
    }
  }
  // Nothing English makes the share infinite, nothing at all makes it no number, which compares false.
  return japanese * 100.0 / english > 10.0 ? kJapanese : kEnglish;
}

ZavelCommonModule::Language ZavelCommonModule::judgeTextStringEorJOfFile(const std::string& path) {
  const std::optional<std::string> text = readTextOfFile(path);
  return text ? judgeTextStringEorJ(*text) : kUnreadable;
}

std::optional<std::string> ZavelCommonModule::readTextOfFile(const std::string& path) {
  const Encoding encoding = encodingOfFile(path);
  std::string bytes;
  if (!readWholeFile(path, kMaxTextFileBytes, &bytes)) return std::nullopt;
  return platform().encoding().toUtf8Strict(bytes, encoding);
}

void ZavelCommonModule::assistEngTranslateSentence(std::string* text) {
  replaceInAnyCase(text, ".\")", ".\" )");
  for (const PlainSign& sign : kPlainSigns) {
    const std::string typographic = platform().bundle().localized(sign.key);
    // A key without a text comes back as it is, and words of the text must not be taken for it.
    if (typographic != sign.key) replaceInAnyCase(text, typographic, sign.plain);
  }
}

std::optional<std::string> ZavelCommonModule::convertEntities(const std::optional<std::string>& text) const {
  if (!text || !entityArray_.isArray()) return text;
  std::string converted = *text;
  for (const Value& row : *entityArray_.asArray()) {
    const Value* entity = row.find("entity");
    const Value* character = row.find("character");
    const bool whole = entity && entity->isString() && character && character->isString();
    if (whole) ReplaceString2(&converted, converted, *entity->asString(), *character->asString());
  }
  return converted;
}

std::optional<ZavelColor> ZavelCommonModule::stringToNSColor(const std::string& text) const {
  const std::vector<std::string_view> pieces = splitAtEachBlank(text);
  if (pieces.size() < 4) return std::nullopt;
  return ZavelColor{numberIn(pieces[0]), numberIn(pieces[1]), numberIn(pieces[2]), numberIn(pieces[3])};
}

std::string ZavelCommonModule::homeFolder() {
  return platform().folders().home();
}

std::string ZavelCommonModule::documentTarnwick() {
  return folderBelowHome("/Documents/Tarnwick/HW_Dictionaries");
}

std::string ZavelCommonModule::preferencesTarnwick() {
  return folderBelowHome("/Library/Preferences/Tarnwick");
}

std::string ZavelCommonModule::preferencesTarnwickCache() {
  return folderBelowHome("/Library/Preferences/Tarnwick/Cache");
}

std::string ZavelCommonModule::preferencesTarnwickCash() {
  return folderBelowHome("/Library/Preferences/Tarnwick/Cash");
}

std::string ZavelCommonModule::preferencesFolder() {
  const std::string home = homeFolder();
  const std::string folder = home + "/Library/Preferences";
  return !home.empty() && storage().exists(folder) ? folder : home;
}

bool ZavelCommonModule::createDirectoriesAtPath(const std::string& path) {
  for (size_t end = 0; end < path.size();) {
    end = std::min(path.find('/', end + 1), path.size());
    const std::string prefix = path.substr(0, end);
    if (!storage().exists(prefix) && makeFolderOrFind(prefix) != 0) return false;
  }
  return true;
}

bool ZavelCommonModule::removeFileInDirectory(const std::string& path) {
  if (!storage().exists(path)) return true;
  std::vector<std::string> entries;
  std::error_code error;
  for (std::filesystem::directory_iterator it(path, error), end; !error && it != end; it.increment(error))
    entries.push_back(it->path().string());
  bool allRemoved = !error;
  for (const std::string& entry : entries) {
    const bool plain = storage().exists(entry) && !storage().isFolder(entry);
    if (plain && !storage().remove(entry)) allRemoved = false;
  }
  return allRemoved;
}

bool ZavelCommonModule::unixPathToFSspec(const std::string& path, std::string* fsspec) {
  if (!storage().exists(path)) return false;
  *fsspec = path;
  return true;
}

std::string ZavelCommonModule::unixPathToClassic(const std::string& path) {
  return path;
}

}  // namespace zavel
