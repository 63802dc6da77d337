#include "desktop/report/ReportWindow.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "output/frmReport.h"

namespace koru {

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
ReportWindow::ReportWindow(frmReport& form) : FormWindow(form) {
  constexpr int kListWidth = 320;
  auto* const all = new QVBoxLayout(this);
  all->setContentsMargins(16, 16, 16, 16);
  all->setSpacing(12);
  all->setSizeConstraint(QLayout::SetFixedSize);
  auto* const list = new QComboBox(this);
  list->setMinimumWidth(kListWidth);
  auto* const label = new QLabel(QStringLiteral("قالب گزارش:"), this);
  label->setBuddy(list);
  all->addWidget(label);
  all->addWidget(list);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* const print = new QPushButton(this);
  auto* const ok = new QPushButton(this);
  print->setProperty("main", true);
  buttons->addWidget(print);
  buttons->addWidget(ok);
  all->addLayout(buttons);
  Binding().Bind(form.cmbReport, *list);
  Binding().Bind(form.cmdPrint, *print);
  Binding().Bind(form.cmdOk, *ok);
  for (const int enter : {Qt::Key_Return, Qt::Key_Enter}) {
    connect(new QShortcut(enter, this), &QShortcut::activated, print, &QPushButton::click);
  }
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
  list->setFocus();
}
// NOLINTEND(cppcoreguidelines-owning-memory)

}  // namespace koru
