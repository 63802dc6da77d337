#include "tests/browser/Wait.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace koru::test {

void WaitUntil(const std::function<bool()>& condition, const QString& what, std::chrono::milliseconds limit) {
  const QDeadlineTimer deadline(limit);
  QTimer wakes;
  wakes.start(std::chrono::milliseconds(5));
  QEventLoop loop;
  while (!condition()) {
    if (deadline.hasExpired()) {
      throw BrowserError(QStringLiteral("%1: waited %2 s in vain")
                             .arg(what)
                             .arg(std::chrono::duration_cast<std::chrono::seconds>(limit).count()));
    }
    loop.processEvents(QEventLoop::WaitForMoreEvents);
  }
}

}  // namespace koru::test
