#pragma once

#include <QWidget>
#include <optional>

#include "platform/text/Date.h"

class QLineEdit;
class QToolButton;

namespace koru {

class CalendarPopup;

/// A Solar Hijri date box: yyyy/mm/dd, typed digit by digit or picked from the calendar (F4, Alt+Down or its
/// button). Delete clears it. A text that is not a valid date remains visible and the field is marked, until
/// the user types another or restores the previous date with Escape; the form keeps the previous date
/// meanwhile.
class DateBoxEdit : public QWidget {
  Q_OBJECT

 public:
  explicit DateBoxEdit(QWidget* parent = nullptr);

  void SetDate(std::optional<Date> date);

  /// Whether the field shows a text that is not a valid date.
  [[nodiscard]] bool IsMarked() const;
  /// Discards an invalid text and shows the previous date.
  void Unmark() { SetDate(date_); }
  /// Moves the focus to the field and explains why it is marked.
  void ExplainMark();

 signals:
  /// The user has entered a date or cleared the box.
  void dateChosen(std::optional<koru::Date> date);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool KeyPressed(int key, Qt::KeyboardModifiers held);
  void TakeText();
  void Choose(std::optional<Date> date);
  void ShowText();
  void Mark(bool marked);
  void OpenCalendar();

  QLineEdit* edit_;
  QToolButton* button_;
  CalendarPopup* popup_ = nullptr;
  std::optional<Date> date_;
};

}  // namespace koru
