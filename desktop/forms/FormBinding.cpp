#include "desktop/forms/FormBinding.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

#include "desktop/fields/Fields.h"
#include "desktop/forms/WaitingInput.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

/// A field with a remark is marked, and assistive programs read the remark; the tooltip shows it
/// (eventFilter).
void ShowRemark(const Control& control, QWidget& widget) {
  QWidget& shown = widget.focusProxy() == nullptr ? widget : *widget.focusProxy();
  const QString remark = ToQt(control.Remark());
  if (shown.accessibleDescription() == remark) return;
  shown.setAccessibleDescription(remark);
  shown.setProperty("missing", !remark.isEmpty());
  StyleAgain(shown);
}

void ShowToolTip(const Control& control, QWidget& widget, QPoint at) {
  QString text = widget.toolTip();
  if (!text.isEmpty()) text += u'\n';
  QToolTip::showText(at, text + ToQt(control.Remark()), &widget);
}

}  // namespace

FormBinding::FormBinding(Form& form) : form_(&form), listener_(std::make_unique<QObject>()) {
  subscriptions_.push_back(form.FocusChanged.Subscribe([this] { FollowFocus(); }));
  connect(qApp, &QApplication::focusChanged, listener_.get(),
          [this](const QWidget* /*before*/, const QWidget* now) { FocusMoved(now); });
}

FormBinding::~FormBinding() { Detach(); }

void FormBinding::Detach() {
  form_ = nullptr;
  listener_.reset();
  for (QTimer* const timer : findChildren<QTimer*>()) timer->stop();
  subscriptions_.clear();
  controls_.clear();
  widgets_.clear();
  for (GridView* const grid : grids_) grid->SetGrid(nullptr);
  grids_.clear();
  dates_.clear();
  cancel_ = nullptr;
  waiting_.reset();
}

QWidget* FormBinding::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

Control* FormBinding::ControlOf(const QWidget* widget) const {
  for (const QWidget* at = widget; at != nullptr; at = at->parentWidget()) {
    const auto found = controls_.find(at);
    if (found != controls_.end()) return found->second;
    if (at->isWindow()) break;
  }
  return nullptr;
}

void FormBinding::Follow(const Control& control, const std::function<void()>& show) {
  show();
  subscriptions_.push_back(const_cast<Control&>(control).StateChanged.Subscribe(show));
}

void FormBinding::BindCommon(Control& control, QWidget& widget) {
  widget.setObjectName(QString::fromStdString(control.Name()));
  controls_[&widget] = &control;
  widgets_[&control] = &widget;
  widget.installEventFilter(this);
  if (QWidget* const inner = widget.focusProxy()) {
    inner->installEventFilter(this);
    controls_[inner] = &control;
  }
  Follow(control, [&control, &widget] {
    if (widget.isEnabledTo(widget.parentWidget()) != control.Enabled()) widget.setEnabled(control.Enabled());
    if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
  });
  Follow(control, [&control, &widget] { ShowRemark(control, widget); });
  // The form may have set the focus before it had a window.
  if (form_->Focus() == &control) widget.setFocus(Qt::OtherFocusReason);
}

bool FormBinding::eventFilter(QObject* object, QEvent* event) {
  const auto found = controls_.find(object);
  if (found == controls_.end()) return false;
  if (event->type() == QEvent::KeyPress) {
    // A key that an inner field ignores is delivered again, to the widget that contains the field.
    if (static_cast<const QWidget*>(object)->focusProxy() != nullptr) return false;
    found->second->UserKey(PressOf(*static_cast<QKeyEvent*>(event)));
  } else if (event->type() == QEvent::ContextMenu) {
    found->second->UserRightClick();
  } else if (event->type() == QEvent::ToolTip && !found->second->Remark().empty()) {
    auto& widget = static_cast<QWidget&>(*object);
    ShowToolTip(*found->second, widget, static_cast<const QHelpEvent*>(event)->globalPos());
    return true;
  }
  return false;
}

/// The user has moved the focus to another widget.
void FormBinding::FocusMoved(const QWidget* now) {
  Control* const control = ControlOf(now);
  if (control == nullptr || control == form_->Focus()) return;
  form_->RunEvent([this, control] {
    Form* const form = form_;
    if (auto* const grid = dynamic_cast<Grid*>(form->Focus())) grid->UserLeave();
    if (form_ != nullptr) form->SetFocus(*control);
  });
}

/// The form may have moved the focus to another control.
void FormBinding::FollowFocus() {
  if (form_->Focus() == focus_) return;
  focus_ = form_->Focus();
  QWidget* const widget = focus_ == nullptr ? nullptr : WidgetOf(*focus_);
  if (widget == nullptr || widget->isAncestorOf(QApplication::focusWidget())) return;
  widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace koru
