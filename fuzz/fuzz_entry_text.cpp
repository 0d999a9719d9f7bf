// Any bytes as tagged entry text: the manager's conversions and layout, and the host's reading of them.
#include "EntryText.h"
#include "engine/Shim.h"
#include "lookup/MirellDictionaryManager.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 4096) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  MirellDictionaryManager manager;
  manager.initialized = 1;  // the operations below touch no engine
  manager.ConvertMetaKey(text, kMetaKeysRemoved);
  const std::string labelled = manager.ConvertMetaKey(text, kMetaKeysLabelled);
  manager.RemoveMetaKey(text.c_str());
  manager.ExtractKeywordFromMidashiData(text);
  manager.MakeSearchKey("go", text);
  manager.meaningList = {text, text.substr(text.size() / 2)};
  manager.RebuildResultData();
  const std::string shown = manager.OutputResult(text);
  TextEncoding& encoding = platform().encoding();
  host::entriesFromLayout(shown, manager.styleRuns, 0xFF0000, encoding);
  host::sensesFromLabels(encoding.fromSjisLossy(labelled));

  Handle handle = engine::GlobalAlloc(engine::kHandleFlags, size + 1);
  std::copy(text.begin(), text.end(), static_cast<char*>(GlobalLock(handle)));
  const uint32_t length = static_cast<uint32_t>(size);
  manager.DecodeMidashiData(length, handle);
  manager.DecodeInflectionData(length, handle);
  manager.PickupOriginData(length, handle);
  manager.DecodeImiData(0, length, handle);
  manager.DecodeImiData(1, length, handle);
  GlobalFree(handle);
  manager.initialized = 0;
  return 0;
}
