// The value type of property lists and of the maps and lists that the system owns.
#ifndef PLATFORM_VALUE_H
#define PLATFORM_VALUE_H

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "foundation/Export.h"

namespace zavel {

// Null, boolean, integer, real, string (UTF-8), data (bytes), date (seconds since 2001-01-01 UTC), list,
// map. Copies are deep. The typed getters never fail: a value of another type gives the fallback.
class ZAVEL_API Value {
 public:
  using Array = std::vector<Value>;
  using Dict = std::map<std::string, Value>;
  struct Data {
    std::string bytes;
    bool operator==(const Data&) const = default;
  };
  struct Date {
    double seconds = 0;
    bool operator==(const Date&) const = default;
  };

  Value() = default;
  Value(bool v) : v_(v) {}                          // NOLINT: values convert freely
  Value(int v) : v_(static_cast<int64_t>(v)) {}     // NOLINT
  Value(int64_t v) : v_(v) {}                       // NOLINT
  Value(double v) : v_(v) {}                        // NOLINT
  Value(const char* v) : v_(std::string(v)) {}      // NOLINT
  Value(std::string v) : v_(std::move(v)) {}        // NOLINT
  Value(Data v) : v_(std::move(v)) {}               // NOLINT
  Value(Date v) : v_(v) {}                          // NOLINT
  Value(Array v) : v_(std::move(v)) {}              // NOLINT
  Value(Dict v) : v_(std::move(v)) {}               // NOLINT

  bool isNull() const { return std::holds_alternative<std::monostate>(v_); }
  bool isString() const { return std::holds_alternative<std::string>(v_); }
  bool isArray() const { return std::holds_alternative<Array>(v_); }
  bool isDict() const { return std::holds_alternative<Dict>(v_); }

  // Null pointers when the value is of another type. Borrowed.
  const std::string* asString() const { return std::get_if<std::string>(&v_); }
  const Array* asArray() const { return std::get_if<Array>(&v_); }
  Array* asArray() { return std::get_if<Array>(&v_); }
  const Dict* asDict() const { return std::get_if<Dict>(&v_); }
  Dict* asDict() { return std::get_if<Dict>(&v_); }
  const Data* asData() const { return std::get_if<Data>(&v_); }
  const Date* asDate() const { return std::get_if<Date>(&v_); }

  // Booleans count as 0 and 1, reals are cut.
  int64_t integer(int64_t fallback = 0) const;
  double real(double fallback = 0) const;
  bool boolean(bool fallback = false) const;
  std::string string(const std::string& fallback = std::string()) const;

  // The member of a map, or null when this is no map or lacks the key. Borrowed.
  const Value* find(const std::string& key) const;

  bool operator==(const Value&) const = default;

  using Storage = std::variant<std::monostate, bool, int64_t, double, std::string, Data, Date, Array, Dict>;
  const Storage& storage() const { return v_; }

 private:
  Storage v_;
};

}  // namespace zavel

#endif
