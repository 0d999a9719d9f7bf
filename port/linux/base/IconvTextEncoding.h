// Encodings through iconv. "Shift_JIS" is its CP932 and "EUC-JP" its EUC-JP-MS: the plain names refuse
// characters that every real text holds, and turn the backslash into a yen sign.
#ifndef PORT_LINUX_BASE_ICONVTEXTENCODING_H
#define PORT_LINUX_BASE_ICONVTEXTENCODING_H

#include <iconv.h>

#include <string>

#include "platform/TextEncoding.h"

namespace zavel {

// One direction of iconv, opened at its first use and kept. Not for two threads at once.
class IconvHandle {
 public:
  IconvHandle(const char* to, const char* from) : to_(to), from_(from) {}
  ~IconvHandle();
  IconvHandle(const IconvHandle&) = delete;
  IconvHandle& operator=(const IconvHandle&) = delete;

  // Appends the conversion of `in` to `out`, up to the first byte that does not convert. Result: bytes of
  // `in` converted. A system that lacks the encoding converts nothing. The time is that of what converts,
  // however much stands behind it.
  size_t convert(std::string_view in, std::string* out);

 private:
  bool open();
  size_t convertPiece(std::string_view in, std::string* out);

  const char* to_;
  const char* from_;
  iconv_t handle_ = nullptr;
  bool opened_ = false;  // open() ran, whatever came of it
  size_t piece_ = 4096;  // bytes given to iconv next; any text that is shown goes in one piece
};

// Details that the interface leaves open: UTF-16 without a byte order mark is read little end first, as
// browsers do; a broken UTF-8 character becomes one U+FFFD or "?", not one for each of its bytes.
class IconvTextEncoding : public TextEncoding {
 public:
  std::string fromSjisLossy(std::string_view sjis) const override;
  std::string toUtf8Lossy(std::string_view bytes, Encoding from) const override;
  std::optional<std::string> toUtf8Strict(std::string_view bytes, Encoding from) const override;

 protected:
  std::optional<std::string> encodeSjis(std::string_view utf8, bool lossy) const override;

 private:
  std::optional<std::string> decode(std::string_view bytes, Encoding from, bool lossy) const;
  std::optional<std::string> decodeUtf16(std::string_view bytes, bool lossy) const;

  mutable IconvHandle toSjis_{"CP932", "UTF-8"};
  mutable IconvHandle fromSjis_{"UTF-8", "CP932"};
  mutable IconvHandle fromEuc_{"UTF-8", "EUC-JP-MS"};
  mutable IconvHandle fromUtf16Le_{"UTF-8", "UTF-16LE"};
  mutable IconvHandle fromUtf16Be_{"UTF-8", "UTF-16BE"};
};

}  // namespace zavel

#endif
