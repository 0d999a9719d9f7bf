#ifndef LOOKUP_MIRELLMODULE_H
#define LOOKUP_MIRELLMODULE_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "foundation/Export.h"
#include "lookup/MirellDictionaryManager.h"

namespace zavel {

// Owns the process's one lookup manager and names its result file.
class ZAVEL_API MirellModule {
 public:
  MirellModule() = default;
  MirellModule(const MirellModule&) = delete;
  MirellModule& operator=(const MirellModule&) = delete;

  // load:  Makes the manager on the dictionary folder of the path table, with the file `cacheName` (UTF-8)
  // in the cache folder for its results, which exists empty from then on. True if there is a manager
  // afterwards. One whose dictionary did not open counts: all it answers is nothing.
  // False without a log line when the path table names no dictionary folder; otherwise a failure logs
  // "Initialize Error : Kenkyuu Dictionary.".
  bool load(const std::string& cacheName);

  // The manager, null before load; stays this module's.
  MirellDictionaryManager* objectODM() const { return mirellDictionaryManager_.get(); }
  // Puts a manager of the caller's in the place of the one that load makes: for a host with a dictionary of
  // its own, whose module is gMirellModule ahead of the first controller. Tabs hold on to the manager that
  // they found, so it is not to be changed while there are any.
  void setObjectODM(std::unique_ptr<MirellDictionaryManager> manager) {
    mirellDictionaryManager_ = std::move(manager);
  }

  // The path of the result file, UTF-8.
  const std::string& cachePath() const { return mirellCachePath_; }

  // simpleLookup:mode:english:fontSize:
  // Looks `query` (Shift_JIS bytes) up and writes the result file. `mode` is the filter of the meaning
  // search. True if a text came out; false without a manager.
  bool simpleLookup(const std::string& query, uint8_t mode, bool english, uint32_t fontSize);

  // mirellLookup:mode:english:fontSize:cacheName:
  // Has the helper application do the same, starting it when it does not run, and waits for its answer
  // without a time limit. The path of the result file, or nothing; then a line "Lookup error : %d" went to
  // the log:
  //   1 the helper answered 0        2 it could not be started      3 it answered -1, -2 or -3
  //   4 it answered -4, or the message could not be sent
  //   5 it answered -5, or the message could not be built or its answer not be read
  static std::optional<std::string> mirellLookup(const std::string& query, uint8_t mode, bool english,
                                                 uint32_t fontSize, const std::string& cacheName);

 private:
  // `name` in the cache folder of the path table; nothing when the table has none.
  static std::optional<std::string> cachePathFor(const std::string& name);
  void makeManager(const std::string& folder, const std::string& cacheName);

  std::unique_ptr<MirellDictionaryManager> mirellDictionaryManager_;
  std::string mirellCachePath_;
};

// The process's one module, null before the first controller made it and after the last one let it go.
// Owned by whoever made it.
ZAVEL_API extern MirellModule* gMirellModule;

}  // namespace zavel

#endif
