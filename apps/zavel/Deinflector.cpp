// Tests: tests/zavel/DeinflectorTest.cpp
#include "Deinflector.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace zavel::host {
namespace {

// What a form is while endings are taken off it. Several may hold.
enum Kind : unsigned {
  kIchidan = 1u << 0,    // a dictionary form in る, or a form that inflects like one: 食べられる
  kGodan = 1u << 1,      // a dictionary form in u, or a form that inflects like one: 食べてしまう
  kAdjective = 1u << 2,  // in い: 食べない, 食べたい
  kKuru = 1u << 3,
  kSuru = 1u << 4,
  kStem = 1u << 5,       // ahead of ます: 食べ, 行き
  kPolite = 1u << 6,     // in ます
  kPoliteNot = 1u << 7,  // in ません
  kPastOfI = 1u << 8,    // in かった
  kNa = 1u << 9,         // what な and だ follow: 静か, 食べそう
  kPoliteNa = 1u << 10,  // the same with です
  kLast = 1u << 11,      // nothing follows it
  kAny = ~0u,            // the word as it was typed
};

struct Rule {
  std::string ending;  // of the inflected form
  std::string base;    // what stands in its place in the form that it comes from
  unsigned asks;       // one of these the inflected form has to be
  unsigned gives;      // what the form that it comes from is
  const char* reason;  // empty: a step on the way that has no name
  bool ambiguous;      // the inflected form looks like a dictionary form or a noun
};

// The five vowel rows of a godan verb's last sound, and its forms ahead of て and た.
struct GodanRow {
  const char *u, *a, *i, *e, *o;
  const char* te;  // without the て or で itself
  bool voiced;     // で, だ
  const char* label;
};

constexpr GodanRow kGodanRows[] = {
    {"う", "わ", "い", "え", "お", "っ", false, "動ワ五"},
    {"く", "か", "き", "け", "こ", "い", false, "動カ五"},
    {"ぐ", "が", "ぎ", "げ", "ご", "い", true, "動ガ五"},
    {"す", "さ", "し", "せ", "そ", "し", false, "動サ五"},
    {"つ", "た", "ち", "て", "と", "っ", false, "動タ五"},
    {"ぬ", "な", "に", "ね", "の", "ん", true, "動ナ五"},
    {"ぶ", "ば", "び", "べ", "ぼ", "ん", true, "動バ五"},
    {"む", "ま", "み", "め", "も", "ん", true, "動マ五"},
    {"る", "ら", "り", "れ", "ろ", "っ", false, "動ラ五"},
};

// Verbs whose form ahead of て is not that of their row.
constexpr std::pair<const char*, const char*> kOddTe[] = {
    {"行っ", "行く"}, {"いっ", "いく"}, {"逝っ", "逝く"}, {"往っ", "往く"},
    {"問う", "問う"}, {"請う", "請う"}, {"乞う", "乞う"}};

// Verbs in る whose stem ends in い instead of り.
constexpr const char* kOddStems[] = {"いらっしゃ", "おっしゃ", "仰", "くださ", "下さ", "なさ", "ござ"};

// What follows the form ahead of て, て and た included; where the form is voiced, て is で and た is だ.
struct TeEnding {
  const char *ending, *voiced;
  unsigned asks;
  const char* reason;
};

constexpr TeEnding kTeEndings[] = {
    {"た", "だ", kLast, "past"},
    {"て", "で", kLast, "te form"},
    {"たら", "だら", kLast, "conditional (たら)"},
    {"たり", "だり", kLast, "listing (たり)"},
    {"ている", "でいる", kIchidan, "progressive"},
    {"てる", "でる", kIchidan, "progressive"},
    {"ています", "でいます", kPolite, "progressive"},
    {"てます", "でます", kPolite, "progressive"},
    {"ておく", "でおく", kGodan, "in advance (ておく)"},
    {"とく", "どく", kGodan, "in advance (ておく)"},
    {"てしまう", "でしまう", kGodan, "completion (てしまう)"},
    {"ちゃう", "じゃう", kGodan, "completion (てしまう)"},
    {"てみる", "でみる", kIchidan, "attempt (てみる)"},
    {"てある", "である", kGodan, "resulting state (てある)"},
    {"てくる", "でくる", kKuru, "coming to (てくる)"},
    {"て来る", "で来る", kKuru, "coming to (てくる)"},
    {"ていく", "でいく", kGodan, "going on (ていく)"},
    {"て行く", "で行く", kGodan, "going on (ていく)"},
    {"てもらう", "でもらう", kGodan, "favour received (てもらう)"},
    {"ていただく", "でいただく", kGodan, "favour received (ていただく)"},
    {"てくれる", "でくれる", kIchidan, "favour done to one (てくれる)"},
    {"てあげる", "であげる", kIchidan, "favour done (てあげる)"},
    {"てください", "でください", kLast, "request (てください)"},
    {"て下さい", "で下さい", kLast, "request (てください)"},
    {"てほしい", "でほしい", kAdjective, "desire (てほしい)"},
    {"ては", "では", kLast, "topic (ては)"},
    {"てはいけない", "ではいけない", kAdjective, "prohibition (てはいけない)"},
    {"てはならない", "ではならない", kAdjective, "prohibition (てはならない)"},
    {"ちゃいけない", "じゃいけない", kAdjective, "prohibition (てはいけない)"},
    {"ちゃだめ", "じゃだめ", kNa, "prohibition (てはだめ)"},
    {"てはだめ", "ではだめ", kNa, "prohibition (てはだめ)"},
    {"ても", "でも", kLast, "concession (ても)"},
    {"てもいい", "でもいい", kAdjective, "permission (てもいい)"},
};

// What says that something must be, behind the form ahead of ない.
struct MustEnding {
  const char* ending;
  unsigned asks;
  const char* reason;
};

constexpr const char* kMustIfNot = "obligation (なければならない)";
constexpr const char* kMustWithout = "obligation (なくてはならない)";
constexpr const char* kMustOr = "obligation (ないといけない)";

constexpr MustEnding kMustEndings[] = {
    {"なければならない", kAdjective, kMustIfNot},
    {"なければいけない", kAdjective, kMustIfNot},
    {"なければだめ", kNa, kMustIfNot},
    {"なきゃ", kLast, kMustIfNot},
    {"なきゃならない", kAdjective, kMustIfNot},
    {"なきゃいけない", kAdjective, kMustIfNot},
    {"なきゃだめ", kNa, kMustIfNot},
    {"なくては", kLast, kMustWithout},
    {"なくてはならない", kAdjective, kMustWithout},
    {"なくてはいけない", kAdjective, kMustWithout},
    {"なくてはだめ", kNa, kMustWithout},
    {"なくちゃ", kLast, kMustWithout},
    {"なくちゃならない", kAdjective, kMustWithout},
    {"なくちゃいけない", kAdjective, kMustWithout},
    {"なくちゃだめ", kNa, kMustWithout},
    {"ないといけない", kAdjective, kMustOr},
    {"ないとだめ", kNa, kMustOr},
};

// What follows the stem, the form ahead of ます.
struct StemEnding {
  const char* ending;
  unsigned asks;
  const char* reason;
};

constexpr StemEnding kStemEndings[] = {
    {"たい", kAdjective, "desire (たい)"},
    {"たがる", kGodan, "desire (たがる)"},
    {"なさい", kLast, "polite imperative"},
    {"ながら", kLast, "while (ながら)"},
    {"すぎる", kIchidan, "excess (すぎる)"},
    {"過ぎる", kIchidan, "excess (すぎる)"},
    {"やすい", kAdjective, "ease (やすい)"},
    {"にくい", kAdjective, "difficulty (にくい)"},
    {"に", kLast, "purpose (に)"},
    {"そう", kNa, "appearance (そう)"},
    {"つつ", kLast, "while (つつ)"},
    {"づらい", kAdjective, "difficulty (づらい)"},
    {"始める", kIchidan, "beginning (始める)"},
    {"はじめる", kIchidan, "beginning (始める)"},
};

constexpr const char* kNegative = "negative";
constexpr const char* kPassive = "passive";
constexpr const char* kPotential = "potential";
constexpr const char* kPotentialOrPassive = "potential or passive";
constexpr const char* kCausative = "causative";
constexpr const char* kImperative = "imperative";
constexpr const char* kVolitional = "volitional";
constexpr const char* kConditional = "conditional (ば)";
constexpr const char* kWithSuruReason = "verb with する";

constexpr size_t kCharacter = 3;  // bytes of a kana or kanji

// The table, made once.
class Rules {
 public:
  Rules() {
    addPolite();
    addNa();
    // Ahead of the rows: 来れば is rather くる than きたる, 行った rather 行く than 行う.
    addKuru("来", "来", "来", "来");
    addKuru("こ", "き", "く", "こ");
    for (const auto& [te, base] : kOddTe) addTe(te, false, base, kGodan);
    for (const GodanRow& row : kGodanRows) addGodan(row);
    for (const char* verb : kOddStems)
      add(Text(verb) + "い", Text(verb) + "る", kStem, kGodan, "continuative", true);
    addIchidan();
    addAdjective();
    addSuru();
    for (const StemEnding& row : kStemEndings) add(row.ending, "", row.asks, kStem, row.reason);
  }

  // Those that may fit a form of this last character (three bytes), in the table's order.
  const std::vector<Rule>& endingIn(const std::string& last) const {
    static const std::vector<Rule> kNone;
    const auto it = byLast_.find(last);
    return it == byLast_.end() ? kNone : it->second;
  }
  // The one whose ending is empty: nothing is left of る in the stem of an ichidan verb.
  const Rule& bareStem() const { return bareStem_; }

 private:
  using Text = std::string;

  void add(Text ending, Text base, unsigned asks, unsigned gives, const char* reason,
           bool ambiguous = false) {
    const Text last = ending.size() < kCharacter ? Text() : ending.substr(ending.size() - kCharacter);
    Rule rule{std::move(ending), std::move(base), asks, gives, reason, ambiguous};
    if (last.empty()) {
      bareStem_ = std::move(rule);
    } else {
      byLast_[last].push_back(std::move(rule));
    }
  }

  void addPolite() {
    add("ます", "", kPolite, kStem, "polite");
    add("ました", "ます", kLast, kPolite, "past");
    add("まして", "ます", kLast, kPolite, "te form");
    add("ましたら", "ます", kLast, kPolite, "conditional (たら)");
    add("ません", "ます", kPoliteNot, kPolite, kNegative);
    add("ませんでした", "ません", kLast, kPoliteNot, "past");
    add("ましょう", "ます", kLast, kPolite, kVolitional);
    add("いです", "い", kLast, kAdjective, "polite");
    add("かったです", "かった", kLast, kPastOfI, "polite");
    // The verbs of "must" and "must not", which belong to the ending ahead of them.
    constexpr std::pair<const char*, const char*> kVerbs[] = {{"なりません", "ならない"},
                                                              {"いけません", "いけない"}};
    for (const auto& [polite, plain] : kVerbs) {
      for (const char* ahead : {"は", "ちゃ", "じゃ", "なければ", "なきゃ", "ないと", "ねば"}) {
        add(Text(ahead) + polite, Text(ahead) + plain, kPoliteNot, kAdjective, "polite");
      }
    }
  }

  // The copula, which な-adjectives inflect by. Short endings are those of many words: あな is no form of あ.
  void addNa() {
    add("な", "", kLast, kNa, "attributive", true);
    add("に", "", kLast, kNa, "adverbial", true);
    add("だ", "", kLast, kNa, "predicative (だ)", true);
    add("で", "", kLast, kNa, "te form", true);
    add("さ", "", kLast, kNa, "noun (さ)", true);
    add("そう", "", kNa, kNa, "appearance (そう)", true);
    add("だった", "", kLast, kNa, "past");
    add("だったら", "", kLast, kNa, "conditional (たら)");
    add("なら", "", kLast, kNa, "conditional (なら)", true);
    add("ならば", "", kLast, kNa, "conditional (なら)");
    add("でも", "", kLast, kNa, "concession (ても)", true);
    add("です", "", kPoliteNa, kNa, "polite");
    add("でした", "です", kLast, kPoliteNa, "past");
    add("だろう", "", kLast, kNa, "presumption (だろう)");
    add("でしょう", "です", kLast, kPoliteNa, "presumption (だろう)");
    for (const char* not_ : {"ではない", "じゃない", "でない"}) add(not_, "", kAdjective, kNa, kNegative);
    for (const char* not_ : {"ではありません", "じゃありません"}) {
      add(not_, "です", kPoliteNot, kPoliteNa, kNegative);
    }
    for (const MustEnding& row : kMustEndings) {
      add(Text("で") + row.ending, "", row.asks, kNa, row.reason);
    }
    add("である", "", kGodan, kNa, "literary (である)");
    add("になる", "", kGodan, kNa, "becoming (になる)", true);
    add("にする", "", kSuru, kNa, "making (にする)", true);
    add("すぎる", "", kIchidan, kNa, "excess (すぎる)");
    add("過ぎる", "", kIchidan, kNa, "excess (すぎる)");
  }

  void addTe(const Text& te, bool voiced, const Text& base, unsigned gives) {
    for (const TeEnding& row : kTeEndings) {
      add(te + (voiced ? row.voiced : row.ending), base, row.asks, gives, row.reason);
    }
    // かんじゃ is rather 患者 than a form of 噛む.
    add(te + (voiced ? "じゃ" : "ちゃ"), base, kLast, gives, "topic (ては)", true);
  }

  // What follows the form ahead of ない, which is negative in every verb.
  void addNegative(const Text& a, const Text& base, unsigned gives) {
    add(a + "ない", base, kAdjective, gives, kNegative);
    add(a + "ないで", base, kLast, gives, "negative (ないで)");
    add(a + "ず", base, kLast, gives, "negative (ず)");
    add(a + "ずに", base, kLast, gives, "negative (ずに)");
    add(a + "ぬ", base, kLast, gives, "negative (ぬ)");
    addMust(a, base, gives);
  }

  void addMust(const Text& a, const Text& base, unsigned gives) {
    for (const MustEnding& row : kMustEndings) add(a + row.ending, base, row.asks, gives, row.reason);
  }

  // Where ahead of ない stands another form than ahead of ず (する: せねば), `a` is the latter.
  void addMustWithNeba(const Text& a, const Text& base, unsigned gives) {
    constexpr const char* kMust = "obligation (ねばならない)";
    add(a + "ねば", base, kLast, gives, kMust);
    for (const char* end : {"ならない", "いけない"}) add(a + "ねば" + end, base, kAdjective, gives, kMust);
    add(a + "ねばならぬ", base, kLast, gives, kMust);
  }

  void addGodan(const GodanRow& row) {
    const Text u = row.u, a = row.a, i = row.i, e = row.e, o = row.o;
    addTe(row.te, row.voiced, u, kGodan);
    addNegative(a, u, kGodan);
    addMustWithNeba(a, u, kGodan);
    add(a + "れる", u, kIchidan, kGodan, kPassive, true);
    add(a + "せる", u, kIchidan, kGodan, kCausative, true);
    add(a + "す", u, kGodan, kGodan, kCausative, true);
    if (u != "す") add(a + "される", u, kIchidan, kGodan, "causative passive");
    add(e + "る", u, kIchidan, kGodan, kPotential, true);
    add(e + "ば", u, kLast, kGodan, kConditional);
    add(e, u, kLast, kGodan, kImperative, true);
    add(o + "う", u, kLast, kGodan, kVolitional, true);
    add(i, u, kStem, kGodan, "continuative", true);
  }

  void addIchidan() {
    addTe("", false, "る", kIchidan);
    addNegative("", "る", kIchidan);
    addMustWithNeba("", "る", kIchidan);
    add("られる", "る", kIchidan, kIchidan, kPotentialOrPassive, true);
    add("れる", "る", kIchidan, kIchidan, kPotential, true);
    add("させる", "る", kIchidan, kIchidan, kCausative, true);
    add("れば", "る", kLast, kIchidan, kConditional);
    add("ろ", "る", kLast, kIchidan, kImperative, true);
    add("よ", "る", kLast, kIchidan, kImperative, true);
    add("よう", "る", kLast, kIchidan, kVolitional, true);
    add("", "る", kStem, kIchidan, "continuative", true);
  }

  void addAdjective() {
    add("かった", "い", kPastOfI, kAdjective, "past");
    add("かったら", "い", kLast, kAdjective, "conditional (たら)");
    add("くて", "い", kLast, kAdjective, "te form");
    add("くても", "い", kLast, kAdjective, "concession (ても)");
    add("くない", "い", kAdjective, kAdjective, kNegative);
    addMust("く", "い", kAdjective);
    add("くては", "い", kLast, kAdjective, "topic (ては)");
    add("かったり", "い", kLast, kAdjective, "listing (たり)");
    add("くなる", "い", kGodan, kAdjective, "becoming (くなる)");
    add("くする", "い", kSuru, kAdjective, "making (くする)");
    add("ければ", "い", kLast, kAdjective, kConditional);
    add("く", "い", kLast, kAdjective, "adverbial");
    add("さ", "い", kLast, kAdjective, "noun (さ)", true);
    add("そう", "い", kNa, kAdjective, "appearance (そう)", true);
    add("すぎる", "い", kIchidan, kAdjective, "excess (すぎる)");
    add("過ぎる", "い", kIchidan, kAdjective, "excess (すぎる)");
  }

  void addSuru() {
    addTe("し", false, "する", kSuru);
    addNegative("し", "する", kSuru);
    addMustWithNeba("せ", "する", kSuru);
    add("せず", "する", kLast, kSuru, "negative (ず)");
    add("せずに", "する", kLast, kSuru, "negative (ずに)");
    add("される", "する", kIchidan, kSuru, kPassive);
    add("させる", "する", kIchidan, kSuru, kCausative);
    add("できる", "する", kIchidan, kSuru, kPotential);
    add("出来る", "する", kIchidan, kSuru, kPotential);
    add("すれば", "する", kLast, kSuru, kConditional);
    add("しろ", "する", kLast, kSuru, kImperative);
    add("せよ", "する", kLast, kSuru, kImperative);
    add("しよう", "する", kLast, kSuru, kVolitional);
    add("し", "する", kStem, kSuru, "continuative", true);
  }

  // The four forms of 来 that its endings follow: ahead of ない, of ます, of る, of い.
  void addKuru(const Text& ko, const Text& ki, const Text& ku, const Text& koi) {
    const Text base = ku + "る";
    addTe(ki, false, base, kKuru);
    addNegative(ko, base, kKuru);
    addMustWithNeba(ko, base, kKuru);
    add(ko + "られる", base, kIchidan, kKuru, kPotentialOrPassive);
    add(ko + "れる", base, kIchidan, kKuru, kPotential);
    add(ko + "させる", base, kIchidan, kKuru, kCausative);
    add(ku + "れば", base, kLast, kKuru, kConditional);
    add(koi + "い", base, kLast, kKuru, kImperative, true);
    add(ko + "よう", base, kLast, kKuru, kVolitional);
    add(ki, base, kStem, kKuru, "continuative", true);
  }

  std::map<std::string, std::vector<Rule>> byLast_;
  Rule bareStem_;
};

const Rules& rules() {
  static const Rules kRules;
  return kRules;
}

// A form on the way from the word to its base.
struct Form {
  std::string text;
  unsigned kind;
  std::vector<std::string> reasons;
  bool typed;  // nothing taken off yet
};

constexpr size_t kLongestWord = 120;  // bytes; longer ones are sentences
constexpr size_t kMostForms = 400;    // looked at for one word
constexpr size_t kMostReasons = 6;

bool endsInHiragana(std::string_view word) {
  if (word.size() < 3) return false;
  const auto byte = [&](size_t back) { return static_cast<unsigned char>(word[word.size() - back]); };
  const unsigned code = ((byte(3) & 0x0Fu) << 12) | ((byte(2) & 0x3Fu) << 6) | (byte(1) & 0x3Fu);
  return (byte(3) & 0xF0) == 0xE0 && code >= 0x3041 && code <= 0x3096;
}

bool holds(const std::vector<std::string>& list, std::string_view text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

// Passive and potential, which no verb is twice over.
bool isVoice(std::string_view reason) {
  return reason.ends_with("passive") || reason == "potential";
}

bool hasVoice(const std::vector<std::string>& reasons) {
  return std::any_of(reasons.begin(), reasons.end(), isVoice);
}

bool repeats(const std::vector<std::string>& reasons, std::string_view reason) {
  return holds(reasons, reason) || (isVoice(reason) && hasVoice(reasons));
}

// Whether `rule` may be undone in `form`.
bool fits(const Rule& rule, const Form& form, bool plain) {
  if (form.typed && plain && rule.ambiguous) return false;
  if (!form.text.ends_with(rule.ending)) return false;
  return (rule.asks & form.kind) != 0 && !repeats(form.reasons, rule.reason);
}

// The form ahead of `rule`'s ending. A continuative with something behind it needs no name.
Form undone(const Rule& rule, const Form& form) {
  Form next;
  next.text = form.text.substr(0, form.text.size() - rule.ending.size()) + rule.base;
  next.kind = rule.gives;
  next.reasons = form.reasons;
  next.typed = false;
  if (form.typed || rule.asks != kStem) next.reasons.push_back(rule.reason);
  return next;
}

// る of an ichidan verb stands behind a sound in i or e, or behind a kanji that hides one.
bool mayBeIchidan(std::string_view word) {
  constexpr std::string_view kSounds =
      "い き ぎ し じ ち に ひ び み り え け げ せ ぜ て で ね へ べ め れ ぢ ぴ ぺ ";
  const std::string_view sound = word.substr(word.size() - 2 * kCharacter, kCharacter);
  const bool hiragana = sound.starts_with("\xE3\x81") || sound.starts_with("\xE3\x82");
  return !hiragana || kSounds.find(sound) != std::string_view::npos;
}

// きたる never has a passive or a potential: 来られる is くる, though both are written 来る.
bool lacksVoices(std::string_view godan) {
  return godan == "来る" || godan == "来たる" || godan == "きたる";
}

// Takes a form for a dictionary form, once for each way in which it may inflect.
class Bases {
 public:
  void take(const Form& form) {
    static constexpr std::pair<unsigned, Inflects> kWays[] = {{kIchidan, Inflects::kIchidan},
                                                              {kGodan, Inflects::kGodan},
                                                              {kAdjective, Inflects::kAdjective},
                                                              {kKuru, Inflects::kKuru},
                                                              {kSuru, Inflects::kSuru}};
    if (form.typed) return;
    if ((form.kind & kNa) != 0 && !form.text.empty()) add({form.text, Inflects::kNa, form.reasons});
    if (form.text.size() < 2 * kCharacter) return;  // no verb has one character
    for (const auto& [kind, way] : kWays) {
      if ((form.kind & kind) == 0) continue;
      if (way == Inflects::kIchidan && !mayBeIchidan(form.text)) continue;
      if (way == Inflects::kGodan && lacksVoices(form.text) && hasVoice(form.reasons)) continue;
      add({form.text, way, form.reasons});
    }
  }

  // The noun ahead of する.
  void takeWithSuru(const Form& form) {
    constexpr std::string_view kSuruText = "する";
    if ((form.kind & kSuru) == 0 || !form.text.ends_with(kSuruText)) return;
    const std::string noun = form.text.substr(0, form.text.size() - kSuruText.size());
    if (noun.empty()) return;
    std::vector<std::string> reasons = form.reasons;
    reasons.push_back(kWithSuruReason);
    add({noun, Inflects::kWithSuru, std::move(reasons)});
  }

  std::vector<BaseForm> sorted() {
    std::stable_sort(list_.begin(), list_.end(), [](const BaseForm& a, const BaseForm& b) {
      return a.reasons.size() < b.reasons.size();
    });
    return std::move(list_);
  }

 private:
  void add(BaseForm base) {
    if (seen_.insert({base.word, base.inflects}).second) list_.push_back(std::move(base));
  }

  std::set<std::pair<std::string, Inflects>> seen_;
  std::vector<BaseForm> list_;
};

}  // namespace

std::vector<BaseForm> baseFormsOf(std::string_view word, bool plain) {
  if (word.size() > kLongestWord || !endsInHiragana(word)) return {};
  // Forms of fewer endings come first, so that of two chains to one word the simpler one is kept.
  std::vector<Form> forms{{std::string(word), kAny, {}, true}};
  Bases bases;
  for (size_t i = 0; i < forms.size() && forms.size() < kMostForms; ++i) {
    const Form form = forms[i];
    bases.take(form);
    bases.takeWithSuru(form);
    if (form.reasons.size() >= kMostReasons) continue;
    const auto undo = [&](const Rule& rule) {
      if (fits(rule, form, plain)) forms.push_back(undone(rule, form));
    };
    if (form.text.size() < kCharacter) continue;
    for (const Rule& rule : rules().endingIn(form.text.substr(form.text.size() - kCharacter))) undo(rule);
    undo(rules().bareStem());
  }
  return bases.sorted();
}

bool inflectsSo(const BaseForm& base, const std::vector<std::string>& labels) {
  switch (base.inflects) {
    case Inflects::kIchidan:
      return holds(labels, "動一段");
    case Inflects::kAdjective:
      return holds(labels, "形");
    case Inflects::kKuru:
      return holds(labels, "動カ変");
    case Inflects::kSuru:
      return holds(labels, "動サ変");
    case Inflects::kWithSuru:
      return holds(labels, "サ変");
    case Inflects::kNa:
      return holds(labels, "形動");
    case Inflects::kGodan:
      break;
  }
  const auto row =
      std::find_if(std::begin(kGodanRows), std::end(kGodanRows),
                   [&base](const GodanRow& candidate) { return base.word.ends_with(candidate.u); });
  return row != std::end(kGodanRows) && holds(labels, row->label);
}

}  // namespace zavel::host
