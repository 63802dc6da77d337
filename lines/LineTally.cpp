#include "lines/LineTally.h"

namespace koru {

LineTally::LineTally(Grid& lines) : lines_(lines) {
  rowsChanged_ = lines_.RowsChanged.Subscribe([this](const GridChange& change) { Follow(change); });
}

const LineCounts& LineTally::Counts() {
  Refresh();
  return counts_;
}

LineState LineTally::StateOf(int row) {
  Refresh();
  return states_.at(static_cast<std::size_t>(row));
}

void LineTally::Follow(const GridChange& change) {
  if (change.kind != GridChange::Kind::RowTexts) {
    known_ = false;
    return;
  }
  if (!known_ || change.first == 0) return;
  LineState& state = states_.at(static_cast<std::size_t>(change.first));
  Add(state, -1);
  state = LineState::Of(lines_, change.first);
  Add(state, 1);
}

void LineTally::Refresh() {
  if (known_) return;
  counts_ = {};
  states_.assign(static_cast<std::size_t>(lines_.Rows()), LineState());
  for (int row = 1; row < lines_.Rows(); ++row) {
    LineState& state = states_[static_cast<std::size_t>(row)];
    state = LineState::Of(lines_, row);
    Add(state, 1);
  }
  known_ = true;
}

void LineTally::Add(LineState state, int lines) {
  for (int kind = 0; kind < kLineKinds; ++kind) {
    if (state.Is(static_cast<LineKind>(kind))) counts_.ofKind.at(static_cast<std::size_t>(kind)) += lines;
  }
  if (state.IsCounted()) counts_.counted += lines;
  if (state.CountsAgree()) counts_.agreed += lines;
}

}  // namespace koru
