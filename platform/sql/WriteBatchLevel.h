#pragma once

#include <functional>
#include <utility>

#include "platform/sql/Database.h"
#include "platform/sql/DatabaseError.h"

namespace koru {

/// One level of nested write batches. Calls `end` once; `end` knows whether the level is the outermost.
class WriteBatchLevel : public WriteBatch {
 public:
  explicit WriteBatchLevel(std::function<void()> end) : end_(std::move(end)) {}
  WriteBatchLevel(const WriteBatchLevel&) = delete;
  WriteBatchLevel& operator=(const WriteBatchLevel&) = delete;

  ~WriteBatchLevel() override {
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
