// The groups in parentheses that open a gloss are codes as long as EDICT's tables know them; the first one
// that they don't know begins the gloss itself. Tests: tests/mkdict/EdictTest.cpp.
#include "mkdict/EdictLine.h"

#include <algorithm>

#include "mkdict/EdictLabels.h"
#include "mkdict/Trimmed.h"

namespace zavel::mkdict {
namespace {

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (;;) {
    const size_t at = text.find(separator);
    parts.emplace_back(text.substr(0, at));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

bool isNumber(std::string_view text) {
  return !text.empty() && text.size() < 4 && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// What a group in parentheses at the head of a gloss is.
enum class Group { kText, kNumber, kPos, kSpelling, kRemark, kCommon };

Group groupOf(const std::vector<std::string>& codes) {
  const auto all = [&codes](auto test) { return std::all_of(codes.begin(), codes.end(), test); };
  if (codes.size() == 1 && isNumber(codes[0])) return Group::kNumber;
  if (codes.size() == 1 && codes[0] == "P") return Group::kCommon;
  if (all([](const std::string& code) { return posLabel(code) != nullptr; })) return Group::kPos;
  if (all([](const std::string& code) { return isSpellingRemark(code); })) return Group::kSpelling;
  if (all([](const std::string& code) { return remark(code) != nullptr; })) return Group::kRemark;
  return Group::kText;
}

// "(ita:)" as "(Italian)", "(fre: cafe)" as "(French: cafe)", wherever they stand.
std::string withLanguages(std::string_view gloss) {
  std::string out;
  while (true) {
    const size_t open = gloss.find('(');
    const size_t colon = open == std::string_view::npos ? open : gloss.find_first_of(":() ", open + 1);
    if (colon == std::string_view::npos) return out += gloss;
    const char* name = gloss[colon] == ':' ? language(gloss.substr(open + 1, colon - open - 1)) : nullptr;
    out += gloss.substr(0, open + 1);
    if (name == nullptr) {
      gloss.remove_prefix(open + 1);
      continue;
    }
    const std::string_view rest = gloss.substr(colon + 1);
    const bool alone = rest.substr(0, 1) == ")";
    out += name;
    if (!alone) out += ':';
    gloss.remove_prefix(colon + 1);
  }
}

class Parser {
 public:
  explicit Parser(EdictLine* out) : out_(out) {}

  void gloss(std::string_view text);

 private:
  bool takeGroup(std::string_view* text);
  EdictSense& sense();

  EdictLine* out_;
  std::vector<std::string> pos_;      // codes of the sense being read
  std::vector<std::string> remarks_;  // codes read ahead of its first gloss
  bool newSense_ = true;              // the next gloss begins a sense
};

EdictSense& Parser::sense() {
  if (newSense_) out_->senses.push_back({pos_, std::move(remarks_), {}});
  newSense_ = false;
  remarks_.clear();
  return out_->senses.back();
}

// Takes one group off the head of a gloss if it holds codes.
bool Parser::takeGroup(std::string_view* text) {
  const size_t close = text->find(')');
  if (text->substr(0, 1) != "(" || close == std::string_view::npos) return false;
  const std::vector<std::string> codes = split(text->substr(1, close - 1), ',');
  switch (groupOf(codes)) {
    case Group::kText:
      return false;
    case Group::kNumber:
      newSense_ = true;
      break;
    case Group::kCommon:
      out_->common = true;
      break;
    case Group::kPos:
      pos_ = codes;
      newSense_ = true;
      break;
    case Group::kSpelling:
      out_->spelling.insert(out_->spelling.end(), codes.begin(), codes.end());
      break;
    case Group::kRemark:
      remarks_.insert(remarks_.end(), codes.begin(), codes.end());
      break;
  }
  *text = trimmed(text->substr(close + 1));
  return true;
}

void Parser::gloss(std::string_view text) {
  text = trimmed(text);
  if (text.substr(0, 4) == "EntL") return;
  while (takeGroup(&text)) {
  }
  if (text.empty()) return;
  std::string words;
  if (!newSense_) {  // a remark on this gloss alone
    for (const std::string& code : remarks_) words += "(" + std::string(remark(code)) + ") ";
    remarks_.clear();
  }
  sense().glosses.push_back(words + withLanguages(text));
}

}  // namespace

bool EdictLine::parse(std::string_view line, EdictLine* out) {
  *out = EdictLine();
  const size_t slash = line.find(" /");
  if (slash == std::string_view::npos || slash == 0) return false;
  std::string_view head = line.substr(0, slash);
  const size_t open = head.find(" [");
  if (open != std::string_view::npos) {
    if (head.back() != ']') return false;
    out->written = head.substr(0, open);
    out->reading = head.substr(open + 2, head.size() - open - 3);
    if (out->written.empty() || out->reading.empty()) return false;
  } else {
    out->reading = head;
  }
  Parser parser(out);
  for (const std::string& gloss : split(line.substr(slash + 2), '/')) parser.gloss(gloss);
  return !out->senses.empty();
}

}  // namespace zavel::mkdict
