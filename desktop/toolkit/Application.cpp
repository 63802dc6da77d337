#include "desktop/toolkit/Application.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>

namespace koru {
namespace {

constexpr double kPointSize = 9.5;

/// Fonts in order of preference: first one designed for forms, last one that every system has.
QFont FormFont() {
  for (const char* family : {"Vazirmatn UI", "Vazirmatn", "DejaVu Sans"}) {
    if (!QFontDatabase::hasFamily(family)) continue;
    QFont font(family);
    font.setPointSizeF(kPointSize);
    return font;
  }
  QFont font = QApplication::font();
  font.setPointSizeF(kPointSize);
  return font;
}

QPalette FormPalette() {
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
  palette.setColor(QPalette::PlaceholderText, QColor(0x7C, 0x88, 0x98));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xF1, 0xF3, 0xF7));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xB8, 0xC2, 0xD0));
  return palette;
}

/// Read-only fields are grey, unavailable buttons are flat and pale, the field with the focus has a ring.
constexpr const char* kStyleSheet = R"(
QToolTip { background: #253345; color: white; border: 1px solid #253345; padding: 3px; }
QPushButton { background: #FDFDFE; border: 1px solid #B4BFCD; border-radius: 4px; padding: 4px 9px; }
QPushButton:hover { background: #E6EDF6; border-color: #7F9BBB; }
QPushButton:pressed { background: #D3DFEE; }
QPushButton:focus { border: 2px solid #2F5D8C; padding: 3px 8px; }
QPushButton:default { border-color: #2F5D8C; }
QPushButton[main="true"] { background: #2F5D8C; border-color: #264C73; color: white; }
QPushButton[main="true"]:hover { background: #386DA3; }
QPushButton[main="true"]:focus { border: 2px solid #12263B; }
QPushButton[final="true"] { border: 1px solid #8A5A00; color: #5C3B00; background: #FFF8EA; }
QPushButton[final="true"]:hover { background: #FCE9C4; }
QPushButton[final="true"]:focus { border: 2px solid #5C3B00; }
QPushButton:disabled, QPushButton[pale="true"], QPushButton[main="true"]:disabled,
QPushButton[final="true"]:disabled {
  background: #EAEDF2; border: 1px solid #D9DEE6; color: #A3ACB9; padding: 4px 9px; }
QToolButton { background: #FDFDFE; border: 1px solid #B4BFCD; border-radius: 3px; padding: 2px; }
QToolButton:hover { background: #E6EDF6; }
QToolButton:disabled { background: #F1F3F7; border-color: #D9DEE6; }
QToolButton#menuButton { padding: 4px 9px; border-radius: 4px; }
QToolButton#menuButton:focus { border: 2px solid #2F5D8C; }
QToolButton::menu-indicator { image: none; }
QCalendarWidget QToolButton { background: transparent; border: 0; color: white; font-weight: bold; padding: 3px 6px; }
QCalendarWidget QToolButton:hover { background: #4B79A9; }
QTreeView::item { padding: 3px 2px; }
QTreeView::item:selected { background: #2F5D8C; color: white; }
QFrame[gap="true"] { border: 0; background: #C3CCD8; max-width: 1px; margin: 3px 3px; }
QLabel[notice="true"] { background: #FFF1D6; color: #6B3D00; border: 1px solid #E0B465; border-radius: 3px;
  padding: 4px 8px; }
QLabel[hint="true"] { color: #6A7686; }
QLineEdit, QPlainTextEdit, QComboBox { background: white; border: 1px solid #B4BFCD; border-radius: 3px;
  padding: 2px 5px; selection-background-color: #2F5D8C; selection-color: white; }
QLineEdit:focus, QPlainTextEdit:focus, QComboBox:focus { border: 1px solid #2F5D8C; }
QComboBox::drop-down { width: 22px; border: 0; border-right: 1px solid #B4BFCD; border-top-left-radius: 2px;
  border-bottom-left-radius: 2px; background: #FDFDFE; }
QComboBox::drop-down:disabled { background: #F1F3F7; border-color: #D9DEE6; }
QComboBox::down-arrow { width: 0; height: 0; border: 4px solid #FDFDFE; border-top-color: #6A7483;
  border-bottom: 0; }
QComboBox::down-arrow:disabled { border-color: #F1F3F7; border-top-color: #A3ACB9; }
QLineEdit:read-only, QPlainTextEdit[readOnly="true"] { background: #F4F6F9; }
QLineEdit[picks="true"]:enabled { background: white; }
QLineEdit:disabled, QPlainTextEdit:disabled, QComboBox:disabled {
  background: #F1F3F7; border-color: #D9DEE6; color: #465362; }
QLineEdit[missing="true"]:enabled { border: 1px solid #B26A00; background: #FFF3DC; }
QLineEdit[marked="true"] { border: 2px solid #B3261E; background: #FDF1F0; }
QLineEdit[cell="true"] { border: 2px solid #2F5D8C; border-radius: 0; padding: 0 2px; }
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
QProgressBar { border: 1px solid #B4BFCD; border-radius: 4px; background: white; text-align: center; }
QProgressBar::chunk { background: #7FA3CC; border-radius: 3px; }
)";

void LoadPersianTexts(QApplication& application) {
  auto* const translator = new QTranslator(&application);  // NOLINT(cppcoreguidelines-owning-memory)
  if (translator->load(QStringLiteral("qtbase_fa"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(translator);
  }
}

}  // namespace

void SetUpApplication(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QLocale::setDefault(QLocale(QLocale::Persian, QLocale::Iran));
  LoadPersianTexts(application);
  QApplication::setLayoutDirection(Qt::RightToLeft);
  QApplication::setFont(FormFont());
  QApplication::setPalette(FormPalette());
  application.setStyleSheet(QString::fromUtf8(kStyleSheet));
}

}  // namespace koru
