#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "floor/FloorFigures.h"
#include "floor/FloorReplay.h"

namespace koru::test {

/// What counters and the desk can rely on, whatever the floor does to keep it: no figure of a device takes
/// effect twice, and one that was answered as stored is in the counting or offered to the desk until the desk
/// does without it. It notes which figures what is on the form, in the draft and in the database has come
/// from; figures that somebody has replaced since are among them.
class FloorLedger {
 public:
  // Devices.

  /// A figure has been decided and is in its cell.
  void Enter(const JournalFigure& figure);
  /// An answer has left the desk, after the journal was written.
  void Answer(int count, const FloorAnswer& answer);

  // What is on the form.

  /// The desk types, undoes or redoes; the cell held `before`.
  void DeskEnters(int count, const LineKey& line, const std::string& before, const std::string& text);
  void DeskDeletes(const LineKey& line);
  /// Who saves without deciding about left figures does without them.
  void Save();
  void Cancel() { DoWithoutUnsaved(); }
  void ShowStored();
  void WriteDraft() { draft_ = form_; }
  void Crash(bool isRestored) { form_ = isRestored ? draft_ : stored_; }

  // Figures that are left.

  /// The desk is offered these figures of one of the journals.
  void Offer(const std::vector<LeftFigures::Cell>& cells, const std::vector<std::string>& journals);
  /// The figures of a journal whose cell has the text that it had after all of them are in the counting;
  /// `text` is that of a cell, and `areStored` whether the lines are those of the database.
  void TakeInPlace(const std::string& journal,
                   const std::function<std::string(const LineKey&, int count)>& text, bool areStored);
  void Replay(const ReplayedFigures& replayed);
  void Forgo();

  /// What has gone wrong, while these figures are offered; empty when nothing has.
  [[nodiscard]] std::string Complaint(const std::vector<LeftFigures::Cell>& offered) const;

 private:
  /// The count and the sequence number: the devices of a count have different numbers.
  using Figure = std::pair<int, std::int64_t>;
  using Figures = std::set<Figure>;
  using Cell = std::tuple<int, std::string, int>;
  struct Entered {
    LineKey line;
    Figures under;  ///< those that the cell had come from
  };
  struct Left {
    std::string text;
    Figures figures;                  ///< that the text has come from
    std::optional<std::string> held;  ///< by the cell when the desk entered something there first
    Figures lacking;                  ///< those of the figures that the form did not have then
  };

  [[nodiscard]] static Cell CellOf(int count, const LineKey& line) {
    return {count, line.barcode, line.ordinal};
  }
  void DoWithoutUnsaved();
  [[nodiscard]] Figures Lacking(const Figures& figures) const;

  Figures form_;
  Figures draft_;
  Figures stored_;
  Figures answered_;  ///< as stored, and the desk has not done without them since
  Figures decided_;   ///< that the desk knows not to be in the counting: where it has deleted lines, entered
                      ///< something else or has seen that they are not
  std::map<Figure, Entered> entered_;
  std::map<Cell, Left> left_;
  std::string twice_;
};

}  // namespace koru::test
