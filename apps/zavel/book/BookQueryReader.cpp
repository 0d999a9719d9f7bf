// Tests: tests/zavel/book/BookQueryTest.cpp
#include "book/BookQueryReader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "Utf8.h"
#include "book/BookFailure.h"

namespace zavel::host {
namespace {

constexpr unsigned kDeepest = 200;  // groups in groups
constexpr unsigned kMostWords = 1000;

bool isBlank(char32_t c) {
  return c == ' ' || c == '\t' || c == '\n' || c == 0x3000;
}

std::string lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return text;
}

}  // namespace

// Signs part words wherever they stand; "and", "or", "&" and "|" are words of their own.
void BookQueryReader::split(std::string_view text) {
  struct SignRow {
    char32_t character;
    Sign sign;
    BookMethod method = BookMethod::kExact;
  };
  static constexpr SignRow kSigns[] = {{'(', Sign::kOpen},
                                       {U'（', Sign::kOpen},
                                       {U'⊂', Sign::kOpen},
                                       {')', Sign::kClose},
                                       {U'）', Sign::kClose},
                                       {U'⊃', Sign::kClose},
                                       {U'◇', Sign::kAnd},
                                       {U'│', Sign::kOr},
                                       {U'◆', Sign::kMethod, BookMethod::kExact},
                                       {U'□', Sign::kMethod, BookMethod::kForward},
                                       {U'■', Sign::kMethod, BookMethod::kBackward},
                                       {U'△', Sign::kMethod, BookMethod::kCross},
                                       {U'▲', Sign::kMethod, BookMethod::kKeyword},
                                       {U'▽', Sign::kForm},
                                       {U'▼', Sign::kField}};
  std::string word;
  char32_t c = 0;
  for (size_t length = 0; (length = decodeUtf8(text, &c)) > 0; text.remove_prefix(length)) {
    const auto row = std::find_if(std::begin(kSigns), std::end(kSigns),
                                  [c](const SignRow& one) { return one.character == c; });
    const bool sign = row != std::end(kSigns);
    if (c != '"' && !sign && !isBlank(c)) {
      word += text.substr(0, length);
      continue;
    }
    addWord(std::exchange(word, {}));
    if (sign) tokens_.push_back({row->sign, std::string(text.substr(0, length)), row->method});
    if (c != '"') continue;
    quoteOpen_ = text.find('"', 1) == std::string_view::npos;
    const size_t end = std::min(text.find('"', 1), text.size());
    tokens_.push_back({Sign::kQuoted, std::string(text.substr(1, end - 1))});
    length = std::min(end + 1, text.size());
  }
  addWord(word);
}

void BookQueryReader::addWord(std::string word) {
  if (word.empty()) return;
  const std::string plain = lower(word);
  const Sign sign = plain == "and" || plain == "&"  ? Sign::kAnd
                    : plain == "or" || plain == "|" ? Sign::kOr
                                                    : Sign::kWord;
  tokens_.push_back({sign, std::move(word)});
}

std::unique_ptr<BookQuery> BookQueryReader::read(std::string* wrong) {
  std::unique_ptr<BookQuery> query = quoteOpen_        ? fail("a quote isn't ended")
                                     : tokens_.empty() ? fail("it is empty")
                                                       : combination(0);
  if (query && next_ < tokens_.size()) {
    query = fail(at(Sign::kClose) ? "a group ends that wasn't begun"
                                  : "\"and\" or \"or\" is missing ahead of " + quoted(tokens_[next_].text));
  }
  *wrong = wrong_;
  return query;
}

std::unique_ptr<BookQuery> BookQueryReader::fail(const std::string& why) {
  wrong_ = why;
  return nullptr;
}

std::unique_ptr<BookQuery> BookQueryReader::combination(unsigned depth) {
  std::unique_ptr<BookQuery> query = operand(depth);
  while (query && (at(Sign::kAnd) || at(Sign::kOr))) {
    if (++operands_ > kMostWords) return fail("it has more than 1,000 words");
    auto both = std::make_unique<BookQuery>();
    both->kind = at(Sign::kAnd) ? BookQuery::Kind::kAnd : BookQuery::Kind::kOr;
    ++next_;
    both->left = std::move(query);
    both->right = operand(depth);
    if (!both->right) return nullptr;
    query = std::move(both);
  }
  return query;
}

std::unique_ptr<BookQuery> BookQueryReader::operand(unsigned depth) {
  if (next_ == tokens_.size()) {
    return fail(next_ == 0 ? "it is empty" : "a word is missing behind " + quoted(tokens_[next_ - 1].text));
  }
  if (at(Sign::kForm)) return form();
  if (!at(Sign::kOpen)) return word();
  if (depth == kDeepest) return fail("it has groups more than 200 deep");
  ++next_;
  std::unique_ptr<BookQuery> group = combination(depth + 1);
  if (!group) return nullptr;
  if (!at(Sign::kClose)) {
    return fail(next_ == tokens_.size()
                    ? "a group isn't ended"
                    : "\"and\" or \"or\" is missing ahead of " + quoted(tokens_[next_].text));
  }
  ++next_;
  return group;
}

// Words behind one another are one.
std::string BookQueryReader::words() {
  std::string text;
  if (at(Sign::kQuoted)) return tokens_[next_++].text;
  while (at(Sign::kWord)) text += (text.empty() ? "" : " ") + tokens_[next_++].text;
  return text;
}

std::unique_ptr<BookQuery> BookQueryReader::word() {
  auto query = std::make_unique<BookQuery>();
  std::optional<BookMethod> method;
  if (at(Sign::kMethod)) method = tokens_[next_++].method;
  const bool quotedWord = at(Sign::kQuoted);
  query->word = words();
  if (query->word.empty()) {
    const std::string where =
        next_ < tokens_.size() ? " ahead of " + quoted(tokens_[next_].text) : " at its end";
    return fail("a word is missing" + where);
  }
  if (!quotedWord && !method && query->word.size() > 1) {
    if (query->word.ends_with('*')) {
      method = BookMethod::kForward;
      query->word.pop_back();
    } else if (query->word.starts_with('*')) {
      method = BookMethod::kBackward;
      query->word.erase(0, 1);
    }
    if (query->word.find('*') != std::string::npos) return fail("\"*\" may stand at one end of a word alone");
  }
  query->method = method.value_or(method_);
  return query;
}

// A digit at the beginning of the next word, taken off it.
bool BookQueryReader::number(unsigned* number) {
  if (!at(Sign::kWord)) return false;
  std::string& text = tokens_[next_].text;
  char32_t c = 0;
  const size_t length = decodeUtf8(text, &c);
  if (c >= U'０' && c <= U'９') c = c - U'０' + '0';
  if (c < '0' || c > '9') return false;
  *number = c - '0';
  text.erase(0, length);
  if (text.empty()) ++next_;
  return true;
}

std::unique_ptr<BookQuery> BookQueryReader::form() {
  auto query = std::make_unique<BookQuery>();
  query->kind = BookQuery::Kind::kForm;
  ++next_;
  if (!number(&query->form)) return fail("the number of a form is missing behind \"▽\"");
  while (at(Sign::kField)) {
    ++next_;
    unsigned field = 0;
    if (!number(&field)) return fail("the number of a field is missing behind \"▼\"");
    query->keys.emplace_back(field, words());
    if (query->keys.back().second.empty()) return fail("a field is empty");
  }
  return query->keys.empty() ? fail("a form has no field: ▼, its number and a word") : std::move(query);
}

}  // namespace zavel::host
