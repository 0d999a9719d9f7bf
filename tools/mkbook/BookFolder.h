// The folder that a book is written into: it appears whole or not at all.
#ifndef MKBOOK_BOOKFOLDER_H
#define MKBOOK_BOOKFOLDER_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "mkbook/PartialFolder.h"

namespace zavel::mkbook {

// Names of a book's files.
inline constexpr const char* kCatalogFile = "BOOK.CAT";
inline constexpr const char* kUniFile = "BOOK.UNI";
inline constexpr const char* kInfoFile = "EXINFO.INI";
inline constexpr const char* kBodyFile = "BODY.DAT";
inline constexpr const char* kExactFile = "EXACT.DAT";
inline constexpr const char* kExactKanaFile = "EXACTK.DAT";
inline constexpr const char* kExactLettersFile = "EXACTL.DAT";
inline constexpr const char* kForwardFile = "FORWARD.DAT";
inline constexpr const char* kForwardKanaFile = "FORWARDK.DAT";
inline constexpr const char* kForwardLettersFile = "FORWARDL.DAT";
inline constexpr const char* kBackwardFile = "BACKWARD.DAT";
inline constexpr const char* kBackwardKanaFile = "BACKWARDK.DAT";
inline constexpr const char* kBackwardLettersFile = "BACKWARDL.DAT";
inline constexpr const char* kKeywordFile = "KEYWORD.DAT";
inline constexpr const char* kCrossFile = "CROSS.DAT";
inline constexpr const char* kMenuFile = "MENU.DAT";
inline constexpr const char* kPictureMenuFile = "PICMENU.DAT";
inline constexpr const char* kMonoFile = "MONO.DAT";
inline constexpr const char* kColorFile = "COLOR.DAT";
inline constexpr const char* kSoundFile = "SOUND.DAT";
inline constexpr const char* kFullFontFile = "FULL16.FNT";
inline constexpr const char* kHalfFontFile = "HALF16.FNT";

// Of a form: "MULTI.DAT", "MULTI2.DAT" ...
std::string multiFile(size_t form);

const std::vector<std::string>& bookFileNames();

// Removes a book's files by name, then the folder if nothing else is in it.
void removeBook(const std::string& folder);

// Files are written into a folder beside the target, `target`.partial-<process>, which takes the target's
// name when all is on the disk. What stood there before is removed only after, and so are such folders there
// that killed runs left behind. A target that holds anything
// but the files of such a book is never touched. All operations throw Failure.
class BookFolder {
 public:
  // Makes the folder beside the target, and the target's parents.
  explicit BookFolder(const std::string& target);
  // Removes what isn't in place yet.
  ~BookFolder();
  BookFolder(const BookFolder&) = delete;
  BookFolder& operator=(const BookFolder&) = delete;

  std::string path(const std::string& name) const { return partial_ + "/" + name; }
  void write(const std::string& name, std::string_view bytes) const;
  void putInPlace();
  const std::string& target() const { return target_; }

 private:
  void check() const;
  void swapByRenaming() const;

  std::string target_;   // absolute
  std::string partial_;  // the folder being filled
  std::unique_ptr<PartialFolder> held_;
  bool unfinished_ = false;
};

}  // namespace zavel::mkbook

#endif
