#pragma once

#include <QTableView>

namespace koru {

class FloorLog;

/// A table of the entries of a log. The whole state of an entry is in its tooltip.
class LogView : public QTableView {
  Q_OBJECT

 public:
  /// `log` must outlive the view.
  LogView(FloorLog& log, QWidget* parent);
};

}  // namespace koru
