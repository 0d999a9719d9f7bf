// Tests: tests/zavel/PlainViewTest.cpp
#include "PlainView.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "TranslationLines.h"
#include "Utf8.h"
#include "WordForms.h"

namespace zavel::host {
namespace {

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string out;
  for (const std::string& word : words) out += (out.empty() ? "" : between) + word;
  return out;
}

std::string record(std::initializer_list<std::string_view> fields) {
  std::string out;
  bool first = true;
  for (const std::string_view field : fields) {
    if (!first) out += '\t';
    first = false;
    std::string one(field);
    std::replace_if(
        one.begin(), one.end(), [](char c) { return c == '\t' || c == '\n'; }, ' ');
    out += withoutControls(std::move(one));
  }
  return out + '\n';
}

size_t shown(size_t count, size_t limit) {
  return limit > 0 ? std::min(count, limit) : count;
}

// What the translation dictionary says, a record a line.
std::string translations(const LookResult& result, size_t limit) {
  std::string out;
  for (const Row& row : result.rows) {
    if (row.kind != RowKind::kTranslation) continue;
    const std::string kept = firstEntries(row.text, row.title, limit);
    for (size_t begin = 0; begin < kept.size();) {
      const size_t end = std::min(kept.find('\n', begin), kept.size());
      const size_t text = std::min(kept.find_first_not_of(' ', begin), end);
      if (text < end) {
        out += record({result.query, row.lookedUp.empty() ? row.title : row.lookedUp, "", "translation",
                       std::string_view(kept).substr(text, end - text), ""});
      }
      begin = end + 1;
    }
  }
  return out;
}

}  // namespace

std::string plainEntries(const LookResult& result, size_t limit) {
  std::string out;
  const size_t count = shown(result.entries.size(), limit);
  for (size_t i = 0; i < count; ++i) {
    const Entry& entry = result.entries[i];
    const auto add = [&](std::string_view pos, std::string_view text, std::string_view more) {
      out += entry.user ? record({result.query, entry.headword, entry.reading, pos, text, more, "user"})
                        : record({result.query, entry.headword, entry.reading, pos, text, more});
    };
    for (const Sense& sense : entry.senses) {
      if (!sense.glosses.empty() || !sense.note.empty()) {
        add(joined(sense.pos, ","), joined(sense.glosses, "; "), sense.note);
      }
      for (const Example& example : sense.examples) add("example", example.source, example.target);
    }
  }
  return out + translations(result, limit);
}

std::string plainHeadwords(const LookResult& result, size_t limit) {
  std::string out;
  const size_t count = shown(result.headwords.size(), limit);
  for (size_t i = 0; i < count; ++i) {
    out += record({result.headwords[i].keyword, result.headwords[i].line});
  }
  return out;
}

std::string plainForms(const LookResult& result) {
  std::string out;
  for (const Form& form : result.forms) out += record({form.form, formName(form.code), form.label});
  return out;
}

}  // namespace zavel::host
