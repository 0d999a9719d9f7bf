// Text goes through iconv in as long pieces as convert; only where a piece ends is a single character
// looked at. Tests: tests/port/IconvTextEncodingTest.cpp
#include "base/IconvTextEncoding.h"

#include <errno.h>

#include <algorithm>
#include <cstdint>

#include "foundation/Utf8.h"
#include "platform/Log.h"

namespace zavel {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
const iconv_t kNoHandle = reinterpret_cast<iconv_t>(-1);

// Bytes given to iconv at once. It may read far beyond a character that doesn't convert, and room for its
// answer is made beforehand, so that behind each such character it gets little until it gets on again. The
// smallest piece is longer than any character.
constexpr size_t kSmallestPiece = 64;
constexpr size_t kLargestPiece = 65536;

// Characters that iconv takes for something else or drops without a word, though code page 932 lacks
// them: the yen sign (0x5C), the overline (0x7E), the tag characters U+E0000 to U+E007F (nothing).
bool beginsRefused(std::string_view utf8) {
  return utf8.starts_with("\xC2\xA5") || utf8.starts_with("\xE2\x80\xBE") ||
         utf8.starts_with("\xF3\xA0\x80") || utf8.starts_with("\xF3\xA0\x81");
}

// Place of the first of these in `utf8`, its size when there is none.
size_t findRefused(std::string_view utf8) {
  for (size_t i = 0; i < utf8.size(); ++i) {
    const uint8_t byte = static_cast<uint8_t>(utf8[i]);
    if ((byte == 0xC2 || byte == 0xE2 || byte == 0xF3) && beginsRefused(utf8.substr(i))) return i;
  }
  return utf8.size();
}

std::string_view withoutMark(std::string_view bytes, std::string_view mark) {
  return bytes.substr(0, mark.size()) == mark ? bytes.substr(mark.size()) : bytes;
}

// All of `bytes` through `handle`, with U+FFFD for each `unit` bytes that don't convert; nothing for such
// bytes when not `lossy`.
std::optional<std::string> decodeAll(IconvHandle& handle, std::string_view bytes, size_t unit, bool lossy) {
  std::string out;
  for (;;) {
    bytes.remove_prefix(handle.convert(bytes, &out));
    if (bytes.empty()) return out;
    if (!lossy) return std::nullopt;
    out += kReplacement;
    bytes.remove_prefix(std::min(unit, bytes.size()));
  }
}

}  // namespace

IconvHandle::~IconvHandle() {
  if (opened_ && handle_ != kNoHandle) ::iconv_close(handle_);
}

bool IconvHandle::open() {
  if (!opened_) {
    opened_ = true;
    handle_ = ::iconv_open(to_, from_);
    if (handle_ == kNoHandle) logLine(std::string("no conversion from ") + from_ + " to " + to_);
  }
  return handle_ != kNoHandle;
}

size_t IconvHandle::convert(std::string_view in, std::string* out) {
  if (in.empty() || !open()) return 0;
  size_t done = 0;
  while (done < in.size()) {
    const size_t converted = convertPiece(in.substr(done, piece_), out);
    done += converted;
    piece_ = converted == 0 ? kSmallestPiece : std::min(2 * piece_, kLargestPiece);
    if (converted == 0) break;  // else what didn't convert may be a character that the piece's end cut
  }
  return done;
}

size_t IconvHandle::convertPiece(std::string_view in, std::string* out) {
  char* from = const_cast<char*>(in.data());  // iconv reads through it only
  size_t left = in.size();
  size_t used = out->size();
  // Room for the usual case at once: kanji shrink or grow by half, half-width kana grow threefold.
  out->resize(used + in.size() + in.size() / 2 + 8);
  for (;;) {
    char* to = out->data() + used;
    size_t room = out->size() - used;
    const size_t result = ::iconv(handle_, &from, &left, &to, &room);
    const int error = errno;
    used = out->size() - room;
    if (result != static_cast<size_t>(-1)) break;
    if (error != E2BIG) {
      ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);  // forget the character it broke off in
      break;
    }
    out->resize(out->size() * 2);
  }
  out->resize(used);
  return in.size() - left;
}

std::string IconvTextEncoding::fromSjisLossy(std::string_view sjis) const {
  return *decode(sjis, Encoding::kShiftJis, true);
}

std::string IconvTextEncoding::toUtf8Lossy(std::string_view bytes, Encoding from) const {
  return *decode(bytes, from, true);
}

std::optional<std::string> IconvTextEncoding::toUtf8Strict(std::string_view bytes, Encoding from) const {
  return decode(bytes, from, false);
}

std::optional<std::string> IconvTextEncoding::decode(std::string_view bytes, Encoding from,
                                                     bool lossy) const {
  if (from == Encoding::kUtf16) return decodeUtf16(bytes, lossy);
  if (isAscii(bytes)) return std::string(bytes);
  if (from == Encoding::kShiftJis) return decodeAll(fromSjis_, bytes, 1, lossy);
  if (from == Encoding::kEucJp) return decodeAll(fromEuc_, bytes, 1, lossy);
  const std::string_view text = withoutMark(bytes, "\xEF\xBB\xBF");
  if (lossy) return replaceInvalidUtf8(text);
  if (!isValidUtf8(text)) return std::nullopt;
  return std::string(text);
}

std::optional<std::string> IconvTextEncoding::decodeUtf16(std::string_view bytes, bool lossy) const {
  const std::string_view text = withoutMark(bytes, "\xFE\xFF");
  if (text.size() != bytes.size()) return decodeAll(fromUtf16Be_, text, 2, lossy);
  return decodeAll(fromUtf16Le_, withoutMark(bytes, "\xFF\xFE"), 2, lossy);
}

std::optional<std::string> IconvTextEncoding::encodeSjis(std::string_view utf8, bool lossy) const {
  if (isAscii(utf8)) return std::string(utf8);
  std::string out;
  size_t refused = findRefused(utf8);
  for (;;) {
    const size_t done = toSjis_.convert(utf8.substr(0, refused), &out);
    utf8.remove_prefix(done);
    if (utf8.empty()) return out;
    if (!lossy) return std::nullopt;
    out += '?';
    const size_t lost = readUtf8(utf8).length;
    utf8.remove_prefix(lost);
    refused = done + lost <= refused ? refused - done - lost : findRefused(utf8);
  }
}

}  // namespace zavel
