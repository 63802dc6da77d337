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

/// What of a person's typing holds a command back as long as it stands there refused: a figure that the form
/// did not take into a grid, a text that is no date.
enum class BlockedBy { Nothing, Figures, FiguresAndDates };

/// Ties the controls of a form to the widgets of its window, both ways: a widget shows its control's state
/// from the moment it is bound, and what the person does goes to the control's `User...` operations. What the
/// program changes is shown without coming back as something that the person did. The keyboard's place is the
/// same on both sides. A bound widget carries its control's name as its object name.
///
/// LetGo ends all of it at once; the controls may then go while the widgets are still there.
class FormBinding : public QObject {
  Q_OBJECT

 public:
  explicit FormBinding(Form& form);
  ~FormBinding() override;

  void Bind(Label& control, QLabel& widget);
  void Bind(TextBox& control, QLineEdit& widget);
  void Bind(TextBox& control, QPlainTextEdit& widget);
  void Bind(Button& control, QAbstractButton& widget, BlockedBy blockedBy = BlockedBy::Figures);
  void Bind(CheckBox& control, QCheckBox& widget);
  void Bind(OptionButton& control, QRadioButton& widget);
  void Bind(ComboBox& control, QComboBox& widget);
  void Bind(ProgressBar& control, QProgressBar& widget);
  void Bind(DateBox& control, DateBoxEdit& widget);
  void Bind(TreeSelector& control, SelectorEdit& widget, SelectorRecords& records);
  void Bind(PersonSelector& control, SelectorEdit& widget, SelectorRecords& records);
  void Bind(Grid& control, GridView& widget);
  void Bind(MenuItem& control, QAction& action);
  void Bind(Timer& control);

  /// Presses a command for the person. False when it cannot be pressed or something refused holds it back;
  /// then the keyboard is where that stands.
  bool Press(Button& control, BlockedBy blockedBy);

  [[nodiscard]] QWidget* WidgetOf(const Control& control) const;
  /// The control whose widget is `widget` or holds it; nullptr when none does.
  [[nodiscard]] Control* ControlOf(const QWidget* widget) const;

  void LetGo();

 signals:
  /// A person has pressed the command, and what it does is done.
  void commandDone(const Button& command);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void BindCommon(Control& control, QWidget& widget);
  /// Calls `show` now and whenever the control has changed.
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
      listener_;  ///< receives the widgets' signals; without it nothing reaches the controls
  std::vector<Subscription> subscriptions_;
  std::map<const QObject*, Control*> controls_;
  std::map<const Control*, QWidget*> widgets_;
  std::vector<GridView*> grids_;
  std::vector<DateBoxEdit*> dates_;
  const Control* focus_ = nullptr;
  bool atWork_ = false;  ///< a command runs, and tells how far it is
};

}  // namespace koru
