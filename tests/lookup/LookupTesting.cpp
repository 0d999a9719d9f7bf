#include "lookup/LookupTesting.h"

#include <cstring>
#include <ostream>

#include "config/ZavelPath.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"
#include "platform/Log.h"
#include "platform/PropertyLists.h"
#include "platform/Value.h"

namespace zavel {

void PrintTo(const ScrpSTElement& run, std::ostream* out) {
  *out << "{at " << run.scrpStartChar << ", face " << static_cast<int>(run.scrpFace) << ", colour "
       << std::hex << run.scrpColor.red << " " << run.scrpColor.green << " " << run.scrpColor.blue << std::dec
       << ", height " << run.scrpHeight << ", ascent " << run.scrpAscent << ", font " << run.scrpFont
       << ", size " << run.scrpSize << "}";
}

}  // namespace zavel

namespace zavel::test {

std::string formRecord(uint8_t code, std::string_view form) {
  std::string record;
  appendLE16(record, static_cast<uint16_t>(form.size() + 1));
  record.push_back(static_cast<char>(code));
  return record.append(form) + '\0';
}

std::string lineRecord(std::string_view line) {
  std::string record;
  appendLE16(record, static_cast<uint16_t>(line.size() + 1));
  return record.append(line) + '\0';
}

std::string imiRecord(std::string_view entry) {
  std::string record;
  appendLE32(record, static_cast<uint32_t>(entry.size()));
  return record.append(entry);
}

Block::Block(std::string_view bytes)
    : size_(static_cast<uint32_t>(bytes.size())),
      handle_(engine::GlobalAlloc(engine::kHandleFlags, bytes.size())) {
  if (!bytes.empty()) std::memcpy(GlobalLock(handle_), bytes.data(), bytes.size());
  GlobalUnlock(handle_);
}

Block::~Block() {
  GlobalFree(handle_);
}

namespace {

class MemoryWriter : public ForkedFileWriter {
 public:
  MemoryWriter(MemoryForkedFiles& files, const std::string& path) : files_(files), path_(path) {}

  bool writeText(std::string_view text) override {
    whole_ = whole_ && !files_.failText;
    file.text = text;
    return !files_.failText;
  }
  bool writeStyle(const char* recordType, uint16_t number, std::string_view record) override {
    whole_ = whole_ && !files_.failStyle;
    file.recordType = recordType;
    file.number = number;
    file.record = record;
    return !files_.failStyle;
  }
  bool close() override {
    if (!whole_ || files_.failClose) return false;
    files_.files[path_] = file;
    ++files_.written;
    return true;
  }

  MemoryForkedFiles::File file;

 private:
  MemoryForkedFiles& files_;
  std::string path_;
  bool whole_ = true;
};

}  // namespace

std::unique_ptr<ForkedFileWriter> MemoryForkedFiles::create(const std::string& path, const char* type,
                                                            const char* creator) {
  if (failCreate) return nullptr;
  auto writer = std::make_unique<MemoryWriter>(*this, path);
  writer->file.type = type;
  writer->file.creator = creator;
  return writer;
}

bool MemoryForkedFiles::read(const std::string& path, const char*, uint16_t, std::string* text,
                             std::string* record) {
  if (!files.contains(path)) return false;
  *text = files[path].text;
  *record = files[path].record;
  return true;
}

PathTable::PathTable(const std::string& dictionaryFolder, const std::string& helper, bool withCache)
    : cacheFolder_(folder_.prefix() + "cache") {
  Value::Dict table, cache, dictionaries, helpers;
  for (const char* key : {"PreferencesFolder", "DocumentsFolder", "TranslationStylePath", "PresetRSSPath"}) {
    table[key] = folder_.prefix() + key;
  }
  for (const char* key : {"CacheFolderOther", "WTCacheFolder", "FQCacheFolder", "RSSCacheFolder",
                          "VXCacheFolder", "QNCacheFolder"}) {
    cache[key] = folder_.prefix() + key;
  }
  cache["CacheFolder"] = cacheFolder_;
  for (const char* key : {"SystemDictionaryEJName", "SystemDictionaryEJ2Name", "ProperNounDictionaryEJName",
                          "EnhancedDictionaryEJFolder", "TechnicalDictionaryEJFolder",
                          "TechnicalDictionaryJEFolder", "LearningDictionaryFolder"}) {
    dictionaries[key] = folder_.prefix() + key;
  }
  if (!dictionaryFolder.empty()) dictionaries["KenkyuDictionaryFolder"] = dictionaryFolder;
  helpers["PathTextTranslation"] = folder_.prefix() + "text";
  if (!helper.empty()) helpers["PathKenkyuDictionary"] = helper;
  if (withCache) table["CachePath"] = cache;
  table["DictionaryPath"] = dictionaries;
  table["HelperPath"] = helpers;
  const std::string path = folder_.prefix() + "ZavelPath";
  platform().propertyLists().writeFile(path + ".plist", Value(table), PropertyListFormat::kXml);
  zavelPathInitialize();
  const LogSink sink = setLogSink([](const std::string&) {});  // loading tells the number of styles
  zavelPathLoadDictAndHelper(path.c_str());
  setLogSink(sink);
}

PathTable::~PathTable() {
  zavelPathTerminate();
}

std::vector<std::string> LogLines::lines;

LogLines::LogLines() {
  lines.clear();
  setLogSink([](const std::string& line) { lines.push_back(line); });
}

LogLines::~LogLines() {
  setLogSink(nullptr);
}

ScrpSTElement styledRun(uint32_t start, uint8_t face, RGBColor color) {
  ScrpSTElement run;
  run.scrpStartChar = start;
  run.scrpHeight = 16;
  run.scrpAscent = 12;
  run.scrpFont = 0x4000;
  run.scrpFace = face;
  run.scrpSize = 12;
  run.scrpColor = color;
  return run;
}

ScrpSTElement plainRun(uint32_t start) {
  return styledRun(start, 0, kBlack);
}

}  // namespace zavel::test
