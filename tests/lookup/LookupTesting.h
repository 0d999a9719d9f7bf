// What the tests of the lookup folder share: byte strings, hand-made block lists, a manager without an
// engine, and a platform whose services a test can replace.
#ifndef TESTS_LOOKUP_LOOKUPTESTING_H
#define TESTS_LOOKUP_LOOKUPTESTING_H

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EngineAPI.h"
#include "lookup/MirellDictionaryManager.h"
#include "platform/Applications.h"
#include "platform/FontMetrics.h"
#include "platform/ForkedFiles.h"
#include "platform/ForwardingPlatform.h"
#include "support/DicWriter.h"

namespace zavel::test {

inline const std::string kCR = "\x0D";
inline std::string blanks(size_t count) {
  return std::string(count, ' ');
}

// A string literal with all its bytes, zero bytes too.
template <size_t N>
std::string raw(const char (&literal)[N]) {
  return std::string(literal, N - 1);
}

// Records of the engine's block lists.
std::string formRecord(uint8_t code, std::string_view form);  // u16 L, u8 code, text and its zero byte
std::string lineRecord(std::string_view line);                // u16 L, text and its zero byte
std::string imiRecord(std::string_view entry);                // u32 L, text

// A block list made by hand, freed at the end of the scope.
class Block {
 public:
  explicit Block(std::string_view bytes);
  ~Block();
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

  uint32_t size() const { return size_; }
  Handle handle() const { return handle_; }

 private:
  uint32_t size_;
  Handle handle_;
};

// A manager that takes words although no dictionary is open.
class BareManager : public MirellDictionaryManager {
 public:
  BareManager() { initialized = 1; }
  ~BareManager() override { initialized = 0; }  // there is no engine to close
};

// Forked files in memory, each step of which can be made to fail.
class MemoryForkedFiles : public ForkedFiles {
 public:
  struct File {
    std::string type, creator, text, recordType, record;
    uint16_t number = 0;
  };
  std::unique_ptr<ForkedFileWriter> create(const std::string& path, const char* type,
                                           const char* creator) override;
  bool read(const std::string& path, const char* recordType, uint16_t number, std::string* text,
            std::string* record) override;

  std::map<std::string, File> files;
  int written = 0;  // files put in place so far
  bool failCreate = false;
  bool failText = false;
  bool failStyle = false;
  bool failClose = false;
};

// The port's platform with services of the test's own in front, in use as long as it lives.
class TestPlatform : public ForwardingPlatform {
 public:
  TestPlatform() : before_(setPlatform(this)) {}
  ~TestPlatform() override { setPlatform(before_); }

  FontMetrics& fonts() override { return fontMetrics ? *fontMetrics : defaultPlatform().fonts(); }
  ForkedFiles& forkedFiles() override { return forked ? *forked : defaultPlatform().forkedFiles(); }
  Applications& applications() override { return programs ? *programs : defaultPlatform().applications(); }

  FontMetrics* fontMetrics = nullptr;
  ForkedFiles* forked = nullptr;
  Applications* programs = nullptr;

 private:
  Platform* before_;
};

// A path table in a folder of its own, loaded as long as it lives: a cache folder, a dictionary folder and
// a helper application, each to be left out by an empty value.
class PathTable {
 public:
  PathTable(const std::string& dictionaryFolder, const std::string& helper, bool withCache = true);
  ~PathTable();
  PathTable(const PathTable&) = delete;
  PathTable& operator=(const PathTable&) = delete;

  const std::string& cacheFolder() const { return cacheFolder_; }

 private:
  TempFolder folder_;
  std::string cacheFolder_;
};

// Log lines of its lifetime.
class LogLines {
 public:
  LogLines();
  ~LogLines();
  static std::vector<std::string> lines;
};

// What a run tells apart from its place in the table of fields: a short form for expectations.
ScrpSTElement plainRun(uint32_t start);
ScrpSTElement styledRun(uint32_t start, uint8_t face, RGBColor color);
inline constexpr RGBColor kBlack{0, 0, 0};
inline constexpr RGBColor kRed{0xFFFF, 0, 0};
inline constexpr RGBColor kBlue{0, 0, 0xFFFF};

}  // namespace zavel::test

namespace zavel {
void PrintTo(const ScrpSTElement& run, std::ostream* out);
}

#endif
