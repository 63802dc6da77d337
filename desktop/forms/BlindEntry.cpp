#include "desktop/forms/BlindEntry.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "desktop/fields/Fields.h"
#include "desktop/grid/GridView.h"
#include "lines/LineColumns.h"

namespace koru {

BlindEntry::BlindEntry(GridView& lines, QObject* parent) : QObject(parent), lines_(lines) {}

void BlindEntry::AddTo(QMenu& menu) {
  QMenu* const counts = menu.addMenu(QStringLiteral("شمارش كور"));
  counts->setObjectName(QStringLiteral("blindEntry"));
  for (int column = LineColumn::FirstCounting; column <= LineColumn::ThirdCounting; ++column) {
    const int number = column - LineColumn::FirstCounting;
    constexpr const char* kCounts[] = {"فقط شمارش اول", "فقط شمارش دوم", "فقط شمارش سوم"};
    QAction* const choice = counts->addAction(QString::fromUtf8(kCounts[number]));
    choice->setObjectName(QStringLiteral("blindEntry%1").arg(number + 1));
    choice->setCheckable(true);
    connect(choice, &QAction::triggered, this, [this, column](bool checked) {
      if (checked) {
        Begin(column);
      } else {
        End();
      }
    });
    switches_.push_back(choice);
  }
}

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
QWidget* BlindEntry::NewNotice(QWidget* parent) {
  auto* const bar = new QWidget(parent);
  bar->setObjectName(QStringLiteral("blindNotice"));
  auto* const layout = new QHBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  QLabel* const sentence = koru::NewNotice({}, bar);
  sentence->setObjectName(QStringLiteral("blindSentence"));
  layout->addWidget(sentence, 1);
  auto* const end = new QPushButton(QStringLiteral("پايان شمارش كور"), bar);
  end->setObjectName(QStringLiteral("endBlindEntry"));
  connect(end, &QPushButton::clicked, this, &BlindEntry::End);
  layout->addWidget(end);
  bar->hide();
  connect(this, &BlindEntry::changed, bar, [this, bar, sentence] {
    sentence->setText(RightToLeft(
        QStringLiteral(
            "شمارش كور روشن است: از رقم‌ها فقط «%1» ديده مي‌شود. "
            "ثبت، چاپ و اكسل مانند هميشه است.")
            .arg(CountTitle())));
    bar->setVisible(IsOn());
  });
  return bar;
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void BlindEntry::Begin(int countColumn) {
  if (lines_.FinishEdit()) column_ = countColumn;
  Show();
}

void BlindEntry::End() {
  if (lines_.FinishEdit()) column_ = -1;
  Show();
}

QString BlindEntry::CountTitle() const {
  return IsOn() ? lines_.Rows().headerData(column_, Qt::Horizontal, Qt::DisplayRole).toString() : QString();
}

bool BlindEntry::Hides(int column) const {
  return IsOn() && column >= LineColumn::FirstCounting && column != column_;
}

int BlindEntry::ColumnToFill() const { return IsOn() ? column_ : LineColumn::FirstCounting; }

void BlindEntry::Show() {
  for (int column = LineColumn::FirstCounting; column < kLineColumns; ++column) {
    lines_.SetConcealed(column, Hides(column));
  }
  lines_.SetFigureColumns(ColumnToFill(), IsOn() ? column_ : LineColumn::AcceptedCounting);
  Grid* const grid = lines_.Rows().Source();
  if (grid != nullptr && grid->Row() > 0 && Hides(grid->Col())) grid->UserMoveTo(grid->Row(), column_);
  for (QWidget* const widget : concealed_) widget->setVisible(!IsOn());
  for (int i = 0; i < static_cast<int>(switches_.size()); ++i) {
    switches_[static_cast<std::size_t>(i)]->setChecked(column_ == LineColumn::FirstCounting + i);
  }
  emit changed();
}

}  // namespace koru
