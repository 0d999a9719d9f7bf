// Tests: tests/port/PlistPropertyListsTest.cpp
#include "base/PlistPropertyLists.h"

#include <locale.h>
#include <plist/plist.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>
#include <type_traits>

#include "base/BinaryPlistCheck.h"
#include "base/PlistLimits.h"
#include "base/PlistText.h"
#include "base/XmlPlistCheck.h"
#include "foundation/Storage.h"

namespace zavel {
namespace {

// The library writes and reads numbers with the decimal point of the host's locale. While one of these
// lives, this thread's point is a full stop.
class PointLocale {
 public:
  PointLocale() {
    static const locale_t point = ::newlocale(LC_NUMERIC_MASK, "C", static_cast<locale_t>(nullptr));
    if (point) previous_ = ::uselocale(point);
  }
  ~PointLocale() {
    if (previous_) ::uselocale(previous_);
  }
  PointLocale(const PointLocale&) = delete;
  PointLocale& operator=(const PointLocale&) = delete;

 private:
  locale_t previous_ = nullptr;
};

struct FreeNode {
  void operator()(void* node) const { ::plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Memory = std::unique_ptr<T, FreeMemory>;

// ---- the library's tree to a Value ----

bool toValue(plist_t node, Value* out);

bool stringToValue(plist_t node, Value* out) {
  uint64_t length = 0;
  const char* text = ::plist_get_string_ptr(node, &length);
  if (!text || !isPlistText(std::string_view(text, length))) return false;
  *out = Value(std::string(text, length));
  return true;
}

Value dateToValue(plist_t node) {
  int32_t seconds = 0;
  int32_t microseconds = 0;
  ::plist_get_date_val(node, &seconds, &microseconds);
  // The library gives the fraction without its sign.
  const double fraction = microseconds / 1e6;
  return Value::Date{seconds < 0 ? seconds - fraction : seconds + fraction};
}

bool arrayToValue(plist_t node, Value* out) {
  plist_array_iter raw = nullptr;
  ::plist_array_new_iter(node, &raw);
  const Memory<void> iterator(raw);
  const uint32_t size = ::plist_array_get_size(node);
  Value::Array array(size);
  for (Value& item : array) {
    plist_t member = nullptr;
    ::plist_array_next_item(node, raw, &member);
    if (!member || !toValue(member, &item)) return false;
  }
  *out = Value(std::move(array));
  return true;
}

bool dictToValue(plist_t node, Value* out) {
  plist_dict_iter raw = nullptr;
  ::plist_dict_new_iter(node, &raw);
  const Memory<void> iterator(raw);
  Value::Dict dict;
  for (;;) {
    char* name = nullptr;
    plist_t member = nullptr;
    ::plist_dict_next_item(node, raw, &name, &member);
    const Memory<char> key(name);
    if (!member) break;
    if (!key || !isPlistText(key.get()) || !toValue(member, &dict[key.get()])) return false;
  }
  *out = Value(std::move(dict));
  return true;
}

bool toValue(plist_t node, Value* out) {
  uint8_t boolean = 0;
  uint64_t number = 0;
  double real = 0;
  switch (::plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
      ::plist_get_bool_val(node, &boolean);
      *out = Value(boolean != 0);
      return true;
    case PLIST_UINT:  // negative ones too, as their 64 bits
      ::plist_get_uint_val(node, &number);
      *out = Value(static_cast<int64_t>(number));
      return true;
    case PLIST_REAL:
      ::plist_get_real_val(node, &real);
      *out = Value(real);
      return true;
    case PLIST_STRING:
      return stringToValue(node, out);
    case PLIST_DATA: {
      const char* data = ::plist_get_data_ptr(node, &number);
      *out = Value(Value::Data{data ? std::string(data, number) : std::string()});
      return true;
    }
    case PLIST_DATE:
      *out = Value(dateToValue(node));
      return true;
    case PLIST_ARRAY:
      return arrayToValue(node, out);
    case PLIST_DICT:
      return dictToValue(node, out);
    default:
      return false;
  }
}

// ---- a Value to the library's tree ----

// Builds the tree and keeps count, so that a list that can't be read back is not written.
class TreeBuilder {
 public:
  // Null when `value` can't be written.
  Node build(const Value& value);

 private:
  Node make(std::monostate) { return nullptr; }
  Node make(bool value) { return Node(::plist_new_bool(value ? 1 : 0)); }
  Node make(int64_t value) { return Node(::plist_new_uint(static_cast<uint64_t>(value))); }
  Node make(double value) { return Node(::plist_new_real(value)); }
  Node make(const std::string& value);
  Node make(const Value::Data& value);
  Node make(const Value::Date& value);
  Node make(const Value::Array& value);
  Node make(const Value::Dict& value);
  bool take(size_t bytes);

  size_t depth_ = 0;
  size_t values_ = 0;
  size_t bytes_ = 0;
};

bool TreeBuilder::take(size_t bytes) {
  bytes_ += bytes;
  return ++values_ <= kPlistMaxValues && bytes_ <= kPlistMaxBytes;
}

Node TreeBuilder::build(const Value& value) {
  return std::visit([this](const auto& held) { return make(held); }, value.storage());
}

Node TreeBuilder::make(const std::string& value) {
  if (!take(value.size())) return nullptr;
  return Node(::plist_new_string(toPlistText(value).c_str()));
}

Node TreeBuilder::make(const Value::Data& value) {
  if (!take(value.bytes.size())) return nullptr;
  return Node(::plist_new_data(value.bytes.data(), value.bytes.size()));
}

Node TreeBuilder::make(const Value::Date& value) {
  if (std::isnan(value.seconds)) return nullptr;
  double seconds = std::floor(value.seconds);
  seconds = std::fmax(seconds, static_cast<double>(kPlistFirstDate));
  seconds = std::fmin(seconds, static_cast<double>(kPlistLastDate));
  return Node(::plist_new_date(static_cast<int32_t>(seconds), 0));
}

Node TreeBuilder::make(const Value::Array& value) {
  if (depth_ == kPlistMaxDepth || !take(0)) return nullptr;
  ++depth_;
  Node array(::plist_new_array());
  for (const Value& item : value) {
    Node member = build(item);
    if (!member) return nullptr;
    ::plist_array_append_item(array.get(), member.release());
  }
  --depth_;
  return array;
}

Node TreeBuilder::make(const Value::Dict& value) {
  if (depth_ == kPlistMaxDepth || value.size() > kPlistMaxKeys || !take(0)) return nullptr;
  ++depth_;
  Node dict(::plist_new_dict());
  for (const auto& [key, item] : value) {
    if (item.isNull()) continue;
    Node member = take(key.size()) ? build(item) : nullptr;
    if (!member) return nullptr;
    ::plist_dict_set_item(dict.get(), toPlistText(key).c_str(), member.release());
  }
  --depth_;
  return dict;
}

// The list's layout holds no carriage return, so each of them stands in a text.
std::string withReferencesForReturns(std::string_view xml) {
  std::string out;
  out.reserve(xml.size());
  for (;;) {
    const size_t at = xml.find('\r');
    out += xml.substr(0, at);
    if (at == std::string_view::npos) return out;
    out += "&#13;";
    xml.remove_prefix(at + 1);
  }
}

Node readTree(std::string_view bytes) {
  plist_t root = nullptr;
  if (isSafeBinaryPlist(bytes)) {
    ::plist_from_bin(bytes.data(), static_cast<uint32_t>(bytes.size()), &root);
  } else if (const std::optional<std::string> xml = safeXmlPlist(bytes)) {
    ::plist_from_xml(xml->data(), static_cast<uint32_t>(xml->size()), &root);
  }
  return Node(root);
}

}  // namespace

bool PlistPropertyLists::parse(std::string_view bytes, Value* out) {
  const PointLocale point;
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  const Node root = readTree(bytes);
  Value value;
  if (!root || !toValue(root.get(), &value)) return false;
  *out = std::move(value);
  return true;
}

std::string PlistPropertyLists::serialize(const Value& value, PropertyListFormat format) {
  const PointLocale point;
  const Node root = TreeBuilder().build(value);
  if (!root) return std::string();
  char* raw = nullptr;
  uint32_t length = 0;
  const bool xml = format == PropertyListFormat::kXml;
  (xml ? ::plist_to_xml : ::plist_to_bin)(root.get(), &raw, &length);
  const Memory<char> bytes(raw);
  if (!bytes) return std::string();
  const std::string_view written(bytes.get(), length);
  std::string result = xml ? withReferencesForReturns(written) : std::string(written);
  return result.size() <= kPlistMaxBytes ? result : std::string();
}

bool PlistPropertyLists::readFile(const std::string& path, Value* out) {
  std::string bytes;
  return readWholeFile(path, kPlistMaxBytes, &bytes) && parse(bytes, out);
}

bool PlistPropertyLists::writeFile(const std::string& path, const Value& value, PropertyListFormat format) {
  const std::string bytes = serialize(value, format);
  return !bytes.empty() && writeFileAtomically(path, bytes);
}

}  // namespace zavel
