// Tests: tests/foundation/KanjiConversionTest.cpp
#include "foundation/KanjiConversion.h"

#include <cstdint>
#include <cstring>
#include <utility>

#include "foundation/Kanji.h"
#include "foundation/KanjiTables.h"

namespace zavel::foundation {
namespace {

constexpr uint16_t kFirstJis = 0x2121;
constexpr uint16_t kLastPlainJis = 0xA120;  // above it the high bits are set already
constexpr uint16_t kEucBits = 0x8080;
constexpr uint8_t kHanEucLead = 0x8E;
constexpr uint8_t kDaku = 0xDE;
constexpr uint8_t kDaku2 = 0xDF;

uint16_t pairAt(const char* text) {
  return static_cast<uint16_t>(static_cast<uint8_t>(text[0]) << 8 | static_cast<uint8_t>(text[1]));
}

void putPair(char*& out, uint16_t code) {
  *out++ = static_cast<char>(code >> 8);
  *out++ = static_cast<char>(code);
}

// Letters and digits, which stand in the same order in both forms; 0 for all others.
char asciiOfEuc(uint16_t euc) {
  if (euc >= 0xA3B0 && euc <= 0xA3B9) return static_cast<char>(euc - 0xA3B0 + '0');
  if (euc >= 0xA3C1 && euc <= 0xA3DA) return static_cast<char>(euc - 0xA3C1 + 'A');
  if (euc >= 0xA3E1 && euc <= 0xA3FA) return static_cast<char>(euc - 0xA3E1 + 'a');
  return 0;
}

// The half form of a full one in a table that ends with a zero full form; 0 when it isn't there.
uint16_t findHan(const HanZenPair* table, uint16_t zen) {
  for (; table->zen[0] != 0; ++table)
    if (table->zen[0] == zen >> 8 && table->zen[1] == (zen & 0xFF))
      return static_cast<uint16_t>(table->han[0] << 8 | table->han[1]);
  return 0;
}

void putHanOfEuc(char*& out, uint16_t zen) {
  if (const char ascii = asciiOfEuc(zen)) {
    *out++ = ascii;
  } else if (const uint16_t han = findHan(tblHanToZenEuc.data(), zen)) {
    putPair(out, han);
  } else if (const uint16_t voiced = findHan(tblDakuHanToZenEuc.data(), zen)) {
    putPair(out, voiced);
    putPair(out, kHanEucLead << 8 | kDaku);
  } else if (const uint16_t halfVoiced = findHan(tblDaku2HanToZenEuc.data(), zen)) {
    putPair(out, halfVoiced);
    putPair(out, kHanEucLead << 8 | kDaku2);
  } else {
    putPair(out, zen);
  }
}

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool isFullBlank(const char* text) {
  return text[0] == '\xA1' && text[1] == '\xA1';
}

}  // namespace

void GFnConvJIS2EUC(char* out, const char* in, size_t bytes) {
  for (size_t i = 0; i + 1 < bytes; i += 2) {
    const uint16_t code = pairAt(in + i);
    // Sixteen bits wide, so that a code below the first one wraps and ends the text as well.
    if (static_cast<uint16_t>(code - kFirstJis) > 0xDD5D) break;
    putPair(out, code <= kLastPlainJis ? code | kEucBits : code);
  }
  putPair(out, 0);
}

size_t GFnConvSJIS2JIS(char* out, const char* in, size_t bytes) {
  char* const begin = out;
  for (size_t i = 0; i < bytes;) {
    uint16_t sjis = static_cast<uint8_t>(in[i]);
    if (__ismbblead(static_cast<uint8_t>(sjis)) && i + 1 < bytes) {
      sjis = pairAt(in + i);
      i += 2;
    } else {
      sjis = __mbbtombc(sjis);
      i += 1;
    }
    putPair(out, __mbcjmstojis(sjis));
  }
  return static_cast<size_t>(out - begin);
}

void ConvSJIStoEUC(char* out, const char* in, int limit) {
  for (int written = 0; *in != 0 && written < limit; in = __mbsinc(in)) {
    const uint16_t euc = __jmstoeuc(__mbsnextc(in));
    if (euc < 0x100) {
      *out++ = static_cast<char>(euc);
    } else {
      putPair(out, euc);
      ++written;
    }
  }
  *out = 0;
}

void JisToEucX(const char* in, char* out) {
  for (; *in != 0; ++in) *out++ = static_cast<char>(*in | 0x80);
  *out = 0;
}

void EucToJisX(const char* in, char* out) {
  while (*in != 0) {
    const int kind = IsKanji(in);
    if (kind & kHankakuEuc) {
      *out++ = static_cast<char>(in[1] & 0x7F);
      in += 2;
    } else if (kind & kZenkakuEuc) {
      putPair(out, pairAt(in) & 0x7F7F);
      in += 2;
    } else {
      *out++ = *in++;
    }
  }
  *out = 0;
}

void ZenToHanEuc(const char* in, char* out) {
  while (*in != 0) {
    if (*in == '\x8F' && in[1] != 0 && in[2] != 0) {  // a character of three bytes, never half-width
      for (int i = 0; i < 3; ++i) *out++ = *in++;
    } else if (static_cast<uint8_t>(*in) >= 0x80 && in[1] != 0) {
      putHanOfEuc(out, pairAt(in));
      in += 2;
    } else {
      *out++ = *in++;
    }
  }
  *out = 0;
}

void GFnReplaceKatakana(char* text) {
  while (*text != 0) {
    if (IsKanji(text) & kZenkakuSjis) {
      putPair(text, GFnConvKatakana(pairAt(text)));
    } else {
      ++text;
    }
  }
}

void InvertDBCSString(char* text) {
  const size_t pairs = std::strlen(text) / 2;
  if (pairs == 0) return;
  char* front = text;
  char* back = text + (pairs - 1) * 2;
  for (; front < back; front += 2, back -= 2) {
    std::swap(front[0], back[0]);
    std::swap(front[1], back[1]);
  }
}

char* TrimLeft(char* text) {
  const char* first = text;
  while (isBlank(*first) || isFullBlank(first)) first += isBlank(*first) ? 1 : 2;
  std::memmove(text, first, std::strlen(first) + 1);
  return text;
}

char* TrimRight(char* text) {
  size_t length = std::strlen(text);
  for (;;) {
    const char last = length > 0 ? text[length - 1] : 'x';
    if (isBlank(last) || last == '\r' || last == '\n') {
      length -= 1;
    } else if (length >= 2 && isFullBlank(text + length - 2)) {
      length -= 2;
    } else {
      break;
    }
  }
  text[length] = 0;
  return text;
}

char* Trim(char* text) {
  return TrimLeft(TrimRight(text));
}

}  // namespace zavel::foundation
