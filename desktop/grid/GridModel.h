#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <vector>

#include "platform/controls/Event.h"
#include "platform/controls/Grid.h"

namespace koru {

/// How the cells of a column are drawn. It changes nothing of what the cells hold, what is edited or copied.
struct ColumnStyle {
  enum class Sign { None, Down, Up };

  bool number = false;     ///< left to right and digits under digits, so that a minus stands where it belongs
  bool grouped = false;    ///< a number is shown with a separator every three digits of its whole part
  Sign sign = Sign::None;  ///< a triangle in front of a cell that is not empty
  bool hidden = false;     ///< nothing that a person reads
  QColor color;            ///< of the text and the sign; the normal one when not valid
};

/// The rows of a Grid as the toolkit's views want them. Row 0 of the grid is the header, row 1 is row 0 here.
/// The texts are read from the grid whenever they are drawn; nothing is kept.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// The grid whose rows are shown; it must outlive the model or be taken back with nullptr.
  void SetGrid(Grid* grid);
  void SetColumnStyle(int col, const ColumnStyle& look);
  [[nodiscard]] ColumnStyle LookOf(int col) const;
  /// Whether rows are announced to come or go: the grid has its new rows, the views still have the old ones.
  [[nodiscard]] bool Announces() const { return announced_.inserted > 0 || announced_.removed > 0; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  /// While rows are announced to come or go, the grid has changed already: the views still count as before.
  struct Announced {
    int first = 0;
    int inserted = 0;
    int removed = 0;
  };

  void Follow(const GridChange& change);
  void FollowEverything();
  [[nodiscard]] int GridRowOf(int row) const;
  [[nodiscard]] QVariant HeaderData(int col, int role) const;
  [[nodiscard]] QVariant CellData(int gridRow, int col, int role) const;

  Grid* grid_ = nullptr;
  int rows_ = 0;
  int cols_ = 0;
  Announced announced_;
  std::vector<ColumnStyle> looks_;
  Subscription rowsChanged_;
};

}  // namespace koru
