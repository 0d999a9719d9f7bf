// WAVE files: what is read of one lies in it, and written anew it reads the same.
#include <cstdlib>
#include <string>

#include "platform/WaveFile.h"

namespace {

bool liesIn(std::string_view part, std::string_view whole) {
  return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  WaveFile wave;
  if (readWave(file, &wave) != WaveFault::kNone) return 0;
  if (!liesIn(wave.format, file) || !liesIn(wave.samples, file)) std::abort();
  if (wave.samples.size() % wave.blockAlign != 0) std::abort();
  const std::string whole = wholeWave(wave);
  WaveFile again;
  if (readWave(whole, &again) != WaveFault::kNone) std::abort();
  if (again.format != wave.format || again.samples != wave.samples) std::abort();
  return 0;
}
