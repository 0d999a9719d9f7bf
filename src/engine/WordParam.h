// What a user entry must fulfil before it is stored, and where it will go.
#ifndef ENGINE_WORDPARAM_H
#define ENGINE_WORDPARAM_H

#include <cstdint>

#include "engine/AddDicSize.h"
#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/IdxInfo.h"

namespace zavel::engine {

// How a third-level block is brought up to date.
enum Way : uint16_t {
  kWayNew = 1,     // the key has no block yet: NewIdx3
  kWayRemake = 2,  // a further row: RemakeIdx3
  kWayChange = 3,  // a row gets another entry: ChangeIdx3
};

// Checks texts and identifications, measures the texts and looks the words up. kBadArgument for whatever the
// entry may not hold and for an identification that is not current or belongs to another word; kInternal for
// a word whose key the index can't hold; kFileError.
Status CheckWordParamE(const add_dic_e& entry, index_info* info, add_dic_size_e* sizes, Way* way);
// The written form, its row and its way are looked up only if there is one.
Status CheckWordParamJ(const add_dic_j& entry, index_info* infoKana, index_info* infoKanji,
                       add_dic_size_j* sizes, Way* wayKana, Way* wayKanji);

}  // namespace zavel::engine

#endif
