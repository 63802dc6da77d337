#include "host/AboutDialog.h"

#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/toolkit/QtText.h"
#include "host/Environment.h"
#include "host/HostSession.h"

namespace koru {
namespace {

constexpr int kIconSize = 64;
constexpr int kPathWidth = 420;

}  // namespace

// The widgets belong to their dialog, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
AboutDialog::AboutDialog(const HostSession& session, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("about"));
  setWindowTitle(QStringLiteral("دربارة برنامه"));
  auto* const icon = new QLabel(this);
  icon->setObjectName(QStringLiteral("icon"));
  icon->setPixmap(QApplication::windowIcon().pixmap(kIconSize));
  auto* const title = new QLabel(QStringLiteral("شمارش انبار"), this);
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.4);
  title->setFont(large);
  auto* const form = new QFormLayout;
  const auto add = [&](const char* name, const QString& caption, const QString& value) {
    auto* const text = new QLabel(value, this);
    text->setObjectName(QLatin1String(name));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    text->setMinimumWidth(kPathWidth);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    form->addRow(caption, text);
  };
  const QString mark(QChar(0x200E));  // a path keeps its order among Persian words
  const std::string log = LogSettingsOfEnvironment().path;
  add("version", QStringLiteral("نسخه"), QStringLiteral(KORU_VERSION));
  add("log", QStringLiteral("ثبت دستورها (KORU_LOG)"),
      log.empty() ? QStringLiteral("ثبت نمي\u200cشود") : mark + ToQt(log));
  add("settings", QStringLiteral("تنظيمات"), mark + ToQt(session.SettingsFile().string()));
  auto* const head = new QHBoxLayout;
  head->addWidget(icon);
  head->addWidget(title, 1);
  auto* const close = new QPushButton(QStringLiteral("بستن (Esc)"), this);
  close->setObjectName(QStringLiteral("close"));
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(head);
  layout->addLayout(form);
  layout->addWidget(close, 0, Qt::AlignHCenter);
}
// NOLINTEND(cppcoreguidelines-owning-memory)

}  // namespace koru
