// A platform that hands on every service of another one, so that a host or a test overrides only what it
// supplies itself.
#ifndef PLATFORM_FORWARDINGPLATFORM_H
#define PLATFORM_FORWARDINGPLATFORM_H

#include "platform/Platform.h"

namespace zavel {

//   class MyPlatform : public ForwardingPlatform {
//     UserServices& userServices() override { return windows_; }
//     ...
//   };
//   MyPlatform mine;      // over the port's own services
//   setPlatform(&mine);
class ForwardingPlatform : public Platform {
 public:
  // `below` is borrowed; null for the port's own.
  explicit ForwardingPlatform(Platform* below = nullptr) : below_(below ? *below : defaultPlatform()) {}
  ForwardingPlatform(const ForwardingPlatform&) = delete;
  ForwardingPlatform& operator=(const ForwardingPlatform&) = delete;

  TextEncoding& encoding() override { return below_.encoding(); }
  PropertyLists& propertyLists() override { return below_.propertyLists(); }
  FontMetrics& fonts() override { return below_.fonts(); }
  ForkedFiles& forkedFiles() override { return below_.forkedFiles(); }
  ToolRunner& tools() override { return below_.tools(); }
  Applications& applications() override { return below_.applications(); }
  Folders& folders() override { return below_.folders(); }
  RunLoop& runLoop() override { return below_.runLoop(); }
  ChildProcesses& children() override { return below_.children(); }
  UserDefaults& userDefaults() override { return below_.userDefaults(); }
  UserServices& userServices() override { return below_.userServices(); }
  Bundle& bundle() override { return below_.bundle(); }
  SoundOutput& sound() override { return below_.sound(); }

 protected:
  Platform& below() { return below_; }

 private:
  Platform& below_;
};

}  // namespace zavel

#endif
