// Tests: tests/zavel/TextViewTest.cpp
#include "TextView.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "Dictionaries.h"
#include "TranslationLines.h"
#include "Utf8.h"

namespace zavel::host {
namespace {

constexpr const char* kReset = "\x1b[0m";
constexpr size_t kHeadwordsShown = 12;

// The terminal's own palette stands for the runs' colours, so that they suit its background: the dictionary's
// headword red, its sense number blue.
const char* sgrColour(uint32_t colour) {
  const bool red = (colour >> 16) > 0x7F, green = ((colour >> 8) & 0xFF) > 0x7F,
             blue = (colour & 0xFF) > 0x7F;
  if (red && green && blue) return "37";
  if (red && green) return "33";
  if (red && blue) return "35";
  if (green && blue) return "36";
  if (red) return "31";
  if (green) return "32";
  if (blue) return "94";
  return nullptr;
}

std::string sgr(const Span& span) {
  std::string codes = "0";
  if (span.bold) codes += ";1";
  if (span.italic) codes += ";3";
  if (const char* colour = sgrColour(span.colour)) codes += std::string(";") + colour;
  return codes == "0" ? kReset : "\x1b[" + codes + "m";
}

std::string dim(const std::string& text, bool colour) {
  return colour ? "\x1b[2m" + text + kReset : text;
}

// Text [begin, end) of an entry with its spans' looks.
std::string styled(const Entry& entry, size_t begin, size_t end, bool colour) {
  if (!colour) return entry.text.substr(begin, end - begin);
  std::string out;
  size_t at = begin;
  // From the last span that begins at `begin` or ahead of it: an entry may have as many spans as rows.
  const auto behind = std::upper_bound(entry.spans.begin(), entry.spans.end(), begin,
                                       [](size_t place, const Span& span) { return place < span.begin; });
  size_t i = static_cast<size_t>(std::max<std::ptrdiff_t>(behind - entry.spans.begin(), 1)) - 1;
  for (; i < entry.spans.size() && at < end; ++i) {
    const size_t spanEnd = i + 1 < entry.spans.size() ? entry.spans[i + 1].begin : entry.text.size();
    const size_t stop = std::min(spanEnd, end);
    out += sgr(entry.spans[i]) + entry.text.substr(at, stop - at);
    at = stop;
  }
  return out + kReset;
}

std::string raised(int number) {
  static constexpr const char* kDigits[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
  std::string out;
  for (const char digit : std::to_string(number)) out += kDigits[digit - '0'];
  return out;
}

// What stands behind a headword: its number among words of one spelling, its frequency.
std::string headwordMarks(const Entry& entry) {
  std::string marks;
  if (entry.homograph > 0) marks += raised(entry.homograph);
  if (entry.stars > 0) marks += ' ';
  // Not "★": fonts draw it wider than terminals count it.
  marks.append(static_cast<size_t>(entry.stars), '*');
  return marks;
}

// A reference to another spelling, as the dictionary files it: "《英》 =color(3)." names a homograph in
// brackets and ends in a stop. The number is raised here, the stop falls.
std::string tidyReference(std::string row) {
  size_t at = row.find("》 =");
  if (at == std::string::npos) return row;
  while ((at = row.find('(', at)) != std::string::npos) {
    const size_t close = row.find(')', at);
    const std::string digits = row.substr(at + 1, close == std::string::npos ? 0 : close - at - 1);
    const bool number =
        !digits.empty() && digits.size() <= 2 && digits.find_first_not_of("0123456789") == std::string::npos;
    if (number) row.replace(at, digits.size() + 2, raised(std::stoi(digits)));
    ++at;
  }
  const size_t end = std::min(row.rfind('\x1b'), row.size());
  size_t cut = end;
  while (cut > 0 && (row[cut - 1] == '.' || row[cut - 1] == ' ')) --cut;
  return row.erase(cut, end - cut);
}

// A line that begins a sense: its number, and where the text behind the number begins.
struct SenseLine {
  int number = 0;  // 0 for other lines
  size_t indent = 0;
};

SenseLine senseLineOf(std::string_view line) {
  SenseLine sense;
  sense.indent = std::min(line.find_first_not_of(' '), line.size());
  size_t end = sense.indent;
  while (end < line.size() && line[end] >= '0' && line[end] <= '9' && end - sense.indent < 3) ++end;
  if (sense.indent == 0 || end == sense.indent || end >= line.size() || line[end] != ' ') return sense;
  sense.number = std::stoi(std::string(line.substr(sense.indent, end - sense.indent)));
  sense.indent = end + 1;
  return sense;
}

std::string entryText(const Entry& entry, const TextLook& look) {
  std::string out;
  size_t begin = 0;
  bool first = true, afterBlank = false;
  int number = 0;
  while (begin <= entry.text.size()) {
    const size_t end = std::min(entry.text.find('\n', begin), entry.text.size());
    const std::string_view line = std::string_view(entry.text).substr(begin, end - begin);
    const SenseLine sense = senseLineOf(line);
    // The layout parts the first nine senses by a blank line; so are the others here.
    if (sense.number > 1 && sense.number == number + 1 && !afterBlank) out += '\n';
    if (sense.number > 0) number = sense.number;
    const std::vector<ByteRange> rows = breakLines(line, look.width, sense.indent);
    for (size_t i = 0; i < rows.size(); ++i) {
      if (i > 0) out += std::string(look.width > sense.indent + 10 ? sense.indent : 0, ' ');
      out += tidyReference(styled(entry, begin + rows[i].begin, begin + rows[i].end, look.colour));
      if (first && i == 0 && !entry.headword.empty()) out += headwordMarks(entry);
      out += '\n';
    }
    afterBlank = line.empty();
    first = false;
    begin = end + 1;
  }
  return out;
}

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string out;
  for (const std::string& word : words) out += (out.empty() ? "" : between) + word;
  return out;
}

// One quiet line that says why an entry of another word answers.
std::string reason(const LookResult& result, const Entry& entry) {
  const std::string query = withoutControls(result.query);
  const std::string& base = entry.base.empty() ? result.origin : entry.base;
  switch (entry.match) {
    case Match::kExact:
      return {};
    case Match::kInflected:
      // English names are alternatives, Japanese ones a chain.
      return query + ": " +
             (entry.via.empty() ? "inflected form" : joined(entry.via, result.english ? ", " : " of ")) +
             " of " + base;
    case Match::kDerived:
      return query + ": derived from " + entry.headword;
    case Match::kSpelling:
      return entry.headword + ": other spelling of " + base;
    case Match::kNear:
      return (entry.reading.empty() ? entry.headword : entry.reading + " " + entry.headword) + ": near " +
             query;
  }
  return {};
}

size_t shown(size_t count, size_t limit) {
  return limit > 0 ? std::min(count, limit) : count;
}

// A text that is not the dictionaries' own, wrapped.
std::string quietLines(const std::string& text, const TextLook& look) {
  std::string out;
  for (const ByteRange& row : breakLines(text, look.width, 0)) {
    out += dim(text.substr(row.begin, row.end - row.begin), look.colour) + "\n";
  }
  return out;
}

std::string furtherHeadwords(const LookResult& result, const TextLook& look) {
  std::vector<std::string> words;
  for (const Headword& headword : result.headwords) {
    const bool entry = std::any_of(result.entries.begin(), result.entries.end(), [&](const Entry& e) {
      return e.headword == headword.keyword || e.reading == headword.keyword;
    });
    const bool again = std::find(words.begin(), words.end(), headword.keyword) != words.end();
    if (!entry && !again && headword.keyword != result.origin) words.push_back(headword.keyword);
  }
  if (words.empty()) return {};
  const size_t more = words.size() > kHeadwordsShown ? words.size() - kHeadwordsShown : 0;
  if (more > 0) words.resize(kHeadwordsShown);
  const std::string text = "See also: " + joined(words, ", ") +
                           (more > 0 ? ", and " + std::to_string(more) + " more (--list)" : std::string());
  return "\n" + quietLines(text, look);
}

std::string entriesText(const LookResult& result, const TextLook& look) {
  std::string out, last;
  const size_t count = shown(result.entries.size(), look.limit);
  for (size_t i = 0; i < count; ++i) {
    const Entry& entry = result.entries[i];
    if (i > 0) out += '\n';
    const std::string why = reason(result, entry);
    if (!why.empty() && why != last) out += quietLines(why, look) + "\n";
    last = why;
    out += entryText(entry, look);
  }
  if (count < result.entries.size()) {
    const size_t left = result.entries.size() - count;
    const std::string more =
        std::to_string(left) + (left == 1 ? " more entry" : " more entries") + " (--limit)";
    out += "\n" + quietLines(more, look);
  }
  return out + furtherHeadwords(result, look);
}

// A quiet line that begins what one dictionary says.
std::string heading(const std::string& title, const TextLook& look) {
  return quietLines("── " + title + " ──", look);
}

// Each line wrapped below its own beginning.
std::string linesText(const std::string& text, const TextLook& look) {
  std::string out;
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    const std::string_view line = std::string_view(text).substr(begin, end - begin);
    const size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    const size_t indent = look.width > blanks + 12 ? blanks + 2 : 0;
    const std::vector<ByteRange> rows = breakLines(line, look.width, indent);
    for (size_t i = 0; i < rows.size(); ++i) {
      if (i > 0) out += std::string(indent, ' ');
      out += std::string(line.substr(rows[i].begin, rows[i].end - rows[i].begin)) + "\n";
    }
    begin = end + 1;
  }
  return out;
}

// The translation dictionary's answer, behind a quiet line that tells what it is about when that is not what
// was asked.
std::string translationText(const Row& row, const TextLook& look) {
  const std::string kept = firstEntries(row.text, row.title, look.limit);
  std::string out;
  if (!row.lookedUp.empty()) out += quietLines(row.title + ": looked up as " + row.lookedUp, look) + "\n";
  out += linesText(kept, look);
  if (kept != row.text) out += "\n" + quietLines("more entries (--limit)", look);
  return out;
}

std::string textOf(const Row& row, const TextLook& look) {
  if (row.kind != RowKind::kBilingual) return translationText(row, look);
  Entry entry;
  entry.text = row.text;
  entry.spans = row.spans;
  return entryText(entry, look);
}

// What the dictionaries of one kind say; empty when they say nothing.
std::string kindText(const LookResult& result, RowKind kind, const TextLook& look) {
  if (kind == RowKind::kBilingual) {
    return result.entries.empty() ? std::string() : entriesText(result, look);
  }
  std::string out;
  for (const Row& row : result.rows) {
    if (row.kind == kind) out += (out.empty() ? "" : "\n") + textOf(row, look);
  }
  return out;
}

}  // namespace

std::string answerText(const LookResult& result, const TextLook& look) {
  const bool bilingualAlone = !result.hasAnswer(RowKind::kTranslation);
  if (bilingualAlone) return entriesText(result, look);
  std::string out;
  // The user's own, where the bilingual dictionary beside which they stand is off.
  const bool off =
      std::find(result.kinds.begin(), result.kinds.end(), RowKind::kBilingual) == result.kinds.end();
  if (off && !result.entries.empty()) out = entriesText(result, look);
  for (const RowKind kind : result.kinds) {
    const std::string text = kindText(result, kind, look);
    if (text.empty()) continue;
    out += (out.empty() ? "" : "\n") + heading(dictionaryName(kind), look) + text;
  }
  return out;
}

std::string rowText(const LookResult& result, size_t row, const TextLook& look) {
  const Row& shown = result.rows[row];
  const std::string place = std::to_string(row + 1) + "/" + std::to_string(result.rows.size());
  return heading(place + " " + shown.title + ", " + dictionaryName(shown.kind), look) + textOf(shown, look);
}

std::string headwordText(const LookResult& result, const TextLook& look) {
  std::string out;
  const size_t count = shown(result.headwords.size(), look.limit);
  for (size_t i = 0; i < count; ++i) out += result.headwords[i].line + "\n";
  return out;
}

std::string formsText(const LookResult& result, const TextLook& look) {
  size_t width = 0;
  for (const Form& form : result.forms) width = std::max(width, columns(form.form));
  std::string out;
  const std::string* base = nullptr;
  for (const Form& form : result.forms) {
    if (base && *base != form.base) out += '\n';  // the table of another word
    base = &form.base;
    const std::string gap(width - columns(form.form) + 2, ' ');
    const bool asked = form.form == result.query;
    const std::string word = asked && look.colour ? "\x1b[1m" + form.form + kReset : form.form;
    out += word + gap + form.label + "\n";
  }
  return out;
}

}  // namespace zavel::host
