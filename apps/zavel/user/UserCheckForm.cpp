// Tests: tests/zavel/user/UserCheckFormTest.cpp
#include "user/UserCheckForm.h"

#include <string>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/MidasiCheck.h"
#include "engine/Shim.h"
#include "engine/WordInfo.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr std::string_view kSeparator = "\x1B";
constexpr std::string_view kLaterMark = "/";

// English texts have single bytes alone.
enum Text { kSingle, kMixed };

constexpr uint8_t kFirstTag = 0xF4;  // lead byte

// Goes through a text from its start. Once something isn't there that must be, nothing further is taken.
class Form {
 public:
  explicit Form(std::string_view text) : text_(text) {}

  bool good() const { return good_; }
  bool endedTooSoon() const { return endedTooSoon_; }
  size_t at() const { return at_; }
  size_t sound() const { return sound_; }

  bool tag(uint16_t wanted) {
    const char bytes[] = {static_cast<char>(wanted >> 8), static_cast<char>(wanted & 0xFF)};
    return literal({bytes, sizeof bytes});
  }
  bool literal(std::string_view wanted) {
    const std::string_view there = rest().substr(0, wanted.size());
    if (there != wanted) return fail(wanted.starts_with(there) || atEnd());
    at_ += good_ ? wanted.size() : 0;
    return good_;
  }
  bool isTag(uint16_t wanted) const {
    uint16_t tag = 0;
    return tagHere(&tag) && tag == wanted;
  }
  bool is(std::string_view wanted) const { return good_ && rest().starts_with(wanted); }
  // Characters that the engine takes into such a text, up to a tag or any other; at least one.
  std::string_view characters(Text text) {
    const size_t start = at_;
    for (uint16_t tag = 0; good_ && at_ < text_.size() && !tagHere(&tag);) {
      const auto byte = static_cast<uint8_t>(text_[at_]);
      const bool pair = _ismbblead(byte) != 0;
      if (pair ? text == kSingle || !isPair(byte) : !_isprint(byte)) break;
      at_ += pair ? 2 : 1;
    }
    if (at_ == start) fail(atEnd());
    return text_.substr(start, at_ - start);
  }
  bool atEnd() const { return rest().size() < 2; }
  // What follows may be missing.
  void enough() { sound_ = good_ ? at_ : sound_; }
  bool fail(bool tooSoon) {
    endedTooSoon_ = endedTooSoon_ || (good_ && tooSoon);
    return good_ = false;
  }

 private:
  std::string_view rest() const { return text_.substr(at_); }
  bool tagHere(uint16_t* tag) const {
    // Quickly for most characters, which begin below all tags.
    return at_ + 1 < text_.size() && static_cast<uint8_t>(text_[at_]) >= kFirstTag &&
           IsTag(static_cast<uint8_t>(text_[at_]), static_cast<uint8_t>(text_[at_ + 1]), tag);
  }
  bool isPair(uint8_t lead) const {
    return at_ + 1 < text_.size() && _ismbcprint(lead * 256u + static_cast<uint8_t>(text_[at_ + 1]));
  }

  std::string_view text_;
  size_t at_ = 0;
  size_t sound_ = 0;
  bool good_ = true;
  bool endedTooSoon_ = false;
};

void takeLine(Form& form, uint16_t tag, Text text) {
  form.tag(tag);
  form.characters(text);
  form.literal("\n");
}

void takeBold(Form& form, uint16_t tag, std::string_view* text) {
  form.tag(tag);
  form.tag(kTagBold);
  *text = form.characters(kSingle);
  form.tag(kTagRoman);
  form.literal("\n");
}

void takePairs(Form& form, uint16_t tag, std::string_view firstMark, std::string_view laterMark, Text first,
               Text second) {
  form.enough();
  for (std::string_view mark = firstMark; form.good() && form.isTag(tag); mark = laterMark) {
    form.tag(tag);
    form.literal(mark);
    form.characters(first);
    form.tag(kTagOtherSide);
    form.literal(" ");
    form.characters(second);
    form.literal("\n");
    form.enough();
  }
}

void takePartOfSpeech(Form& form) {
  form.tag(kTagHinsi);
  form.literal("-");
  const std::string_view label = form.characters(kMixed);
  for (uint16_t number = 1; number <= kLastHinsi; ++number) {
    if (label == HinsiText(number)) return static_cast<void>(form.literal("\n"));
  }
  form.fail(form.atEnd());
}

void takeEnglish(Form& form, EntryForm* entry) {
  takeBold(form, kTagEntry, &entry->word);
  const bool phrase = form.isTag(kTagPhrase);
  std::string_view text;
  phrase ? takeBold(form, kTagPhrase, &text) : takePartOfSpeech(form);
  takeLine(form, phrase ? kTagPhraseImi : kTagImi, kMixed);
  takePairs(form, phrase ? kTagPhraseYourei : kTagYourei, "", "", kSingle, kMixed);
}

void takeJapanese(Form& form, EntryForm* entry) {
  form.tag(kTagEntry);
  entry->word = form.characters(kMixed);
  if (form.is(kSeparator)) {
    form.literal(kSeparator);
    entry->kanji = form.characters(kMixed);
  }
  form.literal("\n");
  takeLine(form, kTagImi, kSingle);
  takePairs(form, kTagYourei, kKureiMark, kLaterMark, kMixed, kSingle);
  takePairs(form, kTagPhrase, kBunreiMark, kLaterMark, kMixed, kSingle);
}

}  // namespace

EntryForm formOfEntry(std::string_view text, UserLanguage language) {
  EntryForm entry;
  Form form(text.substr(0, kMaxEntry));
  language == UserLanguage::kEnglish ? takeEnglish(form, &entry) : takeJapanese(form, &entry);
  entry.length = form.good() ? form.at() : 0;
  entry.sound = form.sound();
  entry.tooSoon = form.endedTooSoon();
  return entry;
}

bool isFiledUnder(std::string_view key, std::string_view word, uint16_t type) {
  const std::string text(word);
  const Status known = type == kTypeE      ? ChkMidasiStrE(text.c_str())
                       : type == kTypeKana ? ChkMidasiStrJ(text.c_str())
                                           : ChkMidasiStrK(text.c_str());
  std::string own;
  return known == kOk && ChangeMidasi(text, type, &own) == kOk && own == key;
}

bool beginsEntry(std::string_view text) {
  constexpr char mark[] = {static_cast<char>(kTagEntry >> 8), static_cast<char>(kTagEntry & 0xFF)};
  return text.starts_with(std::string_view(mark, 2));
}

}  // namespace zavel::host
