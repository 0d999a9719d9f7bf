// Any bytes as the open data that the compiler reads: EDICT lines, FreeDict entries, WordNet files, dictd
// numbers, gzip streams.
#include "mkdict/DictdReader.h"
#include "mkdict/EdictLine.h"
#include "mkdict/FreeDict.h"
#include "mkdict/ToShiftJis.h"
#include "mkdict/WordNet.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel::mkdict;
  if (size == 0 || size > 8192) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 6) {
    case 0: {
      EdictLine line;
      EdictLine::parse(text, &line);
      break;
    }
    case 1: {
      EnglishWord word;
      FreeDict::read(text, &word);
      break;
    }
    case 2: {
      WordNet net;
      net.readData(WordNet::kNoun, text, {}, {});
      net.readData(WordNet::kVerb, text, {}, {});
      net.readExceptions(WordNet::kVerb, text);
      net.readCounts(text);
      net.finish();
      break;
    }
    case 3:
      DictdReader::number(text);
      break;
    case 4:
      DictdReader::unzip(text, 1 << 20);
      break;
    default: {
      const auto sjis = toShiftJis(text);
      if (sjis) toUtf8(*sjis);
      const auto entry = toEntryText(text);
      if (entry && looksTagged(*entry)) __builtin_trap();
      break;
    }
  }
  return 0;
}
