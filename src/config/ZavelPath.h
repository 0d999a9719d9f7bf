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
 */
#ifndef CONFIG_ZAVELPATH_H
#define CONFIG_ZAVELPATH_H

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
#endif

#endif
