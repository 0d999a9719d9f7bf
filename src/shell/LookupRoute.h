// Where a query goes.
#ifndef SHELL_LOOKUPROUTE_H
#define SHELL_LOOKUPROUTE_H

#include "foundation/Export.h"

namespace zavel {

enum class LookupRoute {
  kDictionaries,  // this system searches the user's list
  kOutside,       // an application outside of this system gets it
  kNowhere,       // nothing is chosen to search in
};

// `selectedDict` is what ZFWDictTabView::selectedDict gives. A dictionary among its bits comes first; else it
// must be the value of an outside application as a whole.
ZAVEL_API LookupRoute lookupRoute(int selectedDict);

}  // namespace zavel

#endif
