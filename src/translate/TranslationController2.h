// Sentence, text and page translation for all tabs of the process.
#ifndef TRANSLATE_TRANSLATIONCONTROLLER2_H
#define TRANSLATE_TRANSLATIONCONTROLLER2_H

#include <memory>
#include <string>

#include "foundation/Export.h"

namespace zavel {

class ZAVEL_API TranslationController2 {
 public:
  // The path of the application that this system runs inside, empty when it has none.
  const std::string& ownserPath() const { return ownserPath_; }
  void setOwnserPath(const std::string& path) { ownserPath_ = path; }

  // Where translations are worked on, and where those of feeds are. Made by whoever sets them.
  const std::string& cacheFolder() const { return cacheFolder_; }
  const std::string& rssCacheFolder() const { return rssCacheFolder_; }
  void setCacheFolder(const std::string& folder, const std::string& rssFolder) {
    cacheFolder_ = folder;
    rssCacheFolder_ = rssFolder;
  }

 private:
  std::string ownserPath_;
  std::string cacheFolder_;
  std::string rssCacheFolder_;
};

// The only one of the process. The first main controller makes it, the last one takes it away.
ZAVEL_API extern std::unique_ptr<TranslationController2> gTranslationController2;

}  // namespace zavel

#endif
