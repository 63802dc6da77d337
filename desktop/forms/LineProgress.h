#pragma once

#include <QWidget>

#include "lines/LineTally.h"

namespace koru {

/// How far a counting is: the counted, agreed, accepted and left lines as numbers above a thin bar. Of the
/// bar, the accepted lines are dark, the counted ones that are not accepted light. A widget that is too
/// narrow shows the bar and the last of the numbers; the tooltip has all.
class LineProgress : public QWidget {
  Q_OBJECT

 public:
  explicit LineProgress(QWidget* parent);

  void Show(const LineCounts& counts);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QString Numbers() const;
  [[nodiscard]] QString ShownText() const;

  LineCounts counts_;
};

}  // namespace koru
