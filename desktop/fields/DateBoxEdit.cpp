#include "desktop/fields/DateBoxEdit.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>

#include "desktop/fields/CalendarPopup.h"
#include "desktop/fields/Fields.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

/// The text of an empty masked edit.
constexpr const char* kNoDigits = "//";

}  // namespace

DateBoxEdit::DateBoxEdit(QWidget* parent) : QWidget(parent) {
  edit_ = new QLineEdit(this);  // NOLINT(cppcoreguidelines-owning-memory)
  edit_->setLayoutDirection(Qt::LeftToRight);
  edit_->setInputMask(QStringLiteral("0000/00/00;_"));
  edit_->setMinimumWidth(edit_->fontMetrics().horizontalAdvance(QStringLiteral("0000/00/00")) + 18);
  edit_->installEventFilter(this);
  KeepDigitsLatin(*edit_);
  connect(edit_, &QLineEdit::textEdited, this, [this] { Mark(false); });
  button_ = new QToolButton(this);  // NOLINT(cppcoreguidelines-owning-memory)
  button_->setFocusPolicy(Qt::NoFocus);
  button_->setArrowType(Qt::DownArrow);
  button_->setToolTip(QStringLiteral("تقويم (F4)"));
  connect(button_, &QToolButton::clicked, this, &DateBoxEdit::OpenCalendar);
  auto* const layout = new QHBoxLayout(this);  // NOLINT(cppcoreguidelines-owning-memory)
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(1);
  layout->addWidget(edit_);
  layout->addWidget(button_);
  setFocusProxy(edit_);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void DateBoxEdit::SetDate(std::optional<Date> date) {
  if (date_ == date && !IsMarked()) return;
  Mark(false);
  date_ = date;
  ShowText();
}

bool DateBoxEdit::IsMarked() const { return edit_->property("marked").toBool(); }

void DateBoxEdit::ExplainMark() {
  edit_->setFocus(Qt::OtherFocusReason);
  QToolTip::showText(edit_->mapToGlobal(QPoint(0, edit_->height())), edit_->toolTip(), edit_);
}

void DateBoxEdit::ShowText() { edit_->setText(date_ ? ToQt(SolarText(*date_)) : QString()); }

bool DateBoxEdit::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (KeyPressed(key->key(), key->modifiers())) return true;
  } else if (event->type() == QEvent::FocusIn) {
    // The click places the cursor between the digits after this, but a date is typed from its first digit.
    QTimer::singleShot(0, edit_, &QLineEdit::selectAll);
  } else if (event->type() == QEvent::FocusOut) {
    if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
      TakeText();
      edit_->deselect();
    }
  }
  return QWidget::eventFilter(object, event);
}

bool DateBoxEdit::KeyPressed(int key, Qt::KeyboardModifiers held) {
  if (key == Qt::Key_F4 || (key == Qt::Key_Down && held.testFlag(Qt::AltModifier))) {
    OpenCalendar();
    return true;
  }
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    TakeText();
    return false;  // the window may handle Enter as well
  }
  if (key == Qt::Key_Escape && (edit_->isModified() || IsMarked())) {
    ShowText();
    Mark(false);
    return true;
  }
  if (key == Qt::Key_Delete) {
    edit_->clear();
    Choose(std::nullopt);
    return true;
  }
  return false;
}

void DateBoxEdit::TakeText() {
  if (!edit_->isModified()) return;
  const QString text = edit_->text();
  if (text == QLatin1String(kNoDigits)) {
    Choose(std::nullopt);
    return;
  }
  const std::optional<SolarDate> date = ParseSolar(FromQt(text));
  if (date) {
    Choose(ToGregorian(*date));
    return;
  }
  Mark(true);
}

/// The form may set another date in response (today instead of none): SetDate is then called before the text
/// is shown.
void DateBoxEdit::Choose(std::optional<Date> date) {
  Mark(false);
  date_ = date;
  edit_->setModified(false);
  emit dateChosen(date);
  ShowText();
}

void DateBoxEdit::Mark(bool marked) {
  if (IsMarked() == marked) return;
  edit_->setProperty("marked", marked);
  edit_->setToolTip(marked ? QStringLiteral("اين تاريخ درست نيست و پذيرفته نشد.\nتاريخ درست را بنويسيد؛ "
                                            "تاريخ قبلي: Esc، بدون تاريخ: Delete")
                           : QString());
  StyleAgain(*edit_);
}

void DateBoxEdit::OpenCalendar() {
  TakeText();
  if (popup_ == nullptr) {
    popup_ = new CalendarPopup(this);  // NOLINT(cppcoreguidelines-owning-memory)
    connect(popup_, &CalendarPopup::picked, this, &DateBoxEdit::Choose);
  }
  popup_->OpenUnder(*this, date_);
}

}  // namespace koru
