#include "host/SampleProgressWindow.h"

#include <QCoreApplication>
#include <QLabel>
#include <QVBoxLayout>

#include "database/Sample.h"
#include "host/DatabaseCommands.h"

namespace koru {

SampleProgressWindow::SampleProgressWindow() {
  setWindowTitle(QStringLiteral("شمارش انبار"));
  auto* const layout = new QVBoxLayout(this);  // NOLINT(cppcoreguidelines-owning-memory)
  layout->setContentsMargins(24, 20, 24, 20);
  // NOLINTNEXTLINE(cppcoreguidelines-owning-memory)
  layout->addWidget(new QLabel(QStringLiteral("پايگاه دادة نمونه ساخته مي شود..."), this));
  bar_.setRange(0, 100);
  bar_.setMinimumWidth(420);
  layout->addWidget(&bar_);
}

void SampleProgressWindow::Make(const std::string& file) {
  const auto show = [this](int percent) {
    bar_.setValue(percent);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  };
  QWidget::show();
  show(0);
  RemoveLeftovers(file);
  CreateSample(file, show);
  hide();
}

}  // namespace koru
