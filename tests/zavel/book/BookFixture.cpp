#include "zavel/book/BookFixture.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "support/SmallBook.h"

namespace zavel::test {
namespace {

const std::string kKeyFlags("\0\x31\x7F\x7F", 4);
const std::string kCustom = "\xA1\x21";  // é

std::string reversed(const std::string& codes) {
  std::string out;
  for (size_t at = codes.size(); at >= 2; at -= 2) out += codes.substr(at - 2, 2);
  return out;
}

// Leaves in the order of their keys, closed as every index is.
std::string index(std::vector<std::pair<std::string, std::string>> keys, bool twice) {
  std::sort(keys.begin(), keys.end());
  IndexBlock leaf(0xA0);
  for (const auto& [key, at] : keys) leaf.leaf(key, at, twice ? at : "");
  return leaf.bytes();
}

std::string petsText() {
  Text text;
  text.begin();
  text.indent(1).word(0x1F41).word(0x0100).word(0x1F04).chars("cat").word(0x1F05).word(0x1F61).feed();
  text.indent(3).chars("猫").word(0x1F42).word(0x0100).chars("犬").word(0x1F62).address(1, 46).feed();
  text.indent(1).word(0x1F41).word(0x0100).word(0x1F04).chars("dog").word(0x1F05).word(0x1F61).feed();
  text.indent(3).chars("犬").feed();
  text.indent(1).word(0x1F41).word(0x0100).word(0x1F04).chars("hot dog").word(0x1F05).word(0x1F61).feed();
  text.indent(3).chars("腸").feed();
  text.indent(1)
      .word(0x1F41)
      .word(0x0100)
      .word(0x1F04)
      .chars("n")
      .raw(kCustom)
      .word(0x1F05)
      .word(0x1F61)
      .feed();
  text.indent(3).chars("生").feed();
  return text.end().bytes();
}

}  // namespace

void BookFixture::put(const std::string& book, const std::map<std::string, std::string>& files) const {
  std::filesystem::create_directories(root() + "/books/" + book);
  for (const auto& [name, bytes] : files) folder_.write("root/books/" + book + "/" + name, bytes);
}

void BookFixture::putPets(const std::string& book) const {
  const std::map<std::string, std::string> places = {{jis("cat"), place(1, 2)},
                                                     {jis("dog"), place(1, 46)},
                                                     {jis("hotdog"), place(1, 76)},
                                                     {jis("n") + kCustom, place(1, 114)},
                                                     {jis("ne"), place(1, 114)}};
  std::vector<std::pair<std::string, std::string>> keys(places.begin(), places.end()), ends;
  for (const auto& [key, at] : places) ends.emplace_back(reversed(key), at);
  const std::vector<std::pair<uint16_t, std::string>> regions = {
      {0x00, petsText()}, {0x60, index(keys, false)}, {0x91, index(keys, true)}, {0x71, index(ends, true)}};
  BookWriter writer;
  writer.title = "Pets";
  std::map<std::string, std::string> files;
  uint32_t block = 1;
  for (const auto& [kind, bytes] : regions) {
    const std::string name = "r" + std::to_string(block);
    writer.record({kind, block, block, kind == 0 ? std::string(4, '\0') : kKeyFlags, name});
    files[name] = packed(bytes);
    ++block;
  }
  files["BOOK.CAT"] = writer.catalog();
  files["BOOK.UNI"] = be32(0) + be32(1) + be16(0xA121) + be16(0) + be32(0xE9) + be32(0xE9);
  put(book, files);
}

void BookFixture::putSmall() const {
  put("small", smallBook());
}

Command BookFixture::zavel(std::vector<std::string> arguments) const {
  return Command(std::move(arguments)).env("ZAVEL_ROOT", root());
}

Outcome BookFixture::book(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), "book");
  return zavel(std::move(arguments)).run();
}

nlohmann::json BookFixture::json(std::vector<std::string> arguments) const {
  arguments.push_back("--json");
  const Outcome outcome = book(std::move(arguments));
  return nlohmann::json::parse(outcome.out);
}

std::string told(const Outcome& outcome) {
  return std::to_string(outcome.status) + "|" + outcome.out + "|" + outcome.err;
}

}  // namespace zavel::test
