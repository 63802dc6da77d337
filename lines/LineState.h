#pragma once

#include <cstdint>
#include <string_view>

#include "platform/controls/Grid.h"

namespace koru {

/// The lines that a user asks for. Every line is of one of the last four kinds and of no other of them.
enum class LineKind : std::int32_t {
  All = 0,
  NotCounted = 1,      ///< no count at all: neither one of the three counts nor an accepted count
  CountsDisagree = 2,  ///< at least two of the three counts, and not all of those equal
  NotAccepted = 3,     ///< no accepted count
  Short = 4,           ///< an accepted count below the book stock
  Over = 5,            ///< an accepted count above the book stock
  Exact = 6            ///< an accepted count that is the book stock
};
inline constexpr int kLineKinds = 7;

/// Those of the three counts of a line that are given. An empty or blank cell is no count; a 0 is one.
struct GivenCounts {
  int number = 0;
  bool agree = true;       ///< all are the same number, however it is written
  std::string_view first;  ///< valid until the row changes
};

/// The counts of a row of a counting's lines (LineColumns.h).
[[nodiscard]] GivenCounts CountsOf(const Grid& lines, int row);

/// What the figures of a line say about it. Short and over are those of the line's own shortage and surplus
/// columns.
class LineState {
 public:
  LineState() = default;
  /// The state of a row of a counting's lines (LineColumns.h).
  static LineState Of(const Grid& lines, int row);

  [[nodiscard]] bool IsCounted() const { return (bits_ & kCounted) != 0; }
  /// Whether it has at least two of the three counts, all of them equal.
  [[nodiscard]] bool CountsAgree() const { return (bits_ & kAgree) != 0; }
  [[nodiscard]] bool CountsDisagree() const { return (bits_ & kDisagree) != 0; }
  [[nodiscard]] bool IsAccepted() const { return (bits_ & kAccepted) != 0; }
  [[nodiscard]] bool Is(LineKind kind) const;

 private:
  enum : std::uint8_t { kCounted = 1, kAgree = 2, kDisagree = 4, kAccepted = 8, kShort = 16, kOver = 32 };

  std::uint8_t bits_ = 0;
};

}  // namespace koru
