// Opening and closing. Tests: tests/engine/FrameTest.cpp
#include "engine/EngineAPI.h"

#include "engine/Frame.h"
#include "engine/Shim.h"

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

}  // extern "C"
