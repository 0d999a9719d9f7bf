// Each function over its worker. Tests: those of the workers, and tests/engine/FrameTest.cpp
#include "engine/EngineAPI.h"

#include "engine/Frame.h"
#include "engine/Shim.h"
#include "engine/Workers.h"

using namespace zavel::engine;

extern "C" {

uint16_t InitAPI(const char* kihonPath, const char* userPathE, const char* userPathJ) {
  if (initAPIFlag) return kAlreadyOpen;
  InitGlobalVal();
  InitMtx();
  InitProcessInfo();
  const Status status = _InitAPI(kihonPath, userPathE, userPathJ);
  initAPIFlag = status == kOk;
  return status;
}

uint16_t EndAPI(void) {
  const Status status = _EndAPI();
  // The blocks go whatever the status, and with them every pointer into them.
  CloseShMems();
  DeleteFileMapping();
  CloseMtx();
  initAPIFlag = false;
  return status;
}

uint16_t SerchMidasiE(const char* word, uint8_t mode, uint32_t* size, Handle* list, uint8_t dic) {
  return _SerchMidasiE(word, mode, size, list, dic);
}

uint16_t SerchMidasiJ(char* word, uint32_t* size, Handle* list, uint8_t dic) {
  return _SerchMidasiJ(word, size, list, dic);
}

uint16_t SerchImiE(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list,
                   uint8_t dic) {
  return _SerchImiE(word, midasi, filter, size, list, dic);
}

uint16_t SerchImiJ(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list,
                   uint8_t dic) {
  return _SerchImiJ(word, midasi, filter, size, list, dic);
}

uint16_t GetKatuyo(const char* word, uint32_t* size, Handle* list) {
  return _GetKatuyo(word, size, list);
}

uint16_t AddUserDicE(const add_dic_e* entry) {
  return _AddUserDicE(entry);
}

uint16_t AddUserDicJ(const add_dic_j* entry) {
  return _AddUserDicJ(entry);
}

uint16_t SerchUserDicE(const char* word, const char* midasi, uint16_t* count, Handle* list) {
  return _SerchUserDicE(word, midasi, count, list);
}

uint16_t SerchUserDicJ(const char* word, const char* midasi, uint16_t* count, Handle* list) {
  return _SerchUserDicJ(word, midasi, count, list);
}

uint16_t DelUserDicE(const sikibetu_data* sikibetu) {
  return _DelUserDicE(sikibetu);
}

uint16_t DelUserDicJ(const sikibetu_data* kana, const sikibetu_data* kanji) {
  return _DelUserDicJ(kana, kanji);
}

uint16_t GetListUserDicE(uint16_t* count, Handle* list, uint32_t* size) {
  return _GetListUserDicE(count, list, size);
}

uint16_t GetListUserDicJ(uint16_t* count, Handle* list, uint32_t* size) {
  return _GetListUserDicJ(count, list, size);
}

uint16_t ArrangeUserDicE(void) {
  return _ArrangeUserDicE();
}

uint16_t ArrangeUserDicJ(void) {
  return _ArrangeUserDicJ();
}

}  // extern "C"
