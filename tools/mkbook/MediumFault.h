// What is wrong with the file of a picture or sound: told by an exception to where the file is named.
#ifndef MKBOOK_MEDIUMFAULT_H
#define MKBOOK_MEDIUMFAULT_H

#include <stdexcept>

namespace zavel::mkbook {

// The message goes on behind the file's name: "is damaged".
class MediumFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace zavel::mkbook

#endif
