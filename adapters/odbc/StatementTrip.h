#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/sql/Recordset.h"

namespace koru {

/// Several statements that are sent together as one batch, in one round trip.
///
/// A server continues with the next statement of a batch after most failures. So each statement is followed
/// by a test of @@error that ends the batch, and by a selection of its number: the marks separate the
/// results, and count the statements that succeeded. No `begin try`: inside it, some failures make a
/// transaction unusable that would not otherwise.
class StatementTrip {
 public:
  static constexpr std::size_t kMaxStatements = 500;
  static constexpr std::size_t kMaxBytes = std::size_t{256} * 1024;

  /// Whether a statement of that size has room.
  [[nodiscard]] bool HasRoom(std::size_t bytes) const;
  /// `statement` is as the server takes it (ServerStatement).
  void Add(const std::string& statement);

  /// The batch.
  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] std::size_t Statements() const { return statements_; }

 private:
  std::string text_;
  std::size_t statements_ = 0;
};

/// Assigns the results of a trip to its statements.
class TripResults {
 public:
  /// `take` gets the first result with columns of each statement that succeeded, and its number from 0; a
  /// result without columns when it has none.
  explicit TripResults(std::function<void(std::size_t, const Recordset&)> take) : take_(std::move(take)) {}

  void Take(Recordset result);

  /// Whether the batch began to run; otherwise the server refused it as a whole, and nothing of it ran.
  [[nodiscard]] bool HasBegun() const { return hasBegun_; }
  /// The number of the statements that succeeded.
  [[nodiscard]] std::size_t Done() const { return done_; }

 private:
  std::function<void(std::size_t, const Recordset&)> take_;
  Recordset result_;
  bool hasResult_ = false;
  bool hasBegun_ = false;
  std::size_t done_ = 0;
};

}  // namespace koru
