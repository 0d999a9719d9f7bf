// Tests: tests/mkbook/MarkedTextTest.cpp
#include "mkbook/MarkedText.h"

#include <algorithm>

#include "mkdict/Trimmed.h"

namespace zavel::mkbook {
namespace {

using Kind = Span::Kind;

constexpr std::string_view kEscaped = "{}|\\@#*_^= ";
constexpr std::string_view kPicture = "picture ", kSound = "sound ";
constexpr const char* kUnknownMark =
    "unknown mark; there are {*, {_, {^, {=, {>, {>>, {picture and {sound. For the sign itself write \\{";

constexpr std::pair<char, Kind> kStyles[] = {
    {'*', Kind::kEmphasis}, {'_', Kind::kSubscript}, {'^', Kind::kSuperscript}, {'=', Kind::kKeyword}};

void append(std::vector<Span>* spans, std::string_view text) {
  if (spans->empty() || spans->back().kind != Kind::kPlain) spans->emplace_back();
  spans->back().text += text;
}

// What a mark begins with is its own text, where that has no marks.
void fill(Span* span, std::vector<Span> content) {
  if (!content.empty() && content.front().kind == Kind::kPlain) {
    span->text = std::move(content.front().text);
    content.erase(content.begin());
  }
  span->inside = std::move(content);
}

// Whether a text may end with the sign that its mark began with: "{*strong*}" is "{*strong}".
bool endsAsItBegan(std::string_view text, Kind kind) {
  return std::any_of(std::begin(kStyles), std::end(kStyles),
                     [&](const auto& style) { return style.second == kind && text.ends_with(style.first); });
}

bool leads(Kind kind) {
  return kind == Kind::kReference || kind == Kind::kMenu || kind == Kind::kPicture || kind == Kind::kSound;
}

}  // namespace

std::vector<Span> MarkedText::spans() {
  std::vector<Span> out = content();
  if (!failed_ && at_ < text_.size()) fail(at_, "a } without its {. For the sign itself write \\}");
  return out;
}

bool MarkedText::fail(size_t offset, const std::string& message) {
  if (!failed_) meanings_.complain(offset, message);
  failed_ = true;
  at_ = text_.size();
  return false;
}

Span MarkedText::made(Kind kind) const {
  Span span;
  span.kind = kind;
  span.line = line_;
  return span;
}

// Up to the text's end or the brace that closes what is open.
std::vector<Span> MarkedText::content() {
  std::vector<Span> out;
  while (at_ < text_.size() && text_[at_] != '}') {
    if (text_[at_] == '{') {
      if (!mark(&out)) return out;
    } else if (text_[at_] == '\\') {
      std::string sign;
      if (!escape(&sign)) return out;
      append(&out, sign);
    } else {
      const size_t end = std::min(text_.find_first_of("{}\\", at_), text_.size());
      std::string_view part = text_.substr(at_, end - at_);
      at_ = end;
      if (at_ < text_.size() && text_[at_] == '}' && !open_.empty() && endsAsItBegan(part, open_.back()))
        part.remove_suffix(1);
      if (!part.empty()) append(&out, part);
    }
  }
  return out;
}

bool MarkedText::escape(std::string* out) {
  const char sign = at_ + 1 < text_.size() ? text_[at_ + 1] : '\0';
  if (sign == '\0' || kEscaped.find(sign) == std::string_view::npos)
    return fail(at_,
                "\\ stands ahead of { } | \\ @ # * _ ^ = and a blank alone. For the sign itself write \\\\");
  *out += sign;
  at_ += 2;
  return true;
}

bool MarkedText::mark(std::vector<Span>* out) {
  const size_t open = at_++;
  const std::string_view rest = text_.substr(at_);
  for (const auto& [sign, kind] : kStyles)
    if (rest.starts_with(sign)) return ++at_, styled(kind, open, out);
  if (rest.starts_with('>')) return ++at_, leading(open, out);
  for (const auto& [name, kind] : {std::pair(kPicture, Kind::kPicture), std::pair(kSound, Kind::kSound)})
    if (rest.starts_with(name)) return at_ += name.size(), medium(kind, open, out);
  return fail(open, kUnknownMark);
}

bool MarkedText::mayOpen(Kind kind, size_t open) {
  if (std::find(open_.begin(), open_.end(), kind) != open_.end())
    return fail(open, "a mark inside one of its own kind");
  if (leads(kind) && std::any_of(open_.begin(), open_.end(), leads))
    return fail(open, "references, pictures and sounds hold none of each other");
  return true;
}

bool MarkedText::styled(Kind kind, size_t open, std::vector<Span>* out) {
  if (!mayOpen(kind, open)) return false;
  Span span = made(kind);
  if (!caption(&span, open)) return false;
  if (!span.text.empty() || !span.inside.empty()) out->push_back(std::move(span));
  return true;
}

// What stands up to the closing brace.
bool MarkedText::caption(Span* span, size_t open) {
  open_.push_back(span->kind);
  fill(span, content());
  open_.pop_back();
  if (failed_) return false;
  if (at_ == text_.size()) return fail(open, "a { without its }. For the sign itself write \\{");
  ++at_;
  return true;
}

// Up to | or the closing brace, which isn't passed.
bool MarkedText::target(std::string* out, size_t open) {
  while (at_ < text_.size() && text_[at_] != '|' && text_[at_] != '}') {
    if (text_[at_] == '{') return fail(at_, "a mark where a name is looked for");
    if (text_[at_] == '\\') {
      if (!escape(out)) return false;
    } else {
      *out += text_[at_++];
    }
  }
  if (at_ == text_.size()) return fail(open, "a { without its }. For the sign itself write \\{");
  *out = std::string(mkdict::trimmed(*out));
  return !out->empty() || fail(open, "a mark that names nothing");
}

bool MarkedText::leading(size_t open, std::vector<Span>* out) {
  const bool menu = at_ < text_.size() && text_[at_] == '>';
  if (menu) ++at_;
  const bool label = !menu && at_ < text_.size() && text_[at_] == '#';
  if (label) ++at_;
  Span span = made(menu ? Kind::kMenu : Kind::kReference);
  std::string name;
  if (!mayOpen(span.kind, open) || !target(&name, open)) return false;
  const bool named = text_[at_] == '|';
  if (named) ++at_;
  if (!caption(&span, open)) return false;
  if (span.text.empty() && span.inside.empty() && !label) span.text = name;
  span.target = name;
  if (menu) meanings_.menu(&span, name, open);
  if (label) meanings_.label(&span, name);
  out->push_back(std::move(span));
  return true;
}

bool MarkedText::medium(Kind kind, size_t open, std::vector<Span>* out) {
  Span span = made(kind);
  std::string file;
  if (!mayOpen(kind, open) || !target(&file, open)) return false;
  if (text_[at_] == '|') ++at_;
  if (!caption(&span, open)) return false;
  if (kind == Kind::kSound && span.text.empty() && span.inside.empty()) span.text = "♪";
  meanings_.medium(&span, file, open);
  out->push_back(std::move(span));
  return true;
}

}  // namespace zavel::mkbook
