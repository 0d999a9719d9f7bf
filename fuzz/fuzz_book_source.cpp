// Any bytes as a hand-made book, beside the files "p" (a PNG of one bit), "c" (a bitmap in colour), "i" (an
// icon) and "s" (a sound). What is taken is compiled, and the book compared with its source.
#include <stdexcept>

#include "EngineCalls.h"
#include "MemoryStorage.h"
#include "foundation/Utf8.h"
#include "mkbook/Compiler.h"
#include "mkbook/Failure.h"
#include "mkbook/TextSource.h"
#include "mkbook/VerifyBook.h"

namespace {

using namespace zavel;
using namespace zavel::mkbook;

constexpr std::string_view kOneBit(
    "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\n\0\0\0\2\1\0\0\0\0\x49\x1A\x70\x7D\0\0\0\x0EIDAT\x78\xDA\x63\xA8"
    "\x3F\xC0\xF0"
    "\xBF\1\0\7\xFF\2\xBF\x58\x41\xDD\x97\0\0\0\0IEND\xAE\x42\x60\x82",
    71);
constexpr std::string_view kSound(
    "RIFF\x26\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x11\x2B\0\0\x11\x2B\0\0\1\0\x08\0data\2\0\0\0ab", 46);

std::string bitmap(uint8_t width, uint8_t height) {
  std::string out("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\0\0\0\0\0\0\0\0\1\0\x18\0", 30);
  out[18] = static_cast<char>(width);
  out[22] = static_cast<char>(height);
  return out + std::string(24 + (size_t{width} * 3 + 3) / 4 * 4 * height, '\x40');
}

void compile(const TextSource& source, mkdict::Summary* summary) {
  static const Unifont font("00E9:" + std::string(32, '3') + "\n9830:" + std::string(64, '5') + "\n");
  mkdict::Progress progress;
  mkdict::Faults faults;
  mkdict::Summary ofBook;
  BookFolder folder("/zavel-fuzz-none");  // beside few others
  compileBook(source, {source.title(), source.identity()}, font, folder, progress, summary);
  std::string place = folder.path("");
  place.pop_back();
  verifyBook(source, place, font, progress, &ofBook, &faults);
  for (const mkdict::Fault& fault : faults.kept()) std::fprintf(stderr, "%s\n", fault.text().c_str());
  fuzz::demand(faults.total() == 0, "the book holds what its source says");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  fuzz::MemoryStorage disk;
  disk.files = {{"d/book", std::string(reinterpret_cast<const char*>(data), size)},
                {"d/p", std::string(kOneBit)},
                {"d/c", bitmap(3, 2)},
                {"d/i", bitmap(32, 32)},
                {"d/s", std::string(kSound)}};
  mkdict::Summary summary;
  try {
    const TextSource source("d/book", &summary);
    compile(source, &summary);
  } catch (const Failure& failure) {
    fuzz::demand(isValidUtf8(failure.what()) && !failure.hint().empty(), "a refusal says why, in UTF-8");
  } catch (const std::length_error& error) {
    fuzz::demand(*error.what() != '\0', "a refusal says why");
  }
  fuzz::demand(isValidUtf8(summary.text()), "the summary is UTF-8");
  return 0;
}
