// Tests: tests/platform/NotificationCenterTest.cpp
#include "platform/NotificationCenter.h"

#include <utility>
#include <vector>

namespace zavel {

const void* NotificationObject::identity(const std::string& key) const {
  const auto found = identities.find(key);
  return found == identities.end() ? nullptr : found->second;
}

// Held by its subscription, by the centre's list while it is in it, and by each post that is under way.
struct NotificationCenter::Subscription::Observer {
  NotificationCenter* centre;  // null once it has ended
  std::string name;
  const void* sender;  // null: any
  Handler handler;
  Observers::iterator place;  // valid while `centre` is set
};

NotificationCenter::Subscription& NotificationCenter::Subscription::operator=(Subscription&& other) noexcept {
  if (this == &other) return *this;
  end();
  observer_ = std::move(other.observer_);
  return *this;
}

void NotificationCenter::Subscription::end() {
  // Let go of last, by this function's end: what the handler holds may end other subscriptions.
  const std::shared_ptr<Observer> observer = std::move(observer_);
  if (observer && observer->centre) observer->centre->remove(*observer);
}

bool NotificationCenter::Subscription::isActive() const {
  return observer_ && observer_->centre;
}

NotificationCenter::NotificationCenter() = default;

NotificationCenter::~NotificationCenter() {
  const std::map<std::string, Observers> ended = std::move(observers_);
  for (const auto& [name, list] : ended) {
    for (const auto& observer : list) observer->centre = nullptr;
  }
}

NotificationCenter::Subscription NotificationCenter::subscribe(const std::string& name, Handler handler,
                                                               const void* sender) {
  Observers added;
  added.push_back(std::make_shared<Subscription::Observer>(
      Subscription::Observer{this, name, sender, std::move(handler), added.end()}));
  const std::shared_ptr<Subscription::Observer> observer = added.back();
  observer->place = added.begin();
  Observers& list = observers_[name];
  list.splice(list.end(), added);  // keeps `place`
  return Subscription(observer);
}

void NotificationCenter::remove(Subscription::Observer& observer) {
  const auto list = observers_.find(observer.name);
  observer.centre = nullptr;
  list->second.erase(observer.place);
  if (list->second.empty()) observers_.erase(list);
}

void NotificationCenter::post(const Notification& notification) {
  const auto list = observers_.find(notification.name);
  if (list == observers_.end()) return;
  // A copy, because handlers change the list, and the centre itself may be gone after any of them.
  const std::vector<std::shared_ptr<Subscription::Observer>> observers(list->second.begin(),
                                                                       list->second.end());
  for (const auto& observer : observers) {
    if (!observer->centre) continue;
    if (observer->sender && observer->sender != notification.sender) continue;
    observer->handler(notification);
  }
}

size_t NotificationCenter::count() const {
  size_t total = 0;
  for (const auto& [name, list] : observers_) total += list.size();
  return total;
}

NotificationCenter& NotificationCenter::shared() {
  // Never destroyed: subscriptions and posts of other static objects may come after the end of main().
  static NotificationCenter& centre = *new NotificationCenter;
  return centre;
}

}  // namespace zavel
