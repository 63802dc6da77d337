#include "tools/tds-stand-in/StandInLocks.h"

#include <algorithm>

namespace koru::test {

void StandInLocks::AwaitWriting(Entered& entered, Owner owner) {
  released_.wait(entered, [&] { return writer_ == nullptr || writer_ == owner; });
}

void StandInLocks::TakeWriting(Entered& entered, Owner owner) {
  AwaitWriting(entered, owner);
  writer_ = owner;
}

int StandInLocks::TakeResource(Entered& entered, Owner owner, const std::string& resource,
                               std::chrono::milliseconds timeout) {
  std::deque<Owner>& queue = resources_[resource];
  if (std::find(queue.begin(), queue.end(), owner) == queue.end()) queue.push_back(owner);
  const auto isFirst = [&] { return queue.front() == owner; };
  if (isFirst()) return 0;
  if (released_.wait_for(entered, timeout, isFirst)) return 1;
  queue.erase(std::find(queue.begin(), queue.end(), owner));
  return -1;
}

void StandInLocks::Release(Owner owner) {
  if (writer_ == owner) writer_ = nullptr;
  for (auto& [resource, queue] : resources_) {
    queue.erase(std::remove(queue.begin(), queue.end(), owner), queue.end());
  }
  released_.notify_all();
}

}  // namespace koru::test
