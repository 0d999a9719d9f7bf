// Damaged basic dictionaries under the command's whole road: the manager, its result file, and the answer as
// text, as records and as JSON, which must keep their forms whatever the dictionary holds.
#include <algorithm>
#include <cstddef>

#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "JsonView.h"
#include "Look.h"
#include "MemoryStorage.h"
#include "PlainView.h"
#include "TextView.h"
#include "foundation/Utf8.h"
#include "lookup/MirellDictionaryManager.h"

namespace {

using namespace zavel;

// Text for a terminal or another program: UTF-8, and no control characters but line ends and `other`.
void demandPlain(const std::string& text, char other) {
  fuzz::demand(isValidUtf8(text), "text is UTF-8");
  for (const char c : text) {
    const bool control = (static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != other) || c == 0x7F;
    fuzz::demand(!control, "text steers no terminal");
  }
}

void demandRecords(const std::string& records, std::ptrdiff_t tabs) {
  demandPlain(records, '\t');
  for (size_t begin = 0; begin < records.size();) {
    const size_t end = records.find('\n', begin);
    fuzz::demand(end != std::string::npos, "each record ends");
    fuzz::demand(std::count(&records[begin], &records[end], '\t') == tabs, "each record has all fields");
    begin = end + 1;
  }
}

void show(const host::LookResult& result) {
  const std::string json = host::resultJson(result, {true, true, true, 0});
  fuzz::demand(isValidUtf8(json), "JSON is UTF-8");
  fuzz::demand(json.find('\n') == std::string::npos, "JSON is one line");
  demandPlain(host::answerText(result, {false, 40, 0}), '\n');
  demandPlain(host::answerText(result, {true, 0, 3}), '\x1b');
  demandPlain(host::headwordText(result, {false, 0, 2}), '\n');
  demandPlain(host::formsText(result, {}), '\n');
  demandRecords(host::plainEntries(result, 0), 5);
  demandRecords(host::plainHeadwords(result, 0), 1);
  demandRecords(host::plainForms(result), 2);
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
  const fuzz::Sides sides = fuzz::changedSides(files);
  if (sides.english) {
    for (const char* english : {"goes", "colour", "cha"}) look(manager, english, host::Mode::kAll, 0);
    for (const host::Mode mode : {host::Mode::kPos, host::Mode::kPhrase}) look(manager, "go", mode, 0);
  }
  if (sides.japanese) {
    for (const char* japanese : {"いく", "公園"}) look(manager, japanese, host::Mode::kAll, 0);
    look(manager, "こう", host::Mode::kExample, 0);
  }
  std::string out;
  manager.GetImiE2(word, kFilterAll, out);
  manager.GetImiJ2(word, kFilterAll, out);
  look(manager, word, host::Mode::kAll, word.size() < 5 ? 3 : 0);  // near words of long ones take long
  return 0;
}
