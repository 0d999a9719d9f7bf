// The engine opens no user dictionary without a basic one. Words of the user's own must not be locked away
// because that is not built yet, or is damaged: an empty one takes its place then.
#ifndef ZAVEL_USER_BASICSET_H
#define ZAVEL_USER_BASICSET_H

#include <string>

#include "PrivateFolder.h"

namespace zavel::host {

class BasicSet {
 public:
  // `dictionary`: the folder of the basic dictionary, whether there is one or not.
  explicit BasicSet(std::string dictionary) : dictionary_(std::move(dictionary)) {}

  // The engine's path of the basic dictionary, or, where that is not complete or `empty` is asked for, of an
  // empty one, which lasts as long as this. Empty when that can't be made.
  std::string path(bool empty = false);

 private:
  std::string dictionary_;
  PrivateFolder folder_;
};

}  // namespace zavel::host

#endif
