#include "desktop/search/InvSearchWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "desktop/fields/DateBoxEdit.h"
#include "desktop/fields/Fields.h"
#include "desktop/fields/SelectorEdit.h"
#include "desktop/grid/GridView.h"
#include "desktop/grid/KeptColumns.h"
#include "desktop/search/CriteriaBox.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "search/frmInvSearch.h"

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(1240, 740);
constexpr int kColumnID = 1;
constexpr int kColumnCode = 2;
constexpr int kColumnStore = 4;

QLineEdit* NewCode(FormBinding& binding, TextBox& control, QWidget* parent) {
  auto* const field = NewCodeField(parent);
  binding.Bind(control, *field);
  return field;
}

QLineEdit* NewText(FormBinding& binding, TextBox& control, QWidget* parent) {
  auto* const field = new QLineEdit(parent);
  binding.Bind(control, *field);
  return field;
}

DateBoxEdit* NewDate(FormBinding& binding, DateBox& control, QWidget* parent) {
  auto* const field = new DateBoxEdit(parent);
  binding.Bind(control, *field);
  return field;
}

QCheckBox* NewCheck(FormBinding& binding, CheckBox& control, QWidget* parent) {
  auto* const box = new QCheckBox(parent);
  binding.Bind(control, *box);
  return box;
}

}  // namespace

InvSearchWindow::InvSearchWindow(frmInvSearch& form, SelectorRecords& records)
    : FormWindow(form), form_(form), records_(records) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(8);
  AddCriteria(*layout);
  AddCommands(*layout);
  AddResults(*layout);
  resize(FirstSize(kDefaultSize));
}

void InvSearchWindow::AddCriteria(QBoxLayout& window) {
  auto* const frame = new QWidget(this);
  frame->setObjectName(QStringLiteral("Frame3"));
  auto* const boxes = new QGridLayout(frame);
  boxes->setContentsMargins(0, 0, 0, 0);
  boxes->setSpacing(8);
  auto* const numbers = new CriteriaBox(QStringLiteral("شماره و وضعيت"), frame);
  auto* const dates = new CriteriaBox(QStringLiteral("تاريخ"), frame);
  auto* const goods = new CriteriaBox(QStringLiteral("كالا و توضيحات"), frame);
  auto* const people = new CriteriaBox(QStringLiteral("انبار و اشخاص"), frame, 4);
  boxes->addWidget(numbers, 0, 0);
  boxes->addWidget(dates, 0, 1);
  boxes->addWidget(goods, 0, 2);
  boxes->addWidget(people, 1, 0, 1, 3);
  for (const int column : {0, 1, 2}) boxes->setColumnStretch(column, 1);
  AddNumbers(*numbers);
  AddDates(*dates);
  AddGoodsAndNotes(*goods);
  AddStoreAndPeople(*people);
  window.addWidget(frame);
}

void InvSearchWindow::AddNumbers(CriteriaBox& box) {
  FormBinding& bind = Binding();
  QWidget* const idFrom = NewCode(bind, form_.txtid1, &box);
  QWidget* const idTo = NewCode(bind, form_.txtid2, &box);
  box.AddRange(QStringLiteral("شماره رايانه اي"), *idFrom, *idTo);
  QWidget* const codeFrom = NewCode(bind, form_.txtcode1, &box);
  QWidget* const codeTo = NewCode(bind, form_.txtcode2, &box);
  box.AddRange(QStringLiteral("شماره تاييد شده"), *codeFrom, *codeTo);
  QWidget* const manualFrom = NewCode(bind, form_.txtMinG, &box);
  QWidget* const manualTo = NewCode(bind, form_.txtMaxG, &box);
  box.AddRange(QStringLiteral("شماره دستي"), *manualFrom, *manualTo);
  QWidget* const temporary = NewCheck(bind, form_.chkTemp, &box);
  QWidget* const final = NewCheck(bind, form_.chkFinal, &box);
  box.AddLine({temporary, final});
}

void InvSearchWindow::AddDates(CriteriaBox& box) {
  const auto add = [&](const char* name, DateBox& from, DateBox& to) {
    QWidget* const first = NewDate(Binding(), from, &box);
    QWidget* const second = NewDate(Binding(), to, &box);
    box.AddRange(QString::fromUtf8(name), *first, *second);
  };
  add("تاريخ تهيه", form_.gdpcreatedate1, form_.gdpcreatedate2);
  add("شروع دوره", form_.gdpFromDate1, form_.gdpFromDate2);
  add("پايان دوره", form_.gdpToDate1, form_.gdpToDate2);
  box.AddLine({NewHint(QStringLiteral("F4: تقويم و ليست    Delete: پاك كردن"), &box)});
}

QWidget* InvSearchWindow::NewPerson(QWidget* parent, PersonSelector& person) {
  auto* const field = new SelectorEdit(parent);
  field->setMinimumWidth(110);
  Binding().Bind(person, *field, records_);
  return field;
}

void InvSearchWindow::AddStoreAndPeople(CriteriaBox& box) {
  auto* const store = new SelectorEdit(&box);
  store->SetPlaceholder(QStringLiteral("همه انبارها"));
  Binding().Bind(form_.gmpInventory, *store, records_);
  QWidget* const withChildren = NewCheck(Binding(), form_.chkAllInvs, &box);
  auto* const creator = new QComboBox(&box);
  creator->setPlaceholderText(QStringLiteral("همه"));
  creator->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  creator->setMinimumContentsLength(8);
  Binding().Bind(form_.cmbcreator, *creator);
  creator->setToolTip(RightToLeft(QStringLiteral("Delete: همه تهيه كنندگان")));
  QWidget* const confirmer = NewPerson(&box, form_.mptConfirmer);
  QWidget* const first = NewPerson(&box, form_.mptCounter1);
  QWidget* const second = NewPerson(&box, form_.mptCounter2);
  QWidget* const third = NewPerson(&box, form_.mptCounter3);
  const auto name = [&box](const char* text) { return box.NewName(QString::fromUtf8(text)); };
  box.AddFields({{name("انبار"), store},
                 {name(""), withChildren},
                 {name("تهيه كننده"), creator},
                 {name("تاييد كننده"), confirmer}});
  box.AddFields({{name("شمارشگر اول"), first}, {name("شمارشگر دوم"), second}, {name("شمارشگر سوم"), third}});
}

void InvSearchWindow::AddGoodsAndNotes(CriteriaBox& box) {
  const QString anyPart = QStringLiteral("بخشي از متن كافي است");
  const auto add = [&](const char* name, QLineEdit* field) {
    field->setToolTip(anyPart);
    box.AddRow(QString::fromUtf8(name), *field);
  };
  add("نام كالا", NewText(Binding(), form_.txtName, &box));
  add("كد كالا", NewCode(Binding(), form_.txtCode, &box));
  add("باركد", NewCode(Binding(), form_.txtBarCode, &box));
  add("توضيحات", NewText(Binding(), form_.txtNotes, &box));
}

void InvSearchWindow::AddCommands(QBoxLayout& window) {
  auto* const row = new QHBoxLayout;
  window.addLayout(row);
  auto* const count = new QLabel(this);
  count->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // keeps the commands centred
  QFont bold = font();
  bold.setBold(true);
  count->setFont(bold);
  Binding().Bind(form_.lblResultCount, *count);
  row->addWidget(count, 1);
  auto* const frame = new QWidget(this);
  frame->setObjectName(QStringLiteral("Frame1"));
  auto* const commands = new QHBoxLayout(frame);
  commands->setContentsMargins(0, 0, 0, 0);
  AddSearchCommand(*commands, Binding(), form_.cmdSearch, QStringLiteral("Enter"), true);
  AddSearchCommand(*commands, Binding(), form_.cmdNew, {});
  newSearch_ = form_.cmdNew.Click.Subscribe([this] {
    for (DateBoxEdit* const date : findChildren<DateBoxEdit*>()) date->Unmark();
  });
  AddSearchCommand(*commands, Binding(), form_.cmdExit, QStringLiteral("Esc"));
  row->addWidget(frame);
  QLabel* const hint = NewHint(QStringLiteral("Enter: باز كردن    عنوان ستون: مرتب كردن"), this);
  hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  hint->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  row->addWidget(hint, 1);
}

void InvSearchWindow::AddResults(QBoxLayout& window) {
  results_ = new GridView(this);
  ColumnStyle number;
  number.number = true;
  results_->SetColumnStyle(kColumnID, number);
  results_->SetColumnStyle(kColumnCode, number);
  results_->SetStretchColumn(kColumnStore);
  results_->SetRowNumbers(true);
  results_->setAccessibleName(QStringLiteral("شمارشهاي يافت شده"));
  Binding().Bind(form_.flexSearch, *results_);
  KeepColumns(*results_, form_.Preferences(), "Columns.flexSearch");
  emptyResult_ = new QLabel(this);
  emptyResult_->setObjectName(QStringLiteral("emptyResult"));
  emptyResult_->setAttribute(Qt::WA_TransparentForMouseEvents);
  emptyResult_->setProperty("hint", true);
  QFont large = font();
  large.setPointSize(12);
  emptyResult_->setFont(large);
  auto* const room = new QGridLayout;
  room->addWidget(results_, 0, 0);
  room->addWidget(emptyResult_, 0, 0, Qt::AlignCenter);
  window.addLayout(room, 1);
  rowsChanged_ = form_.flexSearch.RowsChanged.Subscribe([this](const GridChange&) { ShowEmptyResult(); });
  countChanged_ = form_.lblResultCount.StateChanged.Subscribe([this] { ShowEmptyResult(); });
  ShowEmptyResult();
}

/// Each search starts in the first criterion, not where the last one ended.
void InvSearchWindow::showEvent(QShowEvent* event) {
  FormWindow::showEvent(event);
  if (!event->spontaneous()) Binding().WidgetOf(form_.txtid1)->setFocus(Qt::TabFocusReason);
}

void InvSearchWindow::ShowEmptyResult() {
  const bool empty = form_.flexSearch.Rows() <= 1;
  if (empty) {
    emptyResult_->setText(form_.lblResultCount.Caption().empty()
                              ? QStringLiteral("مشخصات شمارش را وارد كنيد و كليد Enter را بزنيد.")
                              : QStringLiteral("شمارشي با اين مشخصات يافت نشد."));
  }
  emptyResult_->setVisible(empty);
}

void InvSearchWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const QPushButton* const command = FocusedCommand();
  if (enter && (command == nullptr || command == Binding().WidgetOf(form_.cmdSearch))) {
    Search();
  } else if (event->key() == Qt::Key_Escape) {
    form_.cmdExit.UserClick();
  } else {
    FormWindow::keyPressEvent(event);
  }
}

void InvSearchWindow::Search() {
  QWidget* const criterion = focusWidget();
  if (!Binding().Press(form_.cmdSearch, BlockedBy::FiguresAndDates)) return;
  QWidget* const next = form_.flexSearch.Rows() > 1 ? results_ : criterion;
  if (next != nullptr) next->setFocus();
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
