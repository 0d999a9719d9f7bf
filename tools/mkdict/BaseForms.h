// The base forms that the engine's rules make of a form: "tries" gives "trie" and "try".
#ifndef MKDICT_BASEFORMS_H
#define MKDICT_BASEFORMS_H

#include <cstdint>
#include <functional>
#include <string>

namespace zavel::mkdict {

// The first base form that `fits`, in the order in which the engine tries them; empty when none does. `mask`
// has the parts of speech of the rules tried so far, the bits of engine/KatuyoForms.h.
std::string firstBaseForm(const std::string& form,
                          const std::function<bool(const std::string& base, uint8_t mask)>& fits);

}  // namespace zavel::mkdict

#endif
