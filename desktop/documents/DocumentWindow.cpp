#include "desktop/documents/DocumentWindow.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>
#include <utility>

#include "desktop/documents/DocumentLinesModel.h"
#include "desktop/fields/Fields.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/ShownNumber.h"
#include "desktop/toolkit/WholeTextTip.h"
#include "desktop/toolkit/WindowPlace.h"
#include "platform/text/Numbers.h"

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(900, 560);

/// Shows the value; a screen reader reads it with its name, which is the description.
void ShowValue(QLabel& value, const QString& text) {
  value.setText(text);
  value.setAccessibleName(value.accessibleDescription() + QStringLiteral(": ") + text);
}

}  // namespace

DocumentWindow::DocumentWindow(Database& database, const DocumentKind& kind, const Messages& messages,
                               StockDocument document, QWidget* parent)
    : QDialog(parent), database_(database), kind_(kind), messages_(messages), document_(std::move(document)) {
  setObjectName(ToQt(kind.objectName));
  setWindowTitle(QStringLiteral("%1 - شماره رايانه اي %2").arg(ToQt(kind.name)).arg(document_.id));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(8);
  AddHeader(*layout);
  AddLines(*layout);
  AddTotals(*layout);
  AddCommands(*layout);
  ShowState();
  resize(FirstSize(kDefaultSize));
}

QLabel* DocumentWindow::NewValue(const char* objectName) {
  auto* const value = new QLabel(this);
  value->setObjectName(QLatin1String(objectName));
  value->setProperty("value", true);
  value->setTextFormat(Qt::PlainText);
  value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  value->setAlignment(kTrueRight);  // a text of digits only would be aligned left
  value->setMinimumWidth(90);
  return value;
}

QLabel* DocumentWindow::AddValue(QGridLayout& box, int row, int column, const char* name,
                                 const char* objectName, int columns) {
  QLabel* const value = NewValue(objectName);
  value->setAccessibleDescription(QString::fromUtf8(name));
  box.addWidget(new QLabel(QString::fromUtf8(name), this), row, column);
  box.addWidget(value, row, column + 1, 1, columns);
  return value;
}

void DocumentWindow::AddHeader(QBoxLayout& window) {
  auto* const box = new QGroupBox(QStringLiteral("مشخصات %1").arg(ToQt(kind_.name)), this);
  auto* const grid = new QGridLayout(box);
  grid->setHorizontalSpacing(8);
  ShowValue(*AddValue(*grid, 0, 0, "شماره رايانه اي", "id"), QString::number(document_.id));
  code_ = AddValue(*grid, 0, 2, "شماره تاييد شده", "code");
  ShowValue(*AddValue(*grid, 0, 4, "تاريخ", "date"), ToQt(document_.date));
  ShowValue(*AddValue(*grid, 1, 0, "انبار", "store", 3), ToQt(document_.store));
  ShowValue(*AddValue(*grid, 1, 4, "تهيه كننده", "creator"), ToQt(document_.creator));
  QLabel* const notes = AddValue(*grid, 2, 0, "توضيحات", "notes", 5);
  notes->setWordWrap(true);
  ShowValue(*notes, ToQt(document_.notes));
  for (const int column : {1, 3, 5}) grid->setColumnStretch(column, 1);
  window.addWidget(box);
}

void DocumentWindow::AddLines(QBoxLayout& window) {
  auto* const lines = new QTableView(this);
  lines->setObjectName(QStringLiteral("lines"));
  lines->setAccessibleName(QStringLiteral("سطرهاي سند"));
  lines->setModel(new DocumentLinesModel(document_.lines, lines));
  lines->setItemDelegate(new WholeTextTip(lines));
  lines->verticalHeader()->hide();
  lines->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  lines->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  QHeaderView& header = *lines->horizontalHeader();
  header.setHighlightSections(false);
  header.setSectionResizeMode(DocumentLinesModel::GoodName, QHeaderView::Stretch);
  for (const auto& [column, width] : {std::pair(DocumentLinesModel::RowNumber, 50),
                                      {DocumentLinesModel::GoodCode, 100},
                                      {DocumentLinesModel::Unit, 90},
                                      {DocumentLinesModel::Quantity, 90},
                                      {DocumentLinesModel::UnitValue, 110},
                                      {DocumentLinesModel::Amount, 130}}) {
    lines->setColumnWidth(column, width);
  }
  lines->setSelectionBehavior(QAbstractItemView::SelectRows);
  lines->setSelectionMode(QAbstractItemView::SingleSelection);
  lines->setTabKeyNavigation(false);
  lines->setWordWrap(false);
  window.addWidget(lines, 1);
}

void DocumentWindow::AddTotals(QBoxLayout& window) {
  double quantity = 0;
  double amount = 0;
  for (const DocumentLine& line : document_.lines) {
    quantity += line.quantity;
    amount += line.Amount();
  }
  auto* const bar = new QHBoxLayout;
  window.addLayout(bar);
  const auto add = [&](const char* name, const char* objectName, double total) {
    bar->addWidget(new QLabel(QString::fromUtf8(name), this));
    QLabel* const value = NewValue(objectName);
    value->setAccessibleDescription(QString::fromUtf8(name));
    ShowValue(*value, QChar(0x200E) + GroupedNumber(ToQt(NumberText(total))));
    bar->addWidget(value, 1);
  };
  add("تعداد سطر", "lineCount", static_cast<double>(document_.lines.size()));
  add("جمع مقدار", "totalQuantity", quantity);
  add("جمع مبلغ", "totalAmount", amount);
}

void DocumentWindow::AddCommands(QBoxLayout& window) {
  auto* const bar = new QHBoxLayout;
  window.addLayout(bar);
  register_ = new QPushButton(QStringLiteral("ثبت نهايي"), this);
  register_->setObjectName(QStringLiteral("register"));
  register_->setProperty("main", true);
  register_->setToolTip(QStringLiteral("ثبت نهايي (Ctrl+S)"));
  connect(register_, &QPushButton::clicked, this, &DocumentWindow::Register);
  connect(new QShortcut(Qt::CTRL | Qt::Key_S, this), &QShortcut::activated, register_, &QPushButton::click);
  auto* const close = new QPushButton(QStringLiteral("خروج"), this);
  close->setObjectName(QStringLiteral("close"));
  close->setToolTip(QStringLiteral("خروج (Esc)"));
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  bar->addWidget(register_);
  bar->addStretch();
  bar->addWidget(close);
  close->setDefault(true);  // a registration cannot be undone here
  close->setFocus();
}

void DocumentWindow::ShowState() {
  ShowValue(*code_, document_.code ? QString::number(*document_.code) : QStringLiteral("موقت"));
  register_->setEnabled(!document_.code);
}

void DocumentWindow::Register() {
  if (messages_.AskQuestion(sentences::kWarning, RegistrationQuestion(kind_)) != kAnswerYes) return;
  try {
    RegisterDocument(database_, kind_, document_.id);
    const std::optional<StockDocument> stored = ReadDocument(database_, kind_, document_.id);
    if (!stored) {
      messages_.ShowMessage(sentences::kError, "اين سند ديگر موجود نيست.");
      return;
    }
    document_.code = stored->code;
    ShowState();
  } catch (const std::exception& failure) {
    messages_.ShowFailure(failure);
  }
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
