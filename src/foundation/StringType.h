// What a search key is written in, which steers the choice of an index.
#ifndef FOUNDATION_STRINGTYPE_H
#define FOUNDATION_STRINGTYPE_H

namespace zavel::foundation {

enum StringType : int {
  kStringNone = 0,  // empty, or neutral codes only
  kStringMixed = 1,
  kStringKana = 2,
  kStringAlphabetic = 3,
  kStringDigits = 4,
};

// The type of a key in JIS, NUL-terminated. Neutral codes leave the type as it is; a code of no class makes
// it mixed at once, as does a second class, with one exception: kana held and a letter next, or digits held
// and a letter next, goes on as alphabetic (kept: docs/quirks.md). So ａ１ is mixed, １ａ alphabetic.
int GFnGetStringType(const char* jisKey);

}  // namespace zavel::foundation

#endif
