#pragma once

#include <QFrame>
#include <optional>

#include "platform/text/Date.h"

class QCalendarWidget;

namespace koru {

/// A month of the Solar Hijri calendar that drops down under a date box. Arrows move through the dates, Enter
/// picks one, Escape closes.
class CalendarPopup : public QFrame {
  Q_OBJECT

 public:
  explicit CalendarPopup(QWidget* parent);

  /// Opens under `field` on the month of `date`; on the current month if there is none or its year is outside
  /// the range of Qt's calendar.
  void OpenUnder(const QWidget& field, std::optional<Date> date);

 signals:
  void picked(koru::Date date);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Pick();
  void ShowYear();

  QCalendarWidget* calendar_;
};

}  // namespace koru
