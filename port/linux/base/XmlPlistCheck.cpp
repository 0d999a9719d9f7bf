// One pass over the elements with a list of the open ones. Leaves are read whole, from their opening to
// their closing tag. Tests: tests/port/PlistPropertyListsTest.cpp
#include "base/XmlPlistCheck.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/PlistLimits.h"
#include "base/PlistText.h"
#include "foundation/Utf8.h"

namespace zavel {
namespace {

constexpr std::string_view kSpaces = " \t\r\n";

std::string_view trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(kSpaces);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// All of `text` as an unsigned number to `base`.
bool readNumber(std::string_view text, int base, uint64_t* out) {
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, *out, base);
  return error == std::errc() && stop == end;
}

bool isInteger(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    text.remove_prefix(2);
    base = 16;
  } else if (text.size() > 1 && text[0] == '0') {
    return false;  // the library would take it for octal
  }
  uint64_t magnitude = 0;
  if (!readNumber(text, base, &magnitude)) return false;
  return magnitude <= static_cast<uint64_t>(INT64_MAX) + (negative ? 1 : 0);
}

bool isReal(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return false;
  }
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return error == std::errc() && stop == end;
}

// Days from 1970-01-01 to a day of the Gregorian calendar, by counting years from March.
int64_t daysTo(int64_t year, int64_t month, int64_t day) {
  year -= month <= 2 ? 1 : 0;
  const int64_t era = year / 400;
  const int64_t yearOfEra = year - era * 400;
  const int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

int64_t daysInMonth(int64_t year, int64_t month) {
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  if (month == 2) return leap ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

// "2001-01-01T00:00:00Z", a moment that exists and that the library can hold.
bool isDate(std::string_view text) {
  constexpr std::string_view kShape = "0000-00-00T00:00:00Z";
  if (text.size() != kShape.size()) return false;
  for (size_t i = 0; i < text.size(); ++i)
    if (kShape[i] == '0' ? !isDigit(text[i]) : text[i] != kShape[i]) return false;
  const auto part = [&](size_t at, size_t length) {
    uint64_t value = 0;
    readNumber(text.substr(at, length), 10, &value);
    return static_cast<int64_t>(value);
  };
  const int64_t year = part(0, 4), month = part(5, 2), day = part(8, 2);
  const int64_t hour = part(11, 2), minute = part(14, 2), second = part(17, 2);
  if (month < 1 || month > 12 || day < 1 || day > daysInMonth(year, month)) return false;
  if (hour > 23 || minute > 59 || second > 59) return false;
  const int64_t days = daysTo(year, month, day) - daysTo(2001, 1, 1);
  const int64_t seconds = days * 86400 + hour * 3600 + minute * 60 + second;
  return seconds >= kPlistFirstDate && seconds <= kPlistLastDate;
}

bool isBase64(std::string_view text) {
  size_t digits = 0;
  size_t fill = 0;
  for (char c : text) {
    if (kSpaces.find(c) != std::string_view::npos) continue;
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (c == '=') {
      ++fill;
    } else if (fill > 0 || !(letter || isDigit(c) || c == '+' || c == '/')) {
      return false;
    }
    ++digits;
  }
  return fill <= 2 && digits % 4 == 0;
}

// The character of a reference by the name between "&" and ";"; 0 when it is none.
char32_t referredBy(std::string_view name) {
  static constexpr std::pair<std::string_view, char32_t> kNames[] = {
      {"lt", U'<'}, {"gt", U'>'}, {"amp", U'&'}, {"apos", U'\''}, {"quot", U'"'}};
  for (const auto& [known, character] : kNames)
    if (name == known) return character;
  if (!name.starts_with('#')) return 0;
  name.remove_prefix(1);
  const bool hexadecimal = name.starts_with('x');
  if (hexadecimal) name.remove_prefix(1);
  uint64_t code = 0;
  if (!readNumber(name, hexadecimal ? 16 : 10, &code) || code > 0x10FFFF) return 0;
  return isPlistCharacter(static_cast<char32_t>(code)) ? static_cast<char32_t>(code) : 0;
}

// Appends `text` with its references resolved. False when one of them is none.
bool resolve(std::string_view text, std::string* out) {
  constexpr size_t kLongestName = 10;
  for (;;) {
    const size_t at = text.find('&');
    *out += text.substr(0, at);
    if (at == std::string_view::npos) return true;
    text.remove_prefix(at + 1);
    const size_t end = text.substr(0, kLongestName + 1).find(';');
    if (end == std::string_view::npos) return false;
    const char32_t character = referredBy(text.substr(0, end));
    if (character == 0) return false;
    appendUtf8(*out, character);
    text.remove_prefix(end + 1);
  }
}

// Appends any text as one CDATA section or, where the text holds the end of one, as several.
void appendSections(std::string_view text, std::string* out) {
  *out += "<![CDATA[";
  for (size_t at = text.find("]]>"); at != std::string_view::npos; at = text.find("]]>")) {
    *out += text.substr(0, at + 2);
    *out += "]]><![CDATA[";
    text.remove_prefix(at + 2);
  }
  *out += text;
  *out += "]]>";
}

// Where they pair, no closing bracket that we take for the end of some markup stands inside a quotation.
bool hasPairedQuotes(std::string_view markup) {
  return std::count(markup.begin(), markup.end(), '"') % 2 == 0 &&
         std::count(markup.begin(), markup.end(), '\'') % 2 == 0;
}

enum class Element {
  kUnknown,
  kPlist,
  kDict,
  kArray,
  kKey,
  kString,
  kInteger,
  kReal,
  kTrue,
  kFalse,
  kDate,
  kData
};

Element elementOf(std::string_view name) {
  static constexpr std::pair<std::string_view, Element> kNames[] = {
      {"plist", Element::kPlist}, {"dict", Element::kDict},     {"array", Element::kArray},
      {"key", Element::kKey},     {"string", Element::kString}, {"integer", Element::kInteger},
      {"real", Element::kReal},   {"true", Element::kTrue},     {"false", Element::kFalse},
      {"date", Element::kDate},   {"data", Element::kData}};
  for (const auto& [known, element] : kNames)
    if (name == known) return element;
  return Element::kUnknown;
}

bool isText(Element element) {
  return element == Element::kString || element == Element::kKey;
}

// Whether `text`, the raw content of a leaf that is no string or key, is what that leaf may hold.
bool isLeafContent(Element leaf, std::string_view text) {
  switch (leaf) {
    case Element::kInteger:
      return isInteger(trimmed(text));
    case Element::kReal:
      return isReal(trimmed(text));
    case Element::kDate:
      return isDate(trimmed(text));
    case Element::kData:
      return isBase64(text);
    case Element::kTrue:
    case Element::kFalse:
      return trimmed(text).empty();
    default:
      return false;
  }
}

class Checker {
 public:
  explicit Checker(std::string_view text) : text_(text) { open_.push_back({Element::kUnknown, 0, 0, false}); }

  bool run();

  // The document as the library shall read it, after run() said true.
  std::string takeResult();

 private:
  // An element that holds others; the document itself is the first, as kUnknown.
  struct Level {
    Element element;
    size_t values;  // so far
    size_t keys;
    bool keyPending;  // a map's key that waits for its value
  };

  bool checkDeclaration();
  bool checkMarkup();
  bool checkDoctype();
  bool checkOpening();
  bool checkClosing();
  bool checkLeaf(Element leaf, std::string_view name);
  bool checkLeafPiece(Element leaf, std::string_view name, bool* closed);
  bool enter(Element element, bool closed);
  bool takeValue();
  bool takeKey();
  bool takeText(std::string_view text);
  bool skipPast(std::string_view end);
  bool readTag(std::string_view* name, bool* closed);
  std::string_view rest() const { return text_.substr(at_); }

  std::string_view text_;
  size_t at_ = 0;
  std::string result_;  // what run() has passed so far, up to copied_
  size_t copied_ = 0;   // bytes of text_ that result_ stands for
  size_t counted_ = 0;  // values and keys in all
  size_t depth_ = 0;    // lists and maps among the open elements
  std::vector<Level> open_;
};

bool Checker::run() {
  if (!checkDeclaration()) return false;
  for (;;) {
    at_ = std::min(text_.find_first_not_of(kSpaces, at_), text_.size());
    if (at_ == text_.size()) return open_.size() == 1 && open_[0].values == 1;
    if (text_[at_] != '<' || !checkMarkup()) return false;
  }
}

// <?xml version="1.0" encoding="UTF-8"?>
bool Checker::checkDeclaration() {
  if (!text_.starts_with("<?xml")) return true;
  const std::string_view declaration = text_.substr(0, text_.find('>'));
  const size_t label = declaration.find("encoding");
  if (label == std::string_view::npos) return true;
  std::string_view value = declaration.substr(label + 8);
  const size_t open = value.find_first_of("\"'");
  if (open == std::string_view::npos) return false;
  value.remove_prefix(open + 1);
  value = value.substr(0, value.find_first_of("\"'"));
  std::string lower(value);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  return lower == "utf-8";
}

bool Checker::checkMarkup() {
  if (rest().starts_with("<!--")) {
    at_ += 4;
    return skipPast("-->");
  }
  if (rest().starts_with("<!DOCTYPE")) return checkDoctype();
  if (rest().starts_with("</")) return checkClosing();
  if (!rest().starts_with("<?")) return checkOpening();
  const std::string_view instruction = rest().substr(0, rest().find('>'));
  at_ += instruction.size() + 1;
  return at_ <= text_.size() && instruction.ends_with('?') && hasPairedQuotes(instruction) &&
         instruction.find('<', 1) == std::string_view::npos;
}

// Without declarations of its own, and before any value.
bool Checker::checkDoctype() {
  const std::string_view doctype = rest().substr(0, rest().find('>'));
  at_ += doctype.size() + 1;
  if (at_ > text_.size() || open_.size() != 1 || open_[0].values != 0) return false;
  return hasPairedQuotes(doctype) && doctype.find_first_of("[<", 1) == std::string_view::npos;
}

// Name of the tag that begins here; `closed` when it closes itself. Moves behind the tag.
bool Checker::readTag(std::string_view* name, bool* closed) {
  std::string_view tag = rest().substr(1);
  const size_t end = tag.find('>');
  if (end == std::string_view::npos) return false;
  at_ += end + 2;
  tag = tag.substr(0, end);
  *closed = tag.ends_with('/');
  if (*closed) tag.remove_suffix(1);
  if (tag.find('<') != std::string_view::npos || !hasPairedQuotes(tag)) return false;
  *name = tag.substr(0, tag.find_first_of(kSpaces));
  return true;
}

bool Checker::checkOpening() {
  std::string_view name;
  bool closed = false;
  if (!readTag(&name, &closed)) return false;
  const Element element = elementOf(name);
  switch (element) {
    case Element::kUnknown:
      return false;
    case Element::kPlist:
    case Element::kDict:
    case Element::kArray:
      return enter(element, closed);
    case Element::kKey:
      return takeKey() && !closed && checkLeaf(element, name);
    case Element::kString:
    case Element::kTrue:
    case Element::kFalse:
    case Element::kData:
      return takeValue() && (closed || checkLeaf(element, name));
    default:  // numbers and dates, of which no empty one exists
      return takeValue() && !closed && checkLeaf(element, name);
  }
}

bool Checker::enter(Element element, bool closed) {
  const bool whole = element == Element::kPlist;
  if (whole && (open_.size() != 1 || closed)) return false;
  if (!whole && depth_ == kPlistMaxDepth) return false;
  if (!takeValue()) return false;
  if (!whole && !closed) ++depth_;
  if (!closed) open_.push_back({element, 0, 0, false});
  return true;
}

bool Checker::checkClosing() {
  std::string_view name;
  bool closed = false;
  if (!readTag(&name, &closed) || closed || !name.starts_with('/')) return false;
  const Level& level = open_.back();
  if (open_.size() == 1 || elementOf(name.substr(1)) != level.element || level.keyPending) return false;
  if (level.element != Element::kPlist) {
    --depth_;
  } else if (level.values != 1) {
    return false;
  }
  open_.pop_back();
  return true;
}

// Counts one value where the open element has room for one.
bool Checker::takeValue() {
  Level& level = open_.back();
  const bool single = level.element == Element::kUnknown || level.element == Element::kPlist;
  if (single && level.values != 0) return false;
  if (level.element == Element::kDict && !level.keyPending) return false;
  level.keyPending = false;
  ++level.values;
  return ++counted_ <= kPlistMaxValues;
}

bool Checker::takeKey() {
  Level& level = open_.back();
  if (level.element != Element::kDict || level.keyPending) return false;
  level.keyPending = true;
  if (++level.keys > kPlistMaxKeys) return false;
  return ++counted_ <= kPlistMaxValues;
}

// Text of a string or key that begins here.
bool Checker::takeText(std::string_view text) {
  if (text.find('&') == std::string_view::npos) return true;
  std::string resolved;
  if (!resolve(text, &resolved)) return false;
  result_ += text_.substr(copied_, at_ - copied_);
  appendSections(resolved, &result_);
  copied_ = at_ + text.size();
  return true;
}

std::string Checker::takeResult() {
  result_ += text_.substr(copied_);
  return std::move(result_);
}

bool Checker::skipPast(std::string_view end) {
  const size_t found = text_.find(end, at_);
  if (found == std::string_view::npos) return false;
  at_ = found + end.size();
  return true;
}

bool Checker::checkLeaf(Element leaf, std::string_view name) {
  bool closed = false;
  while (!closed)
    if (!checkLeafPiece(leaf, name, &closed)) return false;
  return true;
}

// One run of text and the markup that ends it. Only strings and keys may go on behind a comment or hold
// a CDATA section; elsewhere the library would join what does not belong together.
bool Checker::checkLeafPiece(Element leaf, std::string_view name, bool* closed) {
  const size_t end = text_.find('<', at_);
  if (end == std::string_view::npos) return false;
  const std::string_view content = text_.substr(at_, end - at_);
  if (isText(leaf) ? !takeText(content) : !isLeafContent(leaf, content)) return false;
  at_ = end;
  if (rest().starts_with("</")) {
    std::string_view closing;
    *closed = true;
    bool selfClosed = false;
    return readTag(&closing, &selfClosed) && !selfClosed && closing.substr(1) == name;
  }
  if (!isText(leaf)) return false;
  if (rest().starts_with("<!--")) {
    at_ += 4;
    return skipPast("-->");
  }
  if (!rest().starts_with("<![CDATA[")) return false;
  at_ += 9;
  return skipPast("]]>");
}

}  // namespace

std::optional<std::string> safeXmlPlist(std::string_view text) {
  if (text.size() > kPlistMaxBytes || !isPlistText(text)) return std::nullopt;
  Checker checker(text);
  if (!checker.run()) return std::nullopt;
  return checker.takeResult();
}

}  // namespace zavel
