// The continuation kanji indexes of the user Japanese set: kji.idx first, then 001.idx to 010.idx. The
// header of kji.idx counts them, and the count word keeps that number while the engine is open.
#ifndef ENGINE_KJIIDX_H
#define ENGINE_KJIIDX_H

#include <cstdint>
#include <string>

#include "engine/EngineStatus.h"

namespace zavel::engine {

// Makes the count word, 0 unless it existed. kNoIndexMemory when it can't be had.
Status InitKjiIdx1Info();

// Takes the count from the header of the open kji.idx into the count word. kMalformed when the header is
// too short or unreadable: the count word then stays, because the indexes that it counts are loaded and may
// have to be saved. kInternal without a count word.
Status ReadKjiIdxInfo();

// The count word, at most 10 whatever a file says; 0 without one.
uint16_t KjiIdxCount();

// File name of a user kanji index: "kji.idx" for 0, then "001.idx" and so on.
std::string KjiIdxName(uint16_t fileNo);

// Loads as many continuation indexes as the count word says.
bool LoadKjiIdx1s(bool reload);
void UnLoadKjiIdx1s();

// Rows in table C of kji.idx; 0 when it is not loaded.
uint32_t GetKjiIdxWordCnt();

}  // namespace zavel::engine

#endif
