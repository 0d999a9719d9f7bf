// Searching, replacing and changing case in strings of bytes. Bytewise throughout: a double-byte character
// is two bytes like any others, and a match may begin in the middle of one.
#ifndef CONFIG_BYTESTRINGS_H
#define CONFIG_BYTESTRINGS_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace zavel {

// Byte offset of the first match of `key` in `text`, -1 for none. An empty key matches at 0.
int64_t FindString(const std::string& text, const std::string& key);

// The same, after both strings were widened byte by byte into wide characters.
int64_t FindWString(const std::string& text, const std::string& key);

// Replaces `from` by `to` as long as there is a `from`, each time searching from the start, so that what a
// replacement completes is replaced too. The text as it is when `from` is empty or `to` holds `from`: that
// would never end. The same where it is given up, for `to` can bring `from` about again together with what
// stands around it: beyond what replacing every `from` once takes, the text may grow by 16 MiB, and
// replacements may take out and put in 2 GiB. `out` may be `text`.
void ReplaceString(std::string* out, const std::string& text, const std::string& from, const std::string& to);

// Replaces each `from` once and goes on behind the replacement, so that `to` may hold `from`. An empty
// `from` gives the text as it is. `out` may be `text`.
void ReplaceString2(std::string* out, const std::string& text, const std::string& from,
                    const std::string& to);

// As ReplaceString, into a buffer of `size` bytes at `dst`: as much of the result as fits with its NUL.
// Nothing is written for a null buffer or a size of 0.
void ReplaceString3(const std::string& text, const std::string& from, const std::string& to, char* dst,
                    size_t size);

// As ReplaceString2, over strings widened byte by byte; the result is narrowed again.
void ReplaceWString(std::string* out, const std::string& text, const std::string& from,
                    const std::string& to);

// With `flag` off a copy. Otherwise every byte that is an ASCII letter changes its case and no other does.
// Kept: bytes alone count, so the second byte of a double-byte character changes too when it is one of
// those. docs/quirks.md. `dst` may be `src`.
void ToUpper(bool flag, const std::string& src, std::string* dst);
void ToLower(bool flag, const std::string& src, std::string* dst);

}  // namespace zavel

#endif
