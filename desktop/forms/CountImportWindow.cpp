#include "desktop/forms/CountImportWindow.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/fields/Fields.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "lines/frmCountImport.h"

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(1180, 680);

}  // namespace

CountImportWindow::CountImportWindow(frmCountImport& form) : FormWindow(form), form_(form) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(8);
  AddFile(*layout);
  AddColumns(*layout);
  AddRules(*layout);
  AddPreview(*layout);
  AddCommands(*layout);
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  resize(FirstSize(kDefaultSize));
}

QComboBox* CountImportWindow::AddChoice(QGridLayout& box, int row, int column, const QString& title,
                                        ComboBox& control) {
  constexpr int kShownLetters = 14;
  auto* const list = new QComboBox(this);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(kShownLetters);
  list->setAccessibleName(title);
  Binding().Bind(control, *list);
  auto* const label = new QLabel(title, this);
  label->setBuddy(list);
  box.addWidget(label, row, 2 * column);
  box.addWidget(list, row, 2 * column + 1);
  box.setColumnStretch(2 * column + 1, 1);
  return list;
}

/// The list of sheets is shown where there is a choice.
void CountImportWindow::AddFile(QBoxLayout& window) {
  auto* const file = new QLabel(this);
  file->setTextFormat(Qt::PlainText);
  file->setWordWrap(true);
  file->setTextInteractionFlags(Qt::TextSelectableByMouse);
  Binding().Bind(form_.lblFile, *file);
  window.addWidget(file);
  auto* const sheets = new QWidget(this);
  auto* const box = new QGridLayout(sheets);
  box->setContentsMargins(0, 0, 0, 0);
  AddChoice(*box, 0, 0, QStringLiteral("برگة پرونده"), form_.cmbSheet);
  box->setColumnStretch(2, 2);
  sheets->setVisible(form_.cmbSheet.Visible());
  window.addWidget(sheets);
}

void CountImportWindow::AddColumns(QBoxLayout& window) {
  auto* const frame = new QGroupBox(QStringLiteral("ستون\u200cهاي پرونده"), this);
  auto* const box = new QGridLayout(frame);
  AddChoice(*box, 0, 0, QStringLiteral("باركد"), form_.cmbBarcode);
  AddChoice(*box, 1, 0, QStringLiteral("كد كالا"), form_.cmbCode);
  AddChoice(*box, 0, 1, QStringLiteral("شمارش اول"), form_.cmbFirst);
  AddChoice(*box, 1, 1, QStringLiteral("شمارش دوم"), form_.cmbSecond);
  AddChoice(*box, 0, 2, QStringLiteral("شمارش سوم"), form_.cmbThird);
  AddChoice(*box, 1, 2, QStringLiteral("شمارش مورد قبول"), form_.cmbAccepted);
  window.addWidget(frame);
}

void CountImportWindow::AddRules(QBoxLayout& window) {
  auto* const box = new QGridLayout;
  AddChoice(*box, 0, 0, QStringLiteral("كالايي كه در پرونده چند بار آمده"), form_.cmbRepeated);
  AddChoice(*box, 0, 1, QStringLiteral("سطري كه شمارش دارد"), form_.cmbCounted);
  window.addLayout(box);
}

void CountImportWindow::AddPreview(QBoxLayout& window) {
  auto* const summary = new QLabel(this);
  summary->setTextFormat(Qt::PlainText);
  summary->setWordWrap(true);
  QFont bold = font();
  bold.setBold(true);
  summary->setFont(bold);
  Binding().Bind(form_.lblSummary, *summary);
  window.addWidget(summary);
  auto* const preview = new GridView(this);
  for (const int col : {ImportColumn::Text, ImportColumn::Before, ImportColumn::After}) {
    ColumnStyle number;
    number.number = true;
    preview->SetColumnStyle(col, number);
  }
  preview->SetStretchColumn(ImportColumn::State);
  preview->SetRowNumbers(true);
  preview->setAccessibleName(QStringLiteral("پيش\u200cنمايش شمارش\u200cها"));
  Binding().Bind(form_.flexPreview, *preview);
  window.addWidget(preview, 1);
}

void CountImportWindow::AddCommands(QBoxLayout& window) {
  constexpr int kMinWidth = 100;
  auto* const bar = new QHBoxLayout;
  auto* const accept = new QPushButton(this);
  accept->setProperty("main", true);
  Binding().Bind(form_.cmdImport, *accept);
  auto* const cancel = new QPushButton(this);
  Binding().Bind(form_.cmdExit, *cancel);
  cancel->setToolTip(WithKeys(cancel->text(), QStringLiteral("Esc")));
  bar->addWidget(NewHint(QStringLiteral("تا «آوردن» را نزنيد چيزي در شمارش نوشته نمي\u200cشود."), this), 1);
  for (QPushButton* const button : {accept, cancel}) {
    button->setAutoDefault(true);
    button->setMinimumWidth(kMinWidth);
    bar->addWidget(button);
  }
  window.addLayout(bar);
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
