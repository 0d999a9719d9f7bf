// Walks one index from its first table to the last row of its last block and checks each step.
#ifndef MKDICT_INDEXCHECK_H
#define MKDICT_INDEXCHECK_H

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "mkdict/Faults.h"
#include "mkdict/Progress.h"

namespace zavel::mkdict {

class IndexCheck {
 public:
  // A sound row: its key, the entry it leads to, and where the entry's offset stands in the .ix3 file.
  using OnRow = std::function<void(const std::string& key, uint32_t entry, uint64_t at)>;

  // `stem` names the files: "ej" for ej.idx and ej.ix3. The bytes are borrowed.
  IndexCheck(uint16_t type, const std::string& stem, std::string_view idx, std::string_view ix3,
             Faults* faults)
      : type_(type),
        idxName_(stem + ".idx"),
        ix3Name_(stem + ".ix3"),
        idx_(idx),
        ix3_(ix3),
        faults_(faults) {}

  // Calls `onRow` for every sound row, in the order of the file. Faulty parts are reported and passed over,
  // so are rows of a table and blocks that were walked before: no damage makes the walk longer than the
  // files.
  void run(const OnRow& onRow);

  size_t blocks() const { return blocks_; }
  size_t rows() const { return rows_; }
  uint64_t deadBytes() const { return ix3_.size() - coveredBytes_; }  // of the .ix3 file

 private:
  struct Table {
    char name = 'A';
    size_t keySize = 0, rowSize = 0;
    size_t rowsAt = 0, rows = 0;  // where its rows stand, and how many
    size_t walked = 0;            // of the next table's rows, those that belong to rows before
  };

  bool readTables();
  bool readTable(char name, size_t keySize, size_t valueSize, size_t* at);
  int compareKeys(const Table& table, size_t a, size_t b) const;
  uint32_t value(const Table& table, size_t row) const;
  uint64_t rowAt(const Table& table, size_t row) const { return table.rowsAt + row * table.rowSize; }
  void fault(uint64_t offset, const std::string& message) { faults_->add(idxName_, offset, message); }

  void walk(size_t table, size_t begin, size_t end, const std::string& prefix, const OnRow& onRow);
  bool children(size_t table, size_t row, size_t* begin, size_t* end);
  void block(uint64_t at, const std::string& prefix, const OnRow& onRow);
  bool cover(uint64_t begin, uint64_t end);
  bool blockHead(uint64_t at, size_t* rows, size_t* size);

  uint16_t type_;
  std::string idxName_, ix3Name_;
  std::string_view idx_, ix3_;  // borrowed
  Faults* faults_;              // borrowed
  std::vector<Table> tables_;   // from the first to table C
  size_t blocks_ = 0, rows_ = 0;
  std::map<uint64_t, uint64_t> covered_;  // end of each walked block by its beginning; none overlap
  uint64_t coveredBytes_ = 0;
};

}  // namespace zavel::mkdict

#endif
