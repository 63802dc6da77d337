#include "desktop/search/CriteriaBox.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "desktop/fields/Fields.h"
#include "desktop/forms/FormBinding.h"

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
CriteriaBox::CriteriaBox(const QString& title, QWidget* parent, int columns)
    : QGroupBox(title, parent), rows_(new QGridLayout(this)), columns_(columns) {
  rows_->setHorizontalSpacing(6);
  rows_->setVerticalSpacing(5);
  for (int column = 0; column < columns_; ++column) rows_->setColumnStretch(2 * column + 1, 1);
}

namespace {

/// Gives the widget that is typed into the name that the label shows, unless it has another one.
void SetName(QLabel& name, QWidget& field) {
  name.setBuddy(&field);
  QWidget& typedInto = field.focusProxy() == nullptr ? field : *field.focusProxy();
  if (typedInto.accessibleName().isEmpty()) typedInto.setAccessibleName(name.text());
}

}  // namespace

QLabel* CriteriaBox::NewName(const QString& text) { return new QLabel(text, this); }

void CriteriaBox::AddRow(const QString& name, QWidget& field) { AddRow(*NewName(name), field); }

void CriteriaBox::AddRow(QLabel& name, QWidget& field) {
  SetName(name, field);
  rows_->addWidget(&name, count_, 0);
  rows_->addWidget(&field, count_++, 1, 1, 2 * columns_ - 1);
}

void CriteriaBox::AddFields(std::initializer_list<std::pair<QLabel*, QWidget*>> fields) {
  int column = 0;
  for (const auto& [name, field] : fields) {
    SetName(*name, *field);
    rows_->addWidget(name, count_, column++);
    rows_->addWidget(field, count_, column++);
  }
  ++count_;
}

void CriteriaBox::AddRange(const QString& name, QWidget& from, QWidget& to) {
  QWidget& typedInto = to.focusProxy() == nullptr ? to : *to.focusProxy();
  typedInto.setAccessibleName(name + QStringLiteral(" تا"));
  AddFields({{NewName(name + QStringLiteral(" از")), &from}, {NewName(QStringLiteral("تا")), &to}});
}

void CriteriaBox::AddLine(std::initializer_list<QWidget*> widgets) {
  auto* const line = new QHBoxLayout;
  line->setSpacing(14);
  for (QWidget* const widget : widgets) line->addWidget(widget);
  line->addStretch();
  rows_->addLayout(line, count_++, 0, 1, 2 * columns_);
}

QPushButton* AddSearchCommand(QBoxLayout& bar, FormBinding& binding, Button& command, const QString& keys,
                              bool main) {
  auto* const button = new QPushButton(bar.parentWidget());
  button->setProperty("main", main);
  button->setAutoDefault(true);
  button->setMinimumWidth(100);
  binding.Bind(command, *button, main ? BlockedBy::FiguresAndDates : BlockedBy::Figures);
  if (!keys.isEmpty()) button->setToolTip(WithKeys(button->text(), keys));
  bar.addWidget(button);
  return button;
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
