// Tests: tests/translators/ConvertedCheckTest.cpp
#include "dicttool/ConvertedCheck.h"

#include <optional>
#include <string_view>
#include <utility>

#include "dicttool/DictdIndex.h"
#include "dicttool/DictdText.h"
#include "dicttool/DictdWriter.h"
#include "dicttool/WordFold.h"
#include "foundation/Storage.h"
#include "foundation/Utf8.h"

namespace zavel::dicttool {
namespace {

constexpr size_t kMostBytes = size_t{1} << 30;

Failure readFile(const std::string& path, std::string* bytes) {
  if (!storage().exists(path)) return {kExitDamaged, path + " is missing"};
  if (!readWholeFile(path, kMostBytes, bytes)) return {kExitEnvironment, path + " can't be read"};
  if (bytes->empty()) return {kExitDamaged, path + " is damaged: it is empty"};
  return {};
}

bool isEntry(const IndexLine& line, std::string_view text) {
  if (line.length == 0 || line.offset > text.size() || line.length > text.size() - line.offset) return false;
  return (line.offset == 0 || text[line.offset - 1] == '\n') && text[line.offset + line.length - 1] == '\n';
}

// What is wrong with a line that stands behind `before`; null when nothing is.
const char* faultOf(std::string_view bytes, std::string_view before, std::string_view text) {
  const std::optional<IndexLine> line = IndexLine::parse(bytes);
  if (!line) return "is not an index line";
  if (compareFolded(before, line->word) > 0) return "is out of order";
  return isEntry(*line, text) ? nullptr : "leads to no entry";
}

Failure checkLines(const std::string& path, std::string_view index, std::string_view text, size_t* words) {
  std::string_view before;
  for (size_t at = 0; at < index.size();) {
    const size_t end = index.find('\n', at);
    if (end == std::string_view::npos)
      return {kExitDamaged, path + " is damaged: its last line does not end"};
    const std::string_view line = index.substr(at, end - at);
    if (const char* fault = faultOf(line, before, text)) {
      return {kExitDamaged, path + " is damaged: the line at byte " + std::to_string(at) + " " + fault};
    }
    before = line.substr(0, line.find('\t'));
    ++*words;
    at = end + 1;
  }
  return {};
}

}  // namespace

Failure checkConverted(std::string base, size_t* words) {
  *words = 0;
  base = DictdWriter::withoutEnd(std::move(base));
  const std::string textPath = base + ".dict", indexPath = base + ".index";
  std::string text, index;
  if (Failure failure = readFile(indexPath, &index)) return failure;
  if (Failure failure = readFile(textPath, &text)) return failure;
  if (Failure failure = checkLines(indexPath, index, text, words)) return failure;
  if (indexSizeIn(text).value_or(index.size()) != index.size()) {
    return {kExitDamaged, indexPath + " is damaged: it has not the size that its text tells"};
  }
  if (!isValidUtf8(text)) return {kExitDamaged, textPath + " is damaged: it holds bytes that are no UTF-8"};
  return {};
}

}  // namespace zavel::dicttool
