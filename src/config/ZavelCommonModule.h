// Text, folder and process services that all the rest shares.
#ifndef CONFIG_ZAVELCOMMONMODULE_H
#define CONFIG_ZAVELCOMMONMODULE_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "config/ZavelColor.h"
#include "platform/Applications.h"
#include "platform/Value.h"

namespace zavel {

// Strings are UTF-8. Where a parameter is called `sjis` or `bytes` it holds Shift_JIS bytes. "Blank" is the
// byte 32. Class operations are static; the instance carries the entity table.
class ZavelCommonModule {
 public:
  enum Language { kEnglish = 1, kJapanese = 2, kUnreadable = 3 };

  // Reads the entity table from the property list at `entityPath`. A failure is logged with one line
  // ("Error file : ", "Error read : " or "Error item : ", then "Entity.plist") and leaves the table empty.
  explicit ZavelCommonModule(const std::string& entityPath);

  // --- Text ---

  // Shift_JIS up to the first zero byte to a string; U+FFFD for what does not decode. Null gives "".
  static std::string sjisToNSString(const char* sjis);
  static std::string sjisDataToNSString(const std::string& sjis);

  // Copies `text` as Shift_JIS, lossy, into `sjisBuf`: at most `maxLength` - 1 bytes, which may cut a
  // character in two, and a zero byte. True when it was cut, and also when it fits exactly. With a
  // `maxLength` of 0 or a null `sjisBuf` nothing is written, and true.
  static bool getSjisFromNSString(const std::string& text, char* sjisBuf, size_t maxLength);

  // Removes the bytes below 33 at both ends, in place.
  static void trimHeadTail(std::string* bytes);

  // The same, and between them, for English text: line ends and tabs become blanks (13, 10 one blank),
  // other control bytes go, and the Mac Roman dashes, quotation marks, apostrophes and fixed blank become
  // plain ones, as does the byte pair E2 80.
  static void trimHeadTailCheckMiddleForEnglish(std::string* bytes);

  // Each byte below 32 becomes a blank, in place.
  static void trimInsideCheck(std::string* bytes);

  // The language of a text: Japanese when it has more than 10 double-byte characters for each 100 other
  // bytes that aren't white space, otherwise English. kEnglish or kJapanese.
  static Language judgeTextStringEorJ(const std::string& text);
  static Language judgeTextDataEorJ(const std::string& sjis);

  // The same for a text file; kUnreadable where readTextOfFile gives nothing: also for a file of over 64 MiB
  // and for one that doesn't decode, even if it is there.
  static Language judgeTextStringEorJOfFile(const std::string& path);

  // A text file in the encoding that /usr/bin/file finds in it: UTF-16, UTF-8, Japanese EUC (which that
  // tool calls ISO-8859), otherwise Shift_JIS. Nothing when the file is missing, unreadable, over 64 MiB or
  // not all of it decodes.
  static std::optional<std::string> readTextOfFile(const std::string& path);

  // Plain punctuation for the English engine, in place: a blank in the middle of `.")`, plain hyphens,
  // apostrophes and quotation marks for the localized texts of "ShortHyphen", "LongHyphen",
  // "HidariApostrophe", "MigiApostrophe", "HidariQuote" and "MigiQuote", in whatever case of ASCII letters. A
  // text that is missing from the resources replaces nothing.
  static void assistEngTranslateSentence(std::string* text);

  // Replaces each entity of the table by its character, from the first row to the last. Nothing gives
  // nothing.
  std::optional<std::string> convertEntities(const std::optional<std::string>& text) const;

  // "red green blue alpha", separated by single blanks. A piece that is empty or no number reads as 0; pieces
  // behind the fourth don't count. Nothing with fewer than four.
  std::optional<ZavelColor> stringToNSColor(const std::string& text) const;

  // --- Files and folders ---

  // The user's home; empty on failure.
  static std::string homeFolder();

  // Folders below the home, made when missing; the home when that fails. "Cash" is an older name.
  static std::string documentTarnwick();
  static std::string preferencesTarnwick();
  static std::string preferencesTarnwickCache();
  static std::string preferencesTarnwickCash();

  // "/Library/Preferences" below the home when it is there, otherwise the home. Not made.
  static std::string preferencesFolder();

  // Makes each component of `path` that isn't there; false at the first that can't be made. An empty path
  // is true.
  static bool createDirectoriesAtPath(const std::string& path);

  // Removes the plain files of a folder, not its subfolders; false when one stays or the folder can't be
  // listed. A folder that isn't there holds no files: true.
  static bool removeFileInDirectory(const std::string& path);

  // Path forms: the same path. unixPathToFSspec is true when something is there; false leaves `fsspec`.
  static bool unixPathToFSspec(const std::string& path, std::string* fsspec);
  static std::string unixPathToClassic(const std::string& path);

  // --- Processes ---

  static constexpr int kProcessFound = 0;
  static constexpr int kNoSuchProcess = -600;

  // The first running application of a creator and type, four characters each, or of a name. kProcessFound or
  // kNoSuchProcess; `process` is then the number 0.
  static int getPSN2Creator(const std::string& creator, const std::string& type, ProcessNumber* process);
  static int getPSN2Name(const std::string& name, ProcessNumber* process);

  // Steps from `process`, at first the number 0, to the next running application. True at the end, with the
  // number 0. One that ended since the last step is passed over.
  static bool getNextPSN(ProcessNumber* process);

  // Finds a running application by the file name of its bundle; false leaves `process`.
  static bool targetApplicationName(const std::string& name, ProcessNumber* process);

  // Starts the application at `path` and looks for it by the last component. 1 it runs and `process` is
  // filled, 0 it was started and doesn't run yet, -1 it could not be started. With `until` it looks again
  // every 3 seconds, 20 times, and blocks as long.
  static int launchedApplication(const std::string& path, ProcessNumber* process, bool until);

 private:
  Value entityArray_;  // list of maps with "entity" and "character"; null when it could not be read
};

// The shared instance. The first main controller makes it, the last one takes it away.
extern std::unique_ptr<ZavelCommonModule> gZavelCommonModule;

}  // namespace zavel

#endif
