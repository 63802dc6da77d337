#pragma once

#include <QObject>

#include "host/HostSettings.h"

class QWidget;

namespace koru {

/// Gives the program's larger windows the size that they had when they were last closed, in this run or an
/// earlier one, as far as the screen has room for it. Where a window is placed is left to the window manager.
class WindowSizes : public QObject {
  Q_OBJECT

 public:
  /// `settings` must outlive the object. Needs the application object.
  explicit WindowSizes(HostSettings& settings);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Restore(QWidget& window) const;
  void Keep(const QWidget& window);

  HostSettings& settings_;
};

}  // namespace koru
