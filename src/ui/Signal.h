// Telling others of a change.
#ifndef UI_SIGNAL_H
#define UI_SIGNAL_H

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zavel {

// What a signal keeps of one handler, whatever its arguments.
class SignalSlot {
 public:
  virtual ~SignalSlot() = default;
  virtual void end() = 0;  // the handler is not called again
  bool live() const { return live_; }

 protected:
  bool live_ = true;
};

// A handler's place at a signal. Destroying it, or giving it another value, takes the handler off. One that
// outlives its signal does nothing.
class [[nodiscard]] Connection {
 public:
  Connection() = default;
  explicit Connection(std::weak_ptr<SignalSlot> slot) : slot_(std::move(slot)) {}
  ~Connection() { disconnect(); }
  Connection(Connection&& other) noexcept : slot_(std::exchange(other.slot_, {})) {}
  Connection& operator=(Connection&& other) noexcept {
    if (this != &other) {
      disconnect();
      slot_ = std::exchange(other.slot_, {});
    }
    return *this;
  }

  void disconnect() {
    if (const std::shared_ptr<SignalSlot> slot = slot_.lock()) slot->end();
    slot_.reset();
  }
  bool connected() const {
    const std::shared_ptr<SignalSlot> slot = slot_.lock();
    return slot && slot->live();
  }

 private:
  std::weak_ptr<SignalSlot> slot_;
};

// Calls its handlers one after the other, in the order in which they connected. Inside a call a handler may
// connect (the new one gets the next emission), disconnect itself or others (who get nothing from then on),
// emit again, or destroy the signal (nobody further is called). What a handler throws leaves emit() at once.
template <typename... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;
  ~Signal() {
    if (!state_) return;
    for (size_t i = 0; i < state_->slots.size(); ++i) state_->slots[i]->end();
  }

  Connection connect(Handler handler) {
    if (!state_) state_ = std::make_shared<State>();
    state_->sweep();
    state_->slots.push_back(std::make_shared<Slot>(std::move(handler)));
    return Connection(state_->slots.back());
  }

  void emit(Args... args) {
    const std::shared_ptr<State> state = state_;  // outlives a signal that is destroyed meanwhile
    if (!state) return;
    const Nested nested(state.get());
    const size_t count = state->slots.size();
    for (size_t i = 0; i < count; ++i) {
      const std::shared_ptr<Slot> slot = state->slots[i];
      slot->call(args...);
    }
  }

  // Handlers that are connected.
  size_t count() const {
    size_t live = 0;
    if (state_)
      for (const std::shared_ptr<Slot>& slot : state_->slots) live += slot->live() ? 1 : 0;
    return live;
  }

 private:
  // Keeps a handler while it runs, even if it takes itself off, and no longer.
  class Slot : public SignalSlot {
   public:
    explicit Slot(Handler handler) : handler_(std::move(handler)) {}
    void end() override {
      live_ = false;
      if (running_ == 0) handler_ = nullptr;
    }
    void call(Args... args) {
      if (!live_) return;
      const Running running(this);
      handler_(args...);
    }

   private:
    struct Running {
      explicit Running(Slot* s) : slot(s) { ++slot->running_; }
      ~Running() {
        if (--slot->running_ == 0 && !slot->live_) slot->handler_ = nullptr;
      }
      Slot* slot;
    };
    Handler handler_;
    int running_ = 0;
  };

  struct State {
    std::vector<std::shared_ptr<Slot>> slots;
    int emitting = 0;

    // Drops ended slots, unless an emission counts on their places.
    void sweep() {
      if (emitting == 0) std::erase_if(slots, [](const std::shared_ptr<Slot>& s) { return !s->live(); });
    }
  };

  struct Nested {
    explicit Nested(State* s) : state(s) { ++state->emitting; }
    ~Nested() {
      --state->emitting;
      state->sweep();
    }
    State* state;
  };

  std::shared_ptr<State> state_;  // null until somebody connects
};

}  // namespace zavel

#endif
