// Signature, resources and localized texts, on a system without bundles.
#ifndef PORT_LINUX_BASE_LINUXBUNDLE_H
#define PORT_LINUX_BASE_LINUXBUNDLE_H

#include <optional>
#include <string>

#include "platform/Bundle.h"
#include "platform/PropertyLists.h"

namespace zavel {

// Resources are files below one folder; those that speak a language stand below it in "ja.lproj" or
// "en.lproj". The language is Japanese when the first of LC_ALL, LC_MESSAGES and LANG that is set and not
// empty names it
// ("ja", "ja_JP.UTF-8"), else English. It is settled at the first question.
class LinuxBundle : public Bundle {
 public:
  // `folder` empty: the one that belongs to this code, looked for when it is first needed.
  explicit LinuxBundle(PropertyLists& lists, std::string folder = std::string())
      : lists_(lists), folder_(std::move(folder)) {}

  // Four characters; anything else is as if the program had none. A host that is one of the known
  // applications says so before it makes a controller.
  void setMainSignature(const std::string& signature) { signature_ = signature; }

  std::string mainSignature() override { return signature_.size() == 4 ? signature_ : std::string(); }
  std::string libraryIdentifier() override;
  // One number for every Linux, above those for which there are builds of their own.
  uint32_t systemVersion() override { return 0x1060; }

  // In the language's folder first, then in the common one. A name that leads elsewhere has no resource.
  std::optional<std::string> resourcePath(const std::string& name, const std::string& type) override;

  // From the property list "Localizable.plist" of the language, one map of strings.
  std::string localized(const std::string& key) override;

 private:
  const std::string& folder();
  const std::string& language();
  const Value& texts();

  PropertyLists& lists_;
  std::string folder_;
  std::string signature_;
  std::string language_;        // "ja" or "en"; empty before the first question
  std::optional<Value> texts_;  // nothing before the first question
};

}  // namespace zavel

#endif
