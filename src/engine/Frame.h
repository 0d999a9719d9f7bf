// Admission, opening and closing: the frame that every worker stands in.
#ifndef ENGINE_FRAME_H
#define ENGINE_FRAME_H

#include <cstdint>
#include <string>

#include "engine/EngineStatus.h"
#include "engine/Globals.h"

namespace zavel::engine {

// Function codes of the admission control.
enum FunctionCode : uint16_t {
  kCodeInitAPI = 1,
  kCodeEndAPI = 2,
  kCodeSerchMidasiE = 3,
  kCodeSerchMidasiJ = 4,
  kCodeSerchImiE = 5,
  kCodeSerchImiJ = 6,
  kCodeGetKatuyo = 7,
  kCodeAddUserDicE = 8,
  kCodeAddUserDicJ = 9,
  kCodeSerchUserDicE = 10,
  kCodeSerchUserDicJ = 11,
  kCodeDelUserDicE = 12,
  kCodeDelUserDicJ = 13,
  kCodeGetListUserDicE = 14,
  kCodeGetListUserDicJ = 15,
  kCodeArrangeUserDicE = 16,
  kCodeArrangeUserDicJ = 17,
};

// Admission. CheckInMP: 1, 20 no process table or unknown code, 34, 35, 262, 263. CheckOutMP: 1, 20 no
// process table or a writer that was not admitted, 34. Not made after a CheckInMP of 34 or 35.
Status CheckInMP(uint16_t code);
Status CheckOutMP(uint16_t code);
// 1 with the mutex taken, 0 without. `wait` 0: without waiting.
int GetMtx(int wait);
void FreeMtx();
// 1, or kNoMutex.
Status InitMtx();
void CloseMtx();

// Back to the state before the first InitAPI; what an unclean end left behind is freed.
void InitGlobalVal();
void InitProcessInfo();
void UnLoadProcessInfo();
// Sets g_dicType and stores the paths. 18 for a null basic path, a path that does not fit the process
// table, or a user path whose last part is not a name of 1 to 5 characters without extension; 261 for
// other paths than those of the first attached process.
Status CheckPathName(const char* kihonPath, const char* userPathE, const char* userPathJ);
// A stream object for every file of the opened sets, or kNoMemory.
Status CreateFsObjs();
void DeleteFsObjs();

// The worker of InitAPI and of EndAPI.
Status _InitAPI(const char* kihonPath, const char* userPathE, const char* userPathJ);
Status _EndAPI();

// Opens `stream` on `path` in binary mode; false for a null stream or a file that can't be opened.
bool OpenFsObj(FsObj* stream, const std::string& path, bool readOnly);
bool NewOpenFsObj(FsObj* stream, const std::string& path);
void CloseFsObj(FsObj* stream);

// Prefix + file name of a file of the sets, from the process table.
std::string KihonPath(const char* name);
std::string UserPathE(const char* name);
std::string UserPathJ(const char* name);

// A reader opens only the files that its call reads, at the moment it reads the first of them: two thirds
// of a look-up would otherwise go into opens and closes. These open one basic stream by name if it is not
// open yet; false gives kNoKihonFile at the caller.
bool NeedKihon(FsObj* stream, const char* name);

// The whole set at once, as InitAPI proves it to be there and as writers need it. What was opened before a
// failure stays open for the caller to close.
bool OpenFsObjsKihonE();
bool OpenFsObjsKihonJ();
// With `create` a set of which no file exists is made first. A reader (not `create`, `readOnly`) opens only
// the blocks and the entries. The Japanese form: 1; 19 the count of kanji indexes can't be read; 20; 21 a
// new set can't be made; 259.
bool OpenFsObjsUserE(bool create, bool readOnly);
Status OpenFsObjsUserJ(bool create, bool readOnly);
// Files that opened, of 3 and of 5 with one for each continuation index; the latter fills the count word.
uint16_t OpenFsObjsUserCntE(bool readOnly);
uint16_t OpenFsObjsUserCntJ(bool readOnly);
void CloseFsObjsKihonE();
void CloseFsObjsKihonJ();
void CloseFsObjsUserE();
void CloseFsObjsUserJ();
void CloseFsObjs();

// What exists of a user set, by opening its files; they stay open.
enum UserDicExist { kExistAll = 1, kExistNone = 2, kExistSome = 3, kExistNoCountWord = 4 };
UserDicExist CheckUserDicExistE();
UserDicExist CheckUserDicExistJ();

// Proves every file of the opened sets to be there, and closes them all again. 1, 257, 258, or what
// OpenFsObjsUserJ says.
Status OpenFsObjs();

// Loads the index of every opened set, or kNoIndexMemory.
Status CreateShMems();
Status CreateShMemUserE(bool reload);
Status CreateShMemUserJ(bool reload);
void CloseShMems();

}  // namespace zavel::engine

#endif
