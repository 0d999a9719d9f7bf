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

}  // extern "C"
