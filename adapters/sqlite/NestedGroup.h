#pragma once

#include <functional>
#include <utility>

#include "platform/Database.h"
#include "platform/Errors.h"

namespace koru {

/// One level of nested write groups; `end` closes it, once, and knows whether it was the outermost.
class NestedGroup : public WriteGroup {
 public:
  explicit NestedGroup(std::function<void()> end) : end_(std::move(end)) {}
  NestedGroup(const NestedGroup&) = delete;
  NestedGroup& operator=(const NestedGroup&) = delete;

  ~NestedGroup() override {
    try {
      Finish();
    } catch (const DatabaseError&) {  // NOLINT(bugprone-empty-catch): the first failure is the one to report
    }
  }

  void Finish() override {
    if (const auto end = std::exchange(end_, nullptr)) end();
  }

 private:
  std::function<void()> end_;
};

}  // namespace koru
