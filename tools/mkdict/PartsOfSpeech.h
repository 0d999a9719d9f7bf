// Parts of speech as WordNet knows them: it has four, and no words of grammar.
#ifndef MKDICT_PARTSOFSPEECH_H
#define MKDICT_PARTSOFSPEECH_H

#include <optional>

#include "mkdict/EnglishWord.h"
#include "mkdict/WordNet.h"

namespace zavel::mkdict {

// Nothing for a part of speech that WordNet leaves out. A proper noun is a noun there.
std::optional<WordNet::Pos> wordNetPos(PartOfSpeech pos);

PartOfSpeech partOfSpeech(WordNet::Pos pos);

}  // namespace zavel::mkdict

#endif
