// The book engine on compiled books, in one run: decoding block sets beside a loop over single bytes and a
// bare copy, opening books of three sizes, searches beside decoding just the sets that they touch. Usage:
// zavel_book_bench WORDS SMALL-BOOK MIDDLE-BOOK LARGE-BOOK
//   WORDS   one word in a line, small letters of ASCII alone, in no order; the large book has them
//   books   folders as mkbook makes them
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "book/BlockSet.h"
#include "book/BookFormat.h"
#include "book/CSPrivateDicV2.h"
#include "book/SDic.h"
#include "foundation/ByteReader.h"

namespace {

using namespace zavel;
using namespace zavel::book;
using Clock = std::chrono::steady_clock;

constexpr size_t kWords = 2000, kRounds = 5, kOpens = 300, kDecodings = 7;
constexpr long kHits = 400, kMostHits = 500;

void demand(bool holds, const std::string& what) {
  if (holds) return;
  std::fprintf(stderr, "zavel_book_bench: %s\n", what.c_str());
  std::exit(1);
}

double microseconds(const std::function<void()>& work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double percentile(std::vector<double> times, double p) {
  std::sort(times.begin(), times.end());
  return times.at(std::min(times.size() - 1, static_cast<size_t>(p * static_cast<double>(times.size()))));
}

std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The codes of one set.
struct Codes {
  const uint8_t* bytes;
  uint32_t count;
  uint8_t fill;
};

// A region's file in memory.
struct Region {
  std::string name;
  uint32_t start, end;
  std::string bytes;

  size_t sets() const { return (end - start) / kSetBlocks + 1; }
  Codes set(size_t number) const {
    const auto* const file = reinterpret_cast<const uint8_t*>(bytes.data());
    const uint8_t* const at = file + readBE32(file + kSetTable + 4 * number);
    return {at + kSetHeader, readBE32(at), at[4]};
  }
};

std::vector<Region> readRegions(const std::string& folder) {
  const std::string catalog = readFile(folder + "/BOOK.CAT");
  demand(catalog.size() > kHeader, folder + " is no book");
  const auto* const file = reinterpret_cast<const uint8_t*>(catalog.data());
  std::vector<Region> regions;
  for (size_t i = 0; i < readBE16(file + kHeaderRecords); ++i) {
    const uint8_t* const record = file + kHeader + i * kRecord;
    const uint16_t kind = readBE16(record + kRecordKind);
    const std::string name(reinterpret_cast<const char*>(record + kRecordName), record[kRecordNameLength]);
    if (kind >= kKindFirstFont && kind <= kKindLastFont) continue;
    regions.push_back({name, readBE32(record + kRecordStart), readBE32(record + kRecordEnd),
                       readFile(folder + "/" + name)});
  }
  return regions;
}

// The plainest decoder: what the wide steps are measured by. No match of a compiled book leads ahead.
void decodeByteWise(uint8_t* destination, const Codes& codes) {
  static uint8_t work[kWindow + kSet + kLongestMatch + 1];
  std::memset(work, codes.fill, kWindow);
  const uint8_t* code = codes.bytes;
  size_t written = 0;
  for (uint32_t i = 0; i < codes.count && written < kSet; ++i, code += kCode) {
    const uint8_t* from = work + written + (code[0] << 4 | code[1] >> 4);
    uint8_t* to = work + kWindow + written;
    const size_t length = code[1] & kLongestMatch;
    for (size_t k = 0; k < length; ++k) to[k] = from[k];
    to[length] = code[2];
    written += length + 1;
  }
  written = std::min(written, kSet);
  std::memcpy(destination, work + kWindow, written);
  std::memset(destination + written, 0, kSet - written);
}

void decode(uint8_t* destination, const Codes& codes) {
  decodeBlockSet(destination, codes.bytes, codes.count, codes.fill);
}

// All sets, decoded; both decoders must agree on each.
std::string decodedText(const Region& region) {
  std::string text(region.sets() * kSet, '\0');
  uint8_t plain[kSet];
  for (size_t i = 0; i < region.sets(); ++i) {
    auto* const set = reinterpret_cast<uint8_t*>(text.data()) + i * kSet;
    decode(set, region.set(i));
    decodeByteWise(plain, region.set(i));
    demand(std::memcmp(set, plain, kSet) == 0, "the decoders differ on " + region.name);
  }
  return text;
}

void benchSets(const std::string& book, const Region& region) {
  const std::string text = decodedText(region);
  uint8_t set[kSet];
  const auto* const bytes = reinterpret_cast<const uint8_t*>(text.data());
  const std::function<void(size_t)> ways[] = {[&](size_t i) { decodeByteWise(set, region.set(i)); },
                                              [&](size_t i) { decode(set, region.set(i)); },
                                              [&](size_t i) { std::memcpy(set, bytes + i * kSet, kSet); }};
  double fastest[3] = {1e12, 1e12, 1e12};
  for (size_t round = 0; round < kDecodings; ++round) {
    for (size_t way = 0; way < 3; ++way) {
      const double took = microseconds([&] {
        for (size_t i = 0; i < region.sets(); ++i) ways[way](i);
      });
      fastest[way] = std::min(fastest[way], took);
    }
  }
  const double size = static_cast<double>(text.size());
  const auto speed = [&](size_t way) { return size / 1e3 / fastest[way]; };
  std::printf("%-26s %9.1f %9.2f %9.2f %9.2f %9.2f %9.2f\n", (book + ", " + region.name).c_str(), size / 1e6,
              speed(0), speed(1), fastest[0] / fastest[1], speed(2), fastest[1] / fastest[2]);
}

void* openBook(const std::string& folder) {
  void* handle = nullptr;
  const bool opened =
      SDicOpenDictionary((folder + "/BOOK.CAT").c_str(), &handle, nullptr, false, false) == 0 && handle;
  demand(opened, folder + " can't be opened");
  return handle;
}

void benchOpening(const std::vector<std::string>& folders) {
  std::vector<std::vector<double>> times(folders.size());
  for (size_t i = 0; i <= kOpens; ++i) {
    for (size_t book = 0; book < folders.size(); ++book) {
      void* handle = nullptr;
      const double took = microseconds([&] { handle = openBook(folders[book]); });
      SDicCloseDictionary(handle);
      if (i > 0) times[book].push_back(took);
    }
  }
  std::printf("\nOpening a book (target: under 1,000 us, whatever its size)\n%-34s %10s %10s %10s %10s\n", "",
              "MB packed", "median us", "p99 us", "x first");
  for (size_t book = 0; book < folders.size(); ++book) {
    double size = 0;
    for (const Region& region : readRegions(folders[book])) size += static_cast<double>(region.bytes.size());
    const std::string name = std::filesystem::path(folders[book]).filename();
    std::printf("%-34s %10.3f %10.1f %10.1f %10.2f\n", name.c_str(), size / 1e6, percentile(times[book], 0.5),
                percentile(times[book], 0.99), percentile(times[book], 0.5) / percentile(times[0], 0.5));
  }
}

// A key of full-width letters behind its method.
std::string queryOf(uint16_t method, const std::string& word) {
  std::string query;
  appendBE16(query, method);
  for (const char letter : word) appendBE16(query, static_cast<uint16_t>(0x2300 + letter));
  return query;
}

// Notes which sets a search has decoded.
class TracedBook : public CSPrivateDicV2 {
 public:
  struct Decoded {
    uint32_t block;
    int slot;
  };

  bool Fp_CacheData(uint32_t block, int slot) override {
    decoded.push_back({block, slot});
    return CSPrivateDicV2::Fp_CacheData(block, slot);
  }
  std::vector<Decoded> decoded;
};

// One kind of search, given the book and the number of the query.
using Search = std::function<void(CSPrivateDicV2&, size_t)>;

// The sets that each of `count` searches in a row touches, the cache as warm as it is in the race.
std::vector<std::vector<TracedBook::Decoded>> trace(const std::string& folder, size_t count,
                                                    const Search& search) {
  TracedBook book;
  demand(book.Fn_OpenDictionary((folder + "/BOOK.CAT").c_str(), nullptr, false, false) == 0, folder);
  std::vector<std::vector<TracedBook::Decoded>> traces;
  search(book, count - 1);
  for (size_t i = 0; i < count; ++i) {
    book.decoded.clear();
    search(book, i);
    traces.push_back(book.decoded);
  }
  return traces;
}

struct Contestant {
  std::string name;
  std::function<void(size_t)> run;
  std::vector<double> times;  // microseconds
};

// Decoding alone, decoding with reading, the search: they take turns, and the first round only warms up.
void race(const char* title, const std::string& folder, const std::vector<Region>& regions, size_t count,
          const Search& search) {
  const auto traces = trace(folder, count, search);
  uint8_t set[kSet];
  const auto decodeAll = [&](size_t i) {
    for (const auto& [block, slot] : traces[i]) {
      for (const Region& region : regions) {
        if (block >= region.start && block <= region.end)
          decode(set, region.set((block - region.start) / kSetBlocks));
      }
    }
  };
  CSPrivateDicV2 reader, searched;
  for (CSPrivateDicV2* book : {&reader, &searched})
    book->Fn_OpenDictionary((folder + "/BOOK.CAT").c_str(), nullptr, false, false);
  const auto readAll = [&](size_t i) {
    for (const auto& [block, slot] : traces[i]) reader.Fp_CacheData(block, slot);
  };
  Contestant all[] = {{"decoding the sets it touches", decodeAll, {}},
                      {"reading and decoding them", readAll, {}},
                      {"the search", [&](size_t i) { search(searched, i); }, {}}};
  for (size_t round = 0; round <= kRounds; ++round) {
    for (size_t i = 0; i < count; ++i) {
      for (Contestant& c : all) {
        const double took = microseconds([&] { c.run(i); });
        if (round > 0) c.times.push_back(took);
      }
    }
  }
  size_t sets = 0;
  for (const auto& touched : traces) sets += touched.size();
  std::printf("\n%s\n%zu searches, %.1f sets each\n%-34s %10s %10s %10s %10s\n", title, count,
              static_cast<double>(sets) / static_cast<double>(count), "", "median us", "p99 us", "x first",
              "p99 x");
  for (const Contestant& c : all) {
    std::printf("%-34s %10.1f %10.1f %10.2f %10.2f\n", c.name.c_str(), percentile(c.times, 0.5),
                percentile(c.times, 0.99), percentile(c.times, 0.5) / percentile(all[0].times, 0.5),
                percentile(c.times, 0.99) / percentile(all[0].times, 0.99));
  }
}

long hitsOf(CSPrivateDicV2& book, const std::string& query) {
  long count = 0, first = 0;
  return book.Fn_ExecIndexSearch(query.c_str(), false, false, &count, &first) == 0 ? count : 0;
}

void headwordsOf(CSPrivateDicV2& book, const std::string& query) {
  demand(hitsOf(book, query) >= kHits, "a search has lost hits");
  for (long i = 0; i < kHits; ++i) {
    _SDICITEMADDRESS hit{};
    char* text = nullptr;
    uint16_t length = 0;
    const bool given = book.Fn_GetSearchResult(static_cast<unsigned long>(i), &hit) == 0 &&
                       book.Fn_GetHeadword(&hit.headword, &text, &length, false) == 0;
    demand(given, "a headword is missing");
    std::free(text);
  }
}

std::vector<std::string> readWords(const char* path) {
  std::vector<std::string> words;
  std::ifstream in(path);
  for (std::string word; std::getline(in, word) && words.size() < kWords;) words.push_back(word);
  demand(!words.empty(), "there are no words");
  return words;
}

// Beginnings of words with a little more than 400 hits.
std::vector<std::string> forwardQueries(const std::string& folder, const std::vector<std::string>& words) {
  CSPrivateDicV2 book;
  book.Fn_OpenDictionary((folder + "/BOOK.CAT").c_str(), nullptr, false, false);
  std::vector<std::string> beginnings, queries;
  for (const std::string& word : words) {
    for (const size_t length : {2, 3, 4}) {
      if (word.size() >= length) beginnings.push_back(word.substr(0, length));
    }
  }
  std::sort(beginnings.begin(), beginnings.end());
  beginnings.erase(std::unique(beginnings.begin(), beginnings.end()), beginnings.end());
  for (const std::string& beginning : beginnings) {
    const std::string query = queryOf(kTokenForward, beginning);
    const long hits = hitsOf(book, query);
    if (hits >= kHits && hits < kMostHits) queries.push_back(query);
  }
  demand(!queries.empty(), "no beginning has about 400 hits");
  return queries;
}

void benchSearches(const std::string& folder, const std::vector<std::string>& words) {
  const std::vector<Region> regions = readRegions(folder);
  std::vector<std::string> exact;
  for (const std::string& word : words) exact.push_back(queryOf(kTokenExact, word));
  race("One word in the large book (target: median under 200 us)", folder, regions, exact.size(),
       [&](CSPrivateDicV2& book, size_t i) { demand(hitsOf(book, exact[i]) > 0, "a word is missing"); });
  const std::vector<std::string> forward = forwardQueries(folder, words);
  race("A beginning, 400 hits and all their headwords (target: under 20,000 us)", folder, regions,
       forward.size(), [&](CSPrivateDicV2& book, size_t i) { headwordsOf(book, forward[i]); });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fprintf(stderr, "usage: zavel_book_bench WORDS SMALL-BOOK MIDDLE-BOOK LARGE-BOOK\n");
    return 2;
  }
  const std::vector<std::string> books(argv + 2, argv + argc);
  std::printf(
      "\nDecoding block sets (target for text: 3.2 x the loop over bytes)\n%-26s %9s %9s %9s %9s %9s %9s\n",
      "", "MB", "loop GB/s", "our GB/s", "x loop", "copy GB/s", "copy x");
  for (const std::string& folder : {books[1], books[2]}) {
    for (const Region& region : readRegions(folder))
      benchSets(std::filesystem::path(folder).filename(), region);
  }
  benchOpening(books);
  benchSearches(books[2], readWords(argv[1]));
  return 0;
}
