// A row of the result list: what a search of one kind of dictionary found.
#ifndef SHELL_RESULTROW_H
#define SHELL_RESULTROW_H

#include <variant>

#include "lookup/MirellData.h"
#include "shell/TransData.h"

namespace zavel {

using ResultRow = std::variant<MirellData, TransData>;

}  // namespace zavel

#endif
