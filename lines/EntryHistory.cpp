#include "lines/EntryHistory.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "lines/LineColumns.h"

namespace koru {
namespace {

/// The accepted count, the book stock and the rate of a line, and what is derived from them.
constexpr int kFirstDerived = LineColumn::AcceptedCounting;
constexpr std::size_t kDerived = kLineColumns - kFirstDerived;

GridRow DerivedOf(const Grid& grid, int row) {
  std::array<std::string, kDerived> texts;
  for (std::size_t i = 0; i < kDerived; ++i)
    texts[i] = grid.TextMatrix(row, kFirstDerived + static_cast<int>(i));
  return GridRow(texts);
}

std::string_view TextOf(const GridRow& derived, int col) {
  return derived.Text(static_cast<std::size_t>(col - kFirstDerived));
}

bool AreDerived(const Grid& grid, int row, const GridRow& derived) {
  for (int col = kFirstDerived; col < kLineColumns; ++col) {
    if (grid.TextMatrix(row, col) != TextOf(derived, col)) return false;
  }
  return true;
}

/// The rows of lines, found by what identifies them. Entering a figure can remove a row: an empty one that
/// the user leaves.
class RowFinder {
 public:
  explicit RowFinder(const Grid& grid) : grid_(grid) { Read(); }

  /// No value: the line is deleted.
  [[nodiscard]] std::optional<int> Find(std::uint32_t line) {
    if (grid_.Rows() != rows_) Read();
    const auto at = std::lower_bound(places_.begin(), places_.end(), std::pair(line, 0));
    if (at == places_.end() || at->first != line) return std::nullopt;
    return at->second;
  }

 private:
  void Read() {
    rows_ = grid_.Rows();
    places_.clear();
    places_.reserve(static_cast<std::size_t>(rows_));
    for (int row = 1; row < rows_; ++row) places_.emplace_back(grid_.RowID(row), row);
    std::sort(places_.begin(), places_.end());
  }

  const Grid& grid_;
  int rows_ = 0;
  std::vector<std::pair<std::uint32_t, int>> places_;
};

}  // namespace

EntryHistory::EntryHistory(InvCountingControls& controls) : grid_(controls.flexDetail) {
  subscriptions_.push_back(grid_.ValidateEdit.Subscribe([this] { Remember(); }));
  subscriptions_.push_back(grid_.CellChanged.Subscribe([this] { Record(); }));
  subscriptions_.push_back(grid_.BatchEdited.Subscribe([this] { Append(std::exchange(batch_, {})); }));
}

/// The form begins to test an edit.
void EntryHistory::Remember() {
  if (isPlaying_ || grid_.InEditElsewhere()) return;
  const int row = grid_.Row();
  const int col = grid_.Col();
  entered_ = {.line = grid_.RowID(row),
              .col = col,
              .before = std::string(grid_.TextMatrix(row, col)),
              .after = {},
              .derived = DerivedOf(grid_, row)};
}

/// The form has accepted the edit and derived what depends on it.
void EntryHistory::Record() {
  if (isPlaying_ || grid_.InEditElsewhere()) return;
  const int row = grid_.Row();
  Edit edit = std::exchange(entered_, {});
  edit.after = grid_.TextMatrix(row, edit.col);
  const bool sameDerived = AreDerived(grid_, row, *edit.derived);
  if (sameDerived && edit.after == edit.before) return;
  if (sameDerived) edit.derived.reset();
  batch_.push_back(std::move(edit));
  if (!grid_.InBatchEdit()) Append(std::exchange(batch_, {}));
}

void EntryHistory::Append(Step step) {
  if (step.empty()) return;
  steps_.resize(done_);
  steps_.push_back(std::move(step));
  ++done_;
  Changed.Raise();
}

EntryHistory::Result EntryHistory::Go(Direction direction) {
  const bool isBack = direction == Direction::Back;
  Result result;
  int skipped = 0;
  while (isBack ? CanUndo() : CanRedo()) {
    if (isBack) --done_;
    if (!IsGone(steps_[done_])) {
      result = Play(steps_[done_], direction);
      if (!isBack) ++done_;
      break;
    }
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_));
    ++skipped;
  }
  result.skipped = skipped;
  Changed.Raise();
  return result;
}

void EntryHistory::Clear() {
  if (steps_.empty() && batch_.empty()) return;
  steps_.clear();
  batch_.clear();
  done_ = 0;
  Changed.Raise();
}

bool EntryHistory::IsGone(const Step& step) const {
  RowFinder rows(grid_);
  return std::none_of(step.begin(), step.end(),
                      [&rows](const Edit& edit) { return rows.Find(edit.line).has_value(); });
}

EntryHistory::Result EntryHistory::Play(const Step& step, Direction direction) {
  Result result;
  RowFinder rows(grid_);
  const Edit* first = nullptr;
  isPlaying_ = true;
  {
    const BatchEdit batch(grid_);
    std::optional<GridRedrawOff> redrawOff;
    if (step.size() > 1) redrawOff.emplace(grid_);
    const auto play = [&](const Edit& edit) {
      const std::optional<int> row = rows.Find(edit.line);
      if (!row) {
        ++result.gone;
        return;
      }
      if (first == nullptr || direction == Direction::Back) first = &edit;
      ++(Enter(*row, edit, direction) ? result.figures : result.kept);
    };
    if (direction == Direction::Back) {
      std::for_each(step.rbegin(), step.rend(), play);
    } else {
      std::for_each(step.begin(), step.end(), play);
    }
    if (const auto row = first == nullptr ? std::nullopt : rows.Find(first->line)) {
      grid_.UserMoveTo(*row, first->col);
    }
  }
  isPlaying_ = false;
  return result;
}

/// False when the cell has another figure than the edit found or left, or when the form refuses the figure.
bool EntryHistory::Enter(int row, const Edit& edit, Direction direction) {
  const bool isBack = direction == Direction::Back;
  if (grid_.TextMatrix(row, edit.col) != (isBack ? edit.after : edit.before)) return false;
  if (!grid_.UserEdit(row, edit.col, isBack ? edit.before : edit.after)) return false;
  if (isBack) BringBack(grid_.Row(), edit);
  return true;
}

/// The figure is entered again. Its own text and the derived cells may have been others: as they were stored.
void EntryHistory::BringBack(int row, const Edit& edit) {
  if (grid_.TextMatrix(row, edit.col) != edit.before) grid_.SetTextMatrix(row, edit.col, edit.before);
  if (!edit.derived) return;
  for (const int col : {LineColumn::AcceptedCounting, LineColumn::SystemCounting, LineColumn::Rate}) {
    if (grid_.TextMatrix(row, col) != TextOf(*edit.derived, col)) return;
  }
  for (int col = kFirstDerived; col < kLineColumns; ++col) {
    if (grid_.TextMatrix(row, col) != TextOf(*edit.derived, col))
      grid_.SetTextMatrix(row, col, TextOf(*edit.derived, col));
  }
}

}  // namespace koru
