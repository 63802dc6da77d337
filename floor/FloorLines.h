#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "floor/FloorFigures.h"
#include "platform/controls/Grid.h"

namespace koru {

/// The lines of the form by their keys, and what has changed in their three counts since when. It follows the
/// grid: a line keeps its key while lines are sorted, deleted and added; among lines of one barcode a new one
/// has the lowest ordinal that is free. Lines that are read anew have the keys of the stored ones. Lines
/// without a barcode have no key.
class FloorLines {
 public:
  /// Revisions begin after `revision`. The grid must outlive the object.
  FloorLines(Grid& grid, std::int64_t revision);
  FloorLines(const FloorLines&) = delete;
  FloorLines& operator=(const FloorLines&) = delete;
  ~FloorLines() = default;

  /// The column of a count, 1 to kFloorCounts.
  [[nodiscard]] static int ColumnOf(int count);

  /// The row of a line; 0 when there is none.
  [[nodiscard]] int RowOf(const LineKey& key);
  [[nodiscard]] bool HasBarcode(const std::string& barcode);
  /// All lines in their order, with the figures of that count alone.
  [[nodiscard]] std::vector<FloorLine> All(int count);

  /// The ordinals of the stored lines of a barcode, in the order of the lines, where they are not 1 to n.
  using StoredOrdinals = std::map<std::string, std::vector<int>>;
  [[nodiscard]] const StoredOrdinals& Stored() const { return stored_; }
  void SetStored(StoredOrdinals stored) { stored_ = std::move(stored); }
  /// The lines have been stored as they are now.
  void KeepStored();
  /// The rows are in the order of the stored lines, which need not be the one in which they were appended. To
  /// be called before the lines are looked at.
  void TakeOrderOfRows() { isOrderOfRows_ = true; }

  /// The name of the device whose figure is in the cell; empty when the desk has changed it since.
  [[nodiscard]] const std::string& EnteredBy(int row, int count);
  /// The cell has its text from that device.
  void SetEnteredBy(int row, int count, const std::string& device);

  /// Advances with each change of a count and of the lines.
  [[nodiscard]] std::int64_t Revision();
  /// What has changed in the lines and in that count since a revision. `open` is the caller's to fill in.
  [[nodiscard]] FloorChanges Since(std::int64_t revision, int count);

  /// Something may have changed; Since says what.
  Event<> Changed;
  /// The count of a line, its text before and its text now are others, whoever has changed them.
  Event<const LineKey&, int, const std::string&, const std::string&> FigureChanged;

 private:
  struct Line {
    LineKey key;
    int row = 0;
    std::array<std::string, kFloorCounts> figures;
    std::array<std::string, kFloorCounts> by;
  };
  struct Change {
    std::int64_t revision;
    std::uint32_t id;
    int count;
  };

  void Follow(const GridChange& change);
  void Refresh();
  void TakeFigures(Line& line, std::uint32_t id);
  void Forget(std::uint32_t id);
  void ForgetWithout(const std::unordered_set<std::uint32_t>& present);
  void AddLines(std::vector<int> rows);
  void LogFigure(std::uint32_t id, int count);
  [[nodiscard]] Line* LineAt(int row);

  Grid& grid_;
  std::int64_t revision_;
  std::int64_t linesRevision_;                          ///< when lines were last added or removed
  bool stale_ = true;                                   ///< rows have changed since the last Refresh
  std::unordered_map<std::uint32_t, Line> lines_;       ///< by Grid::RowID
  std::unordered_map<std::string, std::uint32_t> ids_;  ///< by the text of the key
  std::unordered_map<std::string, int> ofBarcode_;      ///< the number of lines of each barcode
  StoredOrdinals stored_;
  bool areRead_ = true;         ///< the lines that have come since the last Refresh are the stored ones
  bool isOrderOfRows_ = false;  ///< and their rows are in that order
  std::deque<Change> changes_;  ///< the latest, in order of their revisions
  std::int64_t forgotten_;      ///< changes up to this revision are not in `changes_`
  Subscription subscription_;
};

}  // namespace koru
