// The workers behind the exported functions, same arguments, same status.
#ifndef ENGINE_WORKERS_H
#define ENGINE_WORKERS_H

#include <cstdint>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"

namespace zavel::engine {

Status _SerchMidasiE(const char* word, uint8_t mode, uint32_t* size, Handle* list, uint8_t dic);
Status _SerchMidasiJ(char* word, uint32_t* size, Handle* list, uint8_t dic);
Status _SerchImiE(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list, uint8_t dic);
Status _SerchImiJ(char* word, const char* midasi, uint8_t filter, uint32_t* size, Handle* list, uint8_t dic);
Status _GetKatuyo(const char* word, uint32_t* size, Handle* list);

}  // namespace zavel::engine

#endif
