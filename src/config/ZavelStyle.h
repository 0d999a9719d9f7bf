/* Translation styles: up to ten named sets of engine options in one property list, shared by all applications
 * of the family, each of which has its own current style. docs/formats.md tells the file.
 *
 * Conventions of the plain functions:
 *  1. Strings are UTF-8 and NUL-terminated, but for the title records.
 *  2. Before zavelStyleInitialize loads and sets are false, values 0, strings null, title records free.
 *  3. There is one set of values: a load for one tab replaces what another tab loaded. Load right before use,
 *     on one thread.
 *  4. A load that fails says false and nothing more. What it had read before stays.
 *  5. Without memory loads and sets fail like others, and zavelStyleInitialize leaves no styles; nothing is
 *     thrown at the host.
 */
#ifndef CONFIG_ZAVELSTYLE_H
#define CONFIG_ZAVELSTYLE_H

#ifdef __cplusplus
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/Value.h"
#else
#include <stdbool.h>
#include <stdint.h>
#endif

#include "config/ZavelApplet.h"
#include "foundation/Export.h"

#ifdef __cplusplus
extern "C" {
#endif

#define ZAVEL_STYLE_TITLE_BYTES 255

/* A style as menus show it. */
typedef struct ZavelStyleTitle {
  int32_t id;                         /* style ID, -1: the slot is free */
  uint8_t length;                     /* bytes in `text` */
  char text[ZAVEL_STYLE_TITLE_BYTES]; /* Shift_JIS, not terminated */
} ZavelStyleTitle;

/* Makes the styles with the defaults of the edition (zavelType), so load the path table first. Styles that
 * are already there are destroyed. */
ZAVEL_API void zavelStyleInitialize(void);
ZAVEL_API void zavelStyleTerminate(void);

/* Sets the user's style file, a path without ".plist". True when that can be read or isn't there yet. Null or
 * an empty path: no file, false. */
ZAVEL_API bool zavelStyleSetTStyleUrl(const char* path);

/* Sets the folders of the technical dictionaries. A null leaves the one that was, and so does a lack of
 * memory. */
ZAVEL_API void zavelStyleSetTechDictUrl(const char* ej, const char* je);

/* Sets the folder of the user dictionaries; null: none. Without memory the one that was stays. */
ZAVEL_API void zavelStyleSetUserDictUrl(const char* path);

/* The loads read the user's style file, or the default file while the user has none, and are false while no
 * user style file is set.
 *
 * Titles: fills the title records from the first ten styles; records behind them keep what they held. With a
 * `current` that isn't null, also the style ID that the application `applet` (ZAVEL_APPLET) has chosen; false
 * when it has chosen none. */
ZAVEL_API bool zavelStyleLoadTitleAndCurrentID(int applet, int* current);

/* Values of the style `id`. True with the values as they were when no style has that ID. False for a file of
 * more than ten styles. */
ZAVEL_API bool zavelStyleLoadTranslationStyleWithID(int id);

/* Values of the style that the application has chosen. */
ZAVEL_API bool zavelStyleLoadTranslationStyleWithApp(int applet);

/* The default style file, without ".plist". Good until zavelStyleTerminate. */
ZAVEL_API const char* zavelStyleBaseURL(void);

/* Title record 0 to 9; a free one for any other index. */
ZAVEL_API ZavelStyleTitle zavelStyleTitleID(int index);

/* Values of the style last loaded, 0 before the first load. */
ZAVEL_API int zavelStyleEtojStyle(void);
ZAVEL_API int zavelStyleEtojThey(void);
ZAVEL_API int zavelStyleEtojLearning(void);
ZAVEL_API int zavelStyleJtoeShugo(void);
ZAVEL_API int zavelStyleJtoeKanshi(void);
ZAVEL_API int zavelStyleJtoeUkemi(void);
ZAVEL_API int zavelStyleJtoeLearning(void); /* 0 or 1 */

#ifdef __cplusplus
} /* extern "C" */

namespace zavel {

inline constexpr int kStyleCount = 10;

// The styles behind the plain functions. Reading: platform().propertyLists().
class ZavelStyle {
 public:
  // Values of the style last loaded.
  struct Values {
    int32_t etojStyle = 0;
    int32_t etojThey = 0;
    int32_t etojLearning = 0;
    int32_t jtoeShugo = 0;
    int32_t jtoeKanshi = 0;
    int32_t jtoeUkemi = 0;
    int32_t jtoeLearning = 0;

    bool operator==(const Values&) const = default;
  };

  // With the general edition's default file and folders.
  ZavelStyle();
  ZavelStyle(const ZavelStyle&) = delete;
  ZavelStyle& operator=(const ZavelStyle&) = delete;
  virtual ~ZavelStyle() = default;

  // An edition (ZAVEL_TYPE) other than the one in use, which is the general one at first, brings the medical
  // default file and folders.
  virtual void setZavelType(int type);

  // As the plain functions of like names.
  virtual bool setTStyleUrl(const char* path);
  virtual void setTechDictUrl(const char* ej, const char* je);
  virtual void setUserDictUrl(const char* path);
  virtual bool loadTitleAndCurrentID(int applet, int* current);
  virtual bool loadTranslationStyleWithID(int id);
  virtual bool loadTranslationStyleWithApp(int applet);

  // Key of an application in "Selection"; null when its number has none. Not the path table's keys.
  virtual const char* appKeyWithEnum(int applet);

  const std::string& baseUrl() const { return baseUrl_; }
  const Values& values() const { return values_; }
  ZavelStyleTitle title(int index) const;

  // Folders that the technical and user dictionaries of a style stand in.
  const std::string& techDictEJ() const { return techDictEJ_; }
  const std::string& techDictJE() const { return techDictJE_; }
  const std::optional<std::string>& userDict() const { return userDict_; }

 private:
  std::optional<Value> readStyleFile() const;
  bool loadTitles(const Value& file);
  bool loadValues(const Value& file, int id);
  std::optional<int32_t> selection(const Value& file, int applet);

  std::array<ZavelStyleTitle, kStyleCount> titles_;
  std::string baseUrl_;
  Values values_;
  std::string styleUrl_;  // empty: none is set
  std::string styleUrlPlist_;
  std::string techDictEJ_;
  std::string techDictJE_;
  std::optional<std::string> userDict_;
  int type_ = ZAVEL_TYPE_GENERAL;
};

}  // namespace zavel
#endif

#endif
