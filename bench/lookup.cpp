// Look-ups on the compiled dictionary, side by side in one run: the bare limit, the engine, SQLite on the
// same rows, the manager. The contestants take turns word by word, so that a change of the machine's speed
// meets all of them alike.
// Usage: zavel_bench DICTIONARY-FOLDER [--json]
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "config/WorkPathTable.h"
#include "config/WorkStyles.h"
#include "engine/DicFormat.h"
#include "engine/EngineAPI.h"
#include "foundation/ByteReader.h"
#include "limit.h"
#include "lookup/MirellModule.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "shell/ProcessObjects.h"
#include "shell/ZavelLexController.h"

namespace {

using zavel::readLE16;
using zavel::readLE32;
using Clock = std::chrono::steady_clock;

constexpr size_t kWords = 2000, kRounds = 5;

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// One row of the English index: its key, and where all of it stands.
struct Row {
  std::string key;
  uint32_t blockOffset, blockSize, entryOffset, entryLength;
};

const uint8_t* bytesOf(const std::string& text) {
  return reinterpret_cast<const uint8_t*>(text.data());
}

uint32_t entryLength(const std::string& dic, uint32_t offset) {
  const size_t next = dic.find("\xF5\xD1", offset + 2);
  return static_cast<uint32_t>(std::min(next, dic.size()) - offset);
}

void addBlock(const std::string& ix3, const std::string& dic, const std::string& prefix, uint32_t offset,
              std::vector<Row>* rows) {
  const uint8_t* block = bytesOf(ix3) + offset;
  const uint16_t count = readLE16(block), size = readLE16(block + 2);
  for (uint16_t i = 0; i < count; ++i) {
    const char* remainder =
        reinterpret_cast<const char*>(block) + 4 + 2 * count + readLE16(block + 4 + 2 * i) + 2;
    const uint32_t entry = readLE32(block + size - 4 * count + 4 * i);
    rows->push_back({prefix + remainder, offset, size, entry, entryLength(dic, entry)});
  }
}

// Every row behind a prefix of three letters, in index order.
std::vector<Row> readRows(const std::string& folder) {
  const std::string idx = readFile(folder + "/ej.idx"), ix3 = readFile(folder + "/ej.ix3");
  const std::string dic = readFile(folder + "/ej.dic");
  const uint8_t* base = bytesOf(idx);
  const uint8_t* b = base + readLE32(base + 4);
  const uint8_t* c = base + readLE32(b + 4);
  const uint32_t countA = readLE32(base) / 3, countB = readLE32(b) / 3, countC = readLE32(c) / 5;
  const auto child = [](const uint8_t* rows, uint32_t row, uint32_t count, uint32_t end) {
    return row < count ? readLE16(rows + 3 * row + 1) : end;
  };
  std::vector<Row> rows;
  for (uint32_t i = 0; i < countA; ++i) {
    for (uint32_t j = child(base + 8, i, countA, countB); j < child(base + 8, i + 1, countA, countB); ++j) {
      for (uint32_t k = child(b + 8, j, countB, countC); k < child(b + 8, j + 1, countB, countC); ++k) {
        const std::string prefix = {static_cast<char>(base[8 + 3 * i]), static_cast<char>(b[8 + 3 * j]),
                                    static_cast<char>(c[4 + 5 * k])};
        if (prefix.find('\0') == std::string::npos)
          addBlock(ix3, dic, prefix, readLE32(c + 4 + 5 * k + 1), &rows);
      }
    }
  }
  return rows;
}

struct Sample {
  std::vector<double> times;  // microseconds
  double percentile(double p) {
    std::sort(times.begin(), times.end());
    return times.empty() ? 0
                         : times[std::min(times.size() - 1,
                                          static_cast<size_t>(p * static_cast<double>(times.size())))];
  }
};

struct Contestant {
  std::string name;
  std::function<long(size_t)> run;  // bytes that word number i gave
  Sample sample;
  long bytes = 0;
};

// Runs all contestants in turn over all words, several rounds; the first round only warms up.
void race(std::vector<Contestant>& contestants, size_t words) {
  for (size_t round = 0; round <= kRounds; ++round) {
    for (size_t i = 0; i < words; ++i) {
      for (size_t c = 0; c < contestants.size(); ++c) {
        Contestant& contestant = contestants[(c + i) % contestants.size()];
        const auto start = Clock::now();
        const long bytes = contestant.run(i);
        const std::chrono::duration<double, std::micro> took = Clock::now() - start;
        if (round == 0) contestant.bytes += bytes;
        if (round > 0) contestant.sample.times.push_back(took.count());
      }
    }
  }
}

void print(const char* title, std::vector<Contestant>& contestants) {
  std::printf("\n%s\n%-34s %10s %10s %10s %10s %12s\n", title, "", "median us", "p99 us", "x limit", "p99 x",
              "bytes");
  const double median = contestants[0].sample.percentile(0.5), p99 = contestants[0].sample.percentile(0.99);
  for (Contestant& c : contestants) {
    std::printf("%-34s %10.1f %10.1f %10.2f %10.2f %12ld\n", c.name.c_str(), c.sample.percentile(0.5),
                c.sample.percentile(0.99), c.sample.percentile(0.5) / median, c.sample.percentile(0.99) / p99,
                c.bytes);
  }
}

// The same rows in a SQLite table, default settings, connection and statement kept open.
class Sqlite {
 public:
  Sqlite(const std::string& path, const std::vector<Row>& rows, const std::string& dic) {
    std::filesystem::remove(path);
    check(sqlite3_open(path.c_str(), &db_));
    exec("CREATE TABLE entries(key TEXT, text BLOB); BEGIN");
    sqlite3_stmt* insert = nullptr;
    check(sqlite3_prepare_v2(db_, "INSERT INTO entries VALUES(?, ?)", -1, &insert, nullptr));
    for (const Row& row : rows) {
      sqlite3_bind_text(insert, 1, row.key.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_blob(insert, 2, dic.data() + row.entryOffset, static_cast<int>(row.entryLength),
                        SQLITE_STATIC);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    exec("COMMIT; CREATE INDEX by_key ON entries(key)");
    check(sqlite3_prepare_v2(db_, "SELECT text FROM entries WHERE key = ?", -1, &exact_, nullptr));
    check(sqlite3_prepare_v2(db_, "SELECT text FROM entries WHERE key >= ? AND key < ? ORDER BY key LIMIT 50",
                             -1, &list_, nullptr));
  }
  ~Sqlite() {
    sqlite3_finalize(exact_);
    sqlite3_finalize(list_);
    sqlite3_close(db_);
  }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  long exact(const std::string& key) {
    sqlite3_bind_text(exact_, 1, key.c_str(), static_cast<int>(key.size()), SQLITE_STATIC);
    return take(exact_);
  }
  long list(const std::string& prefix) {
    const std::string end = prefix + "\x7F";
    sqlite3_bind_text(list_, 1, prefix.c_str(), static_cast<int>(prefix.size()), SQLITE_STATIC);
    sqlite3_bind_text(list_, 2, end.c_str(), static_cast<int>(end.size()), SQLITE_STATIC);
    return take(list_);
  }

 private:
  long take(sqlite3_stmt* statement) {
    long bytes = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      const int size = sqlite3_column_bytes(statement, 0);
      taken_.assign(static_cast<const char*>(sqlite3_column_blob(statement, 0)), static_cast<size_t>(size));
      bytes += size;
    }
    sqlite3_reset(statement);
    return bytes;
  }
  void exec(const char* sql) { check(sqlite3_exec(db_, sql, nullptr, nullptr, nullptr)); }
  static void check(int status) {
    if (status == SQLITE_OK) return;
    std::fprintf(stderr, "SQLite: %s\n", sqlite3_errstr(status));
    std::exit(3);
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt *exact_ = nullptr, *list_ = nullptr;
  std::string taken_;
};

long take(uint16_t status, uint32_t size, Handle list) {
  static std::string taken;
  if (status != 1) return -1;
  if (list) taken.assign(static_cast<const char*>(GlobalLock(list)), size);
  GlobalFree(list);
  return size;
}

long engineExact(const std::string& key) {
  char word[256];
  std::snprintf(word, sizeof word, "%s", key.c_str());
  uint32_t size = 0;
  Handle list = nullptr;
  const uint16_t status = SerchImiE(word, nullptr, 0, &size, &list, 1);
  return take(status, size, list);
}

long engineList(const std::string& prefix) {
  uint32_t size = 0;
  Handle list = nullptr;
  const uint16_t status = SerchMidasiE(prefix.c_str(), 0, &size, &list, 1);
  return take(status, size, list);
}

struct Paths {
  std::string idx, ix3, dic;
};

limit_plan planOf(const Row& row, const Paths& paths) {
  limit_plan plan{};
  plan.idx = paths.idx.c_str();
  plan.ix3 = paths.ix3.c_str();
  plan.dic = paths.dic.c_str();
  plan.blockOffset = row.blockOffset;
  plan.blockSize = row.blockSize;
  std::snprintf(plan.remainder, sizeof plan.remainder, "%s", row.key.c_str() + 3);
  plan.entryLength[0] = row.entryLength;
  return plan;
}

bool sameStart(const Row& row, const std::string& prefix) {
  return row.key.compare(0, prefix.size(), prefix) == 0;
}

// Words of one row each, so that all contestants read one entry.
std::vector<size_t> chooseWords(const std::vector<Row>& rows) {
  std::vector<size_t> chosen;
  for (size_t i = 1; i + 1 < rows.size(); ++i) {
    const bool plain =
        std::all_of(rows[i].key.begin(), rows[i].key.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    if (plain && rows[i - 1].key != rows[i].key && rows[i + 1].key != rows[i].key) chosen.push_back(i);
  }
  std::shuffle(chosen.begin(), chosen.end(), std::mt19937(20240229));
  chosen.resize(std::min(chosen.size(), kWords));
  return chosen;
}

// Beginnings of four letters with at least fifty rows, and of three where a whole block is listed.
std::vector<std::string> choosePrefixes(const std::vector<Row>& rows) {
  std::vector<std::string> prefixes;
  for (size_t i = 0; i + 50 < rows.size(); ++i) {
    for (size_t length : {size_t{3}, size_t{4}}) {
      const std::string prefix = rows[i].key.substr(0, length);
      const bool first = prefix.size() == length && (i == 0 || !sameStart(rows[i - 1], prefix));
      if (first && sameStart(rows[i + 49], prefix)) prefixes.push_back(prefix);
    }
  }
  std::shuffle(prefixes.begin(), prefixes.end(), std::mt19937(20240229));
  prefixes.resize(std::min(prefixes.size(), size_t{300}));
  return prefixes;
}

limit_plan listPlan(const std::vector<Row>& rows, const std::string& prefix, const Paths& paths) {
  size_t first = 0;
  while (!sameStart(rows[first], prefix)) ++first;
  limit_plan plan = planOf(rows[first], paths);
  plan.prefix = 1;
  std::snprintf(plan.remainder, sizeof plan.remainder, "%s", prefix.c_str() + 3);
  for (size_t i = 0; i < 50; ++i) plan.entryLength[i] = rows[first + i].entryLength;
  return plan;
}

void raceExact(const std::vector<Row>& rows, const Paths& paths, Sqlite& sqlite) {
  const std::vector<size_t> words = chooseWords(rows);
  std::vector<limit_plan> plans;
  for (size_t i : words) plans.push_back(planOf(rows[i], paths));
  static char entry[65536];
  std::vector<Contestant> all;
  all.push_back({"bare limit: 3 opens, 2 preads",
                 [&](size_t i) { return limit_look(&plans[i], entry, sizeof entry); },
                 {},
                 0});
  all.push_back({"engine: SerchImiE", [&](size_t i) { return engineExact(rows[words[i]].key); }, {}, 0});
  all.push_back(
      {"SQLite, default settings", [&](size_t i) { return sqlite.exact(rows[words[i]].key); }, {}, 0});
  race(all, words.size());
  print("One word with its entry text", all);
}

void raceList(const std::vector<Row>& rows, const Paths& paths, Sqlite& sqlite) {
  const std::vector<std::string> prefixes = choosePrefixes(rows);
  std::vector<limit_plan> plans;
  for (const std::string& prefix : prefixes) plans.push_back(listPlan(rows, prefix, paths));
  static char entry[65536];
  std::vector<Contestant> all;
  all.push_back({"bare limit: a pread for each entry",
                 [&](size_t i) { return limit_look(&plans[i], entry, sizeof entry); },
                 {},
                 0});
  all.push_back({"engine: SerchMidasiE", [&](size_t i) { return engineList(prefixes[i]); }, {}, 0});
  all.push_back({"SQLite, default settings", [&](size_t i) { return sqlite.list(prefixes[i]); }, {}, 0});
  race(all, prefixes.size());
  print("A list of fifty headwords", all);
}

long managerRoad(zavel::MirellDictionaryManager& manager, const std::string& word) {
  const std::string origin = manager.GetOrigin(word);
  if (!manager.GetMidashiE(origin)) return -1;
  const std::string line = manager.GetMidashiData(0).c_str();
  const std::string keyword = manager.ExtractKeywordFromMidashiData(line);
  return manager.NewGetImiE(keyword, 0, line) ? static_cast<long>(manager.outputText.size()) : -1;
}

// A host with a field of its own and the bilingual dictionary alone switched on.
struct Host {
  Host() { controller.initController(zavel::Rect(), this, input, progress, "bench-result"); }

  long look(const std::string& word) {
    input.setText(word);
    controller.lookupButton();
    const std::string& shown = controller.sController().hwResultView().text().text();
    return controller.sController().nowSelectedRow() == 0 ? static_cast<long>(shown.size()) : -1;
  }

  zavel::SearchField input;
  zavel::BusyIndicator progress;
  zavel::ZavelLexController controller;
};

void usePlaces(const std::string& folder, const std::string& work) {
  setenv("ZAVEL_ROOT", work.c_str(), 1);
  zavel::Value table =
      zavel::defaultPathTable({work, work + "/cache", work + "/preferences", work, work, "", ""});
  (*(*table.asDict())["DictionaryPath"].asDict())["KenkyuDictionaryFolder"] = folder;
  zavel::platform().propertyLists().writeFile(work + "/table.plist", table, zavel::PropertyListFormat::kXml);
  zavel::writeStylesIfMissing(work + "/preferences/ZavelStyle", zavel::StyleLanguage::kEnglish);
  zavel::setHostPathTable(work + "/table");
}

void raceManager(Host& host, const std::vector<Row>& rows, const Paths& paths) {
  const std::vector<size_t> words = chooseWords(rows);
  std::vector<limit_plan> plans;
  for (size_t i : words) plans.push_back(planOf(rows[i], paths));
  static char entry[65536];
  zavel::MirellDictionaryManager& manager = *zavel::gMirellModule->objectODM();
  std::vector<Contestant> all;
  all.push_back({"bare limit: 3 opens, 2 preads",
                 [&](size_t i) { return limit_look(&plans[i], entry, sizeof entry); },
                 {},
                 0});
  all.push_back({"manager: origin to result file",
                 [&](size_t i) { return managerRoad(manager, rows[words[i]].key); },
                 {},
                 0});
  all.push_back(
      {"controller: field to shown row", [&](size_t i) { return host.look(rows[words[i]].key); }, {}, 0});
  race(all, words.size());
  print("The manager's whole road (target: median under 300 us)", all);
  std::printf("controller / manager (target: at most 1.2): %.2f\n",
              all[2].sample.percentile(0.5) / all[1].sample.percentile(0.5));
}

// Beside the one that lives already, set-up included.
void timeSecondController() {
  Sample sample;
  for (int i = 0; i < 200; ++i) {
    const auto start = Clock::now();
    const Host second;
    const std::chrono::duration<double, std::micro> took = Clock::now() - start;
    sample.times.push_back(took.count());
  }
  std::printf("\nA second controller (target: under 1,000 us): median %.1f us, p99 %.1f us\n",
              sample.percentile(0.5), sample.percentile(0.99));
}

void benchController(const std::string& folder, const std::vector<Row>& rows, const Paths& paths,
                     const std::string& work) {
  usePlaces(folder, work);
  zavel::setLogSink([](const std::string&) {});
  Host host;
  host.controller.zfwPrefController().dictTab().setSelected(1, false);
  raceManager(host, rows, paths);
  timeSecondController();
}

void timeInit(const std::string& folder) {
  Sample sample;
  for (int i = 0; i < 200; ++i) {
    const auto start = Clock::now();
    if (InitAPI((folder + "/").c_str(), nullptr, nullptr) != 1) std::exit(3);
    const std::chrono::duration<double, std::micro> took = Clock::now() - start;
    sample.times.push_back(took.count());
    EndAPI();
  }
  std::printf("\nInitAPI (target: under 1,000 us): median %.1f us, p99 %.1f us\n", sample.percentile(0.5),
              sample.percentile(0.99));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: zavel_bench DICTIONARY-FOLDER\n");
    return 2;
  }
  const std::string folder = argv[1];
  const Paths paths{folder + "/ej.idx", folder + "/ej.ix3", folder + "/ej.dic"};
  const std::string work = std::filesystem::temp_directory_path().string() + "/zavel-bench-" +
                           std::to_string(std::random_device()());
  std::filesystem::create_directories(work);
  {
    const std::vector<Row> rows = readRows(folder);
    std::printf("%zu rows behind prefixes of three letters; %zu words, %zu rounds\n", rows.size(), kWords,
                kRounds);
    Sqlite sqlite(work + "/rows.sqlite", rows, readFile(paths.dic));
    timeInit(folder);
    if (InitAPI((folder + "/").c_str(), nullptr, nullptr) != 1) return 3;
    raceExact(rows, paths, sqlite);
    raceList(rows, paths, sqlite);
    EndAPI();
    benchController(folder, rows, paths, work);
  }
  std::filesystem::remove_all(work);
  return 0;
}
