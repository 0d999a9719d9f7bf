// A platform whose services for the user, whose bundle and whose sound output are the test's own, to be set and looked at.
#ifndef TESTS_SUPPORT_FAKEPLATFORM_H
#define TESTS_SUPPORT_FAKEPLATFORM_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Bundle.h"
#include "platform/ForwardingPlatform.h"
#include "platform/SoundOutput.h"
#include "platform/UserServices.h"

namespace zavel::test {

// Records what was shown, and answers as told.
class FakeUserServices : public UserServices {
 public:
  size_t showAlert(const Alert& alert) override {
    alerts.push_back(alert);
    return answer;
  }
  void beep() override { ++beeps; }
  std::optional<std::string> pasteboardText() override { return pasteboard; }
  void setPasteboardText(const std::string& text) override { pasteboard = text; }
  bool openUrl(const std::string& url) override {
    urls.push_back(url);
    return takesUrls;
  }

  std::vector<Alert> alerts;
  size_t answer = 0;  // the button that is chosen
  int beeps = 0;
  std::optional<std::string> pasteboard;
  std::vector<std::string> urls;
  bool takesUrls = true;
};

// What a test puts in; a key without a text is its own text, a resource that was not put in is missing.
class FakeBundle : public Bundle {
 public:
  std::string mainSignature() override { return signature; }
  std::string libraryIdentifier() override { return identifier; }
  uint32_t systemVersion() override { return version; }
  std::optional<std::string> resourcePath(const std::string& name, const std::string& type) override {
    const auto found = resources.find(type.empty() ? name : name + "." + type);
    return found == resources.end() ? std::nullopt : std::optional<std::string>(found->second);
  }
  std::string localized(const std::string& key) override {
    const auto found = texts.find(key);
    return found == texts.end() ? key : found->second;
  }

  std::string signature;
  std::string identifier = "test.zavel";
  uint32_t version = 0x1060;
  std::map<std::string, std::string> resources;  // "SearchSite.plist" to a path
  std::map<std::string, std::string> texts;
};

// Keeps what it would play, and answers as told.
class FakeSoundOutput : public SoundOutput {
 public:
  SoundResult play(const uint8_t* wave, size_t size) override {
    played.emplace_back(reinterpret_cast<const char*>(wave), size);
    return answer;
  }

  std::vector<std::string> played;
  SoundResult answer = SoundResult::kPlayed;
};

// In use as long as it lives, over the services of the port. A test that replaces more derives from it.
class FakePlatform : public ForwardingPlatform {
 public:
  FakePlatform() : before_(setPlatform(this)) {}
  ~FakePlatform() override { setPlatform(before_); }

  UserServices& userServices() override { return user; }
  Bundle& bundle() override { return ownBundle; }
  SoundOutput& sound() override { return sounds; }

  FakeUserServices user;
  FakeBundle ownBundle;
  FakeSoundOutput sounds;

 private:
  Platform* before_;
};

}  // namespace zavel::test

#endif
