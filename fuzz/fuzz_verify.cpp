// Damaged basic dictionaries under the compiler's verifier, which reads the formats without the engine's
// code.
#include "BaseDictionary.h"
#include "EngineCalls.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "foundation/Utf8.h"
#include "mkdict/Verify.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 4096) return 0;
  fuzz::Input input(data, size);
  std::map<std::string, std::string> files = fuzz::baseDictionary();
  fuzz::damage(input, files, fuzz::baseNames());
  fuzz::MemoryStorage disk;
  disk.folders.insert("d");
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  mkdict::Progress progress;
  mkdict::Summary summary;
  mkdict::Faults faults;
  const mkdict::Verdict verdict = mkdict::verifySet("d", progress, &summary, &faults);
  fuzz::demand((verdict == mkdict::Verdict::kGood) == (faults.total() == 0), "faults make a set damaged");
  for (const mkdict::Fault& fault : faults.kept())
    fuzz::demand(isValidUtf8(fault.text()), "faults are UTF-8");
  return 0;
}
