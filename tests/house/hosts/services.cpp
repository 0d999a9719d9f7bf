// A host in C++ that brings services of its own and uses the platform's: a notification, a timer, a child
// process and a text, for which the library must find what is installed beside it.
#include <platform/Bundle.h>
#include <platform/ChildProcesses.h>
#include <platform/ForwardingPlatform.h>
#include <platform/NotificationCenter.h>
#include <platform/RunLoop.h>
#include <platform/UserServices.h>

#include <iostream>

namespace {

class Windows : public zavel::UserServices {
 public:
  size_t showAlert(const zavel::Alert& alert) override {
    std::cout << "alert " << alert.title << '\n';
    return 0;
  }
  void beep() override {}
  std::optional<std::string> pasteboardText() override { return std::nullopt; }
  void setPasteboardText(const std::string&) override {}
  bool openUrl(const std::string&) override { return false; }
};

class MyPlatform : public zavel::ForwardingPlatform {
 public:
  zavel::UserServices& userServices() override { return windows_; }

 private:
  Windows windows_;
};

}  // namespace

int main() {
  MyPlatform mine;
  zavel::setPlatform(&mine);
  auto& centre = zavel::NotificationCenter::shared();
  const auto subscription = centre.subscribe("shown", [](const zavel::Notification& notification) {
    zavel::platform().userServices().showAlert({notification.object.value.string(), "", {}});
  });
  bool fired = false;
  int status = -1;
  zavel::RunLoop& loop = zavel::platform().runLoop();
  loop.startTimer(0.01, false, [&fired] { fired = true; });
  const auto child = zavel::platform().children().start({"/bin/sh", {"-c", "exit 7"}, {}, {}},
                                                        {{}, [&status](int ended) { status = ended; }});
  loop.runUntil([&] { return fired && status >= 0; }, 20);
  centre.post("shown", {zavel::Value(zavel::platform().bundle().localized("Zu")), {}});
  std::cout << "timer " << fired << " child " << status << '\n';
  zavel::setPlatform(nullptr);
  return 0;
}
