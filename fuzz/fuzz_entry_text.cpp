// Tagged entry text of any kind: the manager's conversions and layout, its decoding of block lists, and the
// host's reading of the result. The byte FF, which no text of Shift_JIS holds, parts the input into a
// headword line and entries.
#include <vector>

#include "EngineCalls.h"
#include "EntryText.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"
#include "foundation/Utf8.h"
#include "lookup/MirellDictionaryManager.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace {

using namespace zavel;

std::vector<std::string> partsOf(std::string_view text) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\xFF'), text.size());
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

// The engine's lists of the parts: entries, headword lines, forms.
struct Lists {
  std::string entries, lines, forms;
};

Lists listsOf(const std::vector<std::string>& parts) {
  Lists lists;
  for (const std::string& part : parts) {
    appendLE32(lists.entries, static_cast<uint32_t>(part.size()));
    lists.entries += part;
    appendLE16(lists.lines, static_cast<uint16_t>(part.size() + 1));
    lists.lines += part + '\0';
    appendLE16(lists.forms, static_cast<uint16_t>(part.size() + 1));
    lists.forms += static_cast<char>(part.size() % 12) + part + '\0';
  }
  return lists;
}

class Block {
 public:
  explicit Block(const std::string& bytes)
      : size(static_cast<uint32_t>(bytes.size())),
        handle(engine::GlobalAlloc(engine::kHandleFlags, bytes.size() + 1)) {
    bytes.copy(static_cast<char*>(GlobalLock(handle)), bytes.size());
  }
  ~Block() { GlobalFree(handle); }

  const uint32_t size;
  const Handle handle;
};

// Reads a list in every way, whatever it is a list of.
void decode(MirellDictionaryManager& manager, const std::string& list) {
  const Block block(list);
  uint32_t code = 0;
  manager.DecodeMidashiData(block.size, block.handle);
  manager.DecodeInflectionData(block.size, block.handle);
  for (uint32_t i = 0; i < manager.CountInflectionData(); ++i) manager.GetInflectionData(i, &code);
  manager.PickupOriginData(block.size, block.handle);
  manager.DecodeImiData(1, block.size, block.handle);
  manager.DecodeImiData(0, block.size, block.handle);
}

void show(MirellDictionaryManager& manager, const std::string& text) {
  const TextEncoding& encoding = platform().encoding();
  const std::string laidOut = manager.OutputResult(text);
  for (const host::Entry& entry : host::entriesFromLayout(laidOut, manager.styleRuns, 0xFF0000, encoding)) {
    fuzz::demand(isValidUtf8(entry.text), "an entry is UTF-8");
    fuzz::demand(!entry.spans.empty() && entry.spans[0].begin == 0, "spans begin with the text");
    for (size_t i = 1; i < entry.spans.size(); ++i)
      fuzz::demand(entry.spans[i - 1].begin <= entry.spans[i].begin, "spans rise");
  }
  const std::string labelled = manager.ConvertMetaKey(text, kMetaKeysLabelled);
  host::sensesFromLabels(encoding.fromSjisLossy(labelled));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 8192) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> parts = partsOf(text);
  MirellDictionaryManager manager;
  manager.initialized = 1;  // the operations below touch no engine
  const std::string line = parts.empty() ? std::string() : parts[0];
  manager.ExtractKeywordFromMidashiData(line);
  manager.MakeSearchKey("go", line);
  manager.ConvertMetaKey(text, kMetaKeysRemoved);
  manager.RemoveMetaKey(text.c_str());

  const Lists lists = listsOf(parts);
  for (const std::string& list : {lists.forms, lists.lines, text, lists.entries}) decode(manager, list);
  show(manager, manager.RebuildResultData());
  show(manager, text);
  manager.initialized = 0;
  return 0;
}
