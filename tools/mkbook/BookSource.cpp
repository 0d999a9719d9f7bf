// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/BookSource.h"

#include "mkbook/TextWords.h"

namespace zavel::mkbook {
namespace {

std::string textOf(const std::vector<Span>& spans) {
  std::string out;
  for (const Span& span : spans) out += span.text + textOf(span.inside);
  return out;
}

void append(std::vector<std::string>* words, std::string_view text) {
  for (std::string& word : wordsOf(text)) words->push_back(std::move(word));
}

}  // namespace

std::vector<std::string> BookSource::keywords(size_t number) const {
  std::vector<std::string> out;
  for (const std::string& word : entry(number).words) append(&out, word);
  return out;
}

std::vector<std::string> BookSource::crossWords(size_t number) const {
  const BookEntry whole = entry(number);
  std::vector<std::string> out;
  append(&out, whole.headword + textOf(whole.note));
  for (const Line& line : whole.lines) append(&out, textOf(line.spans));
  return out;
}

}  // namespace zavel::mkbook
