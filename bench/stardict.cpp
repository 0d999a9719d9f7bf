// Writes a dictd dictionary in StarDict form (.ifo, .idx, .dict), so that sdcv reads the same data.
// Usage: zavel_stardict INDEX TEXT OUTDIR
#include <strings.h>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "foundation/ByteReader.h"
#include "mkdict/DictdReader.h"

namespace {

// The order in which StarDict files words: without case, ties by bytes.
bool before(const std::string& a, const std::string& b) {
  const int order = strcasecmp(a.c_str(), b.c_str());
  return order != 0 ? order < 0 : a < b;
}

// The word of an entry as its text gives it: up to the pronunciation or the line end.
std::string headword(std::string_view text) {
  const size_t end = std::min(text.find('\n'), std::min(text.find(" /"), text.find(" <")));
  return std::string(text.substr(0, end));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  zavel::mkdict::DictdReader reader;
  std::string error;
  if (!reader.open(argv[1], argv[2], &error)) {
    std::fprintf(stderr, "%s\n", error.c_str());
    return 3;
  }
  struct Word {
    std::string word;
    std::string_view text;
  };
  std::vector<Word> words;
  for (const auto& entry : reader.entries()) {
    if (entry.word.rfind("00database", 0) != 0)
      words.push_back({headword(reader.textOf(entry)), reader.textOf(entry)});
  }
  std::stable_sort(words.begin(), words.end(),
                   [](const Word& a, const Word& b) { return before(a.word, b.word); });
  const std::string folder = argv[3];
  std::filesystem::create_directories(folder);
  std::string idx;
  std::ofstream dict(folder + "/bench.dict", std::ios::binary);
  uint32_t offset = 0;
  for (const Word& word : words) {
    dict << word.text;
    idx += word.word + '\0';
    zavel::appendBE32(idx, offset);
    zavel::appendBE32(idx, static_cast<uint32_t>(word.text.size()));
    offset += static_cast<uint32_t>(word.text.size());
  }
  std::ofstream(folder + "/bench.idx", std::ios::binary) << idx;
  std::ofstream(folder + "/bench.ifo")
      << "StarDict's dict ifo file\nversion=2.4.2\nbookname=bench\nwordcount=" << words.size()
      << "\nidxfilesize=" << idx.size() << "\nsametypesequence=m\n";
  return 0;
}
