// Tests: tests/mkdict/EntryTextTest.cpp.
#include "mkdict/EntryText.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/MidasiCheck.h"
#include "mkdict/Tag.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

// Fixed text of this program, which Shift_JIS can write.
std::string sjis(std::string_view utf8) {
  return toShiftJis(utf8).value();
}

// From the tag on to the line end; even, for the scan named in the header.
void appendMeaning(std::string& out, std::string text) {
  if (text.size() % 2 == 0) text += ' ';
  out += tag(engine::kTagImi) + text + '\n';
}

std::string joined(const std::vector<std::string>& parts, std::string_view separator) {
  std::string out;
  for (const std::string& part : parts) {
    if (!out.empty()) out += separator;
    out += part;
  }
  return out;
}

std::string meaning(const EnglishSense& sense, size_t number) {
  std::string out;
  if (number > 0) {
    out += tag(engine::kTagGothic) + std::to_string(number) + tag(engine::kTagRoman) + ' ';
  }
  out += joined(sense.translations, ",");
  if (!sense.notes.empty()) out += " (" + joined(sense.notes, "; ") + ")";
  return out;
}

// "《英》 =colour" with its homographs leads there; "《英》 colour" without any only says so.
std::string referenceText(const SpellingReference& reference) {
  const bool leads = !reference.homographs.empty();
  // What a reference says of its own headword, a remark says of the other one.
  const bool british = leads == reference.british;
  std::string out = sjis(british ? "《英》 " : "《米》 ");
  if (!leads) return out + reference.word;
  std::vector<std::string> numbers;
  for (const int homograph : reference.homographs) numbers.push_back(std::to_string(homograph));
  out += "=" + reference.word + tag(engine::kTagMarker) + joined(numbers, ",") + tag(engine::kTagMarkerEnd);
  if (out.size() % 2 != 0) out += ' ';
  return out + '.';
}

std::string posLine(const EntryDraft& draft) {
  std::string line = EntryText::label(draft.pos);
  if (line.empty()) return {};
  if (draft.countable) line += sjis("[Ｃ]");
  if (draft.comparesNot) line += sjis("(比較なし)");
  if (draft.comparesByMore) line += sjis("(more ～; most ～)");
  return tag(engine::kTagHinsi) + line + '\n';
}

}  // namespace

std::string EntryText::label(PartOfSpeech pos) {
  switch (pos) {
    case PartOfSpeech::kNone:
      return {};
    case PartOfSpeech::kNoun:
      return sjis("-[名]");
    case PartOfSpeech::kProperNoun:
      return sjis("-[名][固]");
    case PartOfSpeech::kVerb:
      return sjis("-[動]");
    case PartOfSpeech::kAdjective:
      return sjis("-[形]");
    case PartOfSpeech::kAdverb:
      return sjis("-[副]");
    case PartOfSpeech::kPreposition:
      return sjis("-[前]");
    case PartOfSpeech::kPronoun:
      return sjis("-[代]");
    case PartOfSpeech::kConjunction:
      return sjis("-[接]");
    case PartOfSpeech::kInterjection:
      return sjis("-[間]");
    case PartOfSpeech::kNumeral:
      return sjis("-[数]");
    case PartOfSpeech::kDeterminer:
      return sjis("-[限]");
    case PartOfSpeech::kArticle:
      return sjis("-[冠]");
    case PartOfSpeech::kParticle:
      return sjis("-[小辞]");
    case PartOfSpeech::kIdiom:
      return sjis("-[成句]");
    case PartOfSpeech::kProverb:
      return sjis("-[諺]");
    case PartOfSpeech::kSymbol:
      return sjis("-[記号]");
  }
  return {};
}

std::optional<std::string> EntryText::headword(std::string_view utf8) {
  std::optional<std::string> word = toShiftJis(utf8);
  if (!word) return std::nullopt;
  std::erase(*word, ',');
  while (!word->empty() && (word->back() == '!' || word->back() == '?' || word->back() == ' ')) {
    word->pop_back();
  }
  if (engine::ChkMidasiStrE(word->c_str()) != engine::kOk) return std::nullopt;
  return word;
}

std::optional<EnglishSense> EntryText::sense(const EnglishSense& utf8, std::vector<std::string>* lacking) {
  EnglishSense out;
  const auto convert = [&](const std::vector<std::string>& from, std::vector<std::string>* to) {
    for (const std::string& text : from) {
      std::optional<std::string> bytes = toEntryText(text);
      if (bytes && !bytes->empty()) {
        to->push_back(std::move(*bytes));
      } else if (lacking != nullptr) {
        lacking->push_back(text);
      }
    }
  };
  convert(utf8.translations, &out.translations);
  convert(utf8.notes, &out.notes);
  if (out.translations.empty()) return std::nullopt;
  return out;
}

std::string EntryText::of(const EntryDraft& draft) {
  std::string out = tag(engine::kTagEntry) + draft.stars + tag(engine::kTagMarker) +
                    std::to_string(draft.homograph) + tag(engine::kTagMarkerEnd) + draft.word;
  if (!draft.pronunciation.empty()) out += sjis("≦") + draft.pronunciation + sjis("≧");
  out += '\n' + posLine(draft);
  const bool numbered = draft.senses.size() > 1;
  for (size_t i = 0; i < draft.senses.size(); ++i) {
    appendMeaning(out, meaning(draft.senses[i], numbered ? i + 1 : 0));
  }
  for (const SpellingReference& reference : draft.references) appendMeaning(out, referenceText(reference));
  return out;
}

}  // namespace zavel::mkdict
