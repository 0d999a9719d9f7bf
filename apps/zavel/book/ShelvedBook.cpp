// Tests: tests/zavel/book/BookCommandTest.cpp
#include "book/ShelvedBook.h"

#include <cstdlib>
#include <filesystem>
#include <optional>

#include "Utf8.h"
#include "book/BookFailure.h"
#include "book/BookFiles.h"
#include "book/BookFormat.h"
#include "book/BookStatus.h"
#include "book/SDic.h"
#include "foundation/Storage.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

constexpr size_t kLargestFile = size_t{64} << 20;

bool readNumber(std::string_view digits, uint32_t* number) {
  constexpr size_t kMostDigits = 10;
  if (digits.empty() || digits.size() > kMostDigits ||
      digits.find_first_not_of("0123456789") != std::string_view::npos)
    return false;
  const unsigned long long value = std::strtoull(std::string(digits).c_str(), nullptr, 10);
  *number = static_cast<uint32_t>(value);
  return value <= UINT32_MAX;
}

}  // namespace

ShelvedBook::~ShelvedBook() {
  SDicCloseDictionary(handle_);
}

// A file that is no book opens with success and answers nothing.
Failure ShelvedBook::open(const BookPlace& place) {
  place_ = place;
  SDicCloseDictionary(handle_);
  handle_ = nullptr;
  characters_.reset();
  const uint32_t code = SDicOpenDictionary(place.catalog.c_str(), &handle_, nullptr, false, false);
  if (code != book::kDone) return openFailure(code, place.name, place.catalog);
  uint32_t methods = 0;
  if (SDicGetAvailableMethods(handle_, &methods) == book::kNotOpen)
    return noCatalog(place.name, place.catalog);
  return {};
}

std::string ShelvedBook::title() const {
  const char* const title = SDicGetDicName(handle_);
  const std::string text = title ? withoutControls(platform().encoding().fromSjisLossy(title)) : "";
  return text.empty() ? printable(place_.name) : text;
}

uint32_t ShelvedBook::methods() const {
  uint32_t methods = 0;
  SDicGetAvailableMethods(handle_, &methods);
  return methods;
}

// A book without a table has no custom characters that could be written.
const BookCharacters& ShelvedBook::characters() {
  if (!characters_) characters_.emplace(bytesOf(tablePath(place_.catalog)).value_or(""));
  return *characters_;
}

Failure ShelvedBook::incomplete() const {
  const std::vector<std::string> missing = missingFiles(place_.catalog);
  return missing.empty() ? Failure() : lackingFiles(place_.name, missing);
}

bool ShelvedBook::has(const _SDICADDRESS& address, uint16_t type) const {
  const _SDICADDRESS real = {address.block + static_cast<uint32_t>(address.offset >> book::kBlockShift),
                             static_cast<uint32_t>(address.offset & book::kBlockMask)};
  return SDicIsValidAddress(handle_, &real, type) == book::kDone;
}

Failure ShelvedBook::noSuchPlace(const _SDICADDRESS& address) const {
  Failure failure = bookFailure(book::kInvalidAddress, place_.name, "");
  failure.message = "the book " + quoted(place_.name) + " has nothing at " + placeText(address);
  return failure;
}

std::optional<std::string> bytesOf(const std::string& path) {
  std::error_code error;
  std::string bytes;
  // A pipe would keep its reader waiting.
  if (!std::filesystem::is_regular_file(path, error) || !readWholeFile(path, kLargestFile, &bytes))
    return std::nullopt;
  return bytes;
}

// EUC-JP ahead of Shift_JIS: what is Shift_JIS is hardly ever sound EUC-JP, while the reverse is common.
std::string foreignText(const std::string& bytes) {
  if (isUtf8(bytes)) return printable(bytes);
  const TextEncoding& encoding = platform().encoding();
  const std::optional<std::string> euc = encoding.toUtf8Strict(bytes, Encoding::kEucJp);
  return printable(euc ? *euc : encoding.fromSjisLossy(bytes));
}

std::string placeText(const _SDICADDRESS& address) {
  return std::to_string(address.block) + ":" + std::to_string(address.offset);
}

bool readPlace(const std::string& text, _SDICADDRESS* address) {
  const size_t colon = text.find(':');
  return colon != std::string::npos && readNumber(std::string_view(text).substr(0, colon), &address->block) &&
         readNumber(std::string_view(text).substr(colon + 1), &address->offset);
}

}  // namespace zavel::host
