// Any bytes as the open data that the compiler reads, and what it makes of them: EDICT, FreeDict with its
// index, WordNet files, gzip streams. The first byte chooses.
#include "EngineCalls.h"
#include "MemoryStorage.h"
#include "foundation/Utf8.h"
#include "mkdict/Attested.h"
#include "mkdict/DictdReader.h"
#include "mkdict/EdictReader.h"
#include "mkdict/EntryText.h"
#include "mkdict/FreeDict.h"
#include "mkdict/GlossIndex.h"
#include "mkdict/Pronunciation.h"
#include "mkdict/PronunciationChoice.h"
#include "mkdict/ToShiftJis.h"
#include "mkdict/WordNet.h"

namespace {

using namespace zavel;
using namespace zavel::mkdict;

// A few nouns and a verb, so that glosses meet known words.
const WordNet& knownWords() {
  static const WordNet net = [] {
    WordNet known;
    known.readData(WordNet::kNoun, "1 18 n 02 walker 0 dog 0 000 | \n2 18 n 01 house 0 000 | \n", {}, {});
    known.readData(WordNet::kVerb, "3 38 v 01 walk 0 000 | \n", {}, {});
    known.finish();
    return known;
  }();
  return net;
}

void readEdict(std::string_view text) {
  fuzz::MemoryStorage disk;
  disk.files["edict"] = text;
  Compilation compilation;
  Progress progress;
  std::string error;
  GlossIndex glosses(knownWords());
  EdictReader::read("edict", &compilation, progress, &error,
                    [&](const EdictLine& line) { glosses.add(line); });
  for (const GlossIndex::Turned& turned : glosses.take())
    fuzz::demand(isValidUtf8(turned.word), "a turned gloss is UTF-8");
  fuzz::demand(isValidUtf8(compilation.summary.text()), "the summary is UTF-8");
  fuzz::demand(isValidUtf8(compilation.summary.json()), "as JSON too");
}

void encodeWord(const EnglishWord& word) {
  EntryDraft draft;
  draft.word = EntryText::headword(word.word).value_or("");
  if (draft.word.empty()) return;
  draft.pos = word.pos;
  for (const EnglishSense& sense : word.senses) {
    if (const auto encoded = EntryText::sense(sense, nullptr)) draft.senses.push_back(*encoded);
  }
  const std::string_view ipa = choosePronunciation(word.ipa, word.word, word.pos, word.senses.size() > 1);
  Pronunciation::sounds(word.word, ipa);
  draft.pronunciation = Pronunciation::encode(word.word, ipa);
  EntryText::of(draft);
}

void readFreeDict(std::string_view text) {
  EnglishWord word;
  std::vector<std::string> dropped;
  if (FreeDict::read(text, &word, &dropped) == FreeDict::Fault::kNone) encodeWord(word);
}

// Index and text, parted by the first NUL.
void readDictd(std::string_view text) {
  const size_t nul = std::min(text.find('\0'), text.size());
  fuzz::MemoryStorage disk;
  disk.files["index"] = text.substr(0, nul);
  disk.files["text"] = text.substr(std::min(nul + 1, text.size()));
  DictdReader reader;
  std::string error;
  if (!reader.open("index", "text", &error)) return fuzz::demand(!error.empty(), "a failure has a reason");
  for (const DictdReader::Entry& entry : reader.entries()) readFreeDict(reader.textOf(entry));
}

void readWordNet(std::string_view text) {
  Attested attested;
  size_t words = 0;
  const auto gloss = [&](std::string_view prose) { attested.read(prose); };
  const auto synset = [&](WordNet::Pos, const std::vector<uint32_t>& lemmas) { words += lemmas.size(); };
  WordNet data;
  if (data.readData(WordNet::kNoun, text, gloss, synset) &&
      data.readData(WordNet::kAdjective, text, gloss, synset)) {
    data.finish();
    for (const auto& [one, other] : data.derivations())
      fuzz::demand(one < data.lemmas().size() && other < data.lemmas().size(), "derivations join lemmas");
  }
  WordNet lists;
  lists.readExceptions(WordNet::kVerb, text);
  lists.readCounts(text);
  lists.finish();
}

void encodeText(std::string_view text) {
  std::string lacking;
  const auto sjis = toShiftJis(text, &lacking);
  fuzz::demand(sjis.has_value() || isValidUtf8(lacking), "what is lacking is named in UTF-8");
  if (sjis) fuzz::demand(isValidUtf8(toUtf8(*sjis)), "and back");
  const auto entry = toEntryText(text);
  fuzz::demand(!entry || !looksTagged(*entry), "entry text holds no tag");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0 || size > 8192) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 6) {
    case 0:
      readEdict(text);
      break;
    case 1:
      readFreeDict(text);
      break;
    case 2:
      readWordNet(text);
      break;
    case 3:
      readDictd(text);
      break;
    case 4:
      DictdReader::unzip(text, 1 << 20);
      break;
    default:
      encodeText(text);
      break;
  }
  return 0;
}
