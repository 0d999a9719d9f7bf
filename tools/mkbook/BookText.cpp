// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/BookText.h"

#include <algorithm>
#include <cstdio>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/CustomCharacters.h"
#include "mkbook/JisTable.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr char kReferenceBegins = 4, kReferenceEnds = 5;
constexpr uint16_t kFrame = 0x1F4C;
constexpr size_t kMonoTag = 12, kLongTag = 20;

// The mark that a kind of span begins with; the next character ends it. 0 for none.
char markOf(Span::Kind kind) {
  switch (kind) {
    case Span::Kind::kEmphasis:
      return 2;
    case Span::Kind::kSubscript:
      return 14;
    case Span::Kind::kSuperscript:
      return 16;
    case Span::Kind::kKeyword:
      return 18;
    case Span::Kind::kPicture:
      return 20;
    case Span::Kind::kSound:
      return 22;
    default:
      return 0;
  }
}

// Tags that stand for a mark as they are.
constexpr struct {
  uint16_t tag;
  Span::Kind kind;
  bool begins;
} kSimpleTags[] = {
    {kTagEmphasisOn, Span::Kind::kEmphasis, true},      {kTagEmphasisOff, Span::Kind::kEmphasis, false},
    {kTagSubOn, Span::Kind::kSubscript, true},          {kTagSubOff, Span::Kind::kSubscript, false},
    {kTagSuperOn, Span::Kind::kSuperscript, true},      {kTagSuperOff, Span::Kind::kSuperscript, false},
    {kTagColorPictureEnd, Span::Kind::kPicture, false}, {kTagSoundEnd, Span::Kind::kSound, false}};
constexpr size_t kTableRecord = 12;
constexpr uint16_t kStartsEntry = 0x0100;

uint16_t wordAt(std::string_view bytes, size_t at) {
  return at + 2 <= bytes.size() ? readBE16(reinterpret_cast<const uint8_t*>(bytes.data() + at)) : 0;
}

uint32_t longAt(std::string_view bytes, size_t at) {
  return static_cast<uint32_t>(wordAt(bytes, at)) << 16 | wordAt(bytes, at + 2);
}

char32_t fromSurrogates(uint32_t value) {
  if (value >> 16 == 0) return value;
  return 0x10000 + ((value >> 16 & 0x3FF) << 10 | (value & 0x3FF));
}

uint32_t bcdAt(std::string_view bytes, size_t at, size_t length) {
  uint32_t value = 0;
  for (size_t i = at; i < at + length && i < bytes.size(); ++i) {
    const auto byte = static_cast<uint8_t>(bytes[i]);
    value = value * 100 + (byte >> 4) * 10u + (byte & 15u);
  }
  return value;
}

void beginLine(std::string* out, unsigned indent) {
  *out += "<" + std::to_string(indent) + ">";
}

void closeReference(std::string* out, int64_t entry) {
  *out += "|" + std::to_string(entry) + kReferenceEnds;
}

std::string withoutLastBlanks(std::string_view text) {
  constexpr std::string_view kWide = "　";
  for (;;) {
    if (text.ends_with(' ') || text.ends_with('\n')) {
      text.remove_suffix(1);
    } else if (text.ends_with(kWide)) {
      text.remove_suffix(kWide.size());
    } else {
      return std::string(text) + "\n";
    }
  }
}

// One character as the book has it: of several ways to write a sign the one that its code stands for.
char32_t written(char32_t character, const CustomTable& table) {
  if (character < 0x20 || character == 0x7F) return ' ';
  const JisTable& jis = JisTable::shared();
  if (const uint16_t code = jis.codeOf(character); code != 0) return jis.characterOf(code, character < 0x80);
  return table.codeOf(character) != 0 ? character : jis.characterOf(kGeta, false);
}

void appendWritten(std::string* out, std::string_view utf8, const CustomTable& table) {
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    const bool sound = takeCharacter(utf8, &at, &character);
    if (sound && isUnseen(character)) continue;
    mkdict::appendUtf8(*out,
                       sound ? written(character, table) : JisTable::shared().characterOf(kGeta, false));
  }
}

}  // namespace

CustomTable::CustomTable(std::string_view bytes) {
  size_t at = 0;
  for (const bool half : {false, true}) {
    if (at + 4 > bytes.size()) return;
    uint32_t count = longAt(bytes, at);
    for (at += 4; count > 0 && at + kTableRecord <= bytes.size(); --count, at += kTableRecord) {
      const char32_t character = fromSurrogates(longAt(bytes, at + 4));
      characters_[{half, wordAt(bytes, at)}] = character;
      codes_[character] = wordAt(bytes, at);
    }
  }
}

char32_t CustomTable::characterOf(uint16_t code, bool half) const {
  const auto found = characters_.find({half, code});
  return found == characters_.end() ? 0 : found->second;
}

uint16_t CustomTable::codeOf(char32_t character) const {
  const auto found = codes_.find(character);
  return found == codes_.end() ? 0 : found->second;
}

std::string codesOf(std::string_view utf8, const CustomTable& table) {
  std::string out;
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    const bool sound = takeCharacter(utf8, &at, &character);
    if (sound && isUnseen(character)) continue;
    if (character < 0x20 || character == 0x7F) character = ' ';
    uint16_t code = sound ? JisTable::shared().codeOf(character) : kGeta;
    if (code == 0) code = table.codeOf(character);
    appendBE16(out, code != 0 ? code : kGeta);
  }
  return out;
}

namespace {

class Expected {
 public:
  Expected(const CustomTable& table, const SpanNumber& number) : table_(table), number_(number) {}

  void text(std::string_view utf8) { appendWritten(&out_, utf8, table_); }

  void spans(const std::vector<Span>& spans) {
    for (const Span& one : spans) span(one);
  }

  void lines(const std::vector<Line>& lines) {
    for (const Line& line : lines) {
      beginLine(&out_, std::min(line.indent, 9999u));
      spans(line.spans);
      out_ += '\n';
    }
  }

  std::string& out() { return out_; }

 private:
  void span(const Span& span) {
    const bool leads = span.kind == Span::Kind::kReference || span.kind == Span::Kind::kMenu;
    const int64_t target = leads ? number_(span) : -1;
    const char mark = markOf(span.kind);
    if (target >= 0) out_ += kReferenceBegins;
    if (mark != 0) out_ += mark;
    text(span.text);
    spans(span.inside);
    if (mark != 0) out_ += static_cast<char>(mark + 1);
    if (target >= 0) closeReference(&out_, target);
  }

  const CustomTable& table_;
  const SpanNumber& number_;
  std::string out_;
};

class Decoder {
 public:
  Decoder(std::string_view bytes, const CustomTable& table,
          const std::function<int64_t(const _SDICADDRESS& address)>& number, std::vector<size_t>* media)
      : bytes_(bytes), table_(table), number_(number), media_(media) {}

  std::string run() {
    while (at_ + 2 <= bytes_.size()) {
      const uint16_t word = wordAt(bytes_, at_);
      if (word >= kFirstCharacter) {
        character(word);
      } else {
        at_ += tag(word);
      }
    }
    return withoutLastBlanks(out_);
  }

 private:
  void character(uint16_t word) {
    const bool custom = word >= 0xA121;
    const char32_t found =
        custom ? table_.characterOf(word, half_) : JisTable::shared().characterOf(word, half_);
    mkdict::appendUtf8(out_, found != 0 ? found : U'\uFFFD');
    at_ += 2;
  }

  size_t leadsTo(size_t size) {
    closeReference(&out_, number_({bcdAt(bytes_, at_ + 2, 4), bcdAt(bytes_, at_ + 6, 2)}));
    return size;
  }

  size_t begins(Span::Kind kind, size_t size) {
    out_ += markOf(kind);
    if (media_ != nullptr && kind != Span::Kind::kKeyword) media_->push_back(at_);
    return size;
  }

  size_t ends(Span::Kind kind, size_t size) {
    out_ += static_cast<char>(markOf(kind) + 1);
    return size;
  }

  // Bytes of the tag.
  size_t tag(uint16_t word) {
    for (const auto& [simple, kind, begins] : kSimpleTags)
      if (word == simple) return out_ += static_cast<char>(markOf(kind) + (begins ? 0 : 1)), 2;
    switch (word) {
      case kTagHalfOn:
      case kTagHalfOff:
        half_ = word == kTagHalfOn;
        return 2;
      case kTagIndent:
        beginLine(&out_, bcdAt(bytes_, at_ + 2, 2));
        return 4;
      case kTagKeyword:
        within_ = wordAt(bytes_, at_ + 2) != kStartsEntry;
        return within_ ? begins(Span::Kind::kKeyword, 4) : 4;
      case kTagKeywordEnd:
        return within_ ? ends(Span::Kind::kKeyword, 2) : 2;
      case kTagEnd:
        return 2;
      case kTagLineFeed:
        out_ += '\n';
        return 2;
      case kFrame:
        return 4;
      case kTagReference:
      case kTagMenuItem:
        out_ += kReferenceBegins;
        return word == kTagReference ? 4 : 2;
      case kTagReferenceEnd:
      case kTagMenuItemEnd:
        return leadsTo(8);
      case kTagMonoPicture:
        return begins(Span::Kind::kPicture, kMonoTag);
      case kTagMonoPictureEnd:
        return ends(Span::Kind::kPicture, 8);
      case kTagColorPicture:
        return begins(Span::Kind::kPicture, kLongTag);
      case kTagSound:
        return begins(Span::Kind::kSound, kLongTag);
      default:
        char text[16];
        std::snprintf(text, sizeof text, "<%04X>", unsigned{word});
        out_ += text;
        return 2;
    }
  }

  std::string_view bytes_;
  const CustomTable& table_;
  const std::function<int64_t(const _SDICADDRESS& address)>& number_;
  std::vector<size_t>* media_;
  std::string out_;
  size_t at_ = 0;
  bool half_ = false;
  bool within_ = false;  // the keyword is one within the text
};

}  // namespace

std::string expectedText(const BookEntry& entry, const CustomTable& table, const SpanNumber& number) {
  Expected expected(table, number);
  beginLine(&expected.out(), 1);
  expected.text(entry.headword);
  expected.spans(entry.note);
  expected.out() += '\n';
  expected.lines(entry.lines);
  return withoutLastBlanks(expected.out());
}

std::string expectedText(const std::vector<Line>& lines, const CustomTable& table, const SpanNumber& number) {
  Expected expected(table, number);
  expected.lines(lines);
  return withoutLastBlanks(expected.out());
}

void appendMedia(const std::vector<Span>& spans, std::vector<size_t>* media) {
  for (const Span& span : spans) {
    if (span.kind == Span::Kind::kPicture || span.kind == Span::Kind::kSound) media->push_back(span.medium);
    appendMedia(span.inside, media);
  }
}

std::string decodedText(std::string_view bytes, const CustomTable& table,
                        const std::function<int64_t(const _SDICADDRESS& address)>& number,
                        std::vector<size_t>* media) {
  return Decoder(bytes, table, number, media).run();
}

}  // namespace zavel::mkbook
