#pragma once

#include <QString>

class QModelIndex;
class QTableView;

namespace koru {

/// Shows a hint below a cell of the view.
void ShowCellHint(QTableView& view, const QModelIndex& cell, const QString& text);

}  // namespace koru
