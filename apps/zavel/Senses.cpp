// Reads senses out of the labelled form of a result: each tag of the entry text stands there as a label in
// 【】. A part-of-speech label opens a list of senses, a translation label one sense, a gothic run in front
// of it its number.
// Tests: tests/zavel/SensesTest.cpp
#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "EntryText.h"
#include "Utf8.h"

namespace zavel::host {
namespace {

constexpr std::string_view kOpen = "【", kClose = "】";

enum class Label { kHeadword, kPos, kGloss, kExample, kPhrase, kOtherSide, kNote, kGothic, kRoman, kOther };

Label labelOf(std::string_view name) {
  static const std::map<std::string_view, Label> kLabels = {
      {"見出し", Label::kHeadword},          {"品詞", Label::kPos},
      {"品詞：成句", Label::kPos},           {"訳語", Label::kGloss},
      {"訳語：成句", Label::kGloss},         {"用例･句例", Label::kExample},
      {"用例：成句", Label::kExample},       {"成句･文例", Label::kPhrase},
      {"和訳：用例", Label::kOtherSide},     {"囲み、表、その他の解説・注記", Label::kNote},
      {"解説：成句", Label::kNote},          {"ニュースゴシック", Label::kGothic},
      {"ローマン(標準書体)", Label::kRoman},
  };
  const auto it = kLabels.find(name);
  return it == kLabels.end() ? Label::kOther : it->second;
}

// A label and the text behind it up to the next label.
struct Piece {
  Label label;
  std::string_view text;
};

// Brackets 【】 also occur in the text itself: only known names open a piece.
std::vector<Piece> piecesOf(std::string_view text) {
  std::vector<Piece> pieces;
  Label label = Label::kOther;
  size_t begin = 0, at = 0;
  while ((at = text.find(kOpen, at)) != std::string_view::npos) {
    const size_t close = text.find(kClose, at);
    if (close == std::string_view::npos) break;
    const size_t name = at + kOpen.size();
    const Label next = labelOf(text.substr(name, close - name));
    if (next == Label::kOther) {
      at = name;
      continue;
    }
    pieces.push_back({label, text.substr(begin, at - begin)});
    label = next;
    at = begin = close + kClose.size();
  }
  pieces.push_back({label, text.substr(begin)});
  return pieces;
}

std::string_view trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(" \r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \r\n") - first + 1);
}

// The names of the parts of speech that a line gives in brackets.
std::vector<std::string> labelList(std::string_view line) {
  std::vector<std::string> list;
  for (size_t open = line.find('['); open != std::string_view::npos; open = line.find('[', open + 1)) {
    const size_t close = line.find(']', open);
    if (close == std::string_view::npos) break;
    list.emplace_back(line.substr(open + 1, close - open - 1));
  }
  return list;
}

// The dictionary's part-of-speech names as the usual abbreviations; others stay as they are.
std::string posOf(std::string_view label) {
  static const std::map<std::string_view, std::string> kPos = {
      {"名", "n"},
      {"Ｃ", "countable"},
      {"固", "pn"},
      {"固名", "pn"},
      {"時名", "n-temporal"},
      {"名副", "n-adv"},
      {"代", "pron"},
      {"数", "num"},
      {"助数", "counter"},
      {"形", "adj"},
      {"形動", "adj-na"},
      {"の形", "adj-no"},
      {"連体", "adj-attributive"},
      {"形動タル", "adj-taru"},
      {"形動ナリ", "adj-nari"},
      {"形ク", "adj-ku"},
      {"形シク", "adj-shiku"},
      {"形カリ", "adj-kari"},
      {"補形", "aux-adj"},
      {"副", "adv"},
      {"副ト", "adv-to"},
      {"動", "v"},
      {"他", "vt"},
      {"自", "vi"},
      {"サ変", "vs"},
      {"補助", "aux"},
      {"助動", "aux"},
      {"助", "part"},
      {"小辞", "part"},
      {"前", "prep"},
      {"接", "conj"},
      {"間", "int"},
      {"感", "int"},
      {"冠", "art"},
      {"限", "det"},
      {"接頭", "pref"},
      {"接尾", "suf"},
      {"句", "exp"},
      {"成句", "exp"},
      {"記号", "symbol"},
  };
  const auto it = kPos.find(label);
  if (it != kPos.end()) return it->second;
  // "動カ五" and its like tell how a Japanese verb inflects.
  return label.starts_with("動") ? "v" : std::string(label);
}

// Each sense repeats the labels of its entry, so a damaged entry that is all labels grows with its square.
constexpr size_t kMostLabelBytes = 1024;

// Two labels may have one abbreviation, as two kinds of verb have.
std::vector<std::string> posList(const std::vector<std::string>& labels) {
  std::vector<std::string> list;
  for (const std::string& label : labels) {
    const std::string pos = posOf(label);
    if (std::find(list.begin(), list.end(), pos) == list.end()) list.push_back(pos);
  }
  return list;
}

// Cuts "(...)" off the end of `text`: what the dictionary says about the sense.
std::string takeNote(std::string_view* text) {
  if (text->empty() || text->back() != ')') return {};
  int depth = 0;
  for (size_t at = text->size(); at-- > 0;) {
    if ((*text)[at] == ')') ++depth;
    if ((*text)[at] == '(' && --depth == 0) {
      const std::string note(text->substr(at + 1, text->size() - at - 2));
      *text = trimmed(text->substr(0, at));
      return note;
    }
  }
  return {};
}

// Glosses stand between separators outside brackets. Japanese ones are parted by commas; English ones may
// hold commas ("to lay, or raise") and are parted by semicolons.
std::vector<std::string> splitGlosses(std::string_view text) {
  const bool english = std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
  std::vector<std::string> glosses;
  int depth = 0;
  size_t begin = 0;
  const auto take = [&](size_t end) {
    const std::string_view gloss = trimmed(text.substr(begin, end - begin));
    if (!gloss.empty()) glosses.emplace_back(gloss);
  };
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '(' || text[at] == '[') ++depth;
    if ((text[at] == ')' || text[at] == ']') && depth > 0) --depth;
    if (depth > 0 || (text[at] != ';' && (english || text[at] != ','))) continue;
    take(at);
    begin = at + 1;
  }
  take(text.size());
  return glosses;
}

// "《英》 =color【添え字上付き】1【添え字なし】." names another spelling: its number and its stop are the
// index's affair.
std::string referenceNote(std::string_view text) {
  std::string note(text.substr(0, text.find_last_not_of(" .") + 1));
  note.resize(std::min(note.size(), note.find("【添え字上付き】")));
  return note;
}

bool isReference(std::string_view text) {
  return text.starts_with("《英》") || text.starts_with("《米》");
}

// Gathers pieces into senses, entry by entry.
class Gatherer {
 public:
  void take(const Piece& piece) {
    switch (piece.label) {
      case Label::kHeadword:
        startEntry();
        break;
      case Label::kPos:
        labels_ = labelList(beginning(piece.text, kMostLabelBytes));
        break;
      case Label::kGloss:
        if (isReference(trimmed(piece.text)) && hasSense()) {
          addNote(referenceNote(trimmed(piece.text)));
          break;
        }
        startSense();
        addGlosses(piece.text);
        break;
      case Label::kGothic:
        number(piece.text);
        break;
      case Label::kRoman:
        addGlosses(piece.text);
        break;
      case Label::kNote:
        addNote(piece.text);
        break;
      case Label::kExample:
      case Label::kPhrase:
        addExample(piece.text);
        break;
      case Label::kOtherSide:
        addOtherSide(piece.text);
        break;
      case Label::kOther:
        break;
    }
  }

  std::vector<std::vector<Sense>> finish() { return std::move(entries_); }

 private:
  void startEntry() {
    entries_.emplace_back();
    labels_.clear();
    wordNote_.clear();
    inGloss_ = false;
  }
  void startSense() {
    if (entries_.empty()) entries_.emplace_back();
    entries_.back().emplace_back();
    sense().pos = posList(labels_);
    sense().labels = labels_;
    sense().note = std::exchange(wordNote_, {});
    inGloss_ = true;
  }
  bool hasSense() const { return !entries_.empty() && !entries_.back().empty(); }
  Sense& sense() { return entries_.back().back(); }
  void number(std::string_view text) {
    if (hasSense() && inGloss_) sense().number = trimmed(text);
  }
  void addGlosses(std::string_view text) {
    if (!hasSense() || !inGloss_) return;
    std::string_view body = trimmed(text);
    if (isReference(body)) return addNote(referenceNote(body));
    const std::string note = takeNote(&body);
    for (std::string& gloss : splitGlosses(body)) sense().glosses.push_back(std::move(gloss));
    addNote(note);
  }
  void addNote(std::string_view text) {
    std::string_view note = trimmed(text);
    if (note.starts_with('(') && note.ends_with(')')) note = note.substr(1, note.size() - 2);
    if (note.empty()) return;
    if (!hasSense()) {  // about the whole word: it stands ahead of the first sense
      wordNote_ = note;
      return;
    }
    if (!sense().note.empty()) sense().note += "; ";
    sense().note += note;
  }
  void addExample(std::string_view text) {
    inGloss_ = false;
    if (!hasSense()) {
      startSense();
      inGloss_ = false;
    }
    sense().examples.push_back({std::string(trimmed(text)), ""});
  }
  void addOtherSide(std::string_view text) {
    if (hasSense() && !sense().examples.empty()) sense().examples.back().target = trimmed(text);
  }

  std::vector<std::vector<Sense>> entries_;
  std::vector<std::string> labels_;
  std::string wordNote_;
  bool inGloss_ = false;
};

}  // namespace

std::vector<std::vector<Sense>> sensesFromLabels(const std::string& labelled) {
  Gatherer gatherer;
  for (const Piece& piece : piecesOf(labelled)) gatherer.take(piece);
  return gatherer.finish();
}

}  // namespace zavel::host
