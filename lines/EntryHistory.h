#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "platform/controls/GridRow.h"

namespace koru {

/// The figures that the user has entered into the lines, step by step, to be undone and redone in this order.
///
/// A step is one typed figure, or all figures of one BatchEdit: a pasted block, the accepted counts that one
/// command fills, an imported file. Whoever enters several figures for the user with Grid::UserEdit in a
/// BatchEdit has one step; nothing else is to be called.
///
/// Figures from elsewhere (Grid::UserEditElsewhere) are none of the user's: undoing leaves them.
///
/// A figure belongs to its line (Grid::RowID), wherever sorting has moved it. Undo and redo enter it again
/// with Grid::UserEdit, so that the form tests it and derives what depends on it. Undo also brings back the
/// shortage, the surplus and the amounts that the line had, as long as their book stock and rate are the
/// same: those of a stored line need not be the derived ones.
class EntryHistory {
 public:
  /// What an undo or a redo has done.
  struct Result {
    int figures = 0;  ///< figures that the lines have now
    int gone = 0;     ///< its figures whose lines are deleted
    int skipped = 0;  ///< steps before it whose lines are all deleted; they are removed from the history
    int kept = 0;     ///< cells that kept another figure: the program has changed it since, or it was refused
  };

  /// Listens to the grid during the object's lifetime. To be made after LineEditing, which derives the cells
  /// that the history compares. `controls` must outlive the object.
  explicit EntryHistory(InvCountingControls& controls);
  EntryHistory(const EntryHistory&) = delete;
  EntryHistory& operator=(const EntryHistory&) = delete;
  ~EntryHistory() = default;

  [[nodiscard]] bool CanUndo() const { return done_ > 0; }
  [[nodiscard]] bool CanRedo() const { return done_ < steps_.size(); }

  /// Takes the latest step back, or enters the step again that was taken back last. The current cell is then
  /// the step's first one. Steps whose lines are all deleted are skipped.
  Result Undo() { return Go(Direction::Back); }
  Result Redo() { return Go(Direction::Forth); }

  /// Forgets everything: the entry has ended, or another one begins.
  void Clear();

  /// CanUndo or CanRedo may be another.
  Event<> Changed;

 private:
  struct Edit {
    std::uint32_t line = 0;  ///< Grid::RowID
    int col = 0;
    std::string before;
    std::string after;
    std::optional<GridRow> derived;  ///< what is derived in the line, before the edit; nothing if it stayed
  };
  using Step = std::vector<Edit>;
  enum class Direction { Back, Forth };

  void Remember();
  void Record();
  void Append(Step step);
  Result Go(Direction direction);
  [[nodiscard]] bool IsGone(const Step& step) const;
  Result Play(const Step& step, Direction direction);
  bool Enter(int row, const Edit& edit, Direction direction);
  void BringBack(int row, const Edit& edit);

  Grid& grid_;
  std::vector<Step> steps_;
  std::size_t done_ = 0;  ///< the steps before this one are done, those from it on are undone
  Edit entered_;          ///< the edit that the form is testing
  Step batch_;            ///< the edits of the batch that is being entered
  bool isPlaying_ = false;
  std::vector<Subscription> subscriptions_;
};

}  // namespace koru
