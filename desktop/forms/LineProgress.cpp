#include "desktop/forms/LineProgress.h"

#include <QPainter>

#include "desktop/fields/Fields.h"
#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/PlainText.h"
#include "lines/LineColumns.h"

namespace koru {
namespace {

constexpr int kBarHeight = 5;
constexpr int kLeastWidth = 90;
constexpr QColor kGround(0xD9, 0xDE, 0xE6);
constexpr QColor kCounted(0x8F, 0xB4, 0xDD);
constexpr QColor kAccepted(0x2B, 0x66, 0xA8);

QString NumbersOf(int counted, int agreed, int accepted, int left) {
  return QStringLiteral("شمرده %1 · برابر %2 · قبول %3 · مانده %4")
      .arg(counted)
      .arg(agreed)
      .arg(accepted)
      .arg(left);
}

}  // namespace

LineProgress::LineProgress(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("lineProgress"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  Show({});
}

void LineProgress::Show(const LineCounts& counts) {
  if (counts == counts_ && !accessibleName().isEmpty()) return;
  counts_ = counts;
  setAccessibleName(Numbers());
  setToolTip(PlainToolTip(
      Numbers() + QStringLiteral("\nشمرده: سطرهايي كه شمارشي دارند. برابر: دو يا سه شمارش مساوي دارند.\n"
                                 "قبول: شمارش مورد قبول دارند. مانده: شمارش مورد قبول ندارند.")));
  update();
}

QString LineProgress::Numbers() const {
  return NumbersOf(counts_.counted, counts_.agreed, counts_.Accepted(), counts_.Left());
}

QString LineProgress::ShownText() const {
  QString all = RightToLeft(Numbers());
  if (fontMetrics().horizontalAdvance(all) <= width()) return all;
  return RightToLeft(QStringLiteral("مانده %1").arg(counts_.Left()));
}

QSize LineProgress::sizeHint() const {
  const QString longest = NumbersOf(kMaxLines, kMaxLines, kMaxLines, kMaxLines);
  return {fontMetrics().horizontalAdvance(longest), fontMetrics().height() + kBarHeight + 1};
}

QSize LineProgress::minimumSizeHint() const { return {kLeastWidth, sizeHint().height()}; }

void LineProgress::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect bar(0, height() - kBarHeight, width(), kBarHeight);
  painter.drawText(rect().adjusted(0, 0, 0, -kBarHeight), kTrueRight, ShownText());
  painter.fillRect(bar, OnDesktop(kGround));
  const auto fill = [&](int lines, const QColor& color) {
    if (counts_.Lines() == 0) return;
    const int part = static_cast<int>(static_cast<qint64>(bar.width()) * lines / counts_.Lines());
    painter.fillRect(QRect(bar.right() + 1 - part, bar.top(), part, bar.height()), OnDesktop(color));
  };
  fill(counts_.counted, kCounted);
  fill(counts_.Accepted(), kAccepted);
}

}  // namespace koru
