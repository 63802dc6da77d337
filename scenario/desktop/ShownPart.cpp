#include "scenario/desktop/ShownPart.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTableView>
#include <QTextBrowser>

#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

QString CurrentCell(const QTableView& table) {
  const QModelIndex current = table.currentIndex();
  return QStringLiteral("%1 %2").arg(current.row() + 1).arg(current.column());
}

QString CurrentPage(const QTextBrowser& browser) {
  const QUrl page = browser.source();
  return page.hasFragment() ? page.fileName() + QLatin1Char('#') + page.fragment() : page.fileName();
}

QString TextOf(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return line->text();
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget)) return lines->toPlainText();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return list->currentText();
  if (const auto* number = qobject_cast<const QSpinBox*>(&widget)) return QString::number(number->value());
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  if (const auto* table = qobject_cast<const QTableView*>(&widget)) return CurrentCell(*table);
  if (const auto* browser = qobject_cast<const QTextBrowser*>(&widget)) return CurrentPage(*browser);
  return widget.accessibleName();  // of a widget that paints what it shows
}

}  // namespace

std::optional<std::string> TextOfPart(const QWidget& window, const std::string& name) {
  const auto* const part = window.findChild<const QWidget*>(ToQt(name));
  if (part == nullptr || !part->isVisible()) return std::nullopt;
  return FromQt(TextOf(*part));
}

}  // namespace koru
