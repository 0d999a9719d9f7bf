// Notifications: the only coupling between windows of one process, and between the system and its hosts.
#ifndef PLATFORM_NOTIFICATIONCENTER_H
#define PLATFORM_NOTIFICATIONCENTER_H

#include <cstddef>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>

#include "foundation/Export.h"
#include "platform/Value.h"

namespace zavel {

// What travels with a notification: a number, a text, a map, or nothing (null). The members of a map that are
// identities of objects (a host's token, a view) stand beside it under their keys; they are compared, never
// followed.
struct ZAVEL_API NotificationObject {
  Value value;
  std::map<std::string, const void*> identities;

  // The identity at `key`, null when there is none.
  const void* identity(const std::string& key) const;
};

struct Notification {
  std::string name;
  const void* sender = nullptr;  // identity of whoever posted it; null for nobody
  NotificationObject object;
};

// Delivers synchronously, in the order of subscription, on the calling thread. An observer may add and remove
// observers, itself included, and post again while it is called: one that is added gets the next post, one
// that is removed gets nothing from then on. It may even end the centre. An exception of an observer leaves
// post() at once: those behind it don't get that post, all of them stay subscribed.
class ZAVEL_API NotificationCenter {
 public:
  using Handler = std::function<void(const Notification&)>;

  // A subscription ends with its object. One that outlives the centre does nothing. What the handler holds is
  // let go with it, or, where the handler is being called, when it returns.
  class ZAVEL_API Subscription {
   public:
    Subscription() = default;
    ~Subscription() { end(); }
    Subscription(Subscription&&) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept;
    void end();

    // Whether posts still reach it.
    bool isActive() const;

   private:
    friend class NotificationCenter;
    struct Observer;
    explicit Subscription(std::shared_ptr<Observer> observer) : observer_(std::move(observer)) {}
    std::shared_ptr<Observer> observer_;
  };

  NotificationCenter();
  ~NotificationCenter();
  NotificationCenter(const NotificationCenter&) = delete;
  NotificationCenter& operator=(const NotificationCenter&) = delete;

  // Calls `handler` (not empty) at each post of `name`; with a `sender` only for that sender's.
  [[nodiscard]] Subscription subscribe(const std::string& name, Handler handler,
                                       const void* sender = nullptr);

  void post(const Notification& notification);
  void post(const std::string& name, NotificationObject object = {}, const void* sender = nullptr) {
    post(Notification{name, sender, std::move(object)});
  }

  // Live subscriptions.
  size_t count() const;

  // The centre that the system posts to. It lives as long as the process.
  static NotificationCenter& shared();

 private:
  using Observers = std::list<std::shared_ptr<Subscription::Observer>>;
  void remove(Subscription::Observer& observer);

  std::map<std::string, Observers> observers_;  // by name, in the order of subscription; no empty lists
};

}  // namespace zavel

#endif
