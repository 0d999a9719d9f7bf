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
Status _AddUserDicE(const add_dic_e* entry);
Status _AddUserDicJ(const add_dic_j* entry);
Status _SerchUserDicE(const char* word, const char* midasi, uint16_t* count, Handle* list);
Status _SerchUserDicJ(const char* word, const char* midasi, uint16_t* count, Handle* list);
Status _DelUserDicE(const sikibetu_data* sikibetu);
Status _DelUserDicJ(const sikibetu_data* kana, const sikibetu_data* kanji);
Status _GetListUserDicE(uint16_t* count, Handle* list, uint32_t* size);
Status _GetListUserDicJ(uint16_t* count, Handle* list, uint32_t* size);
Status _ArrangeUserDicE();
Status _ArrangeUserDicJ();

}  // namespace zavel::engine

#endif
