#pragma once

#include <QAbstractTableModel>
#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "floor/JournalText.h"
#include "platform/controls/Grid.h"

namespace koru {

/// The names of the goods on the lines by their barcodes. Follows the grid, and reads it again only when a
/// name is asked for after lines have come or gone.
class GoodNames {
 public:
  /// The grid must outlive the object.
  explicit GoodNames(Grid& lines);

  /// Empty when no line has the barcode.
  [[nodiscard]] const std::string& Of(const std::string& barcode);

 private:
  Grid& lines_;
  bool isStale_ = true;
  std::unordered_map<std::string, std::string> names_;
  Subscription rowsChanged_;
};

/// The log of a counting: each figure of the floor and what became of it, the latest at the end. Figures of
/// counts that who is at the desk may not see have no text.
class FloorLog : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column : int { Time, Count, Device, Good, Barcode, Figure, State, Columns };
  static constexpr std::size_t kMaxEntries = 100'000;  ///< the oldest give way

  /// `hides`: whether figures of that count are not to be seen now. `names` must outlive the log.
  FloorLog(GoodNames& names, std::function<bool(int count)> hides, QObject* parent = nullptr);

  /// Notes a figure. It is shown by the next ShowNew, so that many at once lay views out once.
  void Add(const JournalFigure& figure, const std::string& device);
  void ShowNew();
  /// Removes all figures.
  void Clear();
  /// What is hidden is another.
  void HiddenChanged();
  /// The log as CSV in UTF-8 with a byte order mark and a line of titles. Texts that a spreadsheet would take
  /// for a formula begin with an apostrophe.
  [[nodiscard]] QByteArray Csv() const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Entry {
    JournalFigure figure;
    std::string device;
  };

  [[nodiscard]] QString TextOf(const Entry& entry, int column) const;
  [[nodiscard]] QString StateOf(const Entry& entry) const;

  GoodNames& names_;
  std::function<bool(int)> hides_;
  std::deque<Entry> entries_;
  std::vector<Entry> new_;
};

}  // namespace koru
