#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "services/dteInvCounting.h"

namespace koru {

/// Sends statements that only write, in order, as many in a round trip as the database takes: one by one on
/// an embedded file. Statements that were not sent are dropped on destruction.
class WriteQueue {
 public:
  /// Both must outlive the queue.
  WriteQueue(dteInvCounting& data, dteInvCounting::Command& command)
      : command_(command), perTrip_(data.StatementsPerTrip()) {}

  /// Appends a statement, and sends what waits when that fills a trip. Throws DatabaseError; what the
  /// statements before the failing one wrote stays.
  void Add(SqlText statement) {
    waiting_.push_back(std::move(statement));
    if (waiting_.size() >= perTrip_) Send();
  }
  /// Sends what waits. Throws as Add does.
  void Send() {
    if (waiting_.empty()) return;
    const std::vector<SqlText> now = std::exchange(waiting_, {});
    command_.OpenAll(now, [](std::size_t, const Recordset&) {});
  }

 private:
  dteInvCounting::Command& command_;
  std::size_t perTrip_;
  std::vector<SqlText> waiting_;
};

}  // namespace koru
