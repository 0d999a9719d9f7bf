// Tests: tests/mkbook/TextSourceTest.cpp
#include "mkbook/TextLines.h"

#include <algorithm>

#include "mkbook/Failure.h"
#include "mkbook/InputFile.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

std::string readFile(const std::string& path) {
  std::string text;
  switch (readInput(path, TextLines::kLargestFile, &text)) {
    case InputState::kRead:
      break;
    case InputState::kTooLarge:
      throw Failure(mkdict::kExitDamaged, "too_large", path + " has more than 256 MB",
                    "Make several books of it.");
    case InputState::kUnreadable:
      throw Failure(mkdict::kExitEnvironment, "missing_input", path + " can't be read",
                    "Give yourself the right to read it.");
    default:
      throw Failure(mkdict::kExitEnvironment, "missing_input", path + " is missing, or no file",
                    "Name a book in the form of mkbook-text(5).");
  }
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
    throw Failure(mkdict::kExitDamaged, "damaged_input", path + " is in UTF-16", "Save it as UTF-8.");
  if (text.find('\0') != std::string::npos)
    throw Failure(mkdict::kExitDamaged, "damaged_input", path + " is no text",
                  "Name a book in the form of mkbook-text(5).");
  return text;
}

bool isControl(char32_t character) {
  return (character < 0x20 && character != '\t') || character == 0x7F ||
         (character >= 0x80 && character < 0xA0);
}

}  // namespace

TextLines::TextLines(const std::string& path, SourceErrors* errors) : text_(readFile(path)) {
  size_t at = text_.starts_with(kMark) ? kMark.size() : 0;
  while (at < text_.size()) {
    starts_.push_back(static_cast<uint32_t>(at));
    at = std::min(text_.find('\n', at), text_.size() - 1) + 1;
  }
  starts_.push_back(static_cast<uint32_t>(text_.size()));
  for (size_t i = 0; i < size(); ++i) check(i, errors);
}

// What is wrong with a line is told once; the line is then as good as empty.
void TextLines::check(size_t number, SourceErrors* errors) {
  const std::string_view line = (*this)[number];
  std::string message;
  size_t at = 0, offset = 0;
  if (line.size() > kLongestLine) {
    message = "the line has more than 65535 bytes; break it in two";
  }
  while (message.empty() && at < line.size()) {
    char32_t character = 0;
    offset = at;
    if (!mkdict::takeUtf8(line, &at, &character))
      message = "this is no UTF-8; save the file in that encoding";
    if (message.empty() && isControl(character)) message = "a control character; delete it";
  }
  if (message.empty()) return;
  errors->add(number + 1, columnOf(line, offset), message);
  std::fill_n(text_.begin() + starts_[number], line.size(), '\n');
}

std::string_view TextLines::operator[](size_t number) const {
  std::string_view line =
      std::string_view(text_).substr(starts_[number], starts_[number + 1] - starts_[number]);
  while (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

size_t columnOf(std::string_view line, size_t offset) {
  size_t column = 1;
  for (size_t at = 0; at < offset && at < line.size(); ++at)
    if ((static_cast<unsigned char>(line[at]) & 0xC0) != 0x80) ++column;
  return column;
}

}  // namespace zavel::mkbook
