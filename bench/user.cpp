// User dictionaries, side by side in one run: the bare limit (the same entries appended to a file), the
// engine, SQLite. For several sizes, so that growth shows; each figure is for one word unless it says
// otherwise. Usage: zavel_user_bench BASIC-FOLDER ENGLISH-WORDS JAPANESE-WORDS WORK-FOLDER
//   ENGLISH-WORDS   one word in a line
//   JAPANESE-WORDS  written form, tab, reading in a line; Shift_JIS
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "engine/EngineAPI.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr size_t kSizes[] = {1000, 10000, 50000};
constexpr size_t kFinds = 1000, kDeletes = 200;

// An entry's headword: English alone, Japanese with its written form.
struct Word {
  std::string word;
  std::string kanji;
};

// What can be done with a user dictionary.
class Contestant {
 public:
  virtual ~Contestant() = default;
  virtual const char* name() const = 0;
  virtual void open(const fs::path& folder) = 0;
  virtual void add(const Word& word) = 0;
  virtual void save() {}  // everything added is on the disk
  virtual size_t find(const Word&) { return 0; }
  virtual void remove(const Word&) {}
  virtual void compact() {}
  virtual void close() = 0;
};

void demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "zavel_user_bench: %s\n", what);
  std::exit(1);
}

std::string textOf(const Word& word) {
  return word.word + '\t' + word.kanji + "\tthe meaning of a word\n";
}

// The same bytes at the end of one file.
class Append : public Contestant {
 public:
  const char* name() const override { return "append to a file"; }
  void open(const fs::path& folder) override {
    fd_ = ::open((folder / "appended").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
    demand(fd_ >= 0, "the file can't be made");
  }
  void add(const Word& word) override {
    const std::string text = textOf(word);
    demand(::write(fd_, text.data(), text.size()) == static_cast<ssize_t>(text.size()), "a write failed");
  }
  void save() override { demand(::fsync(fd_) == 0, "fsync failed"); }
  void close() override { ::close(fd_); }

 private:
  int fd_ = -1;
};

// Opens one user set: a Japanese one beside it would have fewer kanji indexes.
class Engine : public Contestant {
 public:
  Engine(std::string basic, bool english) : basic_(std::move(basic)), english_(english) {}
  const char* name() const override { return "engine"; }
  void open(const fs::path& folder) override {
    prefix_ = folder / "u";
    start();
  }
  void save() override {
    demand(EndAPI() == 1, "EndAPI failed");
    start();
  }
  void close() override { EndAPI(); }

 protected:
  void start() {
    const char* prefix = prefix_.c_str();
    const char* prefixE = english_ ? prefix : nullptr;
    demand(InitAPI(basic_.c_str(), prefixE, english_ ? nullptr : prefix) == 1, "InitAPI failed");
  }

 private:
  std::string basic_, prefix_;
  bool english_;
};

class EngineE : public Engine {
 public:
  explicit EngineE(std::string basic) : Engine(std::move(basic), true) {}
  void add(const Word& word) override {
    std::string text = word.word, imi = "the meaning of a word";
    add_dic_e entry{};
    entry.word = text.data();
    entry.kind = 1;
    entry.hinsi = 1;
    entry.imi = imi.data();
    demand(AddUserDicE(&entry) == 1, "an entry was refused");
  }
  size_t find(const Word& word) override {
    uint16_t count = 0;
    Handle list = nullptr;
    demand(SerchUserDicE(word.word.c_str(), nullptr, &count, &list) == 1, "a search failed");
    GlobalFree(list);
    return count;
  }
  void remove(const Word& word) override {
    uint16_t count = 0;
    Handle list = nullptr;
    demand(SerchUserDicE(word.word.c_str(), nullptr, &count, &list) == 1 && count > 0, "nothing to delete");
    const char* record = static_cast<const char*>(GlobalLock(list));
    sikibetu_data sikibetu;
    std::memcpy(&sikibetu, record + std::strlen(record) + 1 + 17, sizeof sikibetu);
    GlobalFree(list);
    demand(DelUserDicE(&sikibetu) == 1, "a deletion failed");
  }
  void compact() override { demand(ArrangeUserDicE() == 1, "arranging failed"); }
};

class EngineJ : public Engine {
 public:
  explicit EngineJ(std::string basic) : Engine(std::move(basic), false) {}
  void add(const Word& word) override {
    std::string kana = word.word, kanji = word.kanji, imi = "the meaning of a word";
    add_dic_j entry{};
    entry.kana = kana.data();
    entry.kanji = kanji.data();
    entry.imi = imi.data();
    demand(AddUserDicJ(&entry) == 1, "an entry was refused");
  }
  size_t find(const Word& word) override {
    uint16_t count = 0;
    Handle list = nullptr;
    demand(SerchUserDicJ(word.word.c_str(), nullptr, &count, &list) == 1, "a search failed");
    GlobalFree(list);
    return count;
  }
  void remove(const Word& word) override {
    uint16_t count = 0;
    Handle list = nullptr;
    demand(SerchUserDicJ(word.word.c_str(), nullptr, &count, &list) == 1 && count > 0, "nothing to delete");
    const char* record = static_cast<const char*>(GlobalLock(list));
    const char* fields = record + std::strlen(record) + 1;
    fields += std::strlen(fields) + 1 + 16;
    sikibetu_data kana, kanji;
    std::memcpy(&kana, fields, sizeof kana);
    std::memcpy(&kanji, fields + sizeof kana, sizeof kanji);
    GlobalFree(list);
    demand(DelUserDicJ(&kana, &kanji) == 1, "a deletion failed");
  }
  void compact() override { demand(ArrangeUserDicJ() == 1, "arranging failed"); }
};

// One table with an index on each form of the word; every save a transaction.
class Sqlite : public Contestant {
 public:
  const char* name() const override { return "SQLite"; }
  void open(const fs::path& folder) override {
    demand(sqlite3_open((folder / "sqlite").c_str(), &db_) == SQLITE_OK, "SQLite can't open");
    execute("CREATE TABLE entry (word TEXT, kanji TEXT, imi TEXT)");
    execute("CREATE INDEX byword ON entry (word)");
    execute("CREATE INDEX bykanji ON entry (kanji)");
    insert_ = prepare("INSERT INTO entry VALUES (?, ?, 'the meaning of a word')");
    select_ = prepare("SELECT rowid, imi FROM entry WHERE word = ?");
    delete_ = prepare("DELETE FROM entry WHERE rowid = (SELECT rowid FROM entry WHERE word = ? LIMIT 1)");
    execute("BEGIN");
  }
  void add(const Word& word) override {
    bind(insert_, 1, word.word);
    bind(insert_, 2, word.kanji);
    sqlite3_step(insert_);
    sqlite3_reset(insert_);
  }
  void save() override {
    execute("COMMIT");
    execute("BEGIN");
  }
  size_t find(const Word& word) override {
    size_t count = 0;
    bind(select_, 1, word.word);
    while (sqlite3_step(select_) == SQLITE_ROW) count += sqlite3_column_text(select_, 1) != nullptr;
    sqlite3_reset(select_);
    return count;
  }
  void remove(const Word& word) override {
    bind(delete_, 1, word.word);
    sqlite3_step(delete_);
    sqlite3_reset(delete_);
  }
  void compact() override {
    execute("COMMIT");
    execute("VACUUM");
    execute("BEGIN");
  }
  void close() override {
    execute("COMMIT");
    for (sqlite3_stmt* statement : {insert_, select_, delete_}) sqlite3_finalize(statement);
    sqlite3_close(db_);
  }

 private:
  void execute(const char* sql) {
    demand(sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
  }
  sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    demand(sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    return statement;
  }
  static void bind(sqlite3_stmt* statement, int number, const std::string& text) {
    sqlite3_bind_blob(statement, number, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt *insert_ = nullptr, *select_ = nullptr, *delete_ = nullptr;
};

// Microseconds that `work` took.
double timed(const std::function<void()>& work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

uintmax_t bytesIn(const fs::path& folder) {
  uintmax_t bytes = 0;
  for (const auto& file : fs::directory_iterator(folder)) bytes += file.file_size();
  return bytes;
}

void measure(Contestant& contestant, const std::vector<Word>& words, size_t size, const fs::path& folder) {
  fs::remove_all(folder);
  fs::create_directories(folder);
  contestant.open(folder);
  const double added = timed([&] {
    for (size_t i = 0; i < size; ++i) contestant.add(words[i]);
  });
  const double saved = timed([&] { contestant.save(); });
  std::mt19937 random(20);
  std::vector<size_t> chosen(kFinds);
  for (size_t& word : chosen) word = random() % size;
  size_t found = 0;
  const double finding = timed([&] {
    for (const size_t word : chosen) found += contestant.find(words[word]);
  });
  const double deleting = timed([&] {
    for (size_t i = 0; i < kDeletes; ++i) contestant.remove(words[i * (size / kDeletes)]);
  });
  contestant.save();
  const uintmax_t before = bytesIn(folder);
  const double compacting = timed([&] { contestant.compact(); });
  contestant.close();
  std::printf("%-18s %7zu %9.1f %9.1f %9.1f %9.1f %11.1f %10.2f %10.2f %8zu\n", contestant.name(), size,
              added / static_cast<double>(size), saved / 1000, finding / kFinds, deleting / kDeletes,
              compacting / 1000, static_cast<double>(before) / 1e6,
              static_cast<double>(bytesIn(folder)) / 1e6, found);
  std::fflush(stdout);
}

void race(const char* title, std::vector<Contestant*> contestants, const std::vector<Word>& words,
          const fs::path& work) {
  std::printf("\n%s\n%-18s %7s %9s %9s %9s %9s %11s %10s %10s %8s\n", title, "", "entries", "add us",
              "save ms", "find us", "delete us", "compact ms", "MB before", "MB after", "found");
  for (const size_t size : kSizes) {
    if (size > words.size()) continue;
    for (Contestant* contestant : contestants) measure(*contestant, words, size, work / "set");
  }
  fs::remove_all(work / "set");
}

std::vector<Word> readWords(const char* path) {
  std::vector<Word> words;
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) {
    const size_t tab = line.find('\t');
    if (tab == std::string::npos) {
      words.push_back({line, ""});
    } else {
      words.push_back({line.substr(tab + 1), line.substr(0, tab)});
    }
  }
  return words;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fprintf(stderr, "Usage: zavel_user_bench BASIC-FOLDER ENGLISH-WORDS JAPANESE-WORDS WORK-FOLDER\n");
    return 2;
  }
  const std::string basic = std::string(argv[1]) + "/";
  Append append;
  EngineE engineE(basic);
  EngineJ engineJ(basic);
  Sqlite sqlite;
  race("User dictionary, English", {&append, &engineE, &sqlite}, readWords(argv[2]), argv[4]);
  race("User dictionary, Japanese", {&append, &engineJ, &sqlite}, readWords(argv[3]), argv[4]);
}
