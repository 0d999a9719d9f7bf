#include "lookup/SlowWalks.h"

#include "lookup/MetaKey.h"

namespace zavel::test {
namespace {

using Position = long long;

Position last(const std::string& text) {
  return static_cast<Position>(text.size()) - 1;
}

int byteAt(const std::string& text, Position p) {
  return p < 0 || p > last(text) ? -1 : static_cast<unsigned char>(text[static_cast<size_t>(p)]);
}

int pairAt(const std::string& text, Position p) {
  const int high = byteAt(text, p);
  const int low = byteAt(text, p + 1);
  return high < 0 || low < 0 ? -1 : high * 256 + low;
}

void replaceAt(std::string& text, Position p, size_t length, const std::string& with) {
  text.replace(static_cast<size_t>(p), length, with);
}

void blankEscape(std::string& text, Position p) {
  if (byteAt(text, p) == 0x1B) text[static_cast<size_t>(p)] = ' ';
}

}  // namespace

std::string slowReplace(std::string text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from)) {
    text.replace(at, from.size(), to);
  }
  return text;
}

std::string slowRemoveRanges(std::string text, const std::string& start, const std::string& end) {
  for (size_t s = text.find(start); s != std::string::npos; s = text.find(start)) {
    const size_t e = text.find(end);
    if (e == std::string::npos) break;
    if (e < s) {
      text.erase(s);
    } else {
      text.erase(s, e - s + end.size());
    }
  }
  return text;
}

std::string slowConvertMetaKey(std::string text, uint8_t mode) {
  if (text.size() < 2) return text;
  for (Position p = 0; p < last(text); ++p) {
    const size_t before = text.size();
    const int pair = pairAt(text, p);
    const MetaKey* row = findMetaKey(static_cast<uint8_t>(pair >> 8), static_cast<uint8_t>(pair & 0xFF));
    if (row != nullptr) {
      std::string with = mode == 1 ? std::string(row->label) : std::string();
      if (mode != 1 && pair == 0xF4B5) with = "(";
      if (mode != 1 && pair == 0xF4D0) with = ")";
      replaceAt(text, p, 2, with);
    }
    if (text.size() != before) --p;
    blankEscape(text, p);
  }
  return text;
}

std::string slowPrepare(std::string text) {
  const std::string picture = "\x82\xB3\x82\xB5\x8A\x47";
  text = slowReplace(text, picture + ")", ")");
  text = slowReplace(text, picture + "\x81\x74", "\x81\x74");
  text = slowReplace(text, picture + ".", ".");
  return slowReplace(text, "[\x95\x5C]", "");
}

std::string slowLayout(std::string text) {
  if (text.size() < 2) return text;
  const std::string b4(4, ' '), b8(8, ' '), b14(14, ' '), cr = "\x0D";
  bool flag = true;
  for (Position p = 0; p < last(text); ++p) {
    const std::string line = byteAt(text, p - 1) == 0x0D ? "" : cr;
    switch (pairAt(text, p)) {
      case 0xF4A4:
      case 0xF4B5:
        replaceAt(text, p, 2, "(");
        break;
      case 0xF4D0:
        replaceAt(text, p, 2, ")");
        break;
      case 0xF5A7: {
        replaceAt(text, p, 2, "");
        const size_t next = text.find('\x0D', static_cast<size_t>(p));
        if (next != std::string::npos) text.erase(next, 1);
        --p;
        flag = false;
        break;
      }
      case 0xF5C5:
      case 0xF5CA:
      case 0xF5CB:
        replaceAt(text, p, 2, "");
        break;
      case 0xF5C6: {
        replaceAt(text, p, 2, "");
        const size_t noted = text.find(')', static_cast<size_t>(p));
        if (noted == std::string::npos) break;
        for (;;) {
          const size_t space = text.find("\x81\x40", static_cast<size_t>(p));
          if (space == std::string::npos || space >= noted) break;
          text.erase(space, 2);
        }
        break;
      }
      case 0xF5D0:
      case 0xF5D2:
      case 0xF5E3:
      case 0xF5E8:
      case 0xF5E9:
        replaceAt(text, p, 2, b8);
        break;
      case 0xF5D3:
        replaceAt(text, p, 2, flag ? cr : "");
        flag = true;
        break;
      case 0xF5D4: {
        std::string with = line;
        const int behind = byteAt(text, p + 4);
        if (pairAt(text, p + 2) == 0xF5B1) {
          with += behind >= 'A' && behind <= 'Z' ? cr : b8;
        } else if (pairAt(text, p + 2) == 0xF5BD) {
          if (behind != '1') with += cr;
          with += "\xF5\xC9" + b4;
        }
        replaceAt(text, p, 2, with);
        break;
      }
      case 0xF5D5:
      case 0xF5E4:
        replaceAt(text, p, 2, line + b14);
        break;
      case 0xF5D6:
        replaceAt(text, p, 2, line + b8);
        break;
      case 0xF5D7:
        replaceAt(text, p, 2, line.empty() ? b14 : "");
        break;
      case 0xF5D8:
        replaceAt(text, p, 2, b4);
        break;
      case 0xF5D9:
      case 0xF5E5:
      case 0xF5E7:
        replaceAt(text, p, 2, b14);
        break;
      default:
        break;
    }
    blankEscape(text, p);
  }
  return text;
}

std::string slowStyles(std::string text, const ScrpSTElement& plain, RGBColor index, RGBColor subIndex,
                       std::vector<ScrpSTElement>* runs) {
  runs->clear();
  if (text.size() < 2) return text;
  RGBColor color = plain.scrpColor;
  bool lineStart = true;
  for (Position p = 0; p < last(text); ++p) {
    const int pair = pairAt(text, p);
    ScrpSTElement record = plain;
    record.scrpStartChar = static_cast<uint32_t>(p);
    record.scrpColor = color;
    if (lineStart) {
      color = record.scrpColor = plain.scrpColor;
      runs->push_back(record);
    }
    bool keepLine = true;
    switch (pair) {
      case 0xF5B1:
      case 0xF5B6:
      case 0xF5BD:
      case 0xF5C2:
        replaceAt(text, p, pairAt(text, p + 2) == 0xF5B1 ? 4 : 2, "");
        record.scrpFace = 1;
        runs->push_back(record);
        break;
      case 0xF5B7:
      case 0xF5BC:
      case 0xF5C1:
        replaceAt(text, p, 2, "");
        record.scrpFace = 0;
        runs->push_back(record);
        --p;
        break;
      case 0xF5B8:
        replaceAt(text, p, 2, "");
        record.scrpFace = 3;
        runs->push_back(record);
        break;
      case 0xF5B9:
        replaceAt(text, p, 4, "");
        record.scrpFace = 3;
        runs->push_back(record);
        break;
      case 0xF5C9:
        color = record.scrpColor = subIndex;
        replaceAt(text, p, 2, "");
        runs->push_back(record);
        keepLine = false;
        break;
      case 0xF5D1:
        color = record.scrpColor = index;
        record.scrpFace = 1;
        replaceAt(text, p, 2, "");
        runs->push_back(record);
        --p;
        keepLine = false;
        break;
      default:
        break;
    }
    lineStart = keepLine && byteAt(text, p) == 0x0D;
  }
  return text;
}

}  // namespace zavel::test
