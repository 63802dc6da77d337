#include "desktop/toolkit/MessageIcon.h"

#include <QPainter>

namespace koru {
namespace {

constexpr int kSize = 36;

QColor DiscOf(MessageIcon::Kind kind) {
  switch (kind) {
    case MessageIcon::Kind::Error:
      return {0xB3, 0x26, 0x1E};
    case MessageIcon::Kind::Warning:
      return {0x9A, 0x5B, 0x00};
    case MessageIcon::Kind::Note:
    case MessageIcon::Kind::Question:
      break;
  }
  return {0x2F, 0x5D, 0x8C};
}

QString MarkOf(MessageIcon::Kind kind) {
  switch (kind) {
    case MessageIcon::Kind::Error:
      return QStringLiteral("\u00D7");
    case MessageIcon::Kind::Question:
      return QStringLiteral("\u061F");
    case MessageIcon::Kind::Note:
      return QStringLiteral("i");
    case MessageIcon::Kind::Warning:
      break;
  }
  return QStringLiteral("!");
}

}  // namespace

MessageIcon::MessageIcon(Kind kind, QWidget* parent) : QWidget(parent), kind_(kind) {
  setObjectName(QStringLiteral("messageIcon"));
  setFixedSize(kSize, kSize);
}

void MessageIcon::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(DiscOf(kind_));
  painter.drawEllipse(rect().adjusted(1, 1, -1, -1));
  QFont bold = font();
  bold.setBold(true);
  bold.setPixelSize(kSize * 2 / 3);
  painter.setFont(bold);
  painter.setPen(Qt::white);
  painter.drawText(rect(), Qt::AlignCenter, MarkOf(kind_));
}

}  // namespace koru
