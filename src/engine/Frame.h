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

Status CheckInMP(uint16_t code);
Status CheckOutMP(uint16_t code);
int GetMtx(int wait);
void FreeMtx();
int InitMtx();
void CloseMtx();
void InitGlobalVal();
void InitProcessInfo();
void UnLoadProcessInfo();
Status CheckPathName(const char* kihonPath, const char* userPathE, const char* userPathJ);
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

// The whole set at once, as InitAPI proves it to be there and as writers need it.
bool OpenFsObjsKihonE();
bool OpenFsObjsKihonJ();
bool OpenFsObjsUserE(bool create, bool readOnly);
Status OpenFsObjsUserJ(bool create, bool readOnly);
uint16_t OpenFsObjsUserCntE(bool readOnly);
uint16_t OpenFsObjsUserCntJ(bool readOnly);
void CloseFsObjsKihonE();
void CloseFsObjsKihonJ();
void CloseFsObjsUserE();
void CloseFsObjsUserJ();
void CloseFsObjs();
Status OpenFsObjs();

Status CreateShMems();
void CloseShMems();
Status SaveIdx1s();

}  // namespace zavel::engine

#endif
