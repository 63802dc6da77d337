#pragma once

#include <QDialog>

class QString;

namespace koru {

class FloorLog;

/// Lists the left figures that were not entered, each with the reason, until the user closes it.
class NotEnteredDialog : public QDialog {
  Q_OBJECT

 public:
  /// `sentence`: what became of all of them. `areAside`: they are kept in a journal that was set aside
  /// earlier; otherwise the next save sets them aside. `figures` must outlive the dialog.
  NotEnteredDialog(const QString& sentence, bool areAside, FloorLog& figures, QWidget* parent);
};

}  // namespace koru
