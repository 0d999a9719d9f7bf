// Tests: tests/platform/ValueTest.cpp
#include "platform/Value.h"

namespace zavel {

int64_t Value::integer(int64_t fallback) const {
  if (const int64_t* i = std::get_if<int64_t>(&v_)) return *i;
  if (const bool* b = std::get_if<bool>(&v_)) return *b ? 1 : 0;
  if (const double* d = std::get_if<double>(&v_)) {
    // Outside the range of the integer, and for no number at all, the cut would be undefined.
    if (!(*d > -9.2e18 && *d < 9.2e18)) return fallback;
    return static_cast<int64_t>(*d);
  }
  return fallback;
}

double Value::real(double fallback) const {
  if (const double* d = std::get_if<double>(&v_)) return *d;
  if (std::holds_alternative<int64_t>(v_) || std::holds_alternative<bool>(v_))
    return static_cast<double>(integer());
  return fallback;
}

bool Value::boolean(bool fallback) const {
  if (const bool* b = std::get_if<bool>(&v_)) return *b;
  if (std::holds_alternative<int64_t>(v_)) return integer() != 0;
  return fallback;
}

std::string Value::string(const std::string& fallback) const {
  const std::string* s = asString();
  return s ? *s : fallback;
}

const Value* Value::find(const std::string& key) const {
  const Dict* dict = asDict();
  if (!dict) return nullptr;
  auto it = dict->find(key);
  return it == dict->end() ? nullptr : &it->second;
}

}  // namespace zavel
