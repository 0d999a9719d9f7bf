// The rest of the bytes as the file of a picture (first byte 0), of a sound (1), of an icon (2), as hand-made
// books name them.
#include "EngineCalls.h"
#include "Input.h"
#include "mkbook/MediumFault.h"
#include "mkbook/PictureFile.h"
#include "mkbook/WaveFile.h"

namespace {

using namespace zavel;
using namespace zavel::mkbook;
using Kind = MediumShape::Kind;

void readAsPicture(const std::string& file) {
  const Medium picture = readPicture(file);
  fuzz::demand(picture.shape.size == picture.bytes.size() && picture.shape.width > 0,
               "a picture has its size");
  if (picture.shape.kind == Kind::kMonoPicture) {
    fuzz::demand(picture.bytes.size() == (uint64_t{picture.shape.width} + 7) / 8 * picture.shape.height,
                 "dots fill rows of whole bytes");
  } else {
    fuzz::demand(readPicture(picture.bytes).bytes == picture.bytes,
                 "what a book stores is a picture that can be read");
  }
}

void readAsSound(const std::string& file) {
  const Medium sound = readWave(file);
  fuzz::demand(sound.shape.size == sound.bytes.size() && !sound.bytes.empty(), "a sound has its size");
  if (sound.shape.format != 0) return;
  fuzz::demand(readWave("RIFF....WAVE" + sound.bytes).bytes == sound.bytes,
               "chunks are a sound that can be read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 8192) return 0;
  fuzz::Input input(data, size);
  const uint8_t form = input.byte();
  const std::string file = input.rest();
  try {
    if (form % 3 == 0) readAsPicture(file);
    if (form % 3 == 1) readAsSound(file);
    if (form % 3 == 2) fuzz::demand(readIcon(file, 16, 15).size() == 120, "an icon has its size");
  } catch (const MediumFault& fault) {
    fuzz::demand(*fault.what() != '\0', "a refusal says why");
  }
  return 0;
}
