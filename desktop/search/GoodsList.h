#pragma once

#include <QTableWidget>
#include <vector>

#include "siblings/goods/GoodsFinder.h"

namespace koru {

/// A short list of goods to choose from.
class GoodsList : public QTableWidget {
  Q_OBJECT

 public:
  explicit GoodsList(QWidget* parent);

  /// Shows `goods`; the row `current`, or the nearest existing one, becomes the current row.
  void SetGoods(const std::vector<PickedGood>& goods, int current);
  /// The index of the current good; -1 if the list is empty.
  [[nodiscard]] int Current() const { return currentRow(); }
};

}  // namespace koru
