#include "desktop/forms/FormWindow.h"

#include <QCloseEvent>

#include "desktop/toolkit/QtText.h"

namespace koru {

FormWindow::FormWindow(Form& form) : form_(&form), binding_(form) {
  setObjectName(ToQt(form.Name()));
  setWindowTitle(ToQt(form.Caption()));
  changed_ = form.StateChanged.Subscribe([this] {
    if (!form_->Caption().empty()) setWindowTitle(ToQt(form_->Caption()));
  });
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

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form decides whether to hide or unload
  if (form_ == nullptr) return;
  form_->RunEvent([form = form_] { form->UserClose(); });
}

}  // namespace koru
