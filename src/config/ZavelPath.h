/* The path table: where every file, folder, helper program and engine module stands. One property list,
 * read once at start, answered through the plain functions below.
 *
 * Conventions of the plain functions:
 *  1. Strings are UTF-8 and NUL-terminated.
 *  2. An accessor gives null while there is no table, when the table has no such value, and when the
 *     value's folder could not be made. The string belongs to the table: it is good until the next load or
 *     zavelPathTerminate, and the caller never frees it.
 *  3. "Folder" at an accessor: loading makes the folder when it is missing.
 *  4. Load on one thread before anything reads. zavelPathGetAppleyPath changes the table on its first call
 *     and takes no lock.
 *  5. Without memory loading gives 1, with what was read before readable, zavelPathGetAppleyPath null, and
 *     zavelPathInitialize leaves no table; nothing is thrown at the host.
 */
#ifndef CONFIG_ZAVELPATH_H
#define CONFIG_ZAVELPATH_H

#ifdef __cplusplus
#include <array>
#include <optional>
#include <string>

#include "config/PathTableRows.h"
#include "platform/Value.h"
#endif

#include "config/ZavelApplet.h"
#include "foundation/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Makes the table, empty. A table that is already there is destroyed first. */
ZAVEL_API void zavelPathInitialize(void);

/* Destroys the table. Without one nothing happens. */
ZAVEL_API void zavelPathTerminate(void);

/* Loads the property list `path` + ".plist"; null loads the product's default table. Sets the edition.
 * 0 when all required values stand, otherwise the code of the first one that is missing:
 *   1 no table, no HelperPath or no ModulePath    2 a system dictionary    6 enhanced dictionary folder
 *   8, 9 technical dictionary folders (E, J)      10 learning folder       12 a helper or module
 *   14 dictionary helper    15, 16, 17, 23, 24 cache folders    18 preferences folder
 *   19 documents folder     20 style path    21, 22 conversion helpers    26 preset feed path
 *   29 user engine module
 * What was read before the missing value stays readable. 1 also without zavelPathInitialize. */
ZAVEL_API int zavelPathLoadDictAndHelper(const char* path);

/* The path of the table in use, without ".plist"; null before the first load. */
ZAVEL_API const char* zavelPathDictAndHelper(void);

/* The path of a sibling application by its ZAVEL_APPLET number, or null. */
ZAVEL_API const char* zavelPathGetAppleyPath(int applet);

/* The edition, a ZAVEL_TYPE: medical when the path of the last load held "Medical" anywhere. */
ZAVEL_API int zavelType(void);

/* The number of translation styles, always 10. */
ZAVEL_API int styleNum(void);

/* General places. */
ZAVEL_API const char* zavelPathPreferencesFolderURL(void); /* folder */
ZAVEL_API const char* zavelPathDocumentsFolderURL(void);   /* folder */
ZAVEL_API const char* zavelPathTranslationStylePathURL(void);
ZAVEL_API const char* zavelPathPresetRssPathURL(void);

/* Cache folders, all made at load: the common one, the memory browser's, that of page translation, and
 * those of the correspondence client, the feeds, the browser client and the translation editor. */
ZAVEL_API const char* zavelPathCacheFolderURL(void);
ZAVEL_API const char* zavelPathAtokCacheFolderURL(void);
ZAVEL_API const char* zavelPathWTCacheFolderURL(void);
ZAVEL_API const char* zavelPathFQCacheFolderURL(void);
ZAVEL_API const char* zavelPathRSSCacheFolderURL(void);
ZAVEL_API const char* zavelPathVXCacheFolderURL(void);
ZAVEL_API const char* zavelPathQNCacheFolderURL(void);

/* Example archives and memories. */
ZAVEL_API const char* zavelPathArchivesURL(void);
ZAVEL_API const char* zavelPathMemoryEtoJURL(void);
ZAVEL_API const char* zavelPathMemoryJtoEURL(void);
ZAVEL_API const char* zavelPathMemoryEtoJTitle(void);
ZAVEL_API const char* zavelPathMemoryJtoETitle(void);

/* Dictionaries. The four names are file names as they stand in the table, not paths. */
ZAVEL_API const char* zavelPathSystemDicEngURL(void);
ZAVEL_API const char* zavelPathSystemDicEng2URL(void);
ZAVEL_API const char* zavelPathProperNounDicEngURL(void);
ZAVEL_API const char* zavelPathSystemDicJpnURL(void);
ZAVEL_API const char* zavelPathUserDicEngName(void);
ZAVEL_API const char* zavelPathUserDicJpnName(void);
ZAVEL_API const char* zavelPathUserOslEngName(void);
ZAVEL_API const char* zavelPathUserOslJpnName(void);
ZAVEL_API const char* zavelPathEnhancedDicEngFolderURL(void);
ZAVEL_API const char* zavelPathEnhancedDicJpnFolderURL(void);
ZAVEL_API const char* zavelPathTechnicalDicEngFolderURL(void);
ZAVEL_API const char* zavelPathTechnicalDicJpnFolderURL(void);
ZAVEL_API const char* zavelPathUserDicFolderURL(void);        /* folder */
ZAVEL_API const char* zavelPathUserOslFolderURL(void);        /* folder */
ZAVEL_API const char* zavelPathlearningDicJpnFolderURL(void); /* folder */
ZAVEL_API const char* zavelPathKenkyuDicFolderURL(void);
ZAVEL_API const char* zavelPathJJCheckerDicFolderURL(void);

/* Helper programs. */
ZAVEL_API const char* zavelPathHelperTextTranslation(void);
ZAVEL_API const char* zavelPathHelperWebTranslation(void);
ZAVEL_API const char* zavelPathHelperKenkyuDictionary(void);
ZAVEL_API const char* zavelPathHelperDRP2Text(void);
ZAVEL_API const char* zavelPathHelperSpellCheck2File(void);

/* Engine modules, and two help pages that stand with them. */
ZAVEL_API const char* zavelKenkyuEngine(void);
ZAVEL_API const char* zavelPathTextEtoJEngine(void);
ZAVEL_API const char* zavelPathTextESEngine(void);
ZAVEL_API const char* zavelPathTextJtoEEngine(void);
ZAVEL_API const char* zavelPathHtmlEtoJEngine(void);
ZAVEL_API const char* zavelPathHtmlJtoEEngine(void);
ZAVEL_API const char* zavelPathUserEtoJEngine(void);
ZAVEL_API const char* zavelPathUserJtoEEngine(void);
ZAVEL_API const char* zavelPathGrammarHelp(void);
ZAVEL_API const char* zavelPathHowToMail(void);

/* The viewer application for electronic dictionaries. */
ZAVEL_API const char* zavelPathTwedApplicationURL(void);

/* Web addresses that the installer wrote. */
ZAVEL_API const char* zavelPathSupportURL(void);
ZAVEL_API const char* zavelPathHomepageURL(void);

#ifdef __cplusplus
} /* extern "C" */

namespace zavel {

// The table behind the plain functions. Reading: platform().propertyLists(); folders: twcCreateFolder.
class ZavelPath {
 public:
  ZavelPath() = default;
  ZavelPath(const ZavelPath&) = delete;
  ZavelPath& operator=(const ZavelPath&) = delete;
  virtual ~ZavelPath() = default;

  // As zavelPathLoadDictAndHelper, without the edition. An empty path is a table that is not there.
  // `path` may be this table's own. A second load replaces the values that it reads; a group that the new
  // table lacks, and all that stands behind the first missing value, keep what they were.
  virtual int loadDictAndHelper(const char* path);

  // Path of the table in use, null before the first load. Owned by this object.
  virtual const char* pathDictAndHelper();

  // Application path by ZAVEL_APPLET number, as it stands in the table; null when there is none. The map
  // of applications is taken from the table on the first call and kept. Owned by this object.
  virtual const char* getAppleyPath(int applet);

  // Key of an application in the path table; null when its number has none.
  virtual const char* appKeyWithEnum(int applet);

  // The path at `key` of the table, or of `map`: a leading "~/" expanded and, with `createFolder`, the
  // folder made. Nothing when the value is missing or no string, when there is no home folder to expand
  // to, or when the folder can't be made.
  virtual std::optional<std::string> extractFromPlistCreateCopy(const std::string& key, bool createFolder);
  virtual std::optional<std::string> extractFromDictionaryCreateCopy(const Value& map, const std::string& key,
                                                                     bool createFolder);

  // Copies a file with /bin/cp; true when that ended with 0. A path that holds a blank is not copied (kept,
  // see docs/quirks.md), nor is one of 1024 bytes or more, or one that would mean more than a path to a
  // shell or to the command.
  virtual bool fileCopyAndRename(const std::string& from, const std::string& to);

  // A value as the accessors give it: null when missing. Owned by this object.
  const char* value(PathEntry entry) const;

 private:
  bool synchronize();
  int loadGroup(const PathGroupRow& group);
  int loadRow(const PathRow& row, const Value& map);
  void loadTwedApplication();

  std::optional<std::string> dictAndHelper_;
  Value table_;  // as last read; null when it could not be
  std::array<std::optional<std::string>, kPathEntryCount> values_;
  // The maps that values were read from, kept because the plain names stay in theirs.
  std::array<Value, kPathGroupCount> groups_;
  std::array<const char*, kPathEntryCount> names_ = {};  // borrowed from groups_
  std::optional<Value> applicationPath_;
};

}  // namespace zavel
#endif

#endif
