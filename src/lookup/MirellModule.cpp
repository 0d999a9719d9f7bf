// Tests: tests/lookup/MirellModuleTest.cpp
#include "lookup/MirellModule.h"

#include "config/ZavelPath.h"
#include "platform/FontMetrics.h"
#include "platform/ForkedFiles.h"
#include "platform/Log.h"
#include "platform/Platform.h"

namespace zavel {

MirellModule* gMirellModule = nullptr;

namespace {

bool createEmpty(const std::string& path) {
  const std::unique_ptr<ForkedFileWriter> writer = platform().forkedFiles().create(path, "TEXT", "ttxt");
  return writer != nullptr && writer->close();
}

}  // namespace

std::optional<std::string> MirellModule::cachePathFor(const std::string& name) {
  const char* const folder = zavelPathCacheFolderURL();
  if (folder == nullptr) return std::nullopt;
  std::string path = folder;
  if (!path.ends_with('/')) path += '/';
  return path + name;
}

bool MirellModule::load(const std::string& cacheName) {
  const char* const folder = zavelPathKenkyuDicFolderURL();
  if (folder == nullptr || *folder == '\0') return false;
  makeManager(folder, cacheName);
  if (mirellDictionaryManager_ == nullptr) logLine("Initialize Error : Kenkyuu Dictionary.");
  return mirellDictionaryManager_ != nullptr;
}

void MirellModule::makeManager(const std::string& folder, const std::string& cacheName) {
  constexpr size_t kFolderLimit = 255;  // bytes, counted before the separator is added
  if (folder.size() >= kFolderLimit) return;
  const std::string prefix = folder.ends_with('/') ? folder : folder + '/';
  const std::optional<std::string> cachePath = cachePathFor(cacheName);
  if (!cachePath) return;
  mirellCachePath_ = *cachePath;
  if (!createEmpty(mirellCachePath_)) return;
  mirellDictionaryManager_.reset();  // the engine opens once
  mirellDictionaryManager_ = std::make_unique<MirellDictionaryManager>();
  const FileReference resultFile(mirellCachePath_);
  mirellDictionaryManager_->InitializeDictionaries(prefix.c_str(), nullptr, nullptr, &resultFile);
}

bool MirellModule::simpleLookup(const std::string& query, uint8_t mode, bool english, uint32_t fontSize) {
  if (mirellDictionaryManager_ == nullptr) return false;
  MirellDictionaryManager& manager = *mirellDictionaryManager_;
  const std::string font = "Osaka";
  const FontHeights heights = platform().fonts().heights(font, fontSize);
  const int32_t ascender = static_cast<int32_t>(heights.ascender);
  const int32_t descender = static_cast<int32_t>(heights.descender);
  // Kept: the descender is negative, so the line comes out lower than its ascent; see docs/quirks.md.
  manager.SetFontAttribute(font, fontSize, static_cast<uint32_t>(ascender),
                           static_cast<uint32_t>(ascender + descender));
  std::string text;
  return english ? manager.GetImiE2(query, mode, text) : manager.GetImiJ2(query, mode, text);
}

}  // namespace zavel
