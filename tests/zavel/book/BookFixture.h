// A root with small books in it, and the program that works there.
#ifndef TESTS_ZAVEL_BOOK_BOOKFIXTURE_H
#define TESTS_ZAVEL_BOOK_BOOKFIXTURE_H

#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/BookWriter.h"
#include "support/TempFolder.h"
#include "zavel/Command.h"

namespace zavel::test {

class BookFixture : public testing::Test {
 protected:
  std::string root() const { return folder_.path() + "/root"; }
  std::string file(const std::string& name) const { return folder_.file(name); }
  std::string bookFile(const std::string& book, const std::string& name) const {
    return root() + "/books/" + book + "/" + name;
  }

  // A book of these files among the books.
  void put(const std::string& book, const std::map<std::string, std::string>& files) const;

  // "pets": the entries "cat" at 1:2, "dog" at 1:46, "hot dog" at 1:76, "né", which has a custom character,
  // at 1:114; they are found whole, by beginnings and by ends, and "cat" leads to "dog".
  void putPets(const std::string& book = "pets") const;
  // "small": support/SmallBook.
  void putSmall() const;

  Command zavel(std::vector<std::string> arguments) const;
  Outcome book(std::vector<std::string> arguments) const;  // zavel book ...
  nlohmann::json json(std::vector<std::string> arguments) const;

  TempFolder folder_;
};

// Status, then what stands on each stream.
std::string told(const Outcome& outcome);

}  // namespace zavel::test

#endif
