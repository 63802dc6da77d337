#include "desktop/fields/CalendarPopup.h"

#include <QCalendar>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QSpinBox>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/PopupPlace.h"

namespace koru {
namespace {

/// The years in which Qt's calendar agrees with SolarDate.
constexpr int kFirstYear = 1277;
constexpr int kLastYear = 1435;

/// Room for six weeks with complete weekday names.
constexpr QSize kSize(430, 250);

QDate Shown(Date date) {
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

Date Picked(QDate date) {
  return Date(std::chrono::year(date.year()), std::chrono::month(static_cast<unsigned>(date.month())),
              std::chrono::day(static_cast<unsigned>(date.day())));
}

void ColourWeek(QCalendarWidget& calendar) {
  QTextCharFormat workDay;
  workDay.setForeground(calendar.palette().color(QPalette::Text));
  QTextCharFormat restDay;
  restDay.setForeground(OnDesktop({0xB3, 0x26, 0x1E}));
  for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
    calendar.setWeekdayTextFormat(static_cast<Qt::DayOfWeek>(day), day == Qt::Friday ? restDay : workDay);
  }
}

/// Earlier months are to the right, as earlier dates are.
void TurnArrows(QCalendarWidget& calendar) {
  const std::pair<const char*, Qt::ArrowType> arrows[] = {{"qt_calendar_prevmonth", Qt::RightArrow},
                                                          {"qt_calendar_nextmonth", Qt::LeftArrow}};
  for (const auto& [name, arrow] : arrows) {
    if (auto* const button = calendar.findChild<QToolButton*>(QLatin1String(name)))
      button->setArrowType(arrow);
  }
}

/// A calendar that writes its days in the digits of the date box: the Persian names of months and weekdays
/// come with a locale whose digits are others.
class LatinDays : public QCalendarWidget {
 public:
  using QCalendarWidget::QCalendarWidget;

 protected:
  void paintCell(QPainter* painter, const QRect& cell, QDate date) const override {
    const auto parts = calendar().partsFromDate(date);
    const bool isOfMonth = parts.month == monthShown();
    const bool isSelected = date == selectedDate();
    QColor color = palette().color(isOfMonth ? QPalette::Active : QPalette::Disabled, QPalette::Text);
    const auto dayOfWeek = static_cast<Qt::DayOfWeek>(date.dayOfWeek());
    if (isOfMonth) color = weekdayTextFormat(dayOfWeek).foreground().color();
    if (isSelected) color = palette().color(QPalette::HighlightedText);
    painter->save();
    if (isSelected) painter->fillRect(cell, palette().brush(QPalette::Highlight));
    painter->setPen(color);
    painter->drawText(cell, Qt::AlignCenter, QString::number(parts.day));
    painter->restore();
  }
};

}  // namespace

CalendarPopup::CalendarPopup(QWidget* parent) : QFrame(parent, Qt::Popup) {
  setFrameShape(StyledPanel);
  calendar_ = new LatinDays(this);  // NOLINT(cppcoreguidelines-owning-memory)
  calendar_->setObjectName(QStringLiteral("calendar"));
  const QCalendar jalali(QCalendar::System::Jalali);
  calendar_->setCalendar(jalali);
  calendar_->setLocale(QLocale(QLocale::Persian, QLocale::Iran));
  calendar_->setFirstDayOfWeek(Qt::Saturday);
  calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar_->setDateRange(QDate(kFirstYear, 1, 1, jalali), QDate(kLastYear, 12, 29, jalali));
  ColourWeek(*calendar_);
  TurnArrows(*calendar_);
  if (auto* const year = calendar_->findChild<QSpinBox*>()) year->setLocale(QLocale::c());
  connect(calendar_, &QCalendarWidget::currentPageChanged, this, &CalendarPopup::ShowYear);
  calendar_->setMinimumSize(kSize);
  auto* const layout = new QVBoxLayout(this);  // NOLINT(cppcoreguidelines-owning-memory)
  layout->setContentsMargins(2, 2, 2, 2);
  layout->addWidget(calendar_);
  connect(calendar_, &QCalendarWidget::clicked, this, &CalendarPopup::Pick);
  if (auto* const days = calendar_->findChild<QTableView*>()) days->installEventFilter(this);
}

void CalendarPopup::OpenUnder(const QWidget& field, std::optional<Date> date) {
  const QDate wanted = date ? Shown(*date) : QDate::currentDate();
  const bool known = wanted >= calendar_->minimumDate() && wanted <= calendar_->maximumDate();
  calendar_->setSelectedDate(known ? wanted : QDate::currentDate());
  calendar_->showSelectedDate();
  ShowYear();
  adjustSize();
  move(PopupPlace(field, size()));
  show();
  if (auto* const days = calendar_->findChild<QTableView*>()) days->setFocus();
}

/// The year in the digits of the date box.
void CalendarPopup::ShowYear() {
  auto* const year = calendar_->findChild<QToolButton*>(QStringLiteral("qt_calendar_yearbutton"));
  if (year != nullptr) year->setText(QString::number(calendar_->yearShown()));
}

bool CalendarPopup::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Pick();
      return true;
    }
  }
  return QFrame::eventFilter(object, event);
}

void CalendarPopup::Pick() {
  const QDate date = calendar_->selectedDate();
  hide();
  emit picked(Picked(date));
}

}  // namespace koru
