// Runs a fuzz target over the files of a folder, without libFuzzer: fuzz_replay TARGET FOLDER. Status 0 when
// the target came through them all, 1 when there is none to run. A finding ends the program.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#define TARGET(name) extern "C" int fuzz_##name(const uint8_t* data, size_t size);
FUZZ_TARGETS
#undef TARGET

namespace {

using Entry = int (*)(const uint8_t*, size_t);

Entry entryOf(std::string_view target) {
#define TARGET(name) \
  if (target == #name) return fuzz_##name;
  FUZZ_TARGETS
#undef TARGET
  return nullptr;
}

std::vector<std::string> filesOf(const char* folder) {
  std::vector<std::string> files;
  std::error_code error;
  for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    if (it->is_regular_file()) files.push_back(it->path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  const Entry entry = argc == 3 ? entryOf(argv[1]) : nullptr;
  if (entry == nullptr) {
    std::fprintf(stderr, "usage: fuzz_replay TARGET FOLDER\n");
    return 2;
  }
  const std::vector<std::string> files = filesOf(argv[2]);
  if (files.empty()) {
    std::fprintf(stderr, "no inputs in %s\n", argv[2]);
    return 1;
  }
  entry(nullptr, 0);
  for (const std::string& path : files) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::printf("%s\n", path.c_str());  // the last line names the input of a finding
    std::fflush(stdout);
    // A copy on the heap of exactly its size, so that a sanitizer sees the first byte read behind it.
    const std::vector<uint8_t> exact(bytes.begin(), bytes.end());
    entry(exact.data(), exact.size());
  }
  return 0;
}
