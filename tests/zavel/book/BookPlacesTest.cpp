#include "book/BookPlaces.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/EnvironmentVariable.h"
#include "support/TempFolder.h"

namespace zavel::host {
namespace {

using test::EnvironmentVariable;

constexpr const char* kCatalog = "HWEDINFO and more";

// Folders of books of a user's own and of two for all, reached through variables.
class BookPlacesTest : public testing::Test {
 protected:
  void book(const std::string& folder, const std::string& name = "BOOK.CAT", const char* bytes = kCatalog) {
    std::filesystem::create_directories(folder_.file(folder));
    folder_.write(folder + "/" + name, bytes);
  }

  std::string names() {
    std::string out;
    for (const BookPlace& place : listBooks()) {
      out += place.name + "=" + place.catalog.substr(folder_.path().size() + 1) + " ";
    }
    return out;
  }
  std::string found(const std::string& given) {
    BookPlace place;
    const Failure failure = findBook(given, &place);
    return failure ? failure.code + ": " + failure.message + " | " + failure.hint : place.catalog;
  }

  test::TempFolder folder_;
  EnvironmentVariable root_{"ZAVEL_ROOT", nullptr};
  EnvironmentVariable data_{"XDG_DATA_HOME", folder_.file("data").c_str()};
  EnvironmentVariable dirs_{"XDG_DATA_DIRS",
                            (folder_.file("first") + ":" + folder_.file("second") + ":rel").c_str()};
};

TEST_F(BookPlacesTest, Folders) {
  EXPECT_EQ(booksFolder(), folder_.file("data/zavel/books"));
  EXPECT_EQ(bookFolders(),
            (std::vector<std::string>{folder_.file("data/zavel/books"), folder_.file("first/zavel/books"),
                                      folder_.file("second/zavel/books")}));
}

TEST_F(BookPlacesTest, ARootHasAll) {
  const EnvironmentVariable root("ZAVEL_ROOT", folder_.file("root").c_str());
  EXPECT_EQ(bookFolders(), std::vector<std::string>{folder_.file("root/books")});
}

TEST_F(BookPlacesTest, TheMachinesFoldersByDefault) {
  const EnvironmentVariable dirs("XDG_DATA_DIRS", "");
  EXPECT_EQ(bookFolders(),
            (std::vector<std::string>{folder_.file("data/zavel/books"), "/usr/local/share/zavel/books",
                                      "/usr/share/zavel/books"}));
}

TEST_F(BookPlacesTest, OneFolderIsOneBookAndTheFirstOfANameIsMeant) {
  book("first/zavel/books/cats");
  book("second/zavel/books/cats");
  book("second/zavel/books/ants");
  book("data/zavel/books/dogs");
  EXPECT_EQ(names(),
            "ants=second/zavel/books/ants/BOOK.CAT cats=first/zavel/books/cats/BOOK.CAT "
            "dogs=data/zavel/books/dogs/BOOK.CAT ");
  EXPECT_EQ(found("cats"), folder_.file("first/zavel/books/cats/BOOK.CAT"));
}

TEST_F(BookPlacesTest, WhatIsNoBook) {
  book("data/zavel/books/.dogs.new");
  book("data/zavel/books/notes", "README", "words");
  folder_.write("data/zavel/books/file", kCatalog);
  std::filesystem::create_directories(folder_.file("data/zavel/books/empty"));
  EXPECT_EQ(names(), "");
}

TEST_F(BookPlacesTest, TheCatalogIsFoundByWhatItBeginsWith) {
  book("data/zavel/books/dogs", "ZOO");
  book("data/zavel/books/dogs", "BODY.DAT", "body");
  EXPECT_EQ(names(), "dogs=data/zavel/books/dogs/ZOO ");
}

TEST_F(BookPlacesTest, ADamagedCatalogIsStillTheBooks) {
  book("data/zavel/books/cats", "BOOK.CAT", "");
  book("data/zavel/books/dogs", "dog.cat", "nothing");
  EXPECT_EQ(names(), "cats=data/zavel/books/cats/BOOK.CAT dogs=data/zavel/books/dogs/dog.cat ");
}

TEST_F(BookPlacesTest, PathsOfFoldersAndCatalogs) {
  book("elsewhere/dogs");
  EXPECT_EQ(found(folder_.file("elsewhere/dogs")), folder_.file("elsewhere/dogs/BOOK.CAT"));
  EXPECT_EQ(found(folder_.file("elsewhere/dogs/")), folder_.file("elsewhere/dogs/BOOK.CAT"));
  EXPECT_EQ(found(folder_.file("elsewhere/dogs/BOOK.CAT")), folder_.file("elsewhere/dogs/BOOK.CAT"));
}

TEST_F(BookPlacesTest, ANameIsMeantAheadOfAFolderHere) {
  book("data/zavel/books/dogs");
  book("here/dogs");
  book("here/cats");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.file("here"));
  EXPECT_EQ(found("dogs"), folder_.file("data/zavel/books/dogs/BOOK.CAT"));
  EXPECT_EQ(found("./dogs"), folder_.file("here/dogs/BOOK.CAT"));
  EXPECT_EQ(found("cats"), folder_.file("here/cats/BOOK.CAT"));
  std::filesystem::current_path(before);
}

TEST_F(BookPlacesTest, NoSuchBook) {
  EXPECT_EQ(found("dogs"), "no_such_book: there is no book \"dogs\", and none in " +
                               folder_.file("data/zavel/books") + " | Make one: zavel book build");
  book("data/zavel/books/wordnet");
  EXPECT_EQ(found("wordnt"), "no_such_book: there is no book \"wordnt\" | Did you mean: wordnet");
  EXPECT_EQ(found("x"),
            "no_such_book: there is no book \"x\" | See which there are: zavel book list. Make one: zavel "
            "book build");
  EXPECT_EQ(found(folder_.path()),
            "no_such_book: there is no book in the folder " + folder_.path() +
                " | Name the folder that holds the book's catalog, or the catalog itself.");
  EXPECT_TRUE(found("").starts_with("no_such_book: "));
}

TEST_F(BookPlacesTest, AllOrThoseThatAreGivenEachOnce) {
  std::vector<BookPlace> places;
  EXPECT_EQ(chooseBooks({}, &places).code, "no_book");
  book("data/zavel/books/cats");
  book("data/zavel/books/dogs");
  EXPECT_FALSE(chooseBooks({}, &places));
  EXPECT_EQ(places.size(), 2u);
  places.clear();
  EXPECT_FALSE(chooseBooks({"dogs", folder_.file("data/zavel/books/dogs"), "cats", "dogs"}, &places));
  ASSERT_EQ(places.size(), 2u);
  EXPECT_EQ(places[0].name, "dogs");
  EXPECT_EQ(places[1].name, "cats");
  EXPECT_EQ(chooseBooks({"cats", "mice"}, &places).code, "no_such_book");
}

TEST_F(BookPlacesTest, Names) {
  EXPECT_TRUE(isBookName("wordnet"));
  EXPECT_TRUE(isBookName("国語 辞典"));
  for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                                  std::string(".new"), std::string("a\0b", 3)}) {
    EXPECT_FALSE(isBookName(name)) << name;
  }
}

}  // namespace
}  // namespace zavel::host
