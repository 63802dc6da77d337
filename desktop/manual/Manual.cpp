#include "desktop/manual/Manual.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "desktop/manual/Chapters.h"
#include "desktop/manual/ManualWindow.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

bool HasOwnHelp(const QWidget& window) { return window.objectName() == QLatin1String("frmGoodSearch"); }

/// The longest part of a message without a value (a number, a name, a path).
QString FixedPart(const QString& message) {
  static const QRegularExpression value(QStringLiteral("[0-9\u2066-\u2069\u200E:]+|«[^»]*»"));
  const QStringList parts = message.split(value);
  return std::max_element(parts.begin(), parts.end(),
                          [](const QString& one, const QString& other) {
                            return one.trimmed().size() < other.trimmed().size();
                          })
      ->trimmed();
}

}  // namespace

Manual::Manual(const std::filesystem::path& folder, std::function<void(const std::string&)> showFailure)
    : folder_(ToQt(folder.string())), showFailure_(std::move(showFailure)) {
  qApp->installEventFilter(this);
}

Manual::~Manual() { delete window_; }

bool Manual::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !object->isWidgetType()) return false;
  if (static_cast<const QKeyEvent*>(event)->key() != Qt::Key_F1) return false;
  const auto& widget = *static_cast<const QWidget*>(object);
  const QString page = HasOwnHelp(*widget.window()) ? QString() : ChapterOf(widget);
  if (page.isEmpty()) return false;
  OpenFor(widget, page);
  return true;
}

void Manual::OpenFor(const QWidget& widget, const QString& page) {
  const auto* const message = widget.window()->findChild<QLabel*>(QStringLiteral("message"));
  while (QWidget* const popup = QApplication::activePopupWidget()) {
    if (!popup->close()) break;
  }
  Open(page);
  if (message != nullptr && !window_.isNull()) window_->Find(FixedPart(message->text()));
}

void Manual::Open(const QString& page) {
  const QString file = folder_ + QLatin1Char('/') + page.section(QLatin1Char('#'), 0, 0);
  if (!QFileInfo(file).isReadable())
    return showFailure_("اين صفحة راهنما نصب نشده است: " + LeftToRight(FromQt(file)));
  QWidget* const modal = QApplication::activeModalWidget();
  if (window_.isNull() || (modal != nullptr && window_->parentWidget() != modal)) {
    delete window_;
    // Deleted on close. NOLINTNEXTLINE(cppcoreguidelines-owning-memory)
    window_ = new ManualWindow(folder_, showFailure_, modal);
  }
  window_->Show(page);
}

}  // namespace koru
