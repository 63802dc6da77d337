#include "desktop/forms/FormWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

#include "desktop/toolkit/QtText.h"

namespace koru {

FormWindow::FormWindow(Form& form) : form_(&form), binding_(form) {
  setObjectName(ToQt(form.Name()));
  setWindowTitle(ToQt(form.Caption()));
  changed_ = form.StateChanged.Subscribe([this] { ShowTitle(); });
}

QString FormWindow::Title() const {
  return form_->Caption().empty() ? windowTitle() : ToQt(form_->Caption());
}

void FormWindow::ShowTitle() {
  if (form_ != nullptr) setWindowTitle(Title());
}

void FormWindow::ComeToFront() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void FormWindow::Detach() {
  form_ = nullptr;
  changed_.End();
  binding_.Detach();
}

QPushButton* FormWindow::FocusedCommand() const { return qobject_cast<QPushButton*>(focusWidget()); }

/// A button leaves Enter to its window, except in a dialog of the toolkit. A key that is held down presses
/// once.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  QPushButton* const button = FocusedCommand();
  if (!enter || button == nullptr) return QWidget::keyPressEvent(event);
  if (!event->isAutoRepeat()) button->click();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form decides whether to hide or unload
  if (form_ == nullptr) return;
  form_->RunEvent([form = form_] { form->UserClose(); });
}

}  // namespace koru
