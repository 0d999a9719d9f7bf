// `zavel book info`. Tests: tests/zavel/book/BookCommandTest.cpp
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookFailure.h"
#include "book/BookFormat.h"
#include "book/BookOptions.h"
#include "book/BookStatus.h"
#include "book/SDic.h"
#include "book/ShelvedBook.h"

namespace zavel::host {
namespace {

struct MethodName {
  uint32_t bit;
  const char* key;   // of JSON, and of --method
  const char* name;  // for the eye
};

constexpr MethodName kMethods[] = {{book::kMethodExact, "exact", "whole words"},
                                   {book::kMethodForward, "forward", "beginnings"},
                                   {book::kMethodBackward, "backward", "ends"},
                                   {book::kMethodKeyword, "keyword", "keywords"},
                                   {book::kMethodCross, "cross", "all words of the texts"},
                                   {book::kMethodMulti, "multi", "forms"},
                                   {book::kMethodMenu, "menu", "menu"},
                                   {book::kMethodColorMenu, "color_menu", "colour menu"}};

constexpr uint16_t kColourPictures = 2, kSounds = 3;  // data types of addresses

struct Info {
  std::string title, publisher;
  int32_t version = 1;
  uint32_t identity = 0, specHigh = 0, specLow = 0, contentType = 0, methods = 0;
  uint32_t firstBlock = 0, lastBlock = 0;
  uint16_t forms = 0, full = 0, half = 0;
  bool sounds = false, colourPictures = false, whole = false;
  uint64_t bytes = 0;
};

uint64_t bytesIn(const std::string& folder) {
  uint64_t bytes = 0;
  std::error_code error;
  for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    std::error_code none;
    const uint64_t size = at->is_regular_file(none) ? at->file_size(none) : 0;
    if (!none) bytes += size;
  }
  return bytes;
}

std::string publisherOf(void* handle) {
  char* text = nullptr;
  uint32_t length = 0;
  if (SDicGetPublisherInfo(handle, &text, &length) != book::kDone) return {};
  const std::string bytes = text;
  std::free(text);
  return foreignText(bytes);
}

Info infoOf(const ShelvedBook& book) {
  Info info;
  void* const handle = book.handle();
  info.title = book.title();
  info.publisher = publisherOf(handle);
  info.version = SDicGetPublisherVersion(handle);
  info.identity = SDicGetDicID(handle);
  SDicGetDataSpecVersion(handle, &info.specHigh, &info.specLow);
  SDicGetContentType(handle, &info.contentType);
  SDicGetHonbunBlockInformation(handle, &info.firstBlock, &info.lastBlock);
  info.methods = book.methods();
  SDicGetMultiSearchCount(handle, &info.forms);
  info.full = SDicCustomCharCodeNumber(handle, true);
  info.half = SDicCustomCharCodeNumber(handle, false);
  const _SDICADDRESS text = {info.firstBlock, 0};
  info.sounds = book.has(text, kSounds);
  info.colourPictures = book.has(text, kColourPictures);
  info.whole = SDicIsZenbunSearch(handle);
  info.bytes = bytesIn(book.place().folder);
  return info;
}

void printJson(const BookPlace& place, const Info& info) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("name", place.name).member("title", info.title);
  json.member("folder", place.folder).member("catalog", place.catalog);
  json.member("identity", int64_t{info.identity}).key("publisher");
  if (info.publisher.empty()) {
    json.null();
  } else {
    json.string(info.publisher);
  }
  json.member("publisher_version", int64_t{info.version});
  json.key("data_version").beginObject().member("major", int64_t{info.specHigh});
  json.member("minor", int64_t{info.specLow}).endObject();
  json.member("content_type", int64_t{info.contentType});
  json.key("methods").beginArray();
  for (const MethodName& method : kMethods) {
    if ((info.methods & method.bit) != 0) json.string(method.key);
  }
  json.endArray().member("forms", int64_t{info.forms});
  json.key("custom_characters").beginObject().member("full_width", int64_t{info.full});
  json.member("half_width", int64_t{info.half}).endObject();
  json.key("sounds").boolean(info.sounds).key("color_pictures").boolean(info.colourPictures);
  json.key("readable_through").boolean(info.whole);
  json.key("text").beginObject().member("first_block", int64_t{info.firstBlock});
  json.member("last_block", int64_t{info.lastBlock}).endObject();
  json.member("bytes", static_cast<int64_t>(info.bytes)).endObject();
  std::printf("%s\n", json.text().c_str());
}

std::string methodNames(const Info& info) {
  std::string names;
  for (const MethodName& method : kMethods) {
    if ((info.methods & method.bit) != 0) names += (names.empty() ? "" : ", ") + std::string(method.name);
  }
  if (info.sounds) names += ", sounds";
  if (info.colourPictures) names += ", colour pictures";
  return names;
}

void printText(const BookPlace& place, const Info& info) {
  std::vector<std::pair<const char*, std::string>> rows = {
      {"title", info.title},
      {"name", printable(place.name)},
      {"catalog", printable(place.catalog)},
      {"publisher", info.publisher},
      {"version", std::to_string(info.version)},
      {"identity", std::to_string(info.identity)},
      {"has", methodNames(info)},
      {"custom characters",
       std::to_string(info.full) + " full-width, " + std::to_string(info.half) + " half-width"},
      {"text", "blocks " + std::to_string(info.firstBlock) + " to " + std::to_string(info.lastBlock)},
      {"size", std::to_string((info.bytes + 512 * 1024) / (1024 * 1024)) + " MiB"},
  };
  if (info.bytes < 1024 * 1024) rows.back().second = std::to_string((info.bytes + 1023) / 1024) + " KiB";
  for (const auto& [name, value] : rows) {
    if (!value.empty()) std::printf("%-17s  %s\n", name, value.c_str());
  }
}

}  // namespace

int runBookInfo(const BookOptions& options) {
  BookPlace place;
  Failure failure = findBook(options.book, &place);
  ShelvedBook book;
  if (!failure) failure = book.open(place);
  if (failure) return report(failure, options.json);
  const Info info = infoOf(book);
  if (options.json) {
    printJson(place, info);
  } else {
    printText(place, info);
  }
  const Failure incomplete = book.incomplete();
  if (incomplete) report(incomplete, false);
  return incomplete.status;
}

}  // namespace zavel::host
