#include "desktop/toolkit/PrintChoice.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>

namespace koru {
namespace {

constexpr int kMaxCopies = 99;
constexpr int kListWidth = 260;

// The widgets belong to their dialog, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
QSpinBox* AddNumber(QFormLayout& fields, const char* name, const QString& caption, int most, int value) {
  auto* const number = new QSpinBox;
  number->setObjectName(QLatin1String(name));
  number->setRange(1, most);
  number->setValue(value);
  fields.addRow(caption, number);
  return number;
}

void AddButtons(QDialog& dialog, QFormLayout& fields) {
  auto* const buttons = new QDialogButtonBox;
  QPushButton* const print = buttons->addButton(QStringLiteral("چاپ"), QDialogButtonBox::AcceptRole);
  print->setObjectName(QStringLiteral("ok"));
  print->setProperty("main", true);
  print->setDefault(true);
  buttons->addButton(QStringLiteral("انصراف"), QDialogButtonBox::RejectRole)
      ->setObjectName(QStringLiteral("cancel"));
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  fields.addRow(buttons);
}

}  // namespace

bool AskHowToPrint(QPrinter& printer, const QStringList& printers, int pages, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("printChoice"));
  dialog.setWindowTitle(QStringLiteral("چاپ"));
  auto* const fields = new QFormLayout(&dialog);
  auto* const name = new QComboBox;
  name->setObjectName(QStringLiteral("printer"));
  name->setMinimumWidth(kListWidth);
  name->addItems(printers);
  name->setCurrentText(printer.printerName());
  fields->addRow(QStringLiteral("چاپگر"), name);
  const auto* const from = AddNumber(*fields, "from", QStringLiteral("از صفحة"), pages, 1);
  const auto* const to = AddNumber(*fields, "to", QStringLiteral("تا صفحة"), pages, pages);
  const auto* const copies = AddNumber(*fields, "copies", QStringLiteral("شمار نسخه ها"), kMaxCopies, 1);
  AddButtons(dialog, *fields);
  if (dialog.exec() != QDialog::Accepted) return false;
  printer.setPrinterName(name->currentText());
  printer.setPrintRange(QPrinter::PageRange);
  printer.setFromTo(qMin(from->value(), to->value()), qMax(from->value(), to->value()));
  printer.setCopyCount(copies->value());
  return true;
}
// NOLINTEND(cppcoreguidelines-owning-memory)

}  // namespace koru
