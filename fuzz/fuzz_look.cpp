// Damaged basic dictionaries under the command's whole road: the manager, its result file, and the answer as
// text and as JSON, which must be UTF-8 whatever the dictionary holds.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "JsonView.h"
#include "Look.h"
#include "MemoryStorage.h"
#include "TextView.h"
#include "foundation/Utf8.h"
#include "lookup/MirellDictionaryManager.h"

namespace {

using namespace zavel;

void show(const host::LookResult& result) {
  const std::string json = host::resultJson(result, {true, true, true, 0});
  fuzz::demand(isValidUtf8(json), "JSON is UTF-8");
  fuzz::demand(json.find('\n') == std::string::npos, "JSON is one line");
  const std::string text = host::answerText(result, {true, 40, 0}) +
                           host::headwordText(result, {false, 0, 2}) + host::formsText(result, {});
  fuzz::demand(isValidUtf8(text), "text is UTF-8");
}

void look(MirellDictionaryManager& manager, const std::string& word, host::Mode mode, size_t suggestions) {
  host::LookRequest request;
  request.word = word;
  request.mode = mode;
  request.wantForms = true;
  request.suggestions = suggestions;
  host::LookResult result;
  host::Failure failure;
  if (host::Look(manager).run(request, &result, &failure)) show(result);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  fuzz::Input input(data, size);
  const std::string word = input.shortText();
  std::map<std::string, std::string> files = fuzz::baseDictionary();
  fuzz::damage(input, files, fuzz::baseNames());
  fuzz::MemoryStorage disk;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  if (InitAPI("d/", nullptr, nullptr) != 1) return 0;
  EndAPI();
  MirellDictionaryManager manager;
  const FileReference file("d/result");
  fuzz::demand(manager.InitializeDictionaries("d/", nullptr, nullptr, &file), "what opened opens again");
  for (const char* english : {"goes", "colour", "cha"}) look(manager, english, host::Mode::kAll, 0);
  for (const char* japanese : {"いく", "公園"}) look(manager, japanese, host::Mode::kAll, 0);
  look(manager, "go", host::Mode::kPos, 0);
  look(manager, "go", host::Mode::kPhrase, 0);
  look(manager, "こう", host::Mode::kExample, 0);
  look(manager, word, host::Mode::kAll, 3);
  return 0;
}
