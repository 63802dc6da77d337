#include "desktop/toolkit/Colors.h"

#include <QApplication>
#include <QPalette>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace koru {
namespace {

constexpr QColor kHint(0x59, 0x66, 0x75);
constexpr float kDarkest = 0.1F;  ///< the lightness on a dark desktop of what is white on a light one

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// The colour of the same hue that is as light as `color` is dark.
QColor Inverted(const QColor& color) {
  float hue = 0;
  float saturation = 0;
  float lightness = 0;
  color.getHslF(&hue, &saturation, &lightness);
  const float inverted = kDarkest + (1 - kDarkest) * (1 - lightness);
  const auto range = [](float of) { return 1 - std::abs(2 * of - 1); };     // of the parts at that lightness
  const float colourful = saturation * range(lightness) / range(inverted);  // a tint of white stays a tint
  return QColor::fromHslF(hue, std::min(saturation, colourful), inverted).rgb();
}

QPalette LightPalette() {
  QPalette palette(QColor(0xEE, 0xF1, 0xF6));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xF0, 0xF2, 0xF7));
  palette.setColor(QPalette::Button, QColor(0xF7, 0xF8, 0xFB));
  palette.setColor(QPalette::Highlight, QColor(0x2F, 0x5D, 0x8C));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(0x25, 0x33, 0x45));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(0x1B, 0x26, 0x35));
    palette.setColor(QPalette::Disabled, role, QColor(0x9A, 0xA4, 0xB2));
  }
  palette.setColor(QPalette::PlaceholderText, kHint);
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xF1, 0xF3, 0xF7));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xB8, 0xC2, 0xD0));
  return palette;
}

QPalette DarkPalette() {
  QPalette palette = LightPalette();
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
      const auto of = static_cast<QPalette::ColorRole>(role);
      palette.setColor(group, of, Inverted(palette.color(group, of)));
    }
  }
  return palette;
}

/// Read-only fields are grey, unavailable buttons are flat and pale, the field with the focus has a ring.
constexpr const char* kStyleSheet = R"(
QToolTip { background: #253345; color: #FFFFFF; border: 1px solid #253345; padding: 3px; }
QPushButton { background: #FDFDFE; border: 1px solid #B4BFCD; border-radius: 4px; padding: 4px 6px; }
QPushButton:hover { background: #E6EDF6; border-color: #7F9BBB; }
QPushButton:pressed { background: #D3DFEE; }
QPushButton:focus { border: 2px solid #2F5D8C; padding: 3px 5px; }
QPushButton:default { border-color: #2F5D8C; }
QPushButton[main="true"] { background: #2F5D8C; border-color: #264C73; color: #FFFFFF; }
QPushButton[main="true"]:hover { background: #386DA3; }
QPushButton[main="true"]:focus { border: 2px solid #12263B; }
QPushButton[final="true"] { border: 1px solid #8A5A00; color: #5C3B00; background: #FFF8EA; }
QPushButton[final="true"]:hover { background: #FCE9C4; }
QPushButton[final="true"]:focus { border: 2px solid #5C3B00; }
QPushButton:disabled, QPushButton[pale="true"], QPushButton[main="true"]:disabled,
QPushButton[final="true"]:disabled {
  background: #EAEDF2; border: 1px solid #D9DEE6; color: #A3ACB9; padding: 4px 6px; }
QToolButton { background: #FDFDFE; border: 1px solid #B4BFCD; border-radius: 3px; padding: 2px; }
QToolButton:hover { background: #E6EDF6; }
QToolButton:disabled { background: #F1F3F7; border-color: #D9DEE6; }
QToolButton#menuButton { padding: 4px 6px; border-radius: 4px; }
QToolButton#menuButton:focus { border: 2px solid #2F5D8C; }
QToolButton::menu-indicator { image: none; }
QCalendarWidget QToolButton { background: transparent; border: 0; color: #FFFFFF; font-weight: bold; padding: 3px 6px; }
QCalendarWidget QToolButton:hover { background: #4B79A9; }
QTreeView::item { padding: 3px 2px; }
QTreeView::item:selected { background: #2F5D8C; color: #FFFFFF; }
QFrame[gap="true"] { border: 0; background: #C3CCD8; max-width: 1px; margin: 3px 3px; }
QLabel[notice="true"] { background: #FFF1D6; color: #6B3D00; border: 1px solid #E0B465; border-radius: 3px;
  padding: 4px 8px; }
QLabel[hint="true"] { color: #596675; }
QLineEdit, QPlainTextEdit, QComboBox { background: #FFFFFF; border: 1px solid #B4BFCD; border-radius: 3px;
  padding: 2px 5px; selection-background-color: #2F5D8C; selection-color: #FFFFFF; }
QLineEdit:focus, QPlainTextEdit:focus, QComboBox:focus { border: 1px solid #2F5D8C; }
QComboBox::drop-down { width: 22px; border: 0; border-right: 1px solid #B4BFCD; border-top-left-radius: 2px;
  border-bottom-left-radius: 2px; background: #FDFDFE; }
QComboBox::drop-down:disabled { background: #F1F3F7; border-color: #D9DEE6; }
QComboBox::down-arrow { width: 0; height: 0; border: 4px solid #FDFDFE; border-top-color: #6A7483;
  border-bottom: 0; }
QComboBox::down-arrow:disabled { border-color: #F1F3F7; border-top-color: #A3ACB9; }
QLineEdit:read-only, QPlainTextEdit[readOnly="true"] { background: #F4F6F9; }
QLineEdit[picks="true"]:enabled { background: #FFFFFF; }
QLineEdit:disabled, QPlainTextEdit:disabled, QComboBox:disabled {
  background: #F1F3F7; border-color: #D9DEE6; color: #465362; }
QLineEdit[missing="true"]:enabled { border: 1px solid #B26A00; background: #FFF3DC; }
QLineEdit[marked="true"] { border: 2px solid #B3261E; background: #FDF1F0; }
QLineEdit[cell="true"] { border: 2px solid #2F5D8C; border-radius: 0; padding: 0 2px; }
QCheckBox::indicator:unchecked, QRadioButton::indicator:unchecked { width: 12px; height: 12px; background: #FFFFFF;
  border: 1px solid #7A8798; }
QRadioButton::indicator:unchecked { border-radius: 7px; }
QCheckBox::indicator:unchecked:disabled, QRadioButton::indicator:unchecked:disabled { background: #F1F3F7;
  border-color: #C3CCD8; }
QLabel[value="true"] { background: #F4F6F9; border: 1px solid #B4BFCD; border-radius: 3px; padding: 2px 5px; }
QGroupBox { border: 1px solid #C9D1DC; border-radius: 5px; margin-top: 9px; padding: 6px 6px 4px 6px;
  background: #F7F9FC; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top right; right: 10px; padding: 0 5px;
  color: #2F5D8C; }
QTableView { border: 1px solid #B4BFCD; gridline-color: #D3D9E3; selection-background-color: #C6D9F0;
  selection-color: #12263B; }
QTableView:focus { border: 1px solid #2F5D8C; }
QHeaderView { background: #DCE3ED; }
QHeaderView::section { background: #DCE3ED; border: 0; border-left: 1px solid #B9C4D3; border-bottom: 1px solid #9FAEC2;
  padding: 2px 3px; }
QHeaderView::section:hover { background: #CDD8E6; }
QProgressBar { border: 1px solid #B4BFCD; border-radius: 4px; background: #FFFFFF; text-align: center; }
QProgressBar::chunk { background: #7FA3CC; border-radius: 3px; }
)";

QString DarkStyleSheet() {
  static const QRegularExpression color(QStringLiteral("#[0-9A-F]{6}"));
  const QString light = QString::fromUtf8(kStyleSheet);
  QString dark;
  qsizetype end = 0;
  for (auto found = color.globalMatch(light); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    dark += light.mid(end, match.capturedStart() - end) + Inverted(QColor(match.captured())).name();
    end = match.capturedEnd();
  }
  return dark + light.mid(end);
}

}  // namespace

QColor OnDesktop(const QColor& light) { return IsDark(QApplication::palette()) ? Inverted(light) : light; }

void SetColors(QApplication& application, const QPalette& desktop) {
  const bool dark = IsDark(desktop);
  QApplication::setPalette(dark ? DarkPalette() : LightPalette());
  application.setStyleSheet(dark ? DarkStyleSheet() : QString::fromUtf8(kStyleSheet));
}

}  // namespace koru
