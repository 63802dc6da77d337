#include "desktop/forms/InvCountingHeader.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextOption>

#include "counting/frmInvCounting.h"
#include "desktop/fields/DateBoxEdit.h"
#include "desktop/fields/Fields.h"
#include "desktop/fields/SelectorEdit.h"
#include "desktop/forms/FormBinding.h"
#include "desktop/toolkit/QtText.h"

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

QGridLayout& NewFieldGrid(QGroupBox& box) {
  auto* const grid = new QGridLayout(&box);
  grid->setContentsMargins(4, 4, 4, 4);
  grid->setHorizontalSpacing(5);
  grid->setVerticalSpacing(5);
  return *grid;
}

void AddField(QGridLayout& box, int row, int column, const QString& title, QWidget& field, int columns = 1) {
  auto* const label = new QLabel(title, box.parentWidget());
  label->setBuddy(&field);
  QWidget* const typedInto = field.focusProxy() == nullptr ? &field : field.focusProxy();
  typedInto->setAccessibleName(title);
  box.addWidget(label, row, column);
  box.addWidget(&field, row, column + 1, 1, columns);
}

}  // namespace

InvCountingHeader::InvCountingHeader(frmInvCounting& form, FormBinding& binding, SelectorRecords& records,
                                     QWidget* parent)
    : QWidget(parent), form_(form), binding_(binding), records_(records) {
  auto* const document = new QGroupBox(QStringLiteral("مشخصات شمارش"), this);
  auto* const people = new QGroupBox(QStringLiteral("شمارشگران"), this);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  row->addWidget(document, 2);
  row->addWidget(people, 1);
  AddDocument(NewFieldGrid(*document));
  AddPeople(NewFieldGrid(*people));
}

/// The fields are created in the order of their places, which is also the tab order.
void InvCountingHeader::AddDocument(QGridLayout& box) {
  auto* const key = new QLabel(this);
  key->setProperty("value", true);
  key->setTextInteractionFlags(Qt::TextSelectableByMouse);
  key->setAlignment(kTrueRight);
  key->setMinimumWidth(70);
  binding_.Bind(form_.lblIDVal, *key);
  AddField(box, 0, 0, QStringLiteral("شماره رايانه اي"), *key);
  const auto name = [this, key] {  // a screen reader reads the name of a label, not its text
    key->setAccessibleName(QStringLiteral("شماره رايانه اي: %1").arg(ToQt(form_.lblIDVal.Caption())));
  };
  name();
  keyChanged_ = form_.lblIDVal.StateChanged.Subscribe(name);
  auto* const code = NewCodeField(this, 70);
  binding_.Bind(form_.txtCode, *code);
  AddField(box, 0, 2, QStringLiteral("شماره تاييد شده"), *code);
  auto* const manual = NewCodeField(this, 90);
  binding_.Bind(form_.txtGNO, *manual);
  AddField(box, 0, 4, QStringLiteral("شماره دستي"), *manual);

  auto* const store = new SelectorEdit(this);
  store->SetPlaceholder(QStringLiteral("انتخاب انبار"));
  binding_.Bind(form_.gmpInventory, *store, records_);
  AddField(box, 1, 0, QStringLiteral("انبار"), *store, 3);
  AddDate(box, 1, 4, QStringLiteral("تاريخ تهيه"), form_.gdpReceiveDate);

  AddDate(box, 2, 0, QStringLiteral("از تاريخ"), form_.gdpFromDate);
  AddDate(box, 2, 2, QStringLiteral("تا تاريخ"), form_.gdpToDate);
  auto* const creator = new QLineEdit(this);
  binding_.Bind(form_.txtCreator, *creator);
  AddField(box, 2, 4, QStringLiteral("تهيه كننده"), *creator);

  auto* const notes = new QPlainTextEdit(this);
  notes->setTabChangesFocus(true);
  QTextOption fromTheRight(kTrueRight);
  fromTheRight.setTextDirection(Qt::RightToLeft);
  notes->document()->setDefaultTextOption(fromTheRight);
  notes->setFixedHeight(2 * notes->fontMetrics().lineSpacing() + 14);
  binding_.Bind(form_.txtNotes, *notes);
  AddField(box, 3, 0, QStringLiteral("توضيحات"), *notes, 5);
  for (const int column : {1, 3, 5}) box.setColumnStretch(column, 1);
}

void InvCountingHeader::AddDate(QGridLayout& box, int row, int column, const QString& title, DateBox& date) {
  auto* const field = new DateBoxEdit(this);
  binding_.Bind(date, *field);
  AddField(box, row, column, title, *field);
}

void InvCountingHeader::AddPeople(QGridLayout& box) {
  AddPerson(box, 0, 0, QStringLiteral("شمارشگر اول"), form_.mptCounter1);
  AddPerson(box, 1, 0, QStringLiteral("شمارشگر دوم"), form_.mptCounter2);
  AddPerson(box, 2, 0, QStringLiteral("شمارشگر سوم"), form_.mptCounter3);
  AddPerson(box, 3, 0, QStringLiteral("تاييد كننده"), form_.mptConfirmer);
}

void InvCountingHeader::AddPerson(QGridLayout& box, int row, int column, const QString& title,
                                  PersonSelector& person) {
  auto* const field = new SelectorEdit(this);
  binding_.Bind(person, *field, records_);
  AddField(box, row, column, title, *field);
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
