// The engine's static state, in the order of its file table. Streams are made by CreateFsObjs, opened and
// closed inside each call, and gone after DeleteFsObjs; indexes are loaded by InitAPI and stay until
// EndAPI.
#ifndef ENGINE_GLOBALS_H
#define ENGINE_GLOBALS_H

#include <cstdint>

#include "engine/DicFormat.h"
#include "engine/FsObj.h"

namespace zavel::engine {

// Basic set.
extern FsObj* g_fs_Ej_Dic_Kihon;  // ej.dic
extern FsObj* g_fs_Ej_Ix3_Kihon;  // ej.ix3
extern FsObj* g_fs_Ej_Idx_Kihon;  // ej.idx
extern FsObj* g_fs_Ha_Ix3_Kihon;  // hase.ix3
extern FsObj* g_fs_Ha_Idx_Kihon;  // hase.idx
extern FsObj* g_fs_Ka_Dic_Kihon;  // katu.dic
extern FsObj* g_fs_Ka_Ix3_Kihon;  // katu.ix3
extern FsObj* g_fs_Ka_Idx_Kihon;  // katu.idx
extern FsObj* g_fs_Je_Dic_Kihon;  // je.dic
extern FsObj* g_fs_Je_Ix3_Kihon;  // je.ix3
extern FsObj* g_fs_Je_Idx_Kihon;  // je.idx
extern FsObj* g_fs_Ke_Ix3_Kihon;  // ke.ix3
extern FsObj* g_fs_Ke_Idx_Kihon;  // ke.idx

// User English set.
extern FsObj* g_fs_Ej_Dic_User;  // ej.dic
extern FsObj* g_fs_Ej_Ix3_User;  // ej.ix3
extern FsObj* g_fs_Ej_Idx_User;  // ej.idx

// User Japanese set.
extern FsObj* g_fs_Je_Dic_User;                      // je.dic
extern FsObj* g_fs_Je_Ix3_User;                      // kna.ix3
extern FsObj* g_fs_Ke_Ix3_User;                      // kji.ix3
extern FsObj* g_fs_Je_Idx_User;                      // kna.idx
extern FsObj* g_fs_Ke_Idx_User[kMaxKjiIndexes + 1];  // kji.idx, then 001.idx to 010.idx

// One loaded first-level index. Pointers are null while it is not loaded.
struct idx_info_ptr {
  uint8_t* tableBase = nullptr;  // start of the block
  uint8_t* tableA = nullptr;     // first table, header words included
  uint8_t* tableB = nullptr;     // second table; equals tableC where the index has none
  uint8_t* tableC = nullptr;     // last table
  uint8_t dirty = 0;             // a user index changed in memory and must be saved
  bool unfinished = false;       // a save broke off, and the file's ".bkup" holds the last whole index
  uint32_t size = 0;             // bytes in the block; every table read is checked against it
};

extern idx_info_ptr g_sKihonEJ, g_sKihonKna, g_sKihonKji, g_sKihonHase, g_sKihonKatu;
extern idx_info_ptr g_sUserEJ, g_sUserKna, g_sUserKji;
extern idx_info_ptr g_pKjiIdx1s[kMaxKjiIndexes];  // continuation kanji indexes
extern uint8_t* g_sUserKjiIdxInfo;                // one u16: continuation kanji indexes in use

// What was opened.
inline constexpr uint8_t kDicKihon = 1;
inline constexpr uint8_t kDicUserJ = 2;
inline constexpr uint8_t kDicUserE = 4;
extern uint8_t g_dicType;

extern bool g_fInitAPI;   // this process has attached
extern bool initAPIFlag;  // between a successful InitAPI and EndAPI
extern int g_hMutex;

// The process table, cleared at each InitAPI: 3,082 bytes.
struct processInfo {
  uint16_t openCount;
  uint16_t attachCount;
  uint16_t readersE;
  uint16_t readersJ;
  uint8_t stateE;  // 0 idle, 1 reading, 2 exclusive
  uint8_t stateJ;
  char pathKihon[1024];
  char pathUserE[1024];
  char pathUserJ[1024];
};
static_assert(sizeof(processInfo) == 3082);

extern processInfo gProcessInfoBuffer;
extern processInfo* g_ProcessInfo;  // null before the first InitAPI

// The globals of one index by type and set (and file number for the user kanji indexes), null for a wrong
// combination.
idx_info_ptr* IndexInfo(uint16_t type, uint16_t set, uint16_t fileNo);

}  // namespace zavel::engine

#endif
