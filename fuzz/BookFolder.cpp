#include "BookFolder.h"

#include "book/SDic.h"
#include "support/SmallBook.h"

namespace zavel::fuzz {

const std::map<std::string, std::string>& baseBook() {
  static const std::map<std::string, std::string> files = zavel::test::smallBook();
  return files;
}

BookFolder::BookFolder(const std::map<std::string, std::string>& exchanged) {
  for (const auto& [name, content] : baseBook()) disk_.files["d/" + name] = content;
  for (const auto& [name, content] : exchanged) disk_.files["d/" + name] = content;
  SDicOpenDictionary("d/BOOK", &handle_, nullptr, false, true);
}

BookFolder::~BookFolder() {
  SDicCloseDictionary(handle_);
}

}  // namespace zavel::fuzz
