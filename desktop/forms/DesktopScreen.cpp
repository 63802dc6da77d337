#include "desktop/forms/DesktopScreen.h"

#include <QApplication>
#include <QCursor>
#include <QEventLoop>
#include <QWindow>
#include <stdexcept>
#include <utility>

#include "desktop/toolkit/WindowPlace.h"

namespace koru {
namespace {

void BringToScreen(FormWindow& window) {
  window.ComeToFront();
  // A long operation shows its progress only in a window that has been painted before.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// A modal form is a dialog: it has no taskbar entry and is not minimised alone.
void SetModal(FormWindow& window, bool modal) {
  if (window.isModal() == modal) return;
  constexpr Qt::WindowFlags kDialog = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                      Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;
  window.setWindowFlags(modal ? kDialog : Qt::Window);
  window.setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
}

}  // namespace

DesktopScreen::~DesktopScreen() { SetCursor(Cursor::Normal); }

void DesktopScreen::Register(std::string formName, Factory factory) {
  factories_.insert_or_assign(std::move(formName), std::move(factory));
}

FormWindow* DesktopScreen::WindowOf(const Form& form) const {
  const auto found = shown_.find(&form);
  return found == shown_.end() ? nullptr : found->second.window.get();
}

void DesktopScreen::SetCursor(Cursor cursor) {
  if (cursor == cursor_) return;
  cursor_ = cursor;
  if (cursor == Cursor::Hourglass) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

void DesktopScreen::Show(Form& form, bool modal) {
  FormWindow* const known = WindowOf(form);
  FormWindow& window = known == nullptr ? MakeWindow(form) : *known;
  if (modal) {
    ShowModal(form, window);
  } else {
    if (!window.isVisible()) SetModal(window, false);
    BringToScreen(window);
  }
}

FormWindow& DesktopScreen::MakeWindow(Form& form) {
  const auto factory = factories_.find(form.Name());
  if (factory == factories_.end())
    throw std::logic_error("no window is registered for the form " + form.Name());
  Shown shown;
  shown.window = factory->second(form);
  FormWindow& window = *shown.window;
  shown.changed = form.StateChanged.Subscribe([&form, &window] {
    if (!form.Visible()) window.hide();
  });
  shown.unloaded = form.Unloaded.Subscribe([this, &form] { Unloaded(form); });
  shown_.insert_or_assign(&form, std::move(shown));
  return window;
}

/// The form may be unloaded during an event of the window, so the window is destroyed later.
void DesktopScreen::Unloaded(const Form& form) {
  auto node = shown_.extract(&form);
  if (node.empty()) return;
  FormWindow* const window = node.mapped().window.release();
  window->Detach();
  window->hide();
  window->deleteLater();
}

void DesktopScreen::ShowModal(Form& form, FormWindow& window) {
  const QWidget* const below = QApplication::activeWindow();
  SetModal(window, true);
  if (below != nullptr && below != &window && below->windowHandle() != nullptr) {
    window.winId();
    window.windowHandle()->setTransientParent(below->windowHandle());
    PutOver(window, *below);
  }
  QEventLoop loop;
  const Subscription hidden = form.StateChanged.Subscribe([&form, &loop] {
    if (!form.Visible()) loop.quit();
  });
  BringToScreen(window);
  if (form.Visible()) loop.exec();
}

}  // namespace koru
