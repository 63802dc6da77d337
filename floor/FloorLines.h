#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "floor/AccessCodes.h"
#include "floor/FloorFigures.h"
#include "platform/controls/Grid.h"

namespace koru {

/// The lines of the form by their keys, and what has changed in their three counts since when. It follows the
/// grid: a line keeps its key while lines are sorted, deleted and added; among lines of one barcode a new one
/// has the lowest ordinal that is free. Lines that are read anew have the keys of the stored ones, in their
/// order of entry. Where nobody knows which of several lines of a barcode is which, these have ordinals that
/// no line had before, so that a figure for one of them is never taken for another one's. Lines without a
/// barcode have no key.
class FloorLines {
 public:
  /// The lines are made once for all devices; changes, for each. An import or its undo changes a count of
  /// 32,767 lines at once, and 200 devices may wait: that many cells for each of them would hold the desk.
  static constexpr std::size_t kMaxChanges = 500;

  /// Ordinals from this one on are drawn by chance, of 1,000,000,000: no line had them before.
  static constexpr int kFirstDrawn = 1'000'000'001;

  /// Revisions begin after `revision`. The grid must outlive the object.
  FloorLines(Grid& grid, std::int64_t revision, RandomBits random);
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

  /// The ordinals of the stored lines of a barcode, in the order of the lines: of each barcode with several
  /// lines, or whose line has another ordinal than 1. Empty where nobody knows which line is which.
  using StoredOrdinals = std::map<std::string, std::vector<int>>;
  [[nodiscard]] const StoredOrdinals& Stored() const { return stored_; }
  /// Whether lines without a journal would have the same ordinals.
  [[nodiscard]] bool ArePlain() const;
  /// Takes those of an earlier session, in which the barcodes `several` have had several lines, before Begin.
  void Continue(StoredOrdinals stored, std::set<std::string> several);
  /// Gives keys to the lines of the form, before anything else is asked. `areStored`: they are those of the
  /// database; otherwise the desk may have deleted some and added others.
  void Begin(bool areStored);
  /// The lines have been stored as they are now.
  void KeepStored();

  /// The name of the device whose figure is in the cell; empty when the desk has changed it since.
  [[nodiscard]] const std::string& EnteredBy(int row, int count);
  /// The cell has its text from that device.
  void SetEnteredBy(int row, int count, const std::string& device);

  /// Advances with each change of a count and of the lines.
  [[nodiscard]] std::int64_t Revision();
  /// What has changed in the lines and in that count since a revision. When a count has changed more than
  /// kMaxChanges times since, the lines are to be read anew. `open` is the caller's to fill in.
  [[nodiscard]] FloorChanges Since(std::int64_t revision, int count);

  /// Something may have changed; Since says what.
  Event<> Changed;
  /// The count of a line, its text before and its text now are others, whoever has changed them.
  Event<const LineKey&, int, const std::string&, const std::string&> FigureChanged;
  /// Stored lines of a barcode were read and have ordinals that were drawn, in the order of the lines.
  Event<const std::string&, const std::vector<int>&> StoredDrawn;

 private:
  struct Line {
    LineKey key;
    int row = 0;
    std::array<std::string, kFloorCounts> figures;
    std::array<std::string, kFloorCounts> by;
  };
  struct Barcode {
    int lines = 0;
    bool isDrawn = false;  ///< their ordinals have been drawn
  };
  struct Change {
    std::int64_t revision;
    std::uint32_t id;
  };
  /// Those of a count: the latest, in order of their revisions.
  struct Changes {
    std::deque<Change> latest;
    std::int64_t forgotten = 0;  ///< those up to this revision are not among them
  };

  void Follow(const GridChange& change);
  void Refresh();
  void TakeFigures(Line& line, std::uint32_t id);
  void Forget(std::uint32_t id);
  void ForgetWithout(const std::unordered_set<std::uint32_t>& present);
  void AddLines(std::vector<int> rows);
  [[nodiscard]] std::vector<int> OrdinalsOfRead(const std::string& barcode, std::size_t number);
  [[nodiscard]] int NextOrdinal(const std::string& barcode, int after);
  [[nodiscard]] int Draw();
  void SortByEntry(std::vector<int>& rows) const;
  void LogFigure(std::uint32_t id, int count);
  [[nodiscard]] Line* LineAt(int row);

  Grid& grid_;
  std::int64_t revision_;
  std::int64_t linesRevision_;                          ///< when lines were last added or removed
  bool stale_ = true;                                   ///< rows have changed since the last Refresh
  std::unordered_map<std::uint32_t, Line> lines_;       ///< by Grid::RowID
  std::unordered_map<std::string, std::uint32_t> ids_;  ///< by the text of the key
  std::unordered_map<std::string, Barcode> barcodes_;   ///< those that lines have
  StoredOrdinals stored_;
  std::set<std::string> several_;  ///< barcodes that have had several lines in an earlier session
  bool isContinued_ = false;       ///< lines of the counting have been given keys before
  bool areStored_ = true;          ///< the lines that are read are those of the database
  bool areRead_ = true;            ///< the lines that have come since the last Refresh are read
  RandomBits random_;
  std::array<Changes, kFloorCounts> changes_;
  Subscription subscription_;
};

}  // namespace koru
