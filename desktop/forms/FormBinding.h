#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuItem.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"

class QAbstractButton;
class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QRadioButton;
class QWidget;

namespace koru {

class DateBoxEdit;
class GridView;
class SelectorEdit;
class SelectorRecords;
class WaitingInput;

/// The refused input that blocks a command: figures that the form did not accept into a grid, texts that are
/// not valid dates.
enum class BlockedBy { Nothing, Figures, FiguresAndDates };

/// Binds the controls of a form to the widgets of its window in both directions: a bound widget shows its
/// control's state from the start, and user input is passed to the control's `User...` operations. Changes by
/// the program are shown and never passed back as user input. The focus is the same on both sides. The object
/// name of a widget is its control's name. A remark of a control follows its tooltip, and marks a field.
///
/// Detach ends all bindings; the controls may then be destroyed before the widgets.
class FormBinding : public QObject {
  Q_OBJECT

 public:
  explicit FormBinding(Form& form);
  ~FormBinding() override;

  void Bind(Label& control, QLabel& widget);
  void Bind(TextBox& control, QLineEdit& widget);
  void Bind(TextBox& control, QPlainTextEdit& widget);
  void Bind(Button& control, QAbstractButton& widget, BlockedBy blockedBy = BlockedBy::Figures);
  /// Binds the button that cancels a running command: it can be pressed, also by Escape, while the command
  /// moves a progress bar.
  void BindCancel(Button& control, QAbstractButton& widget);
  void Bind(CheckBox& control, QCheckBox& widget);
  void Bind(OptionButton& control, QRadioButton& widget);
  void Bind(ComboBox& control, QComboBox& widget);
  void Bind(ProgressBar& control, QProgressBar& widget);
  void Bind(DateBox& control, DateBoxEdit& widget);
  void Bind(TreeSelector& control, SelectorEdit& widget, SelectorRecords& records);
  void Bind(PersonSelector& control, SelectorEdit& widget, SelectorRecords& records);
  void Bind(Grid& control, GridView& widget);
  /// `keys`: what the menu shows after the caption.
  void Bind(MenuItem& control, QAction& action, BlockedBy blockedBy = BlockedBy::Nothing,
            const QString& keys = {});
  void Bind(Timer& control);

  /// Presses a command for the user. Returns false if it is not available or refused input blocks it; the
  /// focus is then on that input.
  bool Press(Button& control, BlockedBy blockedBy);

  [[nodiscard]] QWidget* WidgetOf(const Control& control) const;
  /// The control bound to `widget` or to one of its parents in the window; nullptr if there is none.
  [[nodiscard]] Control* ControlOf(const QWidget* widget) const;

  void Detach();

 signals:
  /// The user presses the command, which is available and not blocked.
  void commandBegins();
  /// The user has pressed the command and it is complete.
  void commandDone(const Button& command);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  [[nodiscard]] bool IsBlocked(BlockedBy blockedBy) const;
  void BindCommon(Control& control, QWidget& widget);
  /// Calls `show` now and on every StateChanged of the control.
  void Follow(const Control& control, const std::function<void()>& show);
  template <class Selecting>
  void BindSelector(Selecting& control, SelectorEdit& widget,
                    const std::function<std::vector<struct SelectorRecord>()>& read,
                    const std::function<std::string()>& nameOf);
  void DrawWhileAtWork();
  void FocusMoved(const QWidget* now);
  void FollowFocus();

  Form* form_;
  std::unique_ptr<QObject>
      listener_;  ///< the receiver of the widgets' signals: deleting it disconnects the controls
  std::vector<Subscription> subscriptions_;
  std::map<const QObject*, Control*> controls_;
  std::map<const Control*, QWidget*> widgets_;
  std::vector<GridView*> grids_;
  std::vector<DateBoxEdit*> dates_;
  std::unique_ptr<WaitingInput> waiting_;  ///< while a command runs; nullptr in a form without BindCancel
  const Control* cancel_ = nullptr;
  const Control* focus_ = nullptr;
  bool atWork_ = false;  ///< a command is running and reports its progress
};

}  // namespace koru
