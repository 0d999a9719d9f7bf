// A book under test, reached as a host reaches it.
#ifndef TESTS_BOOK_OPENBOOK_H
#define TESTS_BOOK_OPENBOOK_H

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "book/BookStatus.h"
#include "book/SDic.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::test {

// Writes the book into a folder of its own and opens it.
class OpenBook {
 public:
  explicit OpenBook(const BookWriter& writer, const char* altDir = nullptr, bool keepMissingSound = false,
                    bool skipHonbunCheck = false) {
    status =
        SDicOpenDictionary(writer.write(folder).c_str(), &handle, altDir, keepMissingSound, skipHonbunCheck);
  }
  ~OpenBook() { SDicCloseDictionary(handle); }
  OpenBook(const OpenBook&) = delete;
  OpenBook& operator=(const OpenBook&) = delete;

  // "ok:" and the bodies of the hits as "block/offset", or the code: "80041009". `query` is UTF-8.
  std::string search(std::string_view query) {
    long count = -1, first = -1;
    const uint32_t code = SDicExecIndexSearch(handle, jis(query).c_str(), false, false, &count, &first);
    if (code != 0) return hex(code);
    firstHit = first;
    std::string found = "ok:";
    for (long i = 0; i < count; ++i) {
      _SDICITEMADDRESS hit{};
      if (SDicGetSearchResult(handle, static_cast<unsigned long>(i), &hit) != 0) return found + " failed";
      found += " " + show(hit.body);
      headwords.push_back(show(hit.headword));
    }
    return found;
  }

  std::string headword(uint32_t block, uint32_t offset, bool plain = false) {
    const _SDICADDRESS at = {block, offset};
    char* text = nullptr;
    uint16_t length = 0;
    const uint32_t code = SDicGetHeadword(handle, &at, &text, &length, plain);
    if (code != 0) return hex(code);
    std::string found(text, length);
    std::free(text);
    return found;
  }

  std::string body(uint32_t block, uint32_t offset) {
    const _SDICADDRESS at = {block, offset};
    char* text = nullptr;
    uint32_t length = 0;
    const uint32_t code = SDicGetBodyData(handle, &at, &text, &length);
    if (code != 0) return hex(code);
    std::string found(text, length);
    std::free(text);
    return found;
  }

  using Step = uint32_t (*)(void*, const _SDICADDRESS*, _SDICADDRESS*);
  std::string go(Step step, uint32_t block, uint32_t offset) {
    const _SDICADDRESS at = {block, offset};
    _SDICADDRESS found{};
    const uint32_t code = step(handle, &at, &found);
    return code != 0 ? hex(code) : show(found);
  }
  std::string next(uint32_t block, uint32_t offset) { return go(SDicGetNextEntryAddress, block, offset); }
  std::string prev(uint32_t block, uint32_t offset) { return go(SDicGetPrevEntryAddress, block, offset); }

  std::string read(uint32_t block, uint32_t offset, uint32_t size) {
    const _SDICADDRESS at = {block, offset};
    char* bytes = nullptr;
    const uint32_t code = SDicReadData(handle, &at, size, &bytes);
    if (code != 0) return hex(code);
    std::string found(bytes, size);
    std::free(bytes);
    return found;
  }

  uint32_t methods() {
    uint32_t found = 0;
    return SDicGetAvailableMethods(handle, &found) == 0 ? found : 0xFFFFFFFF;
  }

  static std::string show(const _SDICADDRESS& at) {
    return std::to_string(at.block) + "/" + std::to_string(at.offset);
  }
  static std::string hex(uint32_t code) {
    char text[16];
    std::snprintf(text, sizeof text, "%08X", code);
    return text;
  }

  TempFolder folder;
  void* handle = nullptr;
  uint32_t status = 0;
  long firstHit = 0;
  std::vector<std::string> headwords;  // of all searches so far
};

}  // namespace zavel::test

#endif
