#pragma once

#include <algorithm>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace koru {

/// RAII subscription of one listener to an Event: the listener is not called after its destruction. It may
/// outlive the event.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
  Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      End();
      end_ = std::exchange(other.end_, nullptr);
    }
    return *this;
  }
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() { End(); }

  /// Stops listening now. A second call does nothing.
  void End() {
    if (end_) std::exchange(end_, nullptr)();
  }

 private:
  std::function<void()> end_;
};

/// An event and its listeners. Listeners are called in the order of their subscription, on the raising
/// thread; they may subscribe and unsubscribe while they are called.
template <class... Args>
class Event {
 public:
  using Listener = std::function<void(Args...)>;

  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  ~Event() = default;

  [[nodiscard]] Subscription Subscribe(Listener listener) {
    const std::uint64_t id = ++state_->lastId;
    state_->listeners.push_back({id, std::make_shared<Listener>(std::move(listener))});
    return Subscription([weak = std::weak_ptr<State>(state_), id] {
      if (const auto state = weak.lock()) {
        std::erase_if(state->listeners, [id](const Entry& entry) { return entry.id == id; });
      }
    });
  }

  /// Subscribes for the lifetime of the event; for an owner that listens to its own members.
  void Always(Listener listener) {
    state_->listeners.push_back({++state_->lastId, std::make_shared<Listener>(std::move(listener))});
  }

  /// Calls the listeners. An exception from a listener reaches the caller, and the listeners after it are not
  /// called.
  void Raise(Args... args) const {
    CallEach([&](const Listener& listener) { listener(args...); });
  }

  /// Calls every listener, also after one has thrown. Returns the first exception, or null.
  [[nodiscard]] std::exception_ptr RaiseToAll(Args... args) const {
    std::exception_ptr first;
    CallEach([&](const Listener& listener) {
      try {
        listener(args...);
      } catch (...) {
        if (!first) first = std::current_exception();
      }
    });
    return first;
  }

 private:
  struct Entry {
    std::uint64_t id;
    std::shared_ptr<Listener> listener;
  };
  struct State {
    std::uint64_t lastId = 0;
    std::vector<Entry> listeners;
  };

  template <class Call>
  void CallEach(const Call& call) const {
    const auto state = state_;
    const auto listeners = state->listeners;
    for (const Entry& entry : listeners) {
      const bool stillListens = std::any_of(state->listeners.begin(), state->listeners.end(),
                                            [&](const Entry& other) { return other.id == entry.id; });
      if (stillListens) call(*entry.listener);
    }
  }

  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace koru
