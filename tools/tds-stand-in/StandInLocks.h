#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <string>

namespace koru::test {

/// What the stand-in's clients wait for: the one transaction that may write, and application locks. Every
/// call is made while the caller holds the lock of Enter; a waiting one lets others enter.
class StandInLocks {
 public:
  /// A client.
  using Owner = const void*;
  using Entered = std::unique_lock<std::mutex>;

  [[nodiscard]] Entered Enter() { return Entered(guard_); }

  /// Waits until no other client's transaction has written.
  void AwaitWriting(Entered& entered, Owner owner);
  /// The same; the owner's transaction writes from then on.
  void TakeWriting(Entered& entered, Owner owner);

  /// Waits for an exclusive application lock, in the order of arrival. The return value is that of
  /// sp_getapplock: 0 granted at once, 1 granted after waiting, -1 not granted in time.
  int TakeResource(Entered& entered, Owner owner, const std::string& resource,
                   std::chrono::milliseconds timeout);

  /// The owner's transaction has ended: releases all it holds.
  void Release(Owner owner);

 private:
  std::mutex guard_;
  std::condition_variable released_;
  Owner writer_ = nullptr;
  std::map<std::string, std::deque<Owner>> resources_;  ///< the holder, then those who wait
};

}  // namespace koru::test
