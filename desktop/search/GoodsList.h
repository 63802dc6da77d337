#pragma once

#include <QTableWidget>
#include <vector>

#include "desktop/search/GoodsFinder.h"

namespace koru {

/// A short list of goods to look at and choose from.
class GoodsList : public QTableWidget {
  Q_OBJECT

 public:
  explicit GoodsList(QWidget* parent);

  /// Shows these goods; line `current`, or the nearest one that there is, becomes the current one.
  void SetGoods(const std::vector<PickedGood>& goods, int current);
  /// The place of the current good; -1 when the list is empty.
  [[nodiscard]] int Current() const { return currentRow(); }
};

}  // namespace koru
