// Tests: tests/zavel/book/BookTextViewTest.cpp
#include "book/BookTextView.h"

#include <algorithm>
#include <map>
#include <utility>

#include "Utf8.h"
#include "book/ShelvedBook.h"

namespace zavel::host {
namespace {

constexpr size_t kDeepestIndent = 40;  // columns, and half of the width at most
constexpr size_t kNarrowestText = 20;  // columns that an indent leaves

// Characters that have a small form, with that above and that below the line.
constexpr struct {
  char plain;
  const char* above;
  const char* below;
} kSmall[] = {{'0', "⁰", "₀"}, {'1', "¹", "₁"}, {'2', "²", "₂"}, {'3', "³", "₃"}, {'4', "⁴", "₄"},
              {'5', "⁵", "₅"}, {'6', "⁶", "₆"}, {'7', "⁷", "₇"}, {'8', "⁸", "₈"}, {'9', "⁹", "₉"},
              {'+', "⁺", "₊"}, {'-', "⁻", "₋"}, {'(', "⁽", "₍"}, {')', "⁾", "₎"}, {'n', "ⁿ", "ₙ"}};

// In small forms where all characters have one; else "^(ab)" and "_(ab)", or "^a" for a single one.
std::string raised(const std::string& text, bool above) {
  std::string small;
  for (const char c : text) {
    const auto found =
        std::find_if(std::begin(kSmall), std::end(kSmall), [c](const auto& one) { return one.plain == c; });
    if (found == std::end(kSmall)) {
      char32_t first = 0;
      const std::string mark = above ? "^" : "_";
      return decodeUtf8(text, &first) == text.size() ? mark + text : mark + "(" + text + ")";
    }
    small += above ? found->above : found->below;
  }
  return small;
}

const char* nameOf(SpanKind kind) {
  switch (kind) {
    case SpanKind::kReference:
      return "reference";
    case SpanKind::kItem:
      return "item";
    case SpanKind::kPicture:
      return "picture";
    case SpanKind::kSound:
      return "sound";
    case SpanKind::kFilm:
      return "film";
    default:
      return "text";
  }
}

bool isMedium(SpanKind kind) {
  return kind == SpanKind::kPicture || kind == SpanKind::kSound || kind == SpanKind::kFilm;
}

// One line with its looks: from each place on the terminal is told so.
struct StyledLine {
  std::string text;
  std::map<size_t, const char*> looks;

  void add(const std::string& part, const char* look) {
    if (part.empty()) return;
    looks[text.size()] = look;
    text += part;
  }
};

const char* lookOf(const BookSpan& span) {
  if (isMedium(span.kind)) return "36";
  if (span.keyword) return "1;31";
  return span.emphasis ? "1" : span.link > 0 ? "4" : "";
}

std::string placeholder(const BookSpan& span) {
  const std::string name = span.text.empty() ? "" : " " + span.text;
  return std::string("[") + nameOf(span.kind) + " " + placeText(span.address) + name + "]";
}

StyledLine styled(const BookLine& line, const BookLook& look) {
  StyledLine out;
  for (size_t i = 0; i < line.spans.size(); ++i) {
    const BookSpan& span = line.spans[i];
    const bool small = span.superscript || span.subscript;
    out.add(isMedium(span.kind) ? placeholder(span)
            : small             ? raised(span.text, span.superscript)
                                : span.text,
            lookOf(span));
    const bool linkEnds =
        span.link > 0 && (i + 1 == line.spans.size() || line.spans[i + 1].link != span.link);
    const bool told = look.places == LinkPlaces::kBehind;
    if (linkEnds && told) out.add("→" + placeText(span.address), "2");
  }
  return out;
}

// Bytes [begin, end) of a line.
std::string part(const StyledLine& line, size_t begin, size_t end, bool colour) {
  if (!colour) return line.text.substr(begin, end - begin);
  std::string out;
  auto next = line.looks.upper_bound(begin);
  const char* look = next == line.looks.begin() ? "" : std::prev(next)->second;
  for (size_t at = begin; at < end;) {
    const size_t stop = next == line.looks.end() ? end : std::min(next->first, end);
    const std::string piece = line.text.substr(at, stop - at);
    out += *look ? std::string("\x1b[") + look + "m" + piece + "\x1b[0m" : piece;
    at = stop;
    if (next != line.looks.end()) look = next++->second;
  }
  return out;
}

size_t indentOf(const BookLine& line, size_t width) {
  const size_t most = width == 0 ? kDeepestIndent : std::min(kDeepestIndent, width / 2);
  const size_t left = width > kNarrowestText || width == 0 ? most : 0;
  return std::min<size_t>(line.indent, left);
}

struct Link {
  std::string text;
  _SDICADDRESS place = {};
};

bool samePlace(const _SDICADDRESS& one, const _SDICADDRESS& other) {
  return one.block == other.block && one.offset == other.offset;
}

// What the text leads to, in its order. One that goes on in the next line has lost the blank between its
// words.
std::vector<Link> allLinks(const BookText& text) {
  std::vector<Link> links;
  unsigned last = 0;
  for (const BookLine& line : text.lines) {
    for (const BookSpan& span : line.spans) {
      if (span.link == 0) continue;
      const bool first = &span == &line.spans.front();
      const bool goesOn = !links.empty() && samePlace(links.back().place, span.address) && first;
      if (goesOn) links.back().text += " " + span.text;
      if (!goesOn && span.link == last) links.back().text += span.text;
      if (!goesOn && span.link != last) links.push_back({span.text, span.address});
      last = span.link;
    }
  }
  return links;
}

// Each place once.
std::vector<Link> linksOf(const BookText& text, const _SDICADDRESS& self) {
  std::vector<Link> links;
  for (Link& link : allLinks(text)) {
    const bool known = samePlace(self, link.place) ||
                       std::any_of(links.begin(), links.end(),
                                   [&link](const Link& other) { return samePlace(other.place, link.place); });
    if (!known) links.push_back(std::move(link));
  }
  return links;
}

constexpr const char* kReferences = "References: ";
constexpr const char* kUnbroken = "\xC2\xA0";  // a blank at which no line breaks

std::string linksBelow(const BookText& text, const BookLook& look) {
  StyledLine line;
  for (const Link& link : linksOf(text, look.self)) {
    line.add(line.text.empty() ? kReferences : ", ", "2");
    line.add(link.text + (link.text.empty() ? "" : kUnbroken), "");
    line.add(placeText(link.place), "2");
  }
  std::string out;
  if (line.text.empty()) return out;
  for (const ByteRange& row : breakLines(line.text, look.width, 2)) {
    out += (out.empty() ? "" : "  ") + part(line, row.begin, row.end, look.colour) + "\n";
  }
  for (size_t at = 0; (at = out.find(kUnbroken, at)) != std::string::npos;) out.replace(at, 2, " ");
  return out;
}

}  // namespace

std::string textForEye(const BookText& text, const BookLook& look) {
  std::string out;
  for (const BookLine& line : text.lines) {
    const StyledLine whole = styled(line, look);
    const size_t indent = indentOf(line, look.width);
    const size_t width = look.width > indent ? look.width - indent : 0;
    const std::vector<ByteRange> rows = breakLines(whole.text, width, 0);
    for (const ByteRange& row : rows) {
      if (row.end > row.begin) out.append(indent, ' ');
      out += part(whole, row.begin, row.end, look.colour) + "\n";
    }
    if (rows.empty()) out += "\n";
  }
  return look.places == LinkPlaces::kBelow ? out + linksBelow(text, look) : out;
}

void writeLines(JsonWriter& json, const BookText& text) {
  json.beginArray();
  for (const BookLine& line : text.lines) {
    json.beginObject().member("indent", int64_t{line.indent}).key("spans").beginArray();
    for (const BookSpan& span : line.spans) {
      json.beginObject().member("type", nameOf(span.kind)).member("text", span.text);
      json.key("styles").beginArray();
      if (span.keyword) json.string("keyword");
      if (span.emphasis) json.string("emphasis");
      if (span.subscript) json.string("subscript");
      if (span.superscript) json.string("superscript");
      json.endArray().key("place");
      if (span.kind == SpanKind::kText) {
        json.null();
      } else {
        json.string(placeText(span.address));
      }
      json.endObject();
    }
    json.endArray().endObject();
  }
  json.endArray();
}

}  // namespace zavel::host
