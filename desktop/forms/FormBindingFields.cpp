#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>

#include "desktop/fields/DateBoxEdit.h"
#include "desktop/fields/Fields.h"
#include "desktop/fields/SelectorEdit.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/FormBinding.h"
#include "desktop/forms/WaitingInput.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

/// The interval at which a progress bar is drawn, 25 times a second: a higher rate is not visible.
constexpr int kMsBetweenFrames = 40;

void ShowSteps(QProgressBar& widget, const ProgressBar& control) {
  const QSignalBlocker blocked(widget);
  widget.setRange(0, std::max(control.Max(), 1));
  widget.setValue(std::clamp(control.Value(), 0, widget.maximum()));
}

QString Lines(const std::string& text) {
  return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace

void FormBinding::Bind(Label& control, QLabel& widget) {
  BindCommon(control, widget);
  Follow(control, [&control, &widget] { widget.setText(ToQt(control.Caption())); });
}

void FormBinding::Bind(TextBox& control, QLineEdit& widget) {
  BindCommon(control, widget);
  if (control.MaxLength() != 0) widget.setMaxLength(static_cast<int>(control.MaxLength()));
  const auto show = [&control, &widget] {
    widget.setReadOnly(control.Locked());
    const QString text = ToQt(control.Text());
    if (widget.text() == text) return;
    const QSignalBlocker blocked(widget);
    widget.setText(text);
    if (control.Locked()) widget.setCursorPosition(0);
  };
  Follow(control, show);
  subscriptions_.push_back(control.SelectionChanged.Subscribe([&control, &widget] {
    widget.setSelection(static_cast<int>(control.SelStart()), static_cast<int>(control.SelLength()));
    // The click that gave the field the focus places the cursor after this.
    if (QGuiApplication::mouseButtons() == Qt::NoButton) return;
    QTimer::singleShot(0, &widget, [&widget] { widget.selectAll(); });
  }));
  connect(&widget, &QLineEdit::textEdited, listener_.get(), [&control, show](const QString& text) {
    if (!control.UserType(FromQt(text))) show();
  });
}

void FormBinding::Bind(TextBox& control, QPlainTextEdit& widget) {
  BindCommon(control, widget);
  if (control.MaxLength() != 0) LimitLength(widget, static_cast<int>(control.MaxLength()));
  const auto show = [&control, &widget] {
    if (widget.isReadOnly() != control.Locked()) {
      widget.setReadOnly(control.Locked());
      StyleAgain(widget);
    }
    const QString text = Lines(control.Text());
    if (widget.toPlainText() == text) return;
    const QSignalBlocker blocked(widget);
    widget.setPlainText(text);
  };
  Follow(control, show);
  connect(&widget, &QPlainTextEdit::textChanged, listener_.get(), [&control, &widget, show] {
    if (widget.toPlainText() == Lines(control.Text())) return;
    if (!control.UserType(FromQt(widget.toPlainText()))) show();
  });
}

void FormBinding::Bind(Button& control, QAbstractButton& widget, BlockedBy blockedBy) {
  BindCommon(control, widget);
  Follow(control, [&control, &widget] {
    widget.setText(ToQt(control.Caption()));
    if (widget.property("pale").toBool() == !control.LooksAvailable()) return;
    widget.setProperty("pale", !control.LooksAvailable());
    StyleAgain(widget);
  });
  connect(&widget, &QAbstractButton::clicked, listener_.get(),
          [this, &control, blockedBy] { Press(control, blockedBy); });
}

void FormBinding::BindCancel(Button& control, QAbstractButton& widget) {
  Bind(control, widget, BlockedBy::Nothing);
  widget.setFocusPolicy(Qt::NoFocus);
  cancel_ = &control;
  waiting_ = std::make_unique<WaitingInput>(widget);
  Follow(control, [this, &control] {
    if (!control.Visible()) waiting_->End();
  });
}

/// A grid explains a refused figure itself, and takes the focus back.
/// Whether refused input blocks a command; it then gets the focus.
bool FormBinding::IsBlocked(BlockedBy blockedBy) const {
  const bool typing =
      std::any_of(grids_.begin(), grids_.end(), [](const GridView* grid) { return grid->IsTypedInto(); });
  if (blockedBy != BlockedBy::Nothing && typing) return true;
  const auto refused =
      std::find_if(dates_.begin(), dates_.end(), [](const DateBoxEdit* date) { return date->IsMarked(); });
  if (blockedBy == BlockedBy::FiguresAndDates && refused != dates_.end()) {
    (*refused)->ExplainMark();
    return true;
  }
  return false;
}

bool FormBinding::Press(Button& control, BlockedBy blockedBy) {
  if (IsBlocked(blockedBy)) return false;
  const QPointer<FormBinding> alive(this);  // the command may have destroyed the form
  if (control.Enabled() && control.Visible()) emit commandBegins();
  if (!control.UserClick()) return false;
  if (alive && form_ != nullptr) emit commandDone(control);
  return true;
}

void FormBinding::Bind(CheckBox& control, QCheckBox& widget) {
  BindCommon(control, widget);
  const auto show = [&control, &widget] {
    widget.setText(ToQt(control.Caption()));
    widget.setChecked(control.Checked());
  };
  Follow(control, show);
  connect(&widget, &QAbstractButton::clicked, listener_.get(), [&control, show](bool checked) {
    if (!control.UserCheck(checked)) show();
  });
}

void FormBinding::Bind(OptionButton& control, QRadioButton& widget) {
  BindCommon(control, widget);
  const auto show = [&control, &widget] {
    widget.setText(ToQt(control.Caption()));
    const bool exclusive = widget.autoExclusive();  // an exclusive button cannot be unchecked alone
    widget.setAutoExclusive(false);
    widget.setChecked(control.Chosen());
    widget.setAutoExclusive(exclusive);
  };
  Follow(control, show);
  connect(&widget, &QAbstractButton::clicked, listener_.get(), [&control, show] {
    if (!control.UserChoose()) show();
  });
}

void FormBinding::Bind(ComboBox& control, QComboBox& widget) {
  BindCommon(control, widget);
  KeepFromWheel(widget);
  const auto show = [&control, &widget] {
    const QSignalBlocker blocked(widget);
    const auto& items = control.Items();
    const bool same =
        widget.count() == static_cast<int>(items.size()) &&
        std::equal(items.begin(), items.end(), items.begin(), [&](const auto& item, const auto&) {
          return widget.itemText(static_cast<int>(&item - items.data())) == ToQt(item.text);
        });
    if (!same) {
      widget.clear();
      for (const ComboBox::Item& item : items) widget.addItem(ToQt(item.text), item.itemData);
    }
    widget.setCurrentIndex(control.ListIndex());
  };
  Follow(control, show);
  connect(&widget, &QComboBox::activated, listener_.get(), [&control, show](int index) {
    if (!control.UserChoose(index)) show();
  });
}

void FormBinding::Bind(ProgressBar& control, QProgressBar& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);  // other widgets keep their places when it is shown or hidden
  widget.setSizePolicy(policy);
  BindCommon(control, widget);
  auto* const rest = new QTimer(this);  // NOLINT(cppcoreguidelines-owning-memory)
  rest->setSingleShot(true);
  connect(rest, &QTimer::timeout, listener_.get(), [&control, &widget] { ShowSteps(widget, control); });
  Follow(control, [this, &control, &widget, rest, sinceFrame = QElapsedTimer()]() mutable {
    if (!widget.isVisible()) {
      ShowSteps(widget, control);
      sinceFrame.invalidate();
      return;
    }
    if (!sinceFrame.isValid()) sinceFrame.start();  // work that takes no time needs no frame
    if (!sinceFrame.hasExpired(kMsBetweenFrames)) {
      if (!rest->isActive()) rest->start(kMsBetweenFrames);
      return;
    }
    ShowSteps(widget, control);
    DrawWhileAtWork();
    sinceFrame.start();
  });
}

/// A command runs to its end before any other event is handled. Meanwhile windows are redrawn on request, so
/// that none that was covered stays blank; user input is handled afterwards, unless it cancels the command.
void FormBinding::DrawWhileAtWork() {
  if (atWork_) return;
  const QScopedValueRollback<bool> working(atWork_, true);
  if (cancel_ != nullptr && cancel_->Visible()) {
    waiting_->Process();
  } else {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

void FormBinding::Bind(DateBox& control, DateBoxEdit& widget) {
  BindCommon(control, widget);
  dates_.push_back(&widget);
  const auto show = [&control, &widget] { widget.SetDate(control.Value()); };
  Follow(control, show);
  connect(&widget, &DateBoxEdit::dateChosen, listener_.get(), [&control, show](std::optional<Date> date) {
    control.UserSet(date);
    show();
  });
}

template <class Selecting>
void FormBinding::BindSelector(Selecting& control, SelectorEdit& widget,
                               const std::function<std::vector<SelectorRecord>()>& read,
                               const std::function<std::string()>& nameOf) {
  BindCommon(control, widget);
  struct Shown {
    std::int32_t id = Selector::kNothing;
    std::string connection;
  };
  const auto shown = std::make_shared<Shown>();
  Follow(control, [this, &control, &widget, nameOf, shown] {
    if (shown->id == control.SelectedID() && shown->connection == control.ConnectionString()) return;
    *shown = {control.SelectedID(), control.ConnectionString()};
    // Until the name is known, or if it cannot be read, the key is shown.
    QString text = control.NothingSelected() ? QString() : QString::number(control.SelectedID());
    if (!control.NothingSelected() && !control.ConnectionString().empty()) {
      form_->RunEvent([&] { text = ToQt(nameOf()); });
    }
    widget.SetShown(text, control.SelectedID());
  });
  connect(
      &widget, &SelectorEdit::openRequested, listener_.get(),
      [this, &widget, read](const QString& typed) { form_->RunEvent([&] { widget.Open(read(), typed); }); });
  connect(&widget, &SelectorEdit::recordChosen, listener_.get(),
          [&control](std::int32_t id) { control.UserSelect(id); });
}

void FormBinding::Bind(TreeSelector& control, SelectorEdit& widget, SelectorRecords& records) {
  BindSelector(
      control, widget, [&control, &records] { return records.Tree(control); },
      [&control, &records] { return records.NameOf(control); });
}

void FormBinding::Bind(PersonSelector& control, SelectorEdit& widget, SelectorRecords& records) {
  BindSelector(
      control, widget, [&control, &records] { return records.People(control); },
      [&control, &records] { return records.NameOf(control); });
}

void FormBinding::Bind(Grid& control, GridView& widget) {
  BindCommon(control, widget);
  widget.SetGrid(&control);
  grids_.push_back(&widget);
}

void FormBinding::Bind(MenuItem& control, QAction& action, BlockedBy blockedBy, const QString& keys) {
  action.setObjectName(QString::fromStdString(control.Name()));
  Follow(control, [&control, &action, keys] {
    action.setText(ToQt(control.Caption()) + (keys.isEmpty() ? keys : u'\t' + keys));
    action.setEnabled(control.Enabled());
    action.setVisible(control.Visible());
  });
  connect(&action, &QAction::triggered, listener_.get(), [this, &control, blockedBy] {
    // Other than a button, a menu leaves the editor of a cell open.
    if (blockedBy != BlockedBy::Nothing) {
      for (GridView* grid : grids_) static_cast<void>(grid->FinishEdit());
    }
    if (!IsBlocked(blockedBy)) control.UserClick();
  });
}

void FormBinding::Bind(Timer& control) {
  auto* const timer = new QTimer(this);  // NOLINT(cppcoreguidelines-owning-memory)
  timer->setObjectName(QString::fromStdString(control.Name()));
  Follow(control, [&control, timer] {
    if (timer->interval() != control.IntervalMs()) timer->setInterval(control.IntervalMs());
    if (control.Enabled() && !timer->isActive()) timer->start();
    if (!control.Enabled()) timer->stop();
  });
  connect(timer, &QTimer::timeout, listener_.get(),
          [this, &control, running = std::make_shared<bool>(false)] {
            if (*running || atWork_) return;  // a message about a failure is open, or a command is running
            *running = true;
            control.Fire();
            *running = false;
          });
}

}  // namespace koru
