// Tests: tests/mkdict/EnglishSideTest.cpp.
#include "mkdict/EnglishSide.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/DicFormat.h"
#include "mkdict/Attested.h"
#include "mkdict/Coverage.h"
#include "mkdict/DerivedForms.h"
#include "mkdict/DictdReader.h"
#include "mkdict/EnglishEntries.h"
#include "mkdict/EntryText.h"
#include "mkdict/FreeDict.h"
#include "mkdict/GlossIndex.h"
#include "mkdict/Inflection.h"
#include "mkdict/KatuRecords.h"
#include "mkdict/Spelling.h"
#include "mkdict/SpellingPairs.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kCoverageLemmas = 5000;

// "Edition: 2022.11.18" of the dictionary's own account of itself.
std::string editionOf(const DictdReader& reader) {
  constexpr std::string_view kEdition = "Edition: ";
  for (const DictdReader::Entry& entry : reader.entries()) {
    if (!entry.word.starts_with("00")) continue;
    const std::string_view text = reader.textOf(entry);
    const size_t at = text.find(kEdition);
    if (at == std::string_view::npos) continue;
    const std::string_view rest = text.substr(at + kEdition.size());
    return std::string(rest.substr(0, std::min(rest.find('\n'), rest.size())));
  }
  return {};
}

}  // namespace

struct EnglishSide::Parts {
  WordNet wordNet;
  Attested attested;
  SpellingPairs spellings;
  GlossIndex glosses{wordNet};
  std::vector<EnglishWord> words;  // of FreeDict
  std::string edition;
  std::vector<std::pair<std::string, std::string>> leftOut;  // reason and sample, while reading

  bool readFreeDict(const EnglishSources& sources, Progress& progress, std::string* error);
  void readWord(std::string_view text);
  void gather(EnglishEntries& entries, Summary& summary);
};

EnglishSide::EnglishSide() : parts_(std::make_unique<Parts>()) {}
EnglishSide::~EnglishSide() = default;

void EnglishSide::Parts::readWord(std::string_view text) {
  EnglishWord word;
  std::vector<std::string> dropped;
  switch (FreeDict::read(text, &word, &dropped)) {
    case FreeDict::Fault::kNoWord:
      return;
    case FreeDict::Fault::kAffix:
      leftOut.emplace_back("FreeDict affixes, whose translations are cut short at the source", word.word);
      return;
    case FreeDict::Fault::kNoTranslation:
      leftOut.emplace_back("FreeDict entries without a Japanese translation", word.word);
      return;
    case FreeDict::Fault::kNone:
      break;
  }
  for (const std::string& translation : dropped) {
    leftOut.emplace_back("FreeDict translations that are not Japanese", word.word + ": " + translation);
  }
  for (const EnglishSense& sense : word.senses) {
    for (const std::string& note : sense.notes) attested.read(note);
  }
  words.push_back(std::move(word));
}

bool EnglishSide::Parts::readFreeDict(const EnglishSources& sources, Progress& progress, std::string* error) {
  DictdReader reader;
  if (!reader.open(sources.freedictIndex, sources.freedictText, error)) return false;
  edition = editionOf(reader);
  progress.stage("reading FreeDict", reader.entries().size());
  uint64_t done = 0;
  size_t last = std::string::npos;
  for (const DictdReader::Entry& entry : reader.entries()) {
    progress.advance(++done);
    if (progress.cancelled()) return false;
    // An index may name one text several times.
    if (entry.offset != last && !entry.word.starts_with("00")) readWord(reader.textOf(entry));
    last = entry.offset;
  }
  return true;
}

bool EnglishSide::open(const EnglishSources& sources, Progress& progress, std::string* error) {
  error->clear();
  Parts& p = *parts_;
  progress.stage("reading WordNet");
  const auto gloss = [&p](std::string_view text) { p.attested.read(text); };
  const auto synset = [&p](WordNet::Pos pos, const std::vector<uint32_t>& lemmas) {
    p.spellings.add(p.wordNet, pos, lemmas);
  };
  if (!p.wordNet.load(sources.wordnetFolder, gloss, synset, error)) return false;
  if (progress.cancelled()) return false;
  return p.readFreeDict(sources, progress, error);
}

void EnglishSide::takeEdict(const EdictLine& line) {
  parts_->glosses.add(line);
  for (const EdictSense& sense : line.senses) {
    for (const std::string& gloss : sense.glosses) parts_->attested.read(gloss);
  }
}

void EnglishSide::Parts::gather(EnglishEntries& entries, Summary& summary) {
  for (const auto& [reason, sample] : leftOut) summary.leftOut(reason, sample);
  summary.figure("FreeDict entries", words.size());
  const std::vector<GlossIndex::Turned> turned = glosses.take();
  std::map<std::pair<std::string, PartOfSpeech>, const std::vector<std::string>*> ranked;
  for (const GlossIndex::Turned& one : turned) ranked[{lowerCase(one.word), one.pos}] = &one.ranked;
  const std::vector<std::string> none;
  for (EnglishWord& word : words) {
    const auto found = ranked.find({lowerCase(word.word), word.pos});
    entries.add(std::move(word), found == ranked.end() ? none : *found->second);
  }
  words = {};
  for (const GlossIndex::Turned& one : turned) entries.addTurned(one);
  entries.addSpellings(spellings.pairs(wordNet));
  entries.arrange();
}

namespace {

// Lays out the entries' text. One that grew past what a reader takes is left out; its item goes with it.
void writeEntries(std::vector<EnglishEntries::Item>& items, Compilation& compilation) {
  std::erase_if(items, [&](const EnglishEntries::Item& item) {
    EnglishEntry entry{item.draft.word, EntryText::of(item.draft), item.rank};
    if (entry.text.size() >= engine::kMaxEntry) {
      compilation.summary.leftOut("English entries of 65,535 bytes or more", item.draft.word);
      return true;
    }
    compilation.english.push_back(std::move(entry));
    return false;
  });
}

void tellEntries(const std::vector<EnglishEntries::Item>& items, Summary& summary) {
  size_t turned = 0, countable = 0, threeStars = 0, twoStars = 0, sounds = 0;
  for (const EnglishEntries::Item& item : items) {
    turned += item.turned ? 1 : 0;
    countable += item.draft.countable ? 1 : 0;
    threeStars += item.draft.stars == "***" ? 1 : 0;
    twoStars += item.draft.stars == "**" ? 1 : 0;
    sounds += item.draft.pronunciation.empty() ? 0 : 1;
  }
  summary.figure("English entries", items.size());
  summary.figure("English entries out of EDICT", turned);
  summary.figure("English entries with a pronunciation", sounds);
  summary.figure("countable nouns", countable);
  summary.figure("English entries with ***", threeStars);
  summary.figure("English entries with **", twoStars);
}

void tellCoverage(const Coverage& coverage, Summary& summary) {
  summary.figure("frequent English words asked for", coverage.asked);
  summary.figure("frequent words with an entry of their own", coverage.itself);
  summary.figure("frequent words by their base form", coverage.byBase);
  summary.figure("frequent words by derivation", coverage.derived);
  const size_t answered = coverage.asked - coverage.gaps.size();
  if (coverage.asked > 0) {
    summary.figure("in a thousand frequent words answered", answered * 1000 / coverage.asked);
  }
  for (const std::string& gap : coverage.gaps) {
    summary.leftOut("frequent English words without an answer", gap, true);
  }
}

}  // namespace

bool EnglishSide::compile(Compilation& compilation, Progress& progress) {
  Parts& p = *parts_;
  Summary& summary = compilation.summary;
  progress.stage("English entries");
  const Inflection inflection(p.wordNet, p.attested);
  EnglishEntries entries(p.wordNet, p.attested, inflection, &summary);
  p.gather(entries, summary);
  std::vector<EnglishEntries::Item> items = entries.take();
  if (progress.cancelled()) return false;
  compilation.english.reserve(items.size());
  writeEntries(items, compilation);

  progress.stage("English forms");
  KatuRecords katu(inflection);
  for (size_t i = 0; i < items.size(); ++i) {
    katu.add({compilation.english[i].word, compilation.english[i].text, items[i].draft.pos, items[i].sounds});
  }
  katu.finish();
  if (progress.cancelled()) return false;
  compilation.katu = katu.take();
  compilation.derived = DerivedForms(p.wordNet, katu, items).make();

  tellEntries(items, summary);
  summary.figure("irregular paradigms", compilation.katu.size());
  summary.figure("derived words", compilation.derived.size());
  tellCoverage(Coverage::measure(kCoverageLemmas, p.wordNet, items, katu, compilation.derived), summary);
  compilation.sources.push_back({"FreeDict English-Japanese (WikDict, from Wiktionary)", p.edition,
                                 "Creative Commons Attribution-ShareAlike 3.0",
                                 "English entries with their pronunciations"});
  compilation.sources.push_back({"WordNet", "3.0", "WordNet licence, (c) 2006 Princeton University",
                                 "frequency, irregular forms, derived words, spellings of English words"});
  return true;
}

}  // namespace zavel::mkdict
