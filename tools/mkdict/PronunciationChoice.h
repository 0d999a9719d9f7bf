// Which of the pronunciations that a source lists to show. The list is in the order of the alphabet, so that
// dialects, weak forms and the sounds of other parts of speech or of a plural stand anywhere in it.
#ifndef MKDICT_PRONUNCIATIONCHOICE_H
#define MKDICT_PRONUNCIATIONCHOICE_H

#include <string>
#include <string_view>
#include <vector>

#include "mkdict/EnglishWord.h"

namespace zavel::mkdict {

// One of `ipa`, or nothing when all are mere parts of the word ("-toʊ-"). What decides, in this order:
//
//   plain             no optional sounds in brackets, no alternatives
//   strong            not the form of a word without stress: "ænd" rather than "ən"
//   part of speech    where the word is a verb and something else (`shared`): a verb is stressed late
//                     ("rɪˈkɔːd") and ends voiced ("juːz"), a noun early and voiceless; "-ate" ends in "eɪt"
//                     in verbs alone
//   nothing odd       vowels of one region or of narrow transcription, a last sound that the last letter
//                     does not spell ("ˈæbəkaɪ" of "abacus")
//   typical           nearest to all others, what differs between America and Britain counted as the same
//
// and the order of the list.
std::string_view choosePronunciation(const std::vector<std::string>& ipa, std::string_view word,
                                     PartOfSpeech pos, bool shared);

}  // namespace zavel::mkdict

#endif
