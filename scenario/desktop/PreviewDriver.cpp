#include "scenario/desktop/PreviewDriver.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include "scenario/desktop/InputEvents.h"
#include "scenario/desktop/WidgetDriver.h"

namespace koru {

ReportPreview* PreviewInFront() {
  if (auto* const active = qobject_cast<ReportPreview*>(QApplication::activeWindow())) return active;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    auto* const preview = qobject_cast<ReportPreview*>(window);
    if (preview != nullptr && preview->isVisible()) return preview;
  }
  return nullptr;
}

void PressIn(ReportPreview& preview, int key, Qt::KeyboardModifiers held) {
  preview.activateWindow();
  preview.View().setFocus();
  WaitUntil([&] { return preview.isActiveWindow(); });
  PressKey(key, held);
}

void NameFile(QFileDialog& dialog, const QString& file) {
  auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  QPushButton* const save = buttons == nullptr ? nullptr : buttons->button(QDialogButtonBox::Save);
  if (name == nullptr || save == nullptr || !TypeInto(*name, file)) return dialog.reject();
  ClickOn(*save);
}

}  // namespace koru
