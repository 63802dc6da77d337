#pragma once

#include <QWidget>
#include <optional>

#include "platform/text/Date.h"

class QLineEdit;
class QToolButton;

namespace koru {

class CalendarPopup;

/// A Solar Hijri date box: yyyy/mm/dd, typed digit by digit or picked from the calendar (F4, Alt+Down or its
/// button). Delete empties it. A text that is no day stays to be seen, and the field is marked, until the
/// person types another or goes back to the date before with Escape; the form keeps that date meanwhile.
class DateBoxEdit : public QWidget {
  Q_OBJECT

 public:
  explicit DateBoxEdit(QWidget* parent = nullptr);

  void SetDate(std::optional<Date> date);
  [[nodiscard]] std::optional<Date> ShownDate() const { return date_; }

  /// Whether a text that is no day was typed, and the person has not answered to that yet.
  [[nodiscard]] bool IsMarked() const;
  /// Forgets a text that is no day; the date before is shown again.
  void Unmark() { SetDate(date_); }
  /// Gives the field the keyboard and says why it is marked.
  void TellWhyMarked();

 signals:
  /// The person has entered a day or emptied the box.
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
