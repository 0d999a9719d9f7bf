// The preference store: all settings of the user in one property list.
#ifndef CONFIG_ZFWPLISTCONTROLLER_H
#define CONFIG_ZFWPLISTCONTROLLER_H

#include <memory>
#include <string>

#include "config/ZFWPlistKeys.h"
#include "platform/Value.h"

namespace zavel {

// "~/Library/Preferences/<library identifier>_ZavelLex.plist", in the medical edition "..._Medical.plist".
// Nothing is kept in memory: each call reads the file, so that processes see each other's changes; the last
// writer of a top key wins for all that it holds. Writes are atomic. Failures tell no one but the caller.
class ZFWPlistController {
 public:
  // The path by the edition (zavelType) and platform().bundle(). A file that isn't there is begun, empty. One
  // that can't be read is kept first, as told at damagedFile(); when it can't be, it stays where it is.
  ZFWPlistController();

  const std::string& path() const { return path_; }

  // Where a file is now that could not be read at the start: the path with ".damaged" behind it, or
  // ".damaged-2" and so on where older ones stand. Empty: nothing was damaged.
  const std::string& damagedFile() const { return damagedFile_; }

  // Stores `object` at a top key. False, with the file as it was, when the file can't be read or written,
  // when `object` is null or holds what a property list can't. One failure comes later: when nothing but the
  // syncing of the folder fails, false only says that the new content, which stands there whole, may not
  // outlive a power cut. A file that is gone is not made again before the next start.
  bool setObject(const Value& object, const std::string& key);

  // A copy of the object at a top key; null when there is none or the file can't be read. A change to it
  // isn't stored until it is set again.
  Value objectForKey(const std::string& key) const;

  // The same for one item of the map at a top key. Setting makes the map when there is none, and leaves its
  // other items as they are. False also when something else than a map stands there.
  bool setItem(const Value& object, const std::string& key, const std::string& item);
  Value itemForKey(const std::string& key, const std::string& item) const;

  // As itemForKey, telling what can't be read from what isn't there: true with a null `object` when there is
  // no such item, false with `object` as it was when the file can't be read.
  bool readItem(const std::string& key, const std::string& item, Value* object) const;

 private:
  bool readAll(Value::Dict* all) const;
  void begin();
  bool keepAside();

  std::string path_;
  std::string damagedFile_;
};

// The one store. The first main controller makes it, the last one takes it away.
extern std::unique_ptr<ZFWPlistController> gZFWPlist;

}  // namespace zavel

#endif
