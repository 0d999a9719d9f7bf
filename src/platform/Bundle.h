// The program that the system runs inside, and what comes with the system: resources and localized texts.
#ifndef PLATFORM_BUNDLE_H
#define PLATFORM_BUNDLE_H

#include <cstdint>
#include <optional>
#include <string>

#include "foundation/Export.h"

namespace zavel {

class ZAVEL_API Bundle {
 public:
  virtual ~Bundle() = default;

  // "CFBundleSignature" of the program: four characters, empty when it has none.
  virtual std::string mainSignature() = 0;
  // "CFBundleIdentifier" of this library; names its preference file.
  virtual std::string libraryIdentifier() = 0;
  // The operating system's version, two hexadecimal digits major, one minor, one patch: 0x105F.
  virtual uint32_t systemVersion() = 0;

  // The path of the resource `name`.`type`; nothing when there is none.
  virtual std::optional<std::string> resourcePath(const std::string& name, const std::string& type) = 0;

  // The text for `key` in the user's language; the key itself when there is none.
  virtual std::string localized(const std::string& key) = 0;
};

}  // namespace zavel

#endif
