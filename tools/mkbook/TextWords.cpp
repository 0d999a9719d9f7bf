// Tests: tests/mkbook/TextWordsTest.cpp
#include "mkbook/TextWords.h"

#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

using mkdict::isHiragana;
using mkdict::isJapanese;
using mkdict::isKanji;
using mkdict::isKatakana;

bool isBetween(char32_t code, char32_t first, char32_t last) {
  return code >= first && code <= last;
}

// Letters and digits of ASCII, their full-width partners, and the alphabets from Latin with accents on.
bool isLetter(char32_t code) {
  constexpr char32_t kFullWidth = 0xFEE0;
  if (isBetween(code, 0xFF01, 0xFF5E)) code -= kFullWidth;
  if (isBetween(code, '0', '9') || isBetween(code | 0x20, 'a', 'z')) return true;
  return isBetween(code, 0xC0, 0x1FFF) && code != 0xD7 && code != 0xF7;  // × and ÷
}

bool isApostrophe(char32_t code) {
  return code == '\'' || code == 0x2019;
}

bool isHyphen(char32_t code) {
  return code == '-' || code == 0x2010;
}

class Splitter {
 public:
  explicit Splitter(std::string_view utf8) {
    for (size_t at = 0; at < utf8.size();) {
      char32_t code = 0;
      text_ += mkdict::takeUtf8(utf8, &at, &code) ? code : U' ';
    }
  }

  std::vector<std::string> run() {
    while (at_ < text_.size()) {
      if (isLetter(text_[at_])) {
        letters();
      } else if (isJapanese(text_[at_])) {
        japanese();
      } else {
        ++at_;
      }
    }
    return std::move(words_);
  }

 private:
  bool letterAt(size_t at) const { return at < text_.size() && isLetter(text_[at]); }

  void add(size_t from, size_t to, size_t least) {
    if (to - from >= least)
      words_.push_back(mkdict::encodeUtf8(std::u32string_view(text_).substr(from, to - from)));
  }

  size_t runOf(size_t at, bool (*belongs)(char32_t)) const {
    while (at < text_.size() && belongs(text_[at])) ++at;
    return at;
  }

  // To the end of the letters, apostrophes between them included.
  size_t wordEnd(size_t at) const {
    for (;;) {
      at = runOf(at, isLetter);
      if (at == text_.size() || !isApostrophe(text_[at]) || !letterAt(at + 1)) return at;
      ++at;
    }
  }

  void letters() {
    const size_t from = at_;
    size_t parts = 0, begin = from;
    for (;;) {
      at_ = wordEnd(begin);
      add(begin, at_, 2);
      ++parts;
      if (at_ == text_.size() || !isHyphen(text_[at_]) || !letterAt(at_ + 1)) break;
      begin = at_ + 1;
    }
    if (parts > 1) add(from, at_, 2);
  }

  void japanese() {
    const size_t from = at_, end = runOf(at_, isJapanese);
    while (at_ < end) {
      const size_t begin = at_;
      const bool hiragana = isHiragana(text_[at_]);
      at_ = runOf(at_, hiragana ? isHiragana : isKatakana(text_[at_]) ? isKatakana : isKanji);
      if (begin != from || at_ != end) add(begin, at_, hiragana ? 2 : 1);
    }
    add(from, end, 1);
  }

  std::u32string text_;
  size_t at_ = 0;
  std::vector<std::string> words_;
};

}  // namespace

std::vector<std::string> wordsOf(std::string_view utf8) {
  return Splitter(utf8).run();
}

}  // namespace zavel::mkbook
