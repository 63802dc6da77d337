#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace koru {

/// Keeps one listener of an Event listening; when it goes, the listener is no longer called. It may outlive
/// the event.
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

/// Something that happens, and who wants to be told. Listeners are called in the order in which they
/// subscribed, on the thread that raises; they may subscribe and unsubscribe while they are called. What a
/// listener throws reaches the raiser, and the listeners after it are then not called.
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

  /// Subscribes for the whole life of the event; for an owner that listens to its own members.
  void Always(Listener listener) {
    state_->listeners.push_back({++state_->lastId, std::make_shared<Listener>(std::move(listener))});
  }

  void Raise(Args... args) const {
    const auto state = state_;
    const auto listeners = state->listeners;
    for (const Entry& entry : listeners) {
      const bool stillListens = std::any_of(state->listeners.begin(), state->listeners.end(),
                                            [&](const Entry& other) { return other.id == entry.id; });
      if (stillListens) (*entry.listener)(args...);
    }
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
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace koru
