// The encoding service: the one place where text crosses between UTF-8 and legacy encodings.
#ifndef PLATFORM_TEXTENCODING_H
#define PLATFORM_TEXTENCODING_H

#include <optional>
#include <string>
#include <string_view>

#include "platform/SjisBytes.h"

namespace zavel {

enum class Encoding { kUtf8, kUtf16, kShiftJis, kEucJp };

class TextEncoding {
 public:
  virtual ~TextEncoding() = default;

  // UTF-8 to Shift_JIS. Every character that code page 932 lacks becomes "?". U+301C, U+2212, U+2016,
  // U+2014, U+00A2, U+00A3 and U+00AC are taken for their Windows partners.
  SjisBytes toSjisLossy(std::string_view utf8) const { return SjisBytes(*encodeSjis(utf8, true)); }

  // The same, but nothing at all when a character is lacking or the input is not UTF-8.
  std::optional<SjisBytes> toSjisStrict(std::string_view utf8) const {
    std::optional<std::string> bytes = encodeSjis(utf8, false);
    if (!bytes) return std::nullopt;
    return SjisBytes(std::move(*bytes));
  }

  // Bytes that are known to be Shift_JIS already, as a file or an engine handed them over.
  static SjisBytes adoptSjis(std::string bytes) { return SjisBytes(std::move(bytes)); }

  // Shift_JIS to UTF-8; each byte that begins no character becomes U+FFFD.
  virtual std::string fromSjisLossy(std::string_view sjis) const = 0;

  // Bytes in `from` to UTF-8; U+FFFD for what does not decode. A byte order mark is taken off.
  virtual std::string toUtf8Lossy(std::string_view bytes, Encoding from) const = 0;

  // The same, nothing when any byte does not decode.
  virtual std::optional<std::string> toUtf8Strict(std::string_view bytes, Encoding from) const = 0;

 protected:
  // `lossy` true never gives nothing.
  virtual std::optional<std::string> encodeSjis(std::string_view utf8, bool lossy) const = 0;
};

}  // namespace zavel

#endif
