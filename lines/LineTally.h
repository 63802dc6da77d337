#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "lines/LineState.h"
#include "platform/controls/Grid.h"

namespace koru {

/// Numbers of lines.
struct LineCounts {
  std::array<int, kLineKinds> ofKind{};  ///< by LineKind
  int counted = 0;
  int agreed = 0;  ///< at least two counts, all of them equal

  [[nodiscard]] int Of(LineKind kind) const { return ofKind.at(static_cast<std::size_t>(kind)); }
  [[nodiscard]] int Lines() const { return Of(LineKind::All); }
  [[nodiscard]] int Left() const { return Of(LineKind::NotAccepted); }
  [[nodiscard]] int Accepted() const { return Lines() - Left(); }

  friend bool operator==(const LineCounts&, const LineCounts&) = default;
};

/// The states of a counting's lines and how many lines there are of each kind. A changed figure costs the
/// time of one line; after any other change of the rows, the next question passes over all lines.
class LineTally {
 public:
  /// Listens to the grid, which must outlive the object.
  explicit LineTally(Grid& lines);

  [[nodiscard]] const LineCounts& Counts();
  [[nodiscard]] LineState StateOf(int row);

 private:
  void Follow(const GridChange& change);
  void Refresh();
  void Add(LineState state, int lines);

  Grid& lines_;
  bool known_ = false;
  std::vector<LineState> states_;  ///< by row, the header's first
  LineCounts counts_;
  Subscription rowsChanged_;
};

}  // namespace koru
